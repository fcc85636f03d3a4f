# What a Windows program carries in itself and needs beside it. For other systems there is nothing
# to do.

# Icon, version and manifest, out of src/app/windows.
function(velmora_windows_resources program description)
    if(NOT WIN32)
        return()
    endif()
    set(VELMORA_PROGRAM ${program})
    set(VELMORA_DESCRIPTION "${description}")
    set(folder ${PROJECT_SOURCE_DIR}/src/app/windows)
    set(resources ${CMAKE_CURRENT_BINARY_DIR}/${program}.rc)
    configure_file(${folder}/velmora.rc.in ${resources} @ONLY)
    set_property(SOURCE ${resources} PROPERTY OBJECT_DEPENDS
        ${folder}/velmora.manifest ${PROJECT_SOURCE_DIR}/dist/icons/velmora.ico)
    target_sources(${program} PRIVATE ${resources})
endfunction()

# Qt's DLLs, its plugins and the compiler's DLLs beside the program in the build tree.
function(velmora_qt_beside program)
    if(NOT WIN32)
        return()
    endif()
    add_custom_command(TARGET ${program} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${program}>
            -DFOLDER=$<TARGET_FILE_DIR:${program}> -DQT=${VELMORA_WINDOWS_QT_ROOT}
            -DCOMPILER=${CMAKE_CXX_COMPILER} -DOBJDUMP=${CMAKE_OBJDUMP}
            -P ${PROJECT_SOURCE_DIR}/cmake/put_qt_beside.cmake
        VERBATIM)
endfunction()

# The same where the program is installed, in `folder` below the prefix.
function(velmora_install_qt_beside program folder)
    if(NOT WIN32)
        return()
    endif()
    install(CODE "
        set(PROGRAM \"$<TARGET_FILE:${program}>\")
        set(FOLDER \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}\")
        set(QT \"${VELMORA_WINDOWS_QT_ROOT}\")
        set(COMPILER \"${CMAKE_CXX_COMPILER}\")
        set(OBJDUMP \"${CMAKE_OBJDUMP}\")
        include(\"${PROJECT_SOURCE_DIR}/cmake/put_qt_beside.cmake\")")
endfunction()
