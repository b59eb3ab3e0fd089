# SPDX-License-Identifier: Apache-2.0

# What `cmake --install` installs, by component:
#   plugin       what ships on a device
#   development  headers, CMake package, pkg-config file, guides and examples
#   devkit       stand-ins, reference libraries, sample panels and zelctl
# Everything finds everything else from where it stands, so that a prefix can be moved.
include(CMakePackageConfigHelpers)

# Built as they are installed: a path that is rewritten on the way would end in an empty
# part, which is the current folder.
function(zel_looks_beside_itself TARGET)
  set_target_properties(${TARGET} PROPERTIES INSTALL_RPATH $ORIGIN BUILD_WITH_INSTALL_RPATH ON)
endfunction()

if(NOT ANDROID)
  zel_looks_beside_itself(zeltarn)
endif()
install(TARGETS zeltarn
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT plugin)

install(TARGETS zeltarn_headers zeltarn_host zeltarn_library EXPORT zeltarn
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zeltarn COMPONENT development)
set(zel_package ${CMAKE_INSTALL_LIBDIR}/cmake/zeltarn)
install(EXPORT zeltarn NAMESPACE zeltarn:: FILE zeltarnConfig.cmake
  DESTINATION ${zel_package} COMPONENT development)
write_basic_package_version_file(zeltarnConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zeltarnConfigVersion.cmake
  DESTINATION ${zel_package} COMPONENT development)

set(zel_pkgconfig ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}/${zel_pkgconfig} OUTPUT_VARIABLE zel_to_prefix)
if(NOT ANDROID)
  set(zel_stdlib -stdlib=libc++)
endif()
configure_file(cmake/zeltarn.pc.in zeltarn.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/zeltarn.pc
  DESTINATION ${zel_pkgconfig} COMPONENT development)

install(DIRECTORY docs examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)
install(FILES README.md CHANGELOG.md CONTRIBUTING.md LICENSE
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT development)

if(ZELTARN_DEVKIT)
  set(zel_devkit_libraries zel_log zel_cutils tarn-json-mode-parser tarn-algo)
  foreach(library IN LISTS zel_devkit_libraries)
    zel_looks_beside_itself(${library})
  endforeach()
  install(TARGETS ${zel_devkit_libraries}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT devkit)
  install(TARGETS zelctl RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT devkit)
  install(DIRECTORY devkit/panels
    DESTINATION ${CMAKE_INSTALL_DATADIR}/zeltarn COMPONENT devkit)
  install(FILES devkit/zelctl/zelctl.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT devkit)
  install(FILES devkit/zelctl/completion/zelctl
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT devkit)
endif()
