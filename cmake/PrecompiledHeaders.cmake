# The standard library, Qt and GoogleTest take longer to read than our sources.  They are read once for all targets that
# are compiled alike: programs and tests, with Qt and without.
#
# Where each source is compiled by itself (without STRUTWRIGHT_UNITY) it has to find what it needs by its own includes; only
# tests then have GoogleTest and what comes with it, without which they take twice as long.

set(STANDARD_HEADERS algorithm array cmath cstddef cstdint filesystem functional limits map memory optional set span sstream
    stdexcept string string_view utility variant vector)
set(QT_HEADERS QAction QApplication QCheckBox QColor QComboBox QDialog QGridLayout QGroupBox QHBoxLayout QHeaderView QImage
    QKeyEvent QLabel QLineEdit QMenu QMouseEvent QPainter QPushButton QRadioButton QScrollBar QSignalBlocker QSpinBox
    QSplitter QString QTimer QVBoxLayout QWidget)
set(TEST_HEADERS gmock/gmock.h gtest/gtest.h filesystem fstream functional random regex sstream string vector)

if(NOT STRUTWRIGHT_ENGINE_ONLY)
  find_package(Qt6 6.4 COMPONENTS Widgets REQUIRED)
endif()

# Whether a target uses Qt Widgets, itself or by what it uses.
function(uses_qt_widgets TARGET RESULT)
  get_target_property(LIBRARIES ${TARGET} LINK_LIBRARIES)
  set(FOUND FALSE)
  if(Qt6::Widgets IN_LIST LIBRARIES)
    set(FOUND TRUE)
  endif()
  list(FILTER LIBRARIES INCLUDE REGEX "^strutwright_")
  foreach(LIBRARY IN LISTS LIBRARIES)
    if(NOT FOUND)
      uses_qt_widgets(${LIBRARY} FOUND)
    endif()
  endforeach()
  set(${RESULT} ${FOUND} PARENT_SCOPE)
endfunction()

# Gives a target the precompiled headers of its kind, which the first of that kind makes.
function(precompile_headers TARGET)
  set(NAME strutwright)
  set(HEADERS)
  if(CMAKE_UNITY_BUILD)
    set(HEADERS ${STANDARD_HEADERS})
  endif()
  set(LIBRARIES strutwright_compiler)
  uses_qt_widgets(${TARGET} WITH_QT)
  if(WITH_QT)
    string(APPEND NAME _qt)
    if(CMAKE_UNITY_BUILD)
      list(APPEND HEADERS ${QT_HEADERS})
    endif()
    list(APPEND LIBRARIES Qt6::Widgets)
  endif()
  if("${TARGET}" MATCHES "^test_")
    string(APPEND NAME _test)
    list(APPEND HEADERS ${TEST_HEADERS})
    list(APPEND LIBRARIES GTest::gmock strutwright_test_options)
  endif()
  string(APPEND NAME _headers)

  if(NOT TARGET ${NAME})
    add_library(${NAME} OBJECT ${PROJECT_SOURCE_DIR}/cmake/PrecompiledHeaders.cpp)
    target_link_libraries(${NAME} PRIVATE ${LIBRARIES})
    # With the times of files in them, they would be others in each build, and so would all that ccache holds.
    target_compile_options(${NAME} PRIVATE $<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>)
    list(TRANSFORM HEADERS REPLACE "(.+)" "<\\1>")
    target_precompile_headers(${NAME} PRIVATE ${HEADERS})
  endif()
  target_precompile_headers(${TARGET} REUSE_FROM ${NAME})
endfunction()

# The same when all targets are known, at the end of the configuration.
function(precompile_headers_later TARGET)
  cmake_language(EVAL CODE "cmake_language(DEFER DIRECTORY [[${PROJECT_SOURCE_DIR}]] CALL precompile_headers ${TARGET})")
endfunction()
