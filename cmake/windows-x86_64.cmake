# Cross-compiles for 64-bit Windows.
# STRUTWRIGHT_WINDOWS_PARTS in the environment: the folder in which tools/windows-parts has put Qt for Windows, and
# copies of the libraries that are headers alone; those of this system must not be found.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
if(DEFINED ENV{STRUTWRIGHT_WINDOWS_PARTS})
  list(APPEND CMAKE_FIND_ROOT_PATH $ENV{STRUTWRIGHT_WINDOWS_PARTS})
  # Qt's tools are programs of this system.
  set(QT_HOST_PATH /usr)
  set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
