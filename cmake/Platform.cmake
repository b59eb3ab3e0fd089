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
