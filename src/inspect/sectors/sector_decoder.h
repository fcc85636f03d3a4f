// Decoding of a boot sector: rows of a label and a value, and dumps. Only looks at bytes.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/regional.h"
#include "inspect/sectors/sector_fields.h"

namespace velmora {

struct SectorRow {
    std::string label;
    std::string value;

    bool operator==(const SectorRow&) const = default;
};

/// The rows of a record in a sector of 512 bytes. No signature is looked at.
std::vector<SectorRow> decodeSector(std::string_view sector, std::span<const SectorField> fields,
                                    const Regional& regional);

/// The record of a file system by its name in capitals; empty for one that isn't known.
std::span<const SectorField> recordOf(std::string_view fileSystemName);

/// 64 lines of eight bytes. The hexadecimal text ends without a line end, the other with one.
struct SectorDump {
    std::string bytes;       ///< two digits each, with blanks between
    std::string characters;  ///< of code page 1252, blanks below 32
};
SectorDump dumpOf(std::string_view sector);

}  // namespace velmora
