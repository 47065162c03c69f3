# Optimised across files are the layers that compute and draw: it halves the time of an analysis.  The others mostly call
# these, and to link them so takes minutes.  "." stands for all.
set(STRUTWRIGHT_OPTIMISED_TOGETHER "^(platform|native|model|tiled|analysis|check|statics|files|raster|qt|display|editing)$"
    CACHE STRING "Pattern of the layers that interprocedural optimisation is for")

# strutwright_layer(NAME [FOLDERS ...] SOURCES ... HEADERS ... USES ...)
#
# One folder, one library, one include path. USES names the layers below that the folder may include; what a
# folder does not name it can neither include nor, where layers are shared libraries, link.
# FOLDERS: where the headers lie when it is not the folder itself.
function(strutwright_layer NAME)
  cmake_parse_arguments(ARG "" "" "FOLDERS;SOURCES;HEADERS;USES" ${ARGN})
  add_library(strutwright_${NAME} ${ARG_SOURCES})
  if(NOT ARG_FOLDERS)
    set(ARG_FOLDERS ${CMAKE_CURRENT_SOURCE_DIR})
  endif()
  target_sources(strutwright_${NAME} PUBLIC FILE_SET HEADERS BASE_DIRS ${ARG_FOLDERS} FILES ${ARG_HEADERS})
  target_link_libraries(strutwright_${NAME} PRIVATE strutwright_compiler)
  foreach(USED IN LISTS ARG_USES)
    target_link_libraries(strutwright_${NAME} PUBLIC strutwright_${USED})
  endforeach()
  if(NOT NAME MATCHES "${STRUTWRIGHT_OPTIMISED_TOGETHER}")
    set_target_properties(strutwright_${NAME} PROPERTIES INTERPROCEDURAL_OPTIMIZATION OFF)
  endif()
  if(CMAKE_UNITY_BUILD)
    precompile_headers_later(strutwright_${NAME})
  endif()
  # One command compiles a source for a shared and for a static library, so that ccache serves both.
  set_target_properties(strutwright_${NAME} PROPERTIES DEFINE_SYMBOL "")
  if(BUILD_SHARED_LIBS AND NOT STRUTWRIGHT_SANITIZE)
    target_link_options(strutwright_${NAME} PRIVATE -Wl,-z,defs)
  endif()
endfunction()

# strutwright_always_optimised(SOURCES ...): the numbers that tests need by the million take minutes otherwise.
function(strutwright_always_optimised)
  if(CMAKE_BUILD_TYPE STREQUAL Debug)
    set_source_files_properties(${ARGN} PROPERTIES COMPILE_OPTIONS -O3 SKIP_PRECOMPILE_HEADERS ON)
  endif()
endfunction()
