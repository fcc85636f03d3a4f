// Sectors made for tests.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmora::tests {

/// 512 bytes, all 0 but what is placed.
class MadeSector {
  public:
    MadeSector& number(std::size_t offset, std::size_t size, std::uint64_t value) {
        for (std::size_t i = 0; i < size; ++i) {
            bytes_[offset + i] = static_cast<char>(value >> (8 * i) & 0xFF);
        }
        return *this;
    }
    MadeSector& text(std::size_t offset, const std::string& value) {
        bytes_.replace(offset, value.size(), value);
        return *this;
    }
    operator const std::string&() const { return bytes_; }
    operator std::string_view() const { return bytes_; }

  private:
    std::string bytes_ = std::string(512, '\0');
};

/// A boot sector of FAT16 with another number in each field.
inline MadeSector fat16Sector() {
    MadeSector sector;
    sector.text(3, "mkfs.fat").number(11, 2, 512).number(13, 1, 200).number(14, 2, 40000);
    sector.number(16, 1, 2).number(17, 2, 17).number(19, 2, 19).number(21, 1, 0xF8);
    sector.number(22, 2, 22).number(24, 2, 65535).number(26, 2, 255);
    sector.number(28, 4, 0x80000000).number(32, 4, 123456).number(36, 1, 128);
    sector.number(39, 4, 0x00ABCDEF).text(43, "MY VOLUME  ").text(54, "FAT16   ");
    return sector;
}

/// The same of FAT32, with the block of information at byte 1.
inline MadeSector fat32Sector() {
    MadeSector sector;
    sector.text(3, "MSDOS5.0").number(11, 2, 4096).number(13, 1, 8).number(14, 2, 32);
    sector.number(16, 1, 2).number(21, 1, 0xF0).number(24, 2, 63).number(26, 2, 40000);
    sector.number(28, 4, 2048).number(32, 4, 0xFFFFFFFF).number(36, 4, 1009);
    sector.number(40, 2, 0xFF83).number(42, 2, 0x0102).number(44, 4, 2);
    sector.number(48, 2, 1).number(50, 2, 65530).number(64, 1, 0x80);
    sector.number(67, 4, 0xDEADBEEF).text(71, "NO NAME    ").text(82, "FAT32   ");
    return sector;
}

/// The same of NTFS.
inline MadeSector ntfsSector() {
    MadeSector sector;
    sector.text(3, "NTFS    ").number(11, 2, 512).number(13, 1, 8).number(21, 1, 5);
    sector.number(24, 2, 0xFFFF).number(26, 2, 255).number(40, 8, 1'000'000'000'000'000);
    sector.number(48, 8, 786432).number(56, 8, 0xFFFFFFFFFFFFFFFE);
    sector.number(64, 4, 246).number(68, 4, 0xFFFFFFFF).number(72, 4, 0x1F);
    return sector;
}

}  // namespace velmora::tests
