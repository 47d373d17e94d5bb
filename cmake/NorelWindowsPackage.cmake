# Installs the libraries that programs and libraries need and the system lacks beside them, so that they run without a
# PATH, and makes `cpack -G ZIP` pack the installation. Written out because CMake's own runtime dependency sets do not
# support cross-compiling.

set(folders ${CMAKE_FIND_ROOT_PATH})
list(TRANSFORM folders APPEND /bin OUTPUT_VARIABLE folders)
if(MINGW)
    foreach(library libstdc++-6.dll libwinpthread-1.dll)
        execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
            OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
        cmake_path(GET file PARENT_PATH folder)
        cmake_path(NORMAL_PATH folder)
        list(APPEND folders ${folder})
    endforeach()
endif()

install(CODE "set(folders \"${folders}\")
set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND \"${CMAKE_OBJDUMP}\")
set(destination \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")"
    COMPONENT runtime)
if(CMAKE_OBJDUMP)
    install(CODE "set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)" COMPONENT runtime)
endif()
install(CODE [[
file(GLOB programs "${destination}/*.exe")
file(GLOB libraries "${destination}/*.dll")
file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${programs} LIBRARIES ${libraries}
    DIRECTORIES "${destination}" ${folders}
    PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-"
    POST_EXCLUDE_REGEXES "[/\\\\][Ss]ystem32[/\\\\]"
    RESOLVED_DEPENDENCIES_VAR resolved UNRESOLVED_DEPENDENCIES_VAR ofTheSystem)
list(REMOVE_ITEM resolved ${libraries})
file(INSTALL ${resolved} DESTINATION "${destination}")
]] COMPONENT runtime)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME payload-profiles-${PROJECT_VERSION}-windows)
include(CPack)
