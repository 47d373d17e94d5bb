# norel_embed(TARGET FILE NAMESPACE FUNCTION): compiles FILE byte for byte into TARGET, where the function
# `std::string_view NAMESPACE::FUNCTION()` gives it. A change of the file rebuilds it.
function(norel_embed target file namespace function)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/embedded/${function}.cpp)
    add_custom_command(
        OUTPUT ${output}
        COMMAND ${CMAKE_COMMAND} -DINPUT=${file} -DOUTPUT=${output} -DNAMESPACE=${namespace} -DFUNCTION=${function}
            -P ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
        DEPENDS ${file} ${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake
        VERBATIM)
    target_sources(${target} PRIVATE ${output})
endfunction()
