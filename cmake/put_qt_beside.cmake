# Puts into FOLDER what the Windows program PROGRAM loads and the system doesn't have: the plugins of
# the Qt in the folder QT, and every DLL that program and plugins need, found by OBJDUMP, of Qt and
# of COMPILER. Only what changed is copied.

cmake_minimum_required(VERSION 3.25)

# Pictures are PNG files and drawings, which Qt reads by itself: no plugin is needed for them.
set(plugins platforms/qwindows.dll platforms/qoffscreen.dll styles/qwindowsvistastyle.dll)

# The system's own DLLs have none of these names.
set(ours "^(Qt6.*|lib.*|zlib1)\\.dll$")

# The names of the DLLs that a file needs.
function(needed_by file result)
    execute_process(COMMAND "${OBJDUMP}" -p "${file}" OUTPUT_VARIABLE output
        COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "DLL Name: [^\r\n]+" names "${output}")
    list(TRANSFORM names REPLACE "^DLL Name: " "")
    list(FILTER names INCLUDE REGEX "${ours}")
    set(${result} ${names} PARENT_SCOPE)
endfunction()

# Where a DLL of Qt or of the compiler lies.
function(find_dll name result)
    set(path "${QT}/bin/${name}")
    if(NOT EXISTS "${path}")
        execute_process(COMMAND "${COMPILER}" -print-file-name=${name} OUTPUT_VARIABLE path
            OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
    if(NOT IS_ABSOLUTE "${path}" OR NOT EXISTS "${path}")
        message(FATAL_ERROR
            "${name} is needed beside ${PROGRAM}, and neither Qt nor the compiler has it")
    endif()
    file(REAL_PATH "${path}" path)
    set(${result} "${path}" PARENT_SCOPE)
endfunction()

set(unread "${PROGRAM}")
foreach(plugin IN LISTS plugins)
    get_filename_component(kind "${plugin}" DIRECTORY)
    file(COPY "${QT}/plugins/${plugin}" DESTINATION "${FOLDER}/${kind}")
    list(APPEND unread "${QT}/plugins/${plugin}")
endforeach()

set(known "")
while(unread)
    list(POP_FRONT unread file)
    needed_by("${file}" names)
    foreach(name IN LISTS names)
        if(NOT name IN_LIST known)
            list(APPEND known "${name}")
            find_dll("${name}" path)
            file(COPY "${path}" DESTINATION "${FOLDER}")
            list(APPEND unread "${path}")
        endif()
    endforeach()
endwhile()
