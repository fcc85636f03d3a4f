# libblkid as the target velmora_blkid. Without it the names of file systems are those of the mount
# table, and drives have no labels.
add_library(velmora_blkid INTERFACE)
find_package(PkgConfig)
if(PkgConfig_FOUND)
    pkg_check_modules(BLKID IMPORTED_TARGET blkid)
endif()
if(BLKID_FOUND)
    target_link_libraries(velmora_blkid INTERFACE PkgConfig::BLKID)
    set(VELMORA_HAS_BLKID ON)
else()
    message(STATUS "No libblkid: names of file systems come from the mount table")
endif()
