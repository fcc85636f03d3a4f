# libsystemd as the target velmora_systemd. Where there is none, the journal, the sessions and the
# timers of the service manager aren't read.
add_library(velmora_systemd INTERFACE)
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(SYSTEMD QUIET IMPORTED_TARGET libsystemd)
endif()
if(SYSTEMD_FOUND)
    # Loaded when it is needed, as few runs need it.
    include(${CMAKE_CURRENT_LIST_DIR}/loaded_library.cmake)
    velmora_loaded_library(library "${SYSTEMD_LINK_LIBRARIES}" 241)
    target_include_directories(velmora_systemd SYSTEM INTERFACE ${SYSTEMD_INCLUDE_DIRS})
    target_compile_definitions(velmora_systemd INTERFACE VELMORA_HAS_SYSTEMD
        VELMORA_SYSTEMD_LIBRARY="${library}")
    target_link_libraries(velmora_systemd INTERFACE ${CMAKE_DL_LIBS})
    set(VELMORA_HAS_SYSTEMD ON)
else()
    message(STATUS "No libsystemd: the reports come without what it knows")
endif()
