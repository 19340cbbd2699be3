# Windows builds.
#
# The cross build (toolchain cmake/mingw-w64.cmake, scripts/build windows) runs every program it makes
# through Wine: the build-time tools, rvcli making the demo and real databases, and the core tests. Wine
# keeps its registry and drive C: in a prefix inside the build folder; Z: is the build machine's root, so
# the tests get their folders as Z:/... paths (ROVANEL_DRIVE) and see drive letters as users do.
set(ROVANEL_DRIVE "")
if(WIN32 AND CMAKE_CROSSCOMPILING)
    if(NOT ROVANEL_WINE)
        message(FATAL_ERROR "The Windows cross build runs its tools under Wine: install wine64 (scripts/deps)")
    endif()
    set(ROVANEL_DRIVE "Z:")
    set(ROVANEL_WINEPREFIX ${CMAKE_BINARY_DIR}/wine)
    set(CMAKE_CROSSCOMPILING_EMULATOR env WINEPREFIX=${ROVANEL_WINEPREFIX} WINEDEBUG=-all
                                      WINEDLLOVERRIDES=mscoree,mshtml= ${ROVANEL_WINE})

    # GoogleTest from Debian's source package, built with the same compiler as the tests.
    set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    set_target_properties(gtest gtest_main PROPERTIES COMPILE_WARNING_AS_ERROR OFF)
    target_compile_options(gtest PRIVATE -w)
    target_compile_options(gtest_main PRIVATE -w)

    # One test for the whole suite: starting Wine once per test would cost more than the tests themselves.
    function(rovanel_add_cross_test target)
        add_test(NAME ${target} COMMAND ${target} --gtest_brief=1)
        set_tests_properties(${target} PROPERTIES TIMEOUT 1800)
    endfunction()
endif()
