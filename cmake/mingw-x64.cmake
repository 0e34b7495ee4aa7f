# Cross-compiles for 64-bit Windows with mingw-w64 (posix threads). Used by the preset
# windows-x64:
#   cmake --preset windows-x64 && cmake --build --preset windows-x64
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CORVID_TARGET x86_64-w64-mingw32)
set(CORVID_BITS 64)
set(CMAKE_C_COMPILER ${CORVID_TARGET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${CORVID_TARGET}-g++-posix)
set(CMAKE_RC_COMPILER ${CORVID_TARGET}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${CORVID_TARGET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
