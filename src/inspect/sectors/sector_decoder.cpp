#include "inspect/sectors/sector_decoder.h"

#include "base/convert.h"
#include "base/text.h"
#include "inspect/sectors/sector_text.h"

namespace velmora {

namespace {

std::int64_t signedAt(std::string_view sector, const SectorField& field) {
    const std::uint32_t value = unsignedAt(sector, field.offset, field.size);
    return field.size == 2 ? static_cast<std::int16_t>(value) : static_cast<std::int32_t>(value);
}

std::string valueOf(std::string_view sector, const SectorField& field, const Regional& regional) {
    constexpr std::uint8_t activeBits = 0x0F;
    constexpr std::uint8_t mirroringBit = 0x80;
    const std::string_view bytes = sector.substr(field.offset, field.size);
    const auto word = static_cast<std::int16_t>(unsignedAt(sector, field.offset, 2));
    switch (field.rendering) {
        case Rendering::text:
            return fBytesToString(bytes);
        case Rendering::unsignedDecimal:
            return toText(std::int64_t{unsignedAt(sector, field.offset, field.size)});
        case Rendering::signedDecimal:
            return toText(signedAt(sector, field));
        case Rendering::hexadecimal2:
            return fHexPad(2, unsignedAt(sector, field.offset, field.size));
        case Rendering::hexadecimal:
            return fHexPad(0, unsignedAt(sector, field.offset, field.size));
        case Rendering::signed64:
            return scientificText(fQwordToDouble(bytes), regional);
        case Rendering::clusters:
            return toText(signedAt(sector, field)) + " clusters";
        case Rendering::activeFat:
            return toText(std::int64_t{fLowByte(word) & activeBits});
        case Rendering::fatMirroring:
            return (fLowByte(word) & mirroringBit) != 0 ? "True" : "False";
        case Rendering::version:
            return toText(std::int64_t{fHighByte(word)}) + "." +
                   toText(std::int64_t{fLowByte(word)});
    }
    return {};
}

}  // namespace

std::vector<SectorRow> decodeSector(std::string_view sector, std::span<const SectorField> fields,
                                    const Regional& regional) {
    std::vector<SectorRow> rows;
    for (const SectorField& field : fields) {
        rows.push_back({field.label, valueOf(sector, field, regional)});
    }
    return rows;
}

std::span<const SectorField> recordOf(std::string_view fileSystemName) {
    if (fileSystemName == "FAT12" || fileSystemName == "FAT16") return sector::bootSectorFat1216;
    if (fileSystemName == "FAT32") return sector::bootSectorFat32;
    if (fileSystemName == "NTFS") return sector::bootSectorNtfs;
    return {};
}

SectorDump dumpOf(std::string_view sector) {
    constexpr std::size_t bytesPerLine = 8;
    constexpr char firstShown = ' ';
    SectorDump dump;
    for (std::size_t i = 1; i <= sector::size; ++i) {
        const char byte = sector[i - 1];
        const auto value = static_cast<std::uint8_t>(byte);
        dump.bytes += fHexPad(2, value);
        const bool endsLine = i % bytesPerLine == 0;
        if (i < sector::size) dump.bytes += endsLine ? lineEnd : " ";
        dump.characters += value < firstShown ? " " : fBytesToString({&byte, 1});
        if (endsLine) dump.characters += lineEnd;
    }
    return dump;
}

}  // namespace velmora
