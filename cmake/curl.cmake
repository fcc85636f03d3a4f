# libcurl as the target velmora_curl. A Windows build without it has no encrypted mail.
add_library(velmora_curl INTERFACE)
if(WIN32)
    include(${CMAKE_CURRENT_LIST_DIR}/windows_curl.cmake)
else()
    # The first version that leaves its resolver's thread alone when it is told to.
    set(CURL_NO_CURL_CMAKE ON)  # whose target doesn't always tell its file
    find_package(CURL 7.87 REQUIRED)
    # Loaded with the first mail or page: it brings thirty libraries along, and took longer than all else that
    # the console does at its start.
    include(${CMAKE_CURRENT_LIST_DIR}/loaded_library.cmake)
    get_target_property(file CURL::libcurl IMPORTED_LOCATION)
    if(NOT file)
        set(file ${CURL_LIBRARIES})
    endif()
    velmora_loaded_library(library "${file}" 7.87)
    target_include_directories(velmora_curl SYSTEM INTERFACE ${CURL_INCLUDE_DIRS})
    target_compile_definitions(velmora_curl INTERFACE VELMORA_CURL_LIBRARY="${library}")
    target_link_libraries(velmora_curl INTERFACE ${CMAKE_DL_LIBS})
    set(VELMORA_HAS_CURL ON)
endif()
