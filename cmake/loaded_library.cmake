# velmora_loaded_library(variable file minimum): the name by which the program loads a shared library when
# it needs it, "libcurl.so.4" for /usr/lib/libcurl.so.4.8.0. `minimum` is the version that has all that is
# called, for the Debian package.
function(velmora_loaded_library variable file minimum)
    get_filename_component(real "${file}" REALPATH)
    get_filename_component(name "${real}" NAME)
    if(NOT name MATCHES "^(lib[^.]+\\.so\\.[0-9]+)")
        message(FATAL_ERROR "${file} is no shared library with a version")
    endif()
    set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
    set_property(GLOBAL APPEND PROPERTY VELMORA_LOADED_LIBRARIES "${real}=${minimum}")
endfunction()
