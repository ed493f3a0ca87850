# Cross-builds for 64-bit Windows with Debian's mingw-w64 and the libraries that
# scripts/windows-libraries makes; scripts/test-windows runs the result under wine.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The posix flavour: the run-time look-ups use std::thread.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# The folder that scripts/windows-libraries fills.
if(DEFINED ENV{DG_WINDOWS_LIBRARIES})
  set(DG_WINDOWS_LIBRARIES $ENV{DG_WINDOWS_LIBRARIES})
elseif(DEFINED ENV{XDG_CACHE_HOME})
  set(DG_WINDOWS_LIBRARIES $ENV{XDG_CACHE_HOME}/dealergauge-windows)
else()
  set(DG_WINDOWS_LIBRARIES $ENV{HOME}/.cache/dealergauge-windows)
endif()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${DG_WINDOWS_LIBRARIES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Qt's code generators run on the build machine and come from its own Qt, of the same version but for
# the packager's suffix.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
list(PREPEND CMAKE_PREFIX_PATH ${DG_WINDOWS_LIBRARIES}/qt)
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
set(QT_NO_PACKAGE_VERSION_CHECK TRUE)
set(ZLIB_USE_STATIC_LIBS ON)
