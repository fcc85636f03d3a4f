# libedit as the target velmora_libedit. Where there is none, the console's lines are edited by the
# terminal alone.
add_library(velmora_libedit INTERFACE)
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
    pkg_check_modules(LIBEDIT QUIET IMPORTED_TARGET libedit)
endif()
if(LIBEDIT_FOUND)
    target_link_libraries(velmora_libedit INTERFACE PkgConfig::LIBEDIT)
    target_compile_definitions(velmora_libedit INTERFACE VELMORA_HAS_LIBEDIT)
else()
    message(STATUS "No libedit: the console has no history and completes no names")
endif()
