# Finds Qt for the window. Sets VELMORA_HAS_WINDOW; without Qt only the console program is built.
option(VELMORA_WINDOW "Build the window program when Qt is found" ON)
set(VELMORA_HAS_WINDOW OFF)
if(NOT VELMORA_WINDOW)
    return()
endif()

if(WIN32)
    include(${CMAKE_CURRENT_LIST_DIR}/windows_qt.cmake)
    if(VELMORA_WINDOWS_QT_ROOT)
        list(PREPEND CMAKE_PREFIX_PATH "${VELMORA_WINDOWS_QT_ROOT}")
        # Never the host's Qt, which lies where every other package is looked for too.
        find_package(Qt6 6.4 QUIET COMPONENTS Widgets
            PATHS "${VELMORA_WINDOWS_QT_ROOT}" NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    endif()
    set(how_to_get_it "Build Qt's base module with the same mingw-w64 (its tools come from the \
package qt6-base-dev, same version), or unpack a build of it, and set VELMORA_WINDOWS_QT to its \
folder.")
else()
    find_package(Qt6 6.4 QUIET COMPONENTS Widgets OPTIONAL_COMPONENTS PrintSupport)
    set(how_to_get_it "Install the package qt6-base-dev.")
endif()

if(Qt6_FOUND)
    set(VELMORA_HAS_WINDOW ON)
else()
    message(STATUS "No Qt 6.4 or newer: the window program is left out. ${how_to_get_it}")
    if(Qt6_NOT_FOUND_MESSAGE)
        message(STATUS "${Qt6_NOT_FOUND_MESSAGE}")
    endif()
endif()
