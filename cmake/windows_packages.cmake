# What the packages for Windows have beyond the programs: the licences, and the program by which the
# installer asks running ones to close. tools/packages/windows.sh makes the packages.

# Of the distribution, from which the compiler's runtime and Qt's sources come.
set(documents /usr/share/doc)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION velmora/licenses RENAME velmora.txt)
install(FILES ${PROJECT_SOURCE_DIR}/docs/third-party.md DESTINATION velmora/licenses)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/dist/licenses/ DESTINATION velmora/licenses)
install(FILES ${documents}/mingw-w64-x86-64-dev/copyright DESTINATION velmora/licenses
    RENAME mingw-w64.txt OPTIONAL)
if(VELMORA_HAS_CURL)
    install(FILES ${VELMORA_WINDOWS_CURL_ROOT}/COPYING DESTINATION velmora/licenses
        RENAME curl.txt OPTIONAL)
endif()
if(VELMORA_HAS_WINDOW)
    install(DIRECTORY ${VELMORA_WINDOWS_QT_ROOT}/licenses/ DESTINATION velmora/licenses/qt OPTIONAL)
    # What Qt's own DLLs contain.
    install(FILES ${documents}/qt6-base-dev/copyright DESTINATION velmora/licenses/qt
        RENAME third-party.txt OPTIONAL)
endif()

add_executable(velmora-close WIN32 EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/src/app/windows/close_running.cpp)
# It is unpacked for each installation, and lies in the uninstaller again.
target_compile_options(velmora-close PRIVATE -Os)
target_include_directories(velmora-close PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(velmora-close PRIVATE shell32 psapi)
