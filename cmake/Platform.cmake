# On a device, liblog and libcutils are the platform's; elsewhere devkit/platform
# takes their place under the same names, headers and symbols.
if(ANDROID)
  set(zel_devkit_default OFF)
else()
  set(zel_devkit_default ON)
endif()
option(ZELTARN_DEVKIT "Build what makes the plug-in usable without a device" ${zel_devkit_default})
option(ZELTARN_BENCH "Build the benchmark" ${zel_devkit_default})
option(ZELTARN_FUZZ "Build the fuzzers; needs the devkit" OFF)

if(NOT ANDROID)
  add_subdirectory(devkit/platform)
endif()

# An NDK has liblog, but neither libcutils nor its header.
set(ZELTARN_PLATFORM "" CACHE PATH
  "On Android without a platform tree: a folder with include/cutils/properties.h and lib/libcutils.so")
if(ANDROID AND ZELTARN_PLATFORM)
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
