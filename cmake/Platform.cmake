# SPDX-License-Identifier: Apache-2.0

# On a device, liblog and libcutils are the platform's; elsewhere devkit/platform
# takes their place under the same file names, headers and symbols.
if(ANDROID)
  set(ZEL_PLATFORM_LIBRARIES log cutils)
else()
  add_subdirectory(devkit/platform)
  set(ZEL_PLATFORM_LIBRARIES zel_log zel_cutils)
endif()

# A project around this one gets the plug-in and the headers, unless it asks for more.
if(PROJECT_IS_TOP_LEVEL AND NOT ANDROID)
  set(zel_whole_default ON)
else()
  set(zel_whole_default OFF)
endif()
option(ZELTARN_DEVKIT "Build what makes the plug-in usable without a device" ${zel_whole_default})
option(ZELTARN_TESTS "Build the tests" ${zel_whole_default})
option(ZELTARN_BENCH "Build the benchmark" ${zel_whole_default})
option(ZELTARN_FUZZ "Build the fuzzers; needs the devkit" OFF)
option(ZELTARN_INSTALL "Say what `cmake --install` installs" ${PROJECT_IS_TOP_LEVEL})

# An NDK has liblog, but neither libcutils nor its header.
if(ANDROID)
  set(ZELTARN_PLATFORM "" CACHE PATH
    "Folder with include/cutils/properties.h and lib/libcutils.so, for want of a platform tree")
endif()
if(ZELTARN_PLATFORM)
  foreach(file include/cutils/properties.h lib/libcutils.so)
    if(NOT EXISTS ${ZELTARN_PLATFORM}/${file})
      message(FATAL_ERROR "${ZELTARN_PLATFORM}/${file} not found: see docs/building-for-android.md")
    endif()
  endforeach()
  add_library(cutils SHARED IMPORTED)
  set_target_properties(cutils PROPERTIES
    IMPORTED_LOCATION ${ZELTARN_PLATFORM}/lib/libcutils.so
    INTERFACE_INCLUDE_DIRECTORIES ${ZELTARN_PLATFORM}/include)
endif()
