# Installs the documentation and the files for find_package(norel-payloads CONFIG) and for pkg-config.
#
# Components of the installation: runtime (the shared libraries), development (what is needed to compile and link with
# them), application (payload-profiles) and documentation.

include(CMakePackageConfigHelpers)

set(packageFolder ${CMAKE_INSTALL_LIBDIR}/cmake/norel-payloads)
install(EXPORT norel-payloads
    FILE norel-payloads-targets.cmake
    NAMESPACE norel::
    DESTINATION ${packageFolder}
    COMPONENT development)
configure_package_config_file(cmake/norel-payloads-config.cmake.in norel-payloads-config.cmake
    INSTALL_DESTINATION ${packageFolder})
write_basic_package_version_file(norel-payloads-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES
        ${CMAKE_CURRENT_BINARY_DIR}/norel-payloads-config.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/norel-payloads-config-version.cmake
    DESTINATION ${packageFolder}
    COMPONENT development)

file(RELATIVE_PATH NOREL_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
get_property(libraries GLOBAL PROPERTY NOREL_LIBRARIES)
list(REVERSE libraries) # a linker wants each archive before those that it needs
list(TRANSFORM libraries PREPEND -l OUTPUT_VARIABLE NOREL_PC_LIBS)
list(JOIN NOREL_PC_LIBS " " NOREL_PC_LIBS)
set(NOREL_PC_DEFINITIONS)
set(NOREL_PC_REQUIRES)
if(NOT BUILD_SHARED_LIBS) # not Requires.private, which asks for all that a static HTTP library would need
    foreach(library IN LISTS libraries)
        get_target_property(definitions ${library} INTERFACE_COMPILE_DEFINITIONS)
        string(APPEND NOREL_PC_DEFINITIONS " -D${definitions}")
    endforeach()
    set(NOREL_PC_REQUIRES "libcurl >= ${NOREL_CURL_VERSION}")
endif()
configure_file(cmake/norel-payloads.pc.in norel-payloads.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/norel-payloads.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)

install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY build/site DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation OPTIONAL) # by scripts/docs
