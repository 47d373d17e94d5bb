# Settings of `cpack -G DEB`, which makes a Debian package of each component of the installation; see
# scripts/test-packages. Other generators make one archive of all.

set(CPACK_PACKAGE_VENDOR norel)
set(CPACK_PACKAGE_CONTACT "norel-payloads maintainers <norel-payloads@packages.invalid>" CACHE STRING
    "Maintainer of the packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SOURCE norel-payloads)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # the first lines of the descriptions below
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/FinishDebianFiles.cmake)

set(about
"Payload profiles describe the configurations of airborne survey payloads: lidar
sensors, cameras and their processing settings.")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libnorel-payloads${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
file(CONFIGURE OUTPUT triggers CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_BINARY_DIR}/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"library for payload profiles of airborne surveys
${about}
This package contains the shared libraries.")

set(exactRuntime "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnorel-payloads-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${exactRuntime}")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS norel-payloads-doc)
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION
"library for payload profiles of airborne surveys (development files)
${about}
This package contains the headers and the files for CMake and pkg-config.")

set(CPACK_DEBIAN_APPLICATION_PACKAGE_NAME payload-profiles)
set(CPACK_DEBIAN_APPLICATION_PACKAGE_SECTION science)
set(CPACK_DEBIAN_APPLICATION_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_APPLICATION_PACKAGE_DEPENDS "${exactRuntime}")
set(CPACK_DEBIAN_APPLICATION_DESCRIPTION
"shows, changes and checks payload profiles of airborne surveys
${about}
This package contains a command-line application that lists, compares, edits,
validates, upgrades and fetches profiles, with completion for shells.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME norel-payloads-doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION
"library for payload profiles of airborne surveys (documentation)
${about}
This package contains the documentation and example profiles.")

# dpkg-shlibdeps looks here for the libraries of the application.
get_property(libraries GLOBAL PROPERTY NOREL_LIBRARIES)
foreach(library IN LISTS libraries)
    get_target_property(folder ${library} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
endforeach()
list(REMOVE_DUPLICATES CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS)

set(CPACK_COMPONENTS_ALL runtime development application documentation)
include(CPack)
