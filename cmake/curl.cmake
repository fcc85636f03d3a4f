# libcurl as the target velmora_curl. A Windows build without it has no encrypted mail.
add_library(velmora_curl INTERFACE)
if(WIN32)
    include(${CMAKE_CURRENT_LIST_DIR}/windows_curl.cmake)
else()
    # The first version that leaves its resolver's thread alone when it is told to.
    find_package(CURL 7.87 REQUIRED)
    target_link_libraries(velmora_curl INTERFACE CURL::libcurl)
    set(VELMORA_HAS_CURL ON)
endif()
