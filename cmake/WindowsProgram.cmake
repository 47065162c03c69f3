# strutwright_windows_program(TARGET DESCRIPTION ICON name [WINDOW])
#
# On Windows: gives a program its icon, its version and the manifest by which it reads paths and texts as UTF-8, may use
# paths of any length and is drawn at the density of the screen it is on.  Elsewhere nothing.
# ICON: the name of a picture of the target windows_icons.  WINDOW: no console opens beside its window.
function(strutwright_windows_program TARGET DESCRIPTION)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(ARG "WINDOW" "ICON" "" ${ARGN})
  set(FILE_NAME ${TARGET})
  get_target_property(OUTPUT_NAME ${TARGET} OUTPUT_NAME)
  if(OUTPUT_NAME)
    set(FILE_NAME ${OUTPUT_NAME})
  endif()
  set(ICON ${PROJECT_BINARY_DIR}/icons/${ARG_ICON}.ico)
  set(RESOURCES ${CMAKE_CURRENT_BINARY_DIR}/${TARGET}.rc)
  configure_file(${PROJECT_SOURCE_DIR}/packaging/windows/program.rc.in ${RESOURCES} @ONLY)
  target_sources(${TARGET} PRIVATE ${RESOURCES})
  set_source_files_properties(${RESOURCES} PROPERTIES
    OBJECT_DEPENDS "${ICON};${PROJECT_SOURCE_DIR}/packaging/windows/program.manifest")
  add_dependencies(${TARGET} windows_icons)
  if(ARG_WINDOW)
    set_target_properties(${TARGET} PROPERTIES WIN32_EXECUTABLE ON)
  endif()
endfunction()
