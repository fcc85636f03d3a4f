# libsystemd as the target velmora_systemd. Where there is none, the journal, the sessions and the
# timers of the service manager aren't read.
add_library(velmora_systemd INTERFACE)
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(SYSTEMD QUIET IMPORTED_TARGET libsystemd)
endif()
if(SYSTEMD_FOUND)
    target_link_libraries(velmora_systemd INTERFACE PkgConfig::SYSTEMD)
    target_compile_definitions(velmora_systemd INTERFACE VELMORA_HAS_SYSTEMD)
    set(VELMORA_HAS_SYSTEMD ON)
else()
    message(STATUS "No libsystemd: the reports come without what it knows")
endif()
