# libcurl for mingw-w64, which is linked statically: sets VELMORA_HAS_CURL.
#
# VELMORA_WINDOWS_CURL names a folder with `include` and `lib/libcurl.a`, or with an archive
# curl-*-mingw64.tar.xz of a folder curl-mingw64 that has them, which is unpacked into the build
# tree. The library must use Schannel. The environment's variable of the same name counts while the
# cache has none.
set(VELMORA_WINDOWS_CURL "" CACHE PATH
    "Folder with a static libcurl for mingw-w64, or with an archive curl-*-mingw64.tar.xz of it")
if(NOT VELMORA_WINDOWS_CURL AND NOT "$ENV{VELMORA_WINDOWS_CURL}" STREQUAL "")
    get_filename_component(folder "$ENV{VELMORA_WINDOWS_CURL}" ABSOLUTE)
    set_property(CACHE VELMORA_WINDOWS_CURL PROPERTY VALUE "${folder}")
endif()
include(${CMAKE_CURRENT_LIST_DIR}/unpack.cmake)

set(VELMORA_WINDOWS_CURL_ROOT "${VELMORA_WINDOWS_CURL}")
if(VELMORA_WINDOWS_CURL)
    file(GLOB archives "${VELMORA_WINDOWS_CURL}/curl-*-mingw64.tar.xz")
    if(archives)
        list(SORT archives COMPARE NATURAL ORDER DESCENDING)
        list(GET archives 0 archive)
        set(VELMORA_WINDOWS_CURL_ROOT "${CMAKE_BINARY_DIR}/curl-mingw64")
        velmora_unpack("${archive}" "${VELMORA_WINDOWS_CURL_ROOT}")
    endif()
endif()

set(VELMORA_HAS_CURL OFF)
set(library "${VELMORA_WINDOWS_CURL_ROOT}/lib/libcurl.a")
if(VELMORA_WINDOWS_CURL_ROOT AND EXISTS "${library}")
    set(VELMORA_HAS_CURL ON)
    target_include_directories(velmora_curl SYSTEM INTERFACE "${VELMORA_WINDOWS_CURL_ROOT}/include")
    target_compile_definitions(velmora_curl INTERFACE CURL_STATICLIB)
    target_link_libraries(velmora_curl INTERFACE
        "${library}" ws2_32 crypt32 bcrypt secur32 advapi32)
else()
    message(STATUS "No libcurl for mingw-w64: encrypted mail is left out. Build it statically with "
        "Schannel and set VELMORA_WINDOWS_CURL to its folder.")
endif()
