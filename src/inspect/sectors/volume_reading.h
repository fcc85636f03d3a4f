// Reading the sectors of a volume.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/regional.h"
#include "inspect/sectors/sector_decoder.h"
#include "platform/raw_volumes.h"

namespace velmora {

/// Opens the volume of a drive ("C:"); -1 on failure.
VolumeHandle openVolume(RawVolumes& volumes, const std::string& drive);
/// The next 512 bytes; nothing when the volume gives fewer.
std::optional<std::string> readSector(RawVolumes& volumes, VolumeHandle volume);
/// The sector whose number stands in the boot sector of FAT32. That number is taken for the
/// position of a byte. Nothing when it can't be read.
std::optional<std::string> readInformationBlock(RawVolumes& volumes, VolumeHandle volume,
                                                const std::string& bootSector);
/// The name of a drive's file system in capitals.
std::string fileSystemName(RawVolumes& volumes, const std::string& drive);

/// A volume's first sector as a report.
struct VolumeReport {
    std::string failure = {};     ///< what went wrong; empty when the rest is there
    std::string fileSystem = {};  ///< its name in capitals
    std::vector<SectorRow> rows = {};
    SectorDump dump = {};
};
VolumeReport readVolume(RawVolumes& volumes, const std::string& drive, const Regional& regional);

}  // namespace velmora
