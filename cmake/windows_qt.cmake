# Where Qt for mingw-w64 lies: sets VELMORA_WINDOWS_QT_ROOT, to nothing when there is none.
#
# VELMORA_WINDOWS_QT names a folder that holds either that Qt itself or an archive
# qt-*-mingw64.tar.xz of it, which is unpacked into the build tree. The environment's variable of
# the same name counts while the cache has none. The host's own Qt of the same version provides the
# tools (moc, rcc).
set(VELMORA_WINDOWS_QT "" CACHE PATH
    "Folder with Qt for mingw-w64, or with an archive qt-*-mingw64.tar.xz of it")
if(NOT VELMORA_WINDOWS_QT AND NOT "$ENV{VELMORA_WINDOWS_QT}" STREQUAL "")
    get_filename_component(folder "$ENV{VELMORA_WINDOWS_QT}" ABSOLUTE)
    set_property(CACHE VELMORA_WINDOWS_QT PROPERTY VALUE "${folder}")
endif()

set(QT_HOST_PATH /usr CACHE PATH "Where the host's Qt lies, for its tools")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake CACHE PATH
    "CMake files of the host's Qt")

include(${CMAKE_CURRENT_LIST_DIR}/unpack.cmake)

set(VELMORA_WINDOWS_QT_ROOT "${VELMORA_WINDOWS_QT}")
if(VELMORA_WINDOWS_QT)
    file(GLOB archives "${VELMORA_WINDOWS_QT}/qt-*-mingw64.tar.xz")
    if(archives)
        list(SORT archives COMPARE NATURAL ORDER DESCENDING)
        list(GET archives 0 archive)
        get_filename_component(name "${archive}" NAME)
        string(REGEX REPLACE "\\.tar\\.xz$" "" name "${name}")
        set(VELMORA_WINDOWS_QT_ROOT "${CMAKE_BINARY_DIR}/${name}")
        velmora_unpack("${archive}" "${VELMORA_WINDOWS_QT_ROOT}")
    endif()
endif()

# What an earlier folder had would be kept otherwise.
if(NOT "${VELMORA_WINDOWS_QT_FOUND_IN}" STREQUAL "${VELMORA_WINDOWS_QT_ROOT}")
    get_cmake_property(cached CACHE_VARIABLES)
    list(FILTER cached INCLUDE REGEX "^Qt6.*_DIR$")
    foreach(variable IN LISTS cached)
        unset(${variable} CACHE)
    endforeach()
endif()
set(VELMORA_WINDOWS_QT_FOUND_IN "${VELMORA_WINDOWS_QT_ROOT}" CACHE INTERNAL "")
