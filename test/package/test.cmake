# Installs the build, moves the installation to another folder, builds the example against it with CMake and with
# pkg-config, and runs it.

function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${WORK} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}: ${result}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(check_example program)
    file(REMOVE ${WORK}/profiles.json)
    run(${program})
    if(NOT output STREQUAL "1 Coast survey\n")
        message(FATAL_ERROR "${program} printed \"${output}\"")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/rest --component Unspecified)
if(EXISTS ${WORK}/rest)
    message(FATAL_ERROR "These files belong to no component of the installation:\n${output}")
endif()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/moved)

run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/moved
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_BUILD_TYPE=Debug)
run(${CMAKE_COMMAND} --build ${WORK}/build)
check_example(${WORK}/build/example)

find_program(PKG_CONFIG pkg-config REQUIRED)
file(GLOB_RECURSE pc ${WORK}/moved/*/norel-payloads.pc)
run(${PKG_CONFIG} --cflags --libs ${pc})
separate_arguments(flags UNIX_COMMAND "${output}")
run(${PKG_CONFIG} --variable=libdir ${pc})
string(STRIP "${output}" libraries)
run(${COMPILER} ${SOURCE}/example.cpp -o example ${flags} -Wl,-rpath,${libraries})
check_example(${WORK}/example)
