# Finds Qt for the window. Sets VELMORA_HAS_WINDOW; without Qt only the console program is built.
#
# Windows programs need Qt built for mingw-w64: VELMORA_WINDOWS_QT names a folder that holds either
# that Qt itself or an archive qt-*-mingw64.tar.xz of it, which is unpacked into the build tree. The
# host's own Qt of the same version provides the tools (moc, rcc).
option(VELMORA_WINDOW "Build the window program when Qt is found" ON)
set(VELMORA_HAS_WINDOW OFF)
if(NOT VELMORA_WINDOW)
    return()
endif()

if(WIN32)
    set(VELMORA_WINDOWS_QT "$ENV{VELMORA_WINDOWS_QT}" CACHE PATH
        "Folder with Qt for mingw-w64, or with an archive qt-*-mingw64.tar.xz of it")
    file(GLOB archive "${VELMORA_WINDOWS_QT}/qt-*-mingw64.tar.xz")
    set(windows_qt "${VELMORA_WINDOWS_QT}")
    if(archive AND VELMORA_WINDOWS_QT)
        get_filename_component(name "${archive}" NAME)
        string(REPLACE ".tar.xz" "" name "${name}")
        set(windows_qt "${CMAKE_BINARY_DIR}/${name}")
        if(NOT EXISTS "${windows_qt}/lib/cmake/Qt6")
            message(STATUS "Unpacking ${archive}")
            file(ARCHIVE_EXTRACT INPUT "${archive}" DESTINATION "${CMAKE_BINARY_DIR}")
        endif()
    endif()
    if(windows_qt)
        list(PREPEND CMAKE_PREFIX_PATH "${windows_qt}")
    endif()
    set(QT_HOST_PATH /usr CACHE PATH "Where the host's Qt lies, for its tools")
    set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH
        "CMake files of the host's Qt")
endif()

find_package(Qt6 6.4 QUIET COMPONENTS Widgets)
if(Qt6_FOUND)
    set(VELMORA_HAS_WINDOW ON)
elseif(WIN32)
    message(STATUS "No Qt for Windows: the window program is left out. Build Qt's base module with "
        "the same mingw-w64 (its tools come from the package qt6-base-dev, same version), or unpack "
        "a build of it, and set VELMORA_WINDOWS_QT to its folder.")
else()
    message(STATUS "No Qt 6.4 or newer: the window program is left out. Install the package "
        "qt6-base-dev.")
endif()
