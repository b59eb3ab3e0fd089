# SPDX-License-Identifier: Apache-2.0

# The boundary records depend on libc++, so clang++ is picked unless the caller
# names a compiler. Included before project(). A project around this one has chosen
# for both.
if(NOT CMAKE_SOURCE_DIR STREQUAL CMAKE_CURRENT_SOURCE_DIR)
  return()
endif()

if(NOT CMAKE_CXX_COMPILER AND "$ENV{CXX}" STREQUAL "" AND NOT CMAKE_TOOLCHAIN_FILE)
  find_program(ZEL_CLANGXX NAMES clang++ clang++-14)
  if(NOT ZEL_CLANGXX)
    message(FATAL_ERROR "clang++ not found: run scripts/install-deps.sh, or pass -DCMAKE_CXX_COMPILER=")
  endif()
  set(CMAKE_CXX_COMPILER ${ZEL_CLANGXX})
endif()

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Debug, RelWithDebInfo or Release")
endif()
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g" CACHE STRING "Flags of the optimised build")
