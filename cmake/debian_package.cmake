# The Debian package by CPack: `cpack --config build/release/CPackConfig.cmake`, or better
# tools/make_packages.sh, which builds first. Its files are a component of their own, so that
# `cmake --install` alone puts everything into one folder as ever.
if(NOT VELMORA_HAS_WINDOW)
    return()
endif()
find_package(Python3 COMPONENTS Interpreter QUIET)
if(NOT Python3_Interpreter_FOUND)
    return()
endif()

set(component debian)
set(dist ${PROJECT_SOURCE_DIR}/dist)
set(maintainer "The Velmora developers <${VELMORA_SUPPORT_ADDRESS}>")
set(homepage "${VELMORA_MAKER_SCHEME}://${VELMORA_MAKER_HOST}/")

function(debian_files folder)
    install(FILES ${ARGN} DESTINATION ${folder} COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

# The programs in a folder of their own, which only the package changes: the marker file sends each
# user's settings to the user's own folder.
set(programs lib/velmora)
install(TARGETS velmora velmora-console DESTINATION ${programs} COMPONENT ${component} EXCLUDE_FROM_ALL)
debian_files(${programs} ${dist}/set.dat ${dist}/velmora.html ${dist}/linux/velmora.installed)
file(GLOB help_pictures CONFIGURE_DEPENDS ${dist}/help/*.png)
debian_files(${programs}/help ${help_pictures})
debian_files(${programs}/sound ${dist}/sound/alert.WAV)
foreach(program velmora velmora-console)
    set(link ${PROJECT_BINARY_DIR}/debian/${program})
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/debian)
    file(CREATE_LINK ../${programs}/${program} ${link} SYMBOLIC)
    debian_files(bin ${link})
endforeach()

debian_files(share/applications ${dist}/velmora.desktop)
foreach(size 16 20 24 32 40 48 64 128 256)
    install(FILES ${dist}/icons/png/velmora-${size}.png
        DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME velmora.png
        COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()
debian_files(share/icons/hicolor/scalable/apps ${dist}/icons/velmora.svg)
# What the system service does at its start, for the administrator to write.
debian_files(/etc/velmora ${dist}/linux/start.txt)
debian_files(lib/systemd/system ${dist}/linux/systemd/system/velmora.service)
debian_files(lib/systemd/user ${dist}/linux/systemd/user/velmora.service)
debian_files(share/doc/velmora ${dist}/linux/debian/copyright)

install(CODE "
    execute_process(COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/packages/debian_documents.py
        --version ${PROJECT_VERSION} --homepage ${homepage} --maintainer \"${maintainer}\"
        --programs ${PROJECT_BINARY_DIR}/src/app --root \"\$ENV{DESTDIR}/\"
        COMMAND_ERROR_IS_FATAL ANY)"
    COMPONENT ${component} EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME velmora)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${maintainer})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_CMAKE_PROJECTS "${PROJECT_BINARY_DIR};velmora;${component};/")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${homepage})
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "watches free disk space and acts before a disk is full
Velmora watches the free space of drives, shares and folders. When the space of
one falls below its minimum, it alerts, writes a log, sends a mail, moves,
deletes or recycles the files that have been listed for it, or runs programs.
It goes on when a drive disappears or never answers, and when its own disk is
full.
.
There is a window for workstations, and a console for servers and scripts that
can also run as a service of systemd, which is off until it is enabled.")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What is loaded at need is in no program's list of libraries.
get_property(loaded GLOBAL PROPERTY VELMORA_LOADED_LIBRARIES)
foreach(entry IN LISTS loaded)
    string(REPLACE "=" ";" entry ${entry})
    list(GET entry 0 library)
    list(GET entry 1 minimum)
    # A system whose folders were joined later knows a file by its old place.
    string(REGEX REPLACE "^/usr" "" before ${library})
    execute_process(COMMAND dpkg-query --search ${library} ${before} OUTPUT_VARIABLE owner ERROR_QUIET)
    if(NOT owner MATCHES "^([^:]+)")
        install(CODE "message(FATAL_ERROR \"No package owns ${library}, which this one needs\")"
            COMPONENT ${component} EXCLUDE_FROM_ALL)
        continue()
    endif()
    list(APPEND CPACK_DEBIAN_PACKAGE_DEPENDS "${CMAKE_MATCH_1} (>= ${minimum})")
endforeach()
list(JOIN CPACK_DEBIAN_PACKAGE_DEPENDS ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
# Opens the manual and played files; plays sounds.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "pulseaudio-utils | alsa-utils, zenity")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${dist}/linux/debian/postinst ${dist}/linux/debian/prerm
    ${dist}/linux/debian/postrm ${dist}/linux/debian/conffiles)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
