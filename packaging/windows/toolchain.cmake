# Programs for 64-bit Windows by Debian's MinGW. Libraries and headers come from the compiler's own folder and from
# SBD_WINDOWS_ROOTS (a list of folders, also read from the environment), never from this machine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT SBD_WINDOWS_ROOTS)
    set(SBD_WINDOWS_ROOTS "$ENV{SBD_WINDOWS_ROOTS}")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES SBD_WINDOWS_ROOTS)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${SBD_WINDOWS_ROOTS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's generators run here.
set(QT_HOST_PATH /usr CACHE PATH "Qt of this machine, of the same version")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH "CMake files of that Qt")
