// The records of a boot sector as tables: which bytes make a row, and how they are shown. Offsets
// and sizes are those of the public disk formats, in bytes. Fields that are never shown are left
// out.
#pragma once

#include <array>
#include <cstddef>

namespace velmora {

/// How a field is shown.
enum class Rendering {
    text,             ///< characters, nothing trimmed
    unsignedDecimal,  ///< 1 or 2 bytes
    signedDecimal,    ///< 2 or 4 bytes
    hexadecimal2,     ///< one byte, two digits
    hexadecimal,      ///< as many digits as the number has
    signed64,         ///< 8 bytes, as a double-precision number
    clusters,         ///< a signed number and " clusters"
    activeFat,        ///< the low four bits
    fatMirroring,     ///< bit 7 as it is stored
    version,          ///< two numbers with a point between
};

struct SectorField {
    std::size_t offset;
    std::size_t size;
    const char* label;
    Rendering rendering;
};

namespace sector {

inline constexpr std::array<SectorField, 14> bootSectorFat1216{{
    {3, 8, "OEM name", Rendering::text},
    {11, 2, "Bytes per Sector", Rendering::unsignedDecimal},
    {13, 1, "Sectors per cluster", Rendering::unsignedDecimal},
    {14, 2, "Reserved sectors", Rendering::unsignedDecimal},
    {16, 1, "Number of copies of FAT", Rendering::unsignedDecimal},
    {21, 1, "Media Descriptor", Rendering::hexadecimal2},
    {24, 2, "Sectors per track", Rendering::unsignedDecimal},
    {26, 2, "Number of heads", Rendering::unsignedDecimal},
    {28, 4, "Number of hidden sectors", Rendering::signedDecimal},
    {32, 4, "Number of sectors", Rendering::signedDecimal},
    {36, 1, "Drive number", Rendering::unsignedDecimal},
    {39, 4, "Serial number", Rendering::hexadecimal},
    {43, 11, "Volume name", Rendering::text},
    {54, 8, "File system type", Rendering::text},
}};

inline constexpr std::array<SectorField, 21> bootSectorFat32{{
    {3, 8, "OEM name", Rendering::text},
    {11, 2, "Bytes per Sector", Rendering::unsignedDecimal},
    {13, 1, "Sectors per cluster", Rendering::unsignedDecimal},
    {14, 2, "Reserved sectors", Rendering::unsignedDecimal},
    {16, 1, "Number of copies of FAT", Rendering::unsignedDecimal},
    {21, 1, "Media Descriptor", Rendering::hexadecimal2},
    {24, 2, "Sectors per track", Rendering::unsignedDecimal},
    {26, 2, "Number of heads", Rendering::unsignedDecimal},
    {28, 4, "Number of hidden sectors", Rendering::signedDecimal},
    {32, 4, "Number of sectors", Rendering::signedDecimal},
    {36, 4, "Number of sectors per FAT", Rendering::signedDecimal},
    {40, 2, "Active FAT copy", Rendering::activeFat},
    {40, 2, "FAT mirroring enabled", Rendering::fatMirroring},
    {42, 2, "Drive Version", Rendering::version},
    {44, 4, "Root Directory cluster number", Rendering::signedDecimal},
    {48, 2, "File System Information sector", Rendering::unsignedDecimal},
    {50, 2, "Backup boot sector number", Rendering::unsignedDecimal},
    {64, 1, "Drive number", Rendering::unsignedDecimal},
    {67, 4, "Serial number", Rendering::hexadecimal},
    {71, 11, "Volume name", Rendering::text},
    {82, 8, "FAT name", Rendering::text},
}};

inline constexpr std::array<SectorField, 2> fsInfoSector{{
    {488, 4, "Last known free cluster", Rendering::signedDecimal},
    {492, 4, "Starting free cluster", Rendering::signedDecimal},
}};

/// The small d of "Media descriptor" and the signed words are this record's own.
inline constexpr std::array<SectorField, 12> bootSectorNtfs{{
    {3, 8, "OEM name", Rendering::text},
    {11, 2, "Bytes per Sector", Rendering::unsignedDecimal},
    {13, 1, "Sectors per cluster", Rendering::unsignedDecimal},
    {21, 1, "Media descriptor", Rendering::hexadecimal2},
    {24, 2, "Sectors per track", Rendering::signedDecimal},
    {26, 2, "Number of heads", Rendering::signedDecimal},
    {40, 8, "Sectors in storage unit", Rendering::signed64},
    {48, 8, "LCN of MFT data attribute", Rendering::signed64},
    {56, 8, "LCN of MFT mirror data attribute", Rendering::signed64},
    {64, 4, "File record size", Rendering::clusters},
    {68, 4, "Index buffer size", Rendering::clusters},
    {72, 4, "Volume serial number", Rendering::hexadecimal},
}};

inline constexpr std::size_t size = 512;
inline constexpr std::size_t fsInfoPlace = 48;  ///< offset of the word that says where it is

}  // namespace sector

}  // namespace velmora
