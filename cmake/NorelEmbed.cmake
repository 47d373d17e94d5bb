# norel_embed(TARGET NAMESPACE HEADER FILES...): embeds the files byte for byte in TARGET. The generated HEADER, which
# the sources of TARGET can include, declares a function `std::string_view NAMESPACE::NAME()` for each file, where NAME
# is the file name without extension and hyphens (version2() for "version-2.json"). A change of a file rebuilds TARGET.
function(norel_embed target namespace header)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/embedded)
    set(declarations)
    foreach(file IN LISTS ARGN)
        get_filename_component(file ${file} ABSOLUTE)
        get_filename_component(name ${file} NAME_WE)
        string(REPLACE "-" "" name ${name})
        string(APPEND declarations "std::string_view ${name}();\n")
        add_custom_command(
            OUTPUT ${folder}/${name}.cpp
            COMMAND ${CMAKE_COMMAND} -DINPUT=${file} -DOUTPUT=${folder}/${name}.cpp -DHEADER=${header}
                -DFUNCTION=${namespace}::${name} -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
            DEPENDS ${file} ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
            VERBATIM)
        target_sources(${target} PRIVATE ${folder}/${name}.cpp)
        set_source_files_properties(${folder}/${name}.cpp PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endforeach()
    file(CONFIGURE OUTPUT ${folder}/${header} @ONLY CONTENT
"#pragma once

#include <string_view>

namespace ${namespace} {

${declarations}
} // namespace ${namespace}
")
    target_include_directories(${target} PRIVATE ${folder})
endfunction()
