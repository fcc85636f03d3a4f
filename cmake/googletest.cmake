# GoogleTest from the sources that the distribution installs.
set(GOOGLETEST_SOURCES /usr/src/googletest CACHE PATH "GoogleTest's source tree")
if(NOT EXISTS ${GOOGLETEST_SOURCES}/CMakeLists.txt)
    message(FATAL_ERROR "No GoogleTest sources in ${GOOGLETEST_SOURCES}: install the package googletest "
        "or set GOOGLETEST_SOURCES")
endif()
set(INSTALL_GTEST OFF)
set(BUILD_GMOCK OFF)
add_subdirectory(${GOOGLETEST_SOURCES} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
# Its warnings are not ours to mend.
target_compile_options(gtest PRIVATE -Wno-error)
target_compile_options(gtest_main PRIVATE -Wno-error)
