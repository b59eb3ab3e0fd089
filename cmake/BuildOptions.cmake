# SPDX-License-Identifier: Apache-2.0

# What every target of the project is built with, as the interface target
# zel_options, and the helper that hides a library's symbols.
include(CheckCXXSourceCompiles)

if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  message(FATAL_ERROR "zeltarn builds with clang++ only: pass -DCMAKE_CXX_COMPILER=clang++ in a new build folder")
endif()

set(CMAKE_REQUIRED_FLAGS -stdlib=libc++)
check_cxx_source_compiles("#include <string>
  static_assert(sizeof(std::string) == 24);
  int main() { return 0; }" ZEL_HAVE_LIBCXX)
unset(CMAKE_REQUIRED_FLAGS)
if(NOT ZEL_HAVE_LIBCXX)
  message(FATAL_ERROR "libc++ not found: run scripts/install-deps.sh, or install libc++-dev and libc++abi-dev")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_LIBRARY_OUTPUT_DIRECTORY)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
endif()
if(NOT CMAKE_RUNTIME_OUTPUT_DIRECTORY)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endif()

# Libraries look beside themselves, programs in the lib folder; RUNPATH rather
# than RPATH, so that LD_LIBRARY_PATH still wins.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

# Also for what is built from Debian's sources (GoogleTest).
add_compile_options(-stdlib=libc++)
add_link_options(-stdlib=libc++ -Wl,--enable-new-dtags)

set(ZELTARN_SANITIZER "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
if(ZELTARN_SANITIZER)
  add_compile_options(-fsanitize=${ZELTARN_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ZELTARN_SANITIZER})
endif()

option(ZELTARN_WERROR "Treat warnings as errors, as the presets do" OFF)

add_library(zel_options INTERFACE)
target_include_directories(zel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(zel_options INTERFACE
  $<$<BOOL:${ZELTARN_WERROR}>:-Werror>
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wcast-qual -Wformat=2 -Wnull-dereference
  -Wimplicit-fallthrough -Wextra-semi -Wundef -Wvla
  # Each product rounds on its own, on Arm too: colour results are bit-equal everywhere,
  # but for the bits of a NaN.
  -ffp-contract=off
  -fstack-protector-strong
  # So that the cost of a call does not depend on where the linker puts it.
  -falign-functions=32)
if(CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
  target_compile_options(zel_options INTERFACE -mbranch-protection=standard)
endif()
target_link_options(zel_options INTERFACE -Wl,-z,relro,-z,now -Wl,-z,noexecstack)
if(NOT ZELTARN_SANITIZER)
  set(zel_optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(zel_options INTERFACE
    $<${zel_optimised}:-U_FORTIFY_SOURCE> $<${zel_optimised}:-D_FORTIFY_SOURCE=2>)
  target_link_options(zel_options INTERFACE -Wl,-z,defs)
endif()

# Leaves what the version script FILE names as the only exported names of the shared
# library TARGET.
function(zel_export TARGET FILE)
  target_link_options(${TARGET} PRIVATE -Wl,--version-script=${FILE})
  set_target_properties(${TARGET} PROPERTIES LINK_DEPENDS ${FILE})
endfunction()

# The same for one SYMBOL.
function(zel_export_only TARGET SYMBOL)
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${TARGET}.map)
  file(CONFIGURE OUTPUT ${script} CONTENT "{ global: @SYMBOL@; local: *; };\n" @ONLY)
  zel_export(${TARGET} ${script})
endfunction()
