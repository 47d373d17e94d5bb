# Adds what Debian wants in its packages: a changelog in each, and everything compressed. Run by CPack on the installed
# files before it packs them.

if(NOT CPACK_GENERATOR STREQUAL "DEB")
    return()
endif()

# compress(FILE): replaces it by FILE.gz, which depends only on its contents
function(compress file)
    execute_process(COMMAND gzip -9 --no-name --force ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} key)
    set(name ${CPACK_DEBIAN_${key}_PACKAGE_NAME})
    set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/${component}/usr/share)
    file(WRITE ${share}/doc/${name}/changelog.Debian
"${CPACK_DEBIAN_PACKAGE_SOURCE} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Release ${CPACK_PACKAGE_VERSION}; norel-payloads-doc contains its list of changes.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
    compress(${share}/doc/${name}/changelog.Debian)
    if(EXISTS ${share}/zsh/site-functions)
        file(RENAME ${share}/zsh/site-functions ${share}/zsh/vendor-completions) # where Debian's zsh looks
    endif()
    file(GLOB manuals ${share}/man/man*/*.[0-9])
    foreach(manual IN LISTS manuals)
        compress(${manual})
    endforeach()
endforeach()
