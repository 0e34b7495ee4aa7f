# Where no tool chain file says it, as on Windows itself.
if(WIN32 AND NOT CORVID_BITS)
  math(EXPR CORVID_BITS "8 * ${CMAKE_SIZEOF_VOID_P}")
endif()

# Compiler rules that hold for every target of this project; packages are built without them.
add_library(corvid_options INTERFACE)
target_compile_features(corvid_options INTERFACE cxx_std_20)
target_include_directories(corvid_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(corvid_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Werror
  # When it optimises, GCC 12 finds null pointers and overlapping copies in its own headers.
  $<IF:$<CONFIG:Debug>,-Wnull-dereference,-Wno-restrict>)

option(CORVID_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
if(CORVID_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

option(CORVID_TRAPS "Let undefined behaviour end Windows test programs, and guard their memory" OFF)
if(CORVID_TRAPS)
  # Hosts may pass any number for a published enumeration; without -fstrict-enums GCC lets them.
  add_compile_options(-fsanitize=undefined -fno-sanitize=enum -fsanitize-undefined-trap-on-error)
endif()

# Several sources to a run of the compiler take a third of the time. Another build compiles each of
# them alone, which shows what it forgets to include and gives the linter its commands: the native
# one for the portable folders, the 64-bit one for those of Windows.
option(CORVID_UNITY_CORE "Compile the portable folders' sources several to a run" OFF)
option(CORVID_UNITY_WINDOWS "Compile those of com and windows several to a run" OFF)

option(CORVID_FUZZ "Build the fuzz targets; needs clang" OFF)
if(CORVID_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link -O1)
endif()

if(WIN32)
  # _WIN32_WINNT 0x0601: Windows 7 is the oldest system with all the calls in use.
  target_compile_definitions(corvid_options INTERFACE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
  add_compile_options(-fstack-protector-strong)
  # The protector's library is linked statically too, so that nothing of the compiler is shipped.
  # Without the time of linking equal sources give equal bytes.
  add_link_options(-fstack-protector-strong -static -Wl,--dynamicbase -Wl,--nxcompat
    -Wl,--no-insert-timestamp)
  if(CORVID_BITS EQUAL 64)
    add_link_options(-Wl,--high-entropy-va)
  else()
    add_link_options(-Wl,--enable-stdcall-fixup)
  endif()
endif()
