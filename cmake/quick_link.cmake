# velmora_link_quickly(): Windows programs of this folder and those below it are linked by lld where it is installed.
# GNU's linker looks through all symbols of a file for each of its inline functions: it takes twenty seconds for a
# test program, lld half a second. What users run is linked by GNU's.
macro(velmora_link_quickly)
    find_program(LLD ld.lld)
    if(WIN32 AND LLD AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        add_link_options("SHELL:-wrapper ${PROJECT_SOURCE_DIR}/cmake/link_with_lld.sh")
    endif()
endmacro()
