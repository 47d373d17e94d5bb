# A port of the sources around it: vcpkg install norel-payloads --overlay-ports=packaging/vcpkg
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS features FEATURES tools NOREL_BUILD_TOOLS)
vcpkg_cmake_configure(
    SOURCE_PATH "${SOURCE_PATH}"
    OPTIONS -DNOREL_BUILD_TESTS=OFF ${features})
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/norel-payloads)
vcpkg_fixup_pkgconfig()
vcpkg_copy_pdbs()
if("tools" IN_LIST FEATURES)
    vcpkg_copy_tools(TOOL_NAMES payload-profiles AUTO_CLEAN)
endif()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")

set(VCPKG_POLICY_SKIP_COPYRIGHT_CHECK enabled) # the project has no licence yet
