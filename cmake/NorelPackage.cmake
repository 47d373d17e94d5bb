# Installs the files for find_package(norel-payloads CONFIG) and for pkg-config.

include(CMakePackageConfigHelpers)

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/norel-payloads)
install(EXPORT norel-payloads
    FILE norel-payloads-targets.cmake
    NAMESPACE norel::
    DESTINATION ${packageFolder})
configure_package_config_file(cmake/norel-payloads-config.cmake.in norel-payloads-config.cmake
    INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(norel-payloads-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES
        ${CMAKE_CURRENT_BINARY_DIR}/norel-payloads-config.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/norel-payloads-config-version.cmake
    DESTINATION ${packageFolder})

file(RELATIVE_PATH NOREL_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/norel-payloads.pc.in norel-payloads.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/norel-payloads.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(WIN32)
    include(NorelWindowsPackage)
endif()
