# SPDX-License-Identifier: Apache-2.0

# Cross-builds for 64-bit Arm against the packages that scripts/arm64-sysroot.sh
# unpacks, and runs the programs under emulation.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/arm64-sysroot)
cmake_path(NORMAL_PATH CMAKE_SYSROOT)

set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET aarch64-linux-gnu)
set(CMAKE_CXX_FLAGS_INIT -stdlib=libc++)
set(CMAKE_EXE_LINKER_FLAGS_INIT -fuse-ld=lld)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -fuse-ld=lld)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -fuse-ld=lld)

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

find_program(ZEL_QEMU qemu-aarch64 REQUIRED)  # by its path: a test may run without PATH
set(CMAKE_CROSSCOMPILING_EMULATOR ${ZEL_QEMU} -L ${CMAKE_SYSROOT})
