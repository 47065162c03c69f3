# Icons are drawn as SVG and shown as PNG: each in the sizes that it has on screens of the usual densities.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(ICON_FOLDER ${PROJECT_BINARY_DIR}/icons)

# strutwright_icon(NAME SVG SIZES ...): renders it as icons/NAME/SIZE.png in the build, a size each.
function(strutwright_icon NAME SVG)
  foreach(SIZE IN LISTS ARGN)
    set(PNG ${ICON_FOLDER}/${NAME}/${SIZE}.png)
    add_custom_command(OUTPUT ${PNG} COMMAND ${RSVG_CONVERT} -w ${SIZE} -h ${SIZE} -o ${PNG} ${SVG} DEPENDS ${SVG} VERBATIM)
  endforeach()
  file(MAKE_DIRECTORY ${ICON_FOLDER}/${NAME})
endfunction()

# strutwright_icon_resource(TARGET PNGS ...): makes them the resource `icons` of a target, as :/icons/NAME/SIZE.png.
function(strutwright_icon_resource TARGET)
  set(LIST ${ICON_FOLDER}/icons.qrc)
  set(SOURCE ${ICON_FOLDER}/qrc_icons.cpp)
  list(TRANSFORM ARGN REPLACE "(.+)" "<file>\\1</file>" OUTPUT_VARIABLE FILES)
  list(JOIN FILES "\n" FILES)
  file(CONFIGURE OUTPUT ${LIST} CONTENT "<RCC><qresource prefix=\"/icons\">\n@FILES@\n</qresource></RCC>\n" @ONLY)
  list(TRANSFORM ARGN PREPEND ${ICON_FOLDER}/ OUTPUT_VARIABLE PNGS)
  add_custom_command(OUTPUT ${SOURCE} COMMAND Qt6::rcc --name icons -o ${SOURCE} ${LIST} DEPENDS ${LIST} ${PNGS} VERBATIM)
  set_source_files_properties(${SOURCE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_sources(${TARGET} PRIVATE ${SOURCE})
endfunction()

# strutwright_windows_icons(NAMES ...): the target windows_icons makes icons/NAME.ico in the build, as programs and
# installers for Windows take them.
function(strutwright_windows_icons)
  find_program(ICOTOOL icotool REQUIRED)
  foreach(NAME IN LISTS ARGN)
    set(ICO ${ICON_FOLDER}/${NAME}.ico)
    set(SMALL 16 20 24 32 48 64)
    list(TRANSFORM SMALL REPLACE "(.+)" "${ICON_FOLDER}/${NAME}/\\1.png")
    set(LARGE ${ICON_FOLDER}/${NAME}/256.png)
    add_custom_command(OUTPUT ${ICO} COMMAND ${ICOTOOL} -c -o ${ICO} ${SMALL} --raw=${LARGE} DEPENDS ${SMALL} ${LARGE} VERBATIM)
    list(APPEND ICOS ${ICO})
  endforeach()
  add_custom_target(windows_icons DEPENDS ${ICOS})
endfunction()
