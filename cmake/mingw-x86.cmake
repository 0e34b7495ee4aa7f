# Cross-compiles for 32-bit Windows with mingw-w64 (posix threads). Used by the preset
# windows-x86:
#   cmake --preset windows-x86 && cmake --build --preset windows-x86
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)

set(CORVID_TARGET i686-w64-mingw32)
set(CORVID_BITS 32)
set(CMAKE_C_COMPILER ${CORVID_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${CORVID_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${CORVID_TARGET}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${CORVID_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
