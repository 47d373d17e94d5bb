# Cross-compiles for 64-bit Windows with Debian's MinGW-w64, against what scripts/build-windows-dependencies has built.
# Programs run under Wine.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix) # the variant with std::thread
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine)

get_filename_component(dependencies ${CMAKE_CURRENT_LIST_DIR}/../build/windows-dependencies ABSOLUTE)
set(CMAKE_FIND_ROOT_PATH ${dependencies} ${dependencies}/test /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
foreach(kind LIBRARY INCLUDE PACKAGE)
    set(CMAKE_FIND_ROOT_PATH_MODE_${kind} ONLY)
endforeach()
set(ENV{PKG_CONFIG_LIBDIR} ${dependencies}/lib/pkgconfig)
