// The rows and dumps of a boot sector, worked out from the formats.
#include "inspect/sectors/sector_decoder.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "base/text.h"
#include "inspect/sector_bytes.h"
#include "inspect/sectors/sector_text.h"

namespace velmora::tests {
namespace {

using Rows = std::vector<SectorRow>;

Rows decoded(const std::string& sector, std::string_view fileSystem,
             const Regional& regional = {}) {
    return decodeSector(sector, recordOf(fileSystem), regional);
}

TEST(SectorDecoder, Fat12AndFat16HaveOneRecord) {
    const Rows expected{{"OEM name", "mkfs.fat"},
                        {"Bytes per Sector", "512"},
                        {"Sectors per cluster", "200"},
                        {"Reserved sectors", "40000"},
                        {"Number of copies of FAT", "2"},
                        {"Media Descriptor", "F8"},
                        {"Sectors per track", "65535"},
                        {"Number of heads", "255"},
                        {"Number of hidden sectors", "-2147483648"},
                        {"Number of sectors", "123456"},
                        {"Drive number", "128"},
                        {"Serial number", "ABCDEF"},
                        {"Volume name", "MY VOLUME  "},
                        {"File system type", "FAT16   "}};
    EXPECT_EQ(decoded(fat16Sector(), "FAT16"), expected);
    EXPECT_EQ(decoded(fat16Sector(), "FAT12"), expected);
}

TEST(SectorDecoder, Fat32HasMoreRows) {
    Rows rows = decoded(fat32Sector(), "FAT32");
    ASSERT_EQ(rows.size(), 21U);
    // The number before the point is one of the running process.
    EXPECT_EQ(rows[13].label, "Drive Version");
    EXPECT_TRUE(rows[13].value.ends_with(".2")) << rows[13].value;
    const int address = std::stoi(rows[13].value);
    EXPECT_TRUE(address >= 0 && address <= 255);
    rows.erase(rows.begin() + 13);
    EXPECT_EQ(rows, (Rows{{"OEM name", "MSDOS5.0"},
                          {"Bytes per Sector", "4096"},
                          {"Sectors per cluster", "8"},
                          {"Reserved sectors", "32"},
                          {"Number of copies of FAT", "2"},
                          {"Media Descriptor", "F0"},
                          {"Sectors per track", "63"},
                          {"Number of heads", "40000"},
                          {"Number of hidden sectors", "2048"},
                          {"Number of sectors", "-1"},
                          {"Number of sectors per FAT", "1009"},
                          {"Active FAT copy", "3"},
                          {"FAT mirroring enabled", "True"},
                          {"Root Directory cluster number", "2"},
                          {"File System Information sector", "1"},
                          {"Backup boot sector number", "65530"},
                          {"Drive number", "128"},
                          {"Serial number", "DEADBEEF"},
                          {"Volume name", "NO NAME    "},
                          {"FAT name", "FAT32   "}}));
}

// The second byte of the word in the sector plays no part in it.
TEST(SectorDecoder, TheNumberBeforeThePointIsNotTheSectors) {
    int asInSector = 0;
    for (unsigned high = 0; high < 256; ++high) {
        const Rows rows = decoded(MadeSector().number(42, 2, high << 8 | 7), "FAT32");
        EXPECT_TRUE(rows[13].value.ends_with(".7")) << rows[13].value;
        asInSector += rows[13].value == std::to_string(high) + ".7" ? 1 : 0;
    }
    EXPECT_LT(asInSector, 256);
}

TEST(SectorDecoder, TheFlagsOfFat32AreInTheLowByte) {
    const auto flags = [](std::uint64_t word) {
        const Rows rows = decoded(MadeSector().number(40, 2, word), "FAT32");
        return rows[11].value + " " + rows[12].value;
    };
    EXPECT_EQ(flags(0), "0 False");
    EXPECT_EQ(flags(0x80), "0 True");
    EXPECT_EQ(flags(0x7F), "15 False");
    EXPECT_EQ(flags(0x8F00), "0 False");
    EXPECT_EQ(flags(0x0085), "5 True");
}

TEST(SectorDecoder, NtfsHasSignedWordsAndDoubles) {
    EXPECT_EQ(decoded(ntfsSector(), "NTFS"), (Rows{{"OEM name", "NTFS    "},
                                                   {"Bytes per Sector", "512"},
                                                   {"Sectors per cluster", "8"},
                                                   {"Media descriptor", "05"},
                                                   {"Sectors per track", "-1"},
                                                   {"Number of heads", "255"},
                                                   {"Sectors in storage unit", "1E+15"},
                                                   {"LCN of MFT data attribute", "786432"},
                                                   {"LCN of MFT mirror data attribute", "-2"},
                                                   {"File record size", "246 clusters"},
                                                   {"Index buffer size", "-1 clusters"},
                                                   {"Volume serial number", "1F"}}));
}

TEST(SectorDecoder, TheBlockOfInformationHasTwoRows) {
    const std::string block = MadeSector().number(488, 4, 77).number(492, 4, 0xFFFFFFFF);
    EXPECT_EQ(decodeSector(block, sector::fsInfoSector, {}),
              (Rows{{"Last known free cluster", "77"}, {"Starting free cluster", "-1"}}));
}

TEST(SectorDecoder, ASectorOfZerosIsDecoded) {
    const Rows rows = decoded(MadeSector(), "FAT16");
    EXPECT_EQ(rows[0].value, std::string(8, '\0'));
    EXPECT_EQ(rows[5], (SectorRow{"Media Descriptor", "00"}));
    EXPECT_EQ(rows[11], (SectorRow{"Serial number", "0"}));
    EXPECT_EQ(rows[12].value, std::string(11, '\0'));
    for (const std::size_t i : {1, 2, 3, 4, 6, 7, 8, 9, 10}) EXPECT_EQ(rows[i].value, "0") << i;
}

TEST(SectorDecoder, ASectorOfZerosIsDecodedAsFat32) {
    Rows rows = decoded(MadeSector(), "FAT32");
    ASSERT_EQ(rows.size(), 21U);
    EXPECT_TRUE(rows[13].value.ends_with(".0"));
    rows.erase(rows.begin() + 13);
    const std::string eight(8, '\0');
    EXPECT_EQ(rows, (Rows{{"OEM name", eight},
                          {"Bytes per Sector", "0"},
                          {"Sectors per cluster", "0"},
                          {"Reserved sectors", "0"},
                          {"Number of copies of FAT", "0"},
                          {"Media Descriptor", "00"},
                          {"Sectors per track", "0"},
                          {"Number of heads", "0"},
                          {"Number of hidden sectors", "0"},
                          {"Number of sectors", "0"},
                          {"Number of sectors per FAT", "0"},
                          {"Active FAT copy", "0"},
                          {"FAT mirroring enabled", "False"},
                          {"Root Directory cluster number", "0"},
                          {"File System Information sector", "0"},
                          {"Backup boot sector number", "0"},
                          {"Drive number", "0"},
                          {"Serial number", "0"},
                          {"Volume name", std::string(11, '\0')},
                          {"FAT name", eight}}));
}

TEST(SectorDecoder, ASectorOfZerosIsDecodedAsNtfs) {
    EXPECT_EQ(decoded(MadeSector(), "NTFS"), (Rows{{"OEM name", std::string(8, '\0')},
                                                   {"Bytes per Sector", "0"},
                                                   {"Sectors per cluster", "0"},
                                                   {"Media descriptor", "00"},
                                                   {"Sectors per track", "0"},
                                                   {"Number of heads", "0"},
                                                   {"Sectors in storage unit", "0"},
                                                   {"LCN of MFT data attribute", "0"},
                                                   {"LCN of MFT mirror data attribute", "0"},
                                                   {"File record size", "0 clusters"},
                                                   {"Index buffer size", "0 clusters"},
                                                   {"Volume serial number", "0"}}));
}

TEST(SectorDecoder, OtherNamesHaveNoRecord) {
    for (const char* name : {"", "FAT", "fat32", "CDFS", "UDF", "EXFAT", "EXT4", "NTFS "}) {
        EXPECT_TRUE(recordOf(name).empty()) << name;
    }
}

TEST(SectorDecoder, TextsAreOfCodePage1252AndNotTrimmed) {
    const Rows rows = decoded(MadeSector().text(3, " \x80\xE4\x01  \xFFz"), "NTFS");
    EXPECT_EQ(rows[0].value, " \xE2\x82\xAC\xC3\xA4\x01  \xC3\xBFz");
}

TEST(SectorDump, HasSixtyFourLinesOfEightBytes) {
    MadeSector sector;
    for (std::size_t i = 0; i < 512; ++i) sector.number(i, 1, i & 0xFF);
    const SectorDump dump = dumpOf(sector);
    const auto bytes = split(dump.bytes, "\r\n");
    ASSERT_EQ(bytes.size(), 64U);  // without a line end at the end
    EXPECT_EQ(bytes[0], "00 01 02 03 04 05 06 07");
    EXPECT_EQ(bytes[1], "08 09 0A 0B 0C 0D 0E 0F");
    EXPECT_EQ(bytes[63], "F8 F9 FA FB FC FD FE FF");
    const auto characters = split(dump.characters, "\r\n");
    ASSERT_EQ(characters.size(), 65U);  // with one
    EXPECT_EQ(characters[0], "        ");
    EXPECT_EQ(characters[4], " !\"#$%&'");
    EXPECT_EQ(characters[8], "@ABCDEFG");
    EXPECT_EQ(characters[64], "");
}

TEST(SectorDump, BytesBelow32AreBlanksAndOthersCharacters) {
    const auto shown = [](unsigned value) {
        const SectorDump dump = dumpOf(MadeSector().number(0, 1, value));
        return mid(dump.characters, 1, 1);
    };
    EXPECT_EQ(shown(31), " ");
    EXPECT_EQ(shown(32), " ");
    EXPECT_EQ(shown(33), "!");
    EXPECT_EQ(shown(127), "\x7F");
    EXPECT_EQ(shown(128), "\xE2\x82\xAC");
    EXPECT_EQ(shown(255), "\xC3\xBF");
}

TEST(SectorText, HexadecimalIsPaddedUpToItsWidth) {
    EXPECT_EQ(fHexPad(2, 5), "05");
    EXPECT_EQ(fHexPad(2, 0x1AB), "1AB");
    EXPECT_EQ(fHexPad(0, 0), "0");
    EXPECT_EQ(fHexPad(-3, 0xAB), "AB");
    EXPECT_EQ(fHexPad(1, 0xF), "F");
    EXPECT_EQ(fHexPad(10, 0xFFFFFFFF), "00FFFFFFFF");
}

TEST(SectorText, WordsAndTexts) {
    EXPECT_EQ(fWordToLong(-1), 65535);
    EXPECT_EQ(fWordToLong(32767), 32767);
    EXPECT_EQ(fLowByte(0x1234), 0x34);
    EXPECT_EQ(fLowByte(-1), 255);
    EXPECT_EQ(fCutAtNull(std::string("ab\0cd", 5)), "ab");
    EXPECT_EQ(fCutAtNull("abc"), "abc");
    EXPECT_EQ(fCutAtNull(std::string("\0", 1)), "");
}

TEST(SectorText, TheHighByteIsTheAddressAfterTheWord) {
    alignas(256) std::int16_t words[128] = {};
    EXPECT_EQ(fHighByte(words[0]), 1);
    EXPECT_EQ(fHighByte(words[5]), 11);
    EXPECT_EQ(fHighByte(words[127]), 255);
}

TEST(SectorText, EightBytesAreASignedNumber) {
    EXPECT_EQ(fQwordToDouble(std::string(8, '\0')), 0);
    EXPECT_EQ(fQwordToDouble(std::string(8, '\xFF')), -1);
    EXPECT_EQ(fQwordToDouble(std::string("\x01\0\0\0\x01\0\0\0", 8)), 4294967297.0);
    EXPECT_EQ(fQwordToDouble(std::string("\0\0\0\0\0\0\0\x80", 8)), -9223372036854775808.0);
}

TEST(SectorText, GreatNumbersHaveAnExponent) {
    const Regional english;
    EXPECT_EQ(scientificText(999'999'999'999'999, english), "999999999999999");
    EXPECT_EQ(scientificText(1'000'000'000'000'000, english), "1E+15");
    EXPECT_EQ(scientificText(-1'234'567'890'123'456, english), "-1.23456789012346E+15");
    EXPECT_EQ(scientificText(9223372036854775807.0, english), "9.22337203685478E+18");
    Regional german;
    german.decimalPoint = ",";
    EXPECT_EQ(scientificText(1.5E15, german), "1,5E+15");
}

}  // namespace
}  // namespace velmora::tests
