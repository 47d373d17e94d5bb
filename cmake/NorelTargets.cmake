# The common settings of all targets: language standard, warnings, sanitizers, exported symbols.

include(GenerateExportHeader)

# The folder with the code for the system that is built for.
if(WIN32)
    set(NOREL_SYSTEM windows)
else()
    set(NOREL_SYSTEM posix)
endif()

function(norel_configure_target target)
    target_compile_features(${target} PUBLIC cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    if(WIN32)
        target_compile_definitions(${target} PRIVATE
            WIN32_LEAN_AND_MEAN NOMINMAX UNICODE _WIN32_WINNT=0x0A00) # Windows 10
    endif()
    if(MSVC) # C4251, C4275: exported classes have members and bases of the standard library
        target_compile_options(${target} PRIVATE /W4 /wd4251 /wd4275 /utf-8 /permissive- /EHsc
            $<$<BOOL:${NOREL_WARNINGS_AS_ERRORS}>:/WX>)
        return()
    endif()
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wold-style-cast -Wimplicit-fallthrough -Wshadow -Wconversion -Wsign-conversion
        -Woverloaded-virtual -Wnon-virtual-dtor
        $<$<BOOL:${NOREL_WARNINGS_AS_ERRORS}>:-Werror>)
    if(NOT WIN32)
        # A document is read and written by very many small calls.
        target_compile_options(${target} PRIVATE -fno-plt -fno-semantic-interposition)
    endif()
    if(NOREL_SANITIZERS)
        target_compile_options(${target} PRIVATE -fsanitize=${NOREL_SANITIZERS} -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=${NOREL_SANITIZERS})
    endif()
endfunction()

# norel_add_library(TARGET SHORT_NAME EXPORT_HEADER SOURCES ...)
#
# Adds the library TARGET, to be installed, with the alias norel::SHORT_NAME and a generated export header, which defines
# NOREL_<SHORT_NAME>_EXPORT and is included as EXPORT_HEADER. The library is shared if BUILD_SHARED_LIBS is on; a static
# one exports nothing from the program or library that it is linked into. The global property NOREL_LIBRARIES lists all
# libraries, each after those that it needs.
function(norel_add_library target shortName exportHeader)
    cmake_parse_arguments(PARSE_ARGV 3 ARG "" "" "SOURCES")
    add_library(${target} ${ARG_SOURCES})
    add_library(norel::${shortName} ALIAS ${target})
    set_property(GLOBAL APPEND PROPERTY NOREL_LIBRARIES ${target})
    norel_configure_target(${target})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${shortName}
        POSITION_INDEPENDENT_CODE ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} # a minor version may change the binary interface
        BUILD_RPATH_USE_ORIGIN ON)
    if(NOREL_BUILD_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    if(NOREL_TYPE_INFORMATION AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(${target} PRIVATE -g -fno-var-tracking -fno-var-tracking-assignments)
    endif()
    if(NOT APPLE)
        set_target_properties(${target} PROPERTIES INSTALL_RPATH $ORIGIN)
    endif()
    if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF" AND BUILD_SHARED_LIBS)
        set(exports ${PROJECT_SOURCE_DIR}/cmake/norel.map)
        target_link_options(${target} PRIVATE LINKER:--version-script=${exports})
        set_target_properties(${target} PROPERTIES LINK_DEPENDS ${exports})
    endif()
    set(generated ${CMAKE_CURRENT_BINARY_DIR}/include)
    generate_export_header(${target}
        BASE_NAME norel_${shortName}
        EXPORT_FILE_NAME ${generated}/${exportHeader})
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${generated}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    if(NOT BUILD_SHARED_LIBS)
        string(TOUPPER norel_${shortName}_static_define definition)
        target_compile_definitions(${target} PUBLIC ${definition})
    endif()
    if(NOREL_INSTALL)
        install(TARGETS ${target} EXPORT norel-payloads
            RUNTIME COMPONENT runtime
            LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
            ARCHIVE COMPONENT development)
        install(DIRECTORY ${generated}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
    endif()
endfunction()

# Adds the target with the precompiled headers that all tests share.
function(norel_precompile_test_headers)
    if(TARGET norel-test-headers)
        return()
    endif()
    set(source ${PROJECT_BINARY_DIR}/norel-test-headers.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(norel-test-headers OBJECT ${source})
    norel_configure_target(norel-test-headers)
    if(NOT MSVC)
        target_compile_options(norel-test-headers PRIVATE -O0)
    endif()
    target_link_libraries(norel-test-headers PRIVATE GTest::gmock)
    target_precompile_headers(norel-test-headers PRIVATE <gmock/gmock.h>)
endfunction()

# norel_add_test(TARGET SOURCES ... LIBRARIES ... [LABEL ...]): adds a GoogleTest program, each of whose tests is a CTest
# test; on Windows the whole program is one.
function(norel_add_test target)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "LABEL" "SOURCES;LIBRARIES")
    add_executable(${target} ${ARG_SOURCES})
    norel_configure_target(${target})
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE -O0) # tests take longer to compile than to run
    endif()
    target_link_libraries(${target} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
    if(NOT CMAKE_CXX_COMPILER_LAUNCHER) # compiler caches do not cache compilations with precompiled headers
        norel_precompile_test_headers()
        target_precompile_headers(${target} REUSE_FROM norel-test-headers)
    endif()
    if(WIN32) # starting a program takes longer than most tests
        add_test(NAME ${target} COMMAND ${target} --gtest_brief=1)
        set_tests_properties(${target} PROPERTIES TIMEOUT 600)
    else()
        gtest_discover_tests(${target} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300 LABELS "${ARG_LABEL}")
    endif()
endfunction()
