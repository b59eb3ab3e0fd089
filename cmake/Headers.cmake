# SPDX-License-Identifier: Apache-2.0

# The public headers, for those outside: zeltarn::host for authors of a host,
# zeltarn::library for authors of a run-time library. A file of this list includes files
# of this list only.
add_library(zeltarn_headers INTERFACE)
target_sources(zeltarn_headers INTERFACE FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES
  bridge/library.h
  bridge/tarn_intf.h
  bridge/zel_ids.h
  convert/blob_config.h
  convert/dither_config.h
  convert/gamut_gamma_config.h
  convert/hw_config_payload.h
  convert/pa_de_config.h
  handlers/color_transform_matrix.h
  handlers/post_blend_hw_config.h
  interface/host.h
  interface/payload.h
  interface/record.h
  interface/result_codes.h
  interface/vc_ids.h
  interface/vc_post_blend_interface.h
  modes/color_mode.h
  modes/mode_op_params.h
  pcc/pcc_config.h
  pcc/pcc_merge.h
  plugin/block_names.h
  plugin/names.h)
# For a CMake before 3.23 outside, which knows no file sets.
target_include_directories(zeltarn_headers INTERFACE
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zeltarn>)
target_compile_features(zeltarn_headers INTERFACE cxx_std_17)

# Where libc++ isn't the compiler's own standard library.
set(zel_needs_flag $<NOT:$<PLATFORM_ID:Android>>)
target_compile_options(zeltarn_headers INTERFACE
  $<$<AND:$<COMPILE_LANG_AND_ID:CXX,Clang>,${zel_needs_flag}>:-stdlib=libc++>)
target_link_options(zeltarn_headers INTERFACE
  $<$<AND:$<LINK_LANG_AND_ID:CXX,Clang>,${zel_needs_flag}>:-stdlib=libc++>)

add_library(zeltarn_host INTERFACE)
target_link_libraries(zeltarn_host INTERFACE zeltarn_headers ${CMAKE_DL_LIBS})
add_library(zeltarn_library INTERFACE)
target_link_libraries(zeltarn_library INTERFACE zeltarn_headers)

foreach(name headers host library)
  add_library(zeltarn::${name} ALIAS zeltarn_${name})
  set_target_properties(zeltarn_${name} PROPERTIES EXPORT_NAME ${name})
endforeach()
