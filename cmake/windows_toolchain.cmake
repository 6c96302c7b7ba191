# Builds for Windows on Debian, with g++-mingw-w64-x86-64-posix: the compiler whose threads are those
# of the standard library.
#
# CORVANE_WINDOWS_LIBRARIES names the folder that the libraries for Windows are installed in;
# scripts/windows makes it. Nothing of the system that builds is found in their place.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CORVANE_WINDOWS_LIBRARIES)
set(CMAKE_FIND_ROOT_PATH ${CORVANE_WINDOWS_LIBRARIES} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One file that needs no other beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
