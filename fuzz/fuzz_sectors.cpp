// Boot sectors from any bytes: every record has its rows, and every dump its lines. The first byte
// chooses the file system: one that is known, or the name in the eight bytes behind it. The rest is
// the sector, filled up with zeros.
#include <algorithm>
#include <array>
#include <string>

#include "base/text.h"
#include "fuzz_target.h"
#include "inspect/sectors/sector_decoder.h"
#include "inspect/sectors/sector_text.h"

using namespace velmora;

namespace {

struct KnownRecord {
    const char* name;
    std::size_t rows;
};
constexpr std::array<KnownRecord, 4> records{
    {{"FAT12", 14}, {"FAT16", 14}, {"FAT32", 21}, {"NTFS", 12}}};
constexpr std::size_t nameSize = 8;

std::size_t rowsOf(std::string_view name) {
    for (const KnownRecord& record : records) {
        if (name == record.name) return record.rows;
    }
    return 0;
}

void checkRows(std::string_view sector, std::span<const SectorField> fields, std::size_t count) {
    const auto rows = decodeSector(sector, fields, Regional{});
    require(rows.size() == count, "a record has its rows");
    for (const SectorRow& row : rows) {
        require(!row.label.empty() && !row.value.empty(), "a row has a label and a value");
        require(isValidUtf8(row.value), "values are text");
    }
}

void checkDump(std::string_view sector) {
    const SectorDump dump = dumpOf(sector);
    // 512 pairs of digits with something between: a blank, or a line end after every eighth.
    require(dump.bytes.size() == 512 * 2 + 448 + 63 * 2, "bytes have two digits each");
    require(dump.characters.ends_with(lineEnd), "lines of characters are closed");
    require(length(dump.characters) == 512 + 64 * 2, "each byte is a character");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    std::string_view input = asText(data + 1, size - 1);
    std::string_view name;
    if (data[0] % 2 == 0) {
        name = records[data[0] / 2 % records.size()].name;
    } else {
        name = input.substr(0, nameSize);
        name = name.substr(0, name.find('\0'));
        input.remove_prefix(std::min(nameSize, input.size()));
    }
    std::string sector(input);
    sector.resize(sector::size, '\0');
    checkRows(sector, recordOf(name), rowsOf(name));
    checkRows(sector, sector::fsInfoSector, 2);
    checkDump(sector);
    for (std::size_t place = 0; place + 8 <= 64; place += 8) {
        const double value = fQwordToDouble(std::string_view(sector).substr(place, 8));
        const std::string text = scientificText(value, Regional{});
        require(!text.empty() && text.size() <= 21, "a number has a text of its length");
        require((text[0] == '-') == (value < 0), "a negative number has its sign");
    }
    return 0;
}
