#include "platform/linux/volumes/volume_names.h"

#include <gtest/gtest.h>

#include <cstring>

namespace velmora::linuxhost {
namespace {

std::string nameFor(const char* type, const char* version) {
    FileSystemNames names;
    std::strcpy(names.type, type);
    std::strcpy(names.version, version);
    return fileSystemNameOf(names);
}

std::string withInFront(std::string buffer, const std::string& text) {
    putInFront(buffer, text);
    return buffer;
}

TEST(VolumeNames, KindsOfFatAreToldByTheirVersion) {
    EXPECT_EQ(nameFor("vfat", "FAT12"), "FAT12");
    EXPECT_EQ(nameFor("vfat", "FAT16"), "FAT16");
    EXPECT_EQ(nameFor("vfat", "FAT32"), "FAT32");
    EXPECT_EQ(nameFor("vfat", ""), "VFAT");
}

TEST(VolumeNames, OthersAreTheirTypeInCapitals) {
    EXPECT_EQ(nameFor("ntfs", ""), "NTFS");
    EXPECT_EQ(nameFor("exfat", "1.0"), "EXFAT");
    EXPECT_EQ(nameFor("ext4", "1.0"), "EXT4");
    EXPECT_EQ(nameFor("", "FAT32"), "");
}

TEST(VolumeNames, TheMountTableHasNamesToo) {
    EXPECT_EQ(fileSystemNameOf("ext4"), "EXT4");
    EXPECT_EQ(fileSystemNameOf("ntfs3"), "NTFS");
    EXPECT_EQ(fileSystemNameOf("fuseblk.ntfs-3g"), "NTFS");
    EXPECT_EQ(fileSystemNameOf("fuseblk.exfat"), "EXFAT");
    EXPECT_EQ(fileSystemNameOf("fuse.sshfs"), "SSHFS");
    EXPECT_EQ(fileSystemNameOf("fuseblk"), "FUSEBLK");
    EXPECT_EQ(fileSystemNameOf(std::string()), "");
}

TEST(VolumeNames, ATextIsClosedByANulAndTheRestOfTheBufferStays) {
    EXPECT_EQ(withInFront("######", "ab"), std::string("ab\0###", 6));
    EXPECT_EQ(withInFront("######", ""), std::string("\0#####", 6));
    EXPECT_EQ(withInFront("######", "12345"), std::string("12345\0", 6));
}

TEST(VolumeNames, ATextThatIsTooLongIsCutBetweenCharacters) {
    EXPECT_EQ(withInFront("######", "123456"), std::string("12345\0", 6));
    EXPECT_EQ(withInFront("######", "1234ö"), std::string("1234\0#", 6));
    EXPECT_EQ(withInFront("", "x"), "");
}

}  // namespace
}  // namespace velmora::linuxhost
