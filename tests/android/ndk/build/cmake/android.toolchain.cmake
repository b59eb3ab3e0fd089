# SPDX-License-Identifier: Apache-2.0

# A stand-in for the NDK's toolchain file: takes the variables that the preset "android"
# sets, and compiles for 64-bit Arm with Debian's packages (scripts/arm64-sysroot.sh).
foreach(expected ANDROID_ABI=arm64-v8a ANDROID_STL=c++_shared ANDROID_PLATFORM=android-30)
  string(REPLACE = ";" expected ${expected})
  list(GET expected 0 name)
  list(GET expected 1 value)
  if(NOT ${name} STREQUAL value)
    message(FATAL_ERROR "${name} is \"${${name}}\" instead of \"${value}\"")
  endif()
  list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ${name})
endforeach()

set(CMAKE_SYSTEM_NAME Android)
set(CMAKE_SYSTEM_VERSION 1)  # keeps CMake from looking for an NDK itself
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../../../../../build/arm64-sysroot)
cmake_path(NORMAL_PATH CMAKE_SYSROOT)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_FLAGS_INIT -stdlib=libc++)
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -fuse-ld=lld)
