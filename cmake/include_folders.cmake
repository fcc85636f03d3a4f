# What a library offers to the targets that link it: a folder of the build tree with links to the library's
# own folder of src and to nothing else. An include of a folder that isn't linked doesn't compile.

# Links `path` below the library's include folder to a file or folder of src.
function(velmora_link_include library path)
    set(link ${CMAKE_BINARY_DIR}/include/${library}/${path})
    get_filename_component(folder ${link} DIRECTORY)
    file(MAKE_DIRECTORY ${folder})
    if(NOT IS_SYMLINK ${link})
        file(CREATE_LINK ${PROJECT_SOURCE_DIR}/src/${path} ${link} RESULT result SYMBOLIC)
        if(NOT result EQUAL 0)
            # No links on this file system: everything is shown, the check of includes remains.
            target_include_directories(${library} PUBLIC ${PROJECT_SOURCE_DIR}/src)
        endif()
    endif()
endfunction()

# velmora_offer_includes(library path...): shows these paths below src to targets that link the library.
function(velmora_offer_includes library)
    set(folder ${CMAKE_BINARY_DIR}/include/${library})
    foreach(path IN LISTS ARGN)
        velmora_link_include(${library} ${path})
    endforeach()
    target_include_directories(${library} PUBLIC ${folder})
endfunction()
