// Reading a volume's first sector into the dialog.
#include "inspect/sectors/boot_sector_reader.h"

#include <gtest/gtest.h>

#include "fake/fake_host.h"
#include "fake/fake_volumes.h"
#include "inspect/sector_bytes.h"

namespace velmora::tests {
namespace {

using Lines = std::vector<std::string>;

struct ReaderTest : testing::Test {
    DlgDriveInfo form;
    fake::FakeRawVolumes volumes;
    fake::FakeHost host;
    Regional regional;
    int closings = 0;
    BootSectorReader reader{form, volumes, host, regional, [this] { ++closings; }};

    ReaderTest() {
        volumes.volumes["C:"] = {.bytes = ntfsSector(), .fileSystem = "NTFS"};
        volumes.volumes["D:"] = {.bytes = fat16Sector(), .fileSystem = "fat16"};
        std::string disk = fat32Sector();
        disk += std::string(512, '\x01');  // the second sector
        volumes.volumes["E:"] = {.bytes = disk, .fileSystem = "FAT32"};
        reader.offerDrives({"C:", "D:", "E:", "F:"});
        volumes.calls.clear();
    }
    void read(int index) {
        if (form.drvDrive.ListIndex() == index) {
            form.cmdEnter.userClick();
        } else {
            form.drvDrive.userChoose(index);
        }
    }
    std::string label(int row) { return form.lvInfo.ListItems(row).Text(); }
    std::string value(int row) { return form.lvInfo.ListItems(row).SubItems(1); }
};

TEST_F(ReaderTest, NothingIsReadBeforeADriveIsChosen) {
    EXPECT_TRUE(volumes.calls.empty());
    EXPECT_EQ(form.drvDrive.ListCount(), 4);
    EXPECT_EQ(form.drvDrive.Text(), "C:");
    EXPECT_EQ(reader.hDrive(), -1);
}

TEST_F(ReaderTest, EnterReadsTheChosenDrive) {
    form.cmdEnter.userClick();
    EXPECT_EQ(volumes.calls, (Lines{R"(CreateFileA \\.\C: 2147483648 3 3)", "ReadFile 1 512",
                                    R"(GetVolumeInformationA C:\)"}));
    EXPECT_EQ(form.lvInfo.Count(), 12);
    EXPECT_EQ(label(1), "OEM name");
    EXPECT_EQ(value(1), "NTFS    ");
    EXPECT_TRUE(form.txtBytes.Text().starts_with("00 00 00 4E 54 46 53 20\r\n"));
    EXPECT_TRUE(form.txtChar.Text().starts_with("   NTFS \r\n"));
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ReaderTest, AChangeOfTheSelectionReads) {
    read(1);
    EXPECT_EQ(form.lvInfo.Count(), 14);
    EXPECT_EQ(value(14), "FAT16   ");
}

TEST_F(ReaderTest, TheNextReadClosesTheVolumeBeforeItOpens) {
    read(0);
    volumes.calls.clear();
    read(0);
    ASSERT_GE(volumes.calls.size(), 2U);
    EXPECT_EQ(volumes.calls[0], "CloseHandle 1");
    EXPECT_EQ(volumes.calls[1], R"(CreateFileA \\.\C: 2147483648 3 3)");
    for (int i = 0; i < 1000; ++i) read(0);
    EXPECT_EQ(volumes.openHandles(), 1);
    reader.closeVolume();
    EXPECT_EQ(volumes.openHandles(), 0);
    volumes.calls.clear();
    reader.closeVolume();
    EXPECT_EQ(volumes.calls, Lines{"CloseHandle -1"});
}

TEST_F(ReaderTest, TheBlockOfInformationLiesAtTheByteOfItsNumber) {
    read(2);
    EXPECT_EQ(volumes.calls,
              (Lines{R"(CreateFileA \\.\E: 2147483648 3 3)", "ReadFile 1 512",
                     R"(GetVolumeInformationA E:\)", "SetFilePointer 1 1 0 0", "ReadFile 1 512"}));
    ASSERT_EQ(form.lvInfo.Count(), 23);
    EXPECT_EQ(label(21), "FAT name");
    EXPECT_EQ(label(22), "Last known free cluster");
    EXPECT_EQ(label(23), "Starting free cluster");
    // The bytes 489 to 496 of the volume, which are 0: not those of the second sector.
    EXPECT_EQ(value(22), "0");
    EXPECT_EQ(value(23), "0");
}

TEST_F(ReaderTest, ABlockBeyond32767IsFoundByItsUnsignedNumber) {
    std::string disk = MadeSector(fat32Sector()).number(48, 2, 65535);
    disk.resize(65535 + 512, '\x02');
    volumes.volumes["E:"].bytes = disk;
    read(2);
    EXPECT_EQ(volumes.calls[3], "SetFilePointer 1 65535 0 0");
    EXPECT_EQ(value(22), "33686018");  // 0x02020202
}

TEST_F(ReaderTest, AShortBlockOfInformationAddsNothing) {
    volumes.volumes["E:"].bytes.resize(512);
    read(2);
    EXPECT_EQ(form.lvInfo.Count(), 21);
    EXPECT_EQ(label(21), "FAT name");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_FALSE(form.txtBytes.Text().empty());
}

TEST_F(ReaderTest, AFailingReadOfTheBlockOfInformationAddsNothing) {
    volumes.volumes["E:"].goodReads = 1;
    read(2);
    EXPECT_EQ(volumes.calls.back(), "ReadFile 1 512");
    EXPECT_EQ(form.lvInfo.Count(), 21);
    EXPECT_EQ(label(21), "FAT name");
    EXPECT_TRUE(host.boxes.empty());
    EXPECT_FALSE(form.txtBytes.Text().empty());
}

TEST_F(ReaderTest, AReadThatFillsTheBufferAndFailsIsNone) {
    volumes.volumes["C:"].goodReads = 0;
    read(0);
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text, "Error reading the drive.");
    EXPECT_EQ(form.lvInfo.Count(), 0);
    EXPECT_EQ(form.txtBytes.Text(), "");
}

TEST_F(ReaderTest, TheNameIsTakenFromABufferOfBlanks) {
    read(0);
    EXPECT_EQ(volumes.nameBuffers, (Lines{std::string(16, ' '), std::string(16, ' ')}));
    EXPECT_EQ(reader.fFileSystemName("D:"), "FAT16");
    volumes.volumes["C:"].isNamed = false;
    EXPECT_EQ(reader.fFileSystemName("C:"), std::string(16, ' '));
    read(0);
    EXPECT_EQ(form.lvInfo.Count(), 0);
    EXPECT_EQ(form.txtBytes.Text().size(), 512 * 3 - 1 + 63U);
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ReaderTest, ADriveIsTheFirstTwoCharactersOfItsEntry) {
    reader.offerDrives({"C:", "D: [DATA]"});
    volumes.calls.clear();
    read(1);
    EXPECT_EQ(volumes.calls, (Lines{R"(CreateFileA \\.\D: 2147483648 3 3)", "ReadFile 1 512",
                                    R"(GetVolumeInformationA D:\)"}));
    EXPECT_EQ(form.lvInfo.Count(), 14);
}

// The name of the file system is asked for anew, of the chosen drive.
TEST_F(ReaderTest, AnotherDriveIsDecodedLikeTheChosenOne) {
    reader.prcReadBootSector("D:");
    EXPECT_EQ(volumes.calls, (Lines{R"(CreateFileA \\.\D: 2147483648 3 3)", "ReadFile 1 512",
                                    R"(GetVolumeInformationA C:\)"}));
    EXPECT_EQ(form.lvInfo.Count(), 12);
    EXPECT_TRUE(form.txtBytes.Text().starts_with("00 00 00 6D 6B 66 73 2E"));
}

TEST_F(ReaderTest, ALetterThatGetsAnotherVolumeShowsThat) {
    read(0);
    volumes.volumes["C:"] = {.bytes = fat16Sector(), .fileSystem = "FAT16"};
    volumes.calls.clear();
    read(0);
    EXPECT_EQ(volumes.calls[0], "CloseHandle 1");
    EXPECT_EQ(volumes.calls[1], R"(CreateFileA \\.\C: 2147483648 3 3)");
    EXPECT_EQ(form.lvInfo.Count(), 14);
    EXPECT_EQ(value(1), "mkfs.fat");
    EXPECT_TRUE(form.txtBytes.Text().starts_with("00 00 00 6D 6B 66 73 2E"));
    volumes.volumes.erase("C:");
    read(0);
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_TRUE(host.boxes[0].text.starts_with("Error opening the drive."));
    EXPECT_EQ(volumes.openHandles(), 0);
    EXPECT_EQ(closings, 1);
}

TEST_F(ReaderTest, AnUnknownFileSystemGivesADumpAlone) {
    for (const char* name : {"", "FAT", "CDFS", "ext4"}) {
        volumes.volumes["C:"].fileSystem = name;
        form.txtBytes.setText("");
        read(0);
        EXPECT_EQ(form.lvInfo.Count(), 0) << name;
        EXPECT_EQ(form.txtBytes.Text().size(), 512 * 3 - 1 + 63U) << name;
    }
    EXPECT_TRUE(host.boxes.empty());
}

TEST_F(ReaderTest, AFailingOpenClosesTheDialogAfterItsBox) {
    read(0);
    volumes.reason = "no right to read it";
    host.onBox = [this](const Box&) { EXPECT_EQ(closings, 0); };
    read(3);
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0].text,
              "Error opening the drive.\r\nClose some applications and try again.");
    EXPECT_EQ(host.boxes[0].icon, BoxIcon::critical);
    EXPECT_EQ(host.boxes[0].buttons, BoxButtons::ok);
    EXPECT_EQ(host.boxes[0].title, "Velmora");
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(reader.hDrive(), -1);
    EXPECT_EQ(form.lblReason.Caption(), "no right to read it");
    EXPECT_EQ(host.notes, Lines{"no right to read it"});
}

TEST_F(ReaderTest, AFailingOrShortReadEmptiesWhatIsShown) {
    for (const bool fails : {true, false}) {
        read(0);
        host.boxes.clear();
        volumes.volumes["D:"].reads = !fails;
        if (!fails) volumes.volumes["D:"].bytes.resize(511);
        read(1);
        ASSERT_EQ(host.boxes.size(), 1U);
        EXPECT_EQ(host.boxes[0].text, "Error reading the drive.");
        EXPECT_EQ(host.boxes[0].icon, BoxIcon::critical);
        EXPECT_EQ(form.lvInfo.Count(), 0);
        EXPECT_EQ(form.txtBytes.Text(), "");
        EXPECT_EQ(form.txtChar.Text(), "");
        EXPECT_EQ(closings, 0);
        EXPECT_NE(reader.hDrive(), -1);
        EXPECT_EQ(volumes.openHandles(), 1);
    }
    EXPECT_TRUE(host.notes.empty());
}

TEST_F(ReaderTest, TheReasonStaysUntilAReadSucceeds) {
    volumes.reason = "because";
    read(3);
    EXPECT_EQ(form.lblReason.Caption(), "because");
    read(0);
    EXPECT_EQ(form.lblReason.Caption(), "");
}

}  // namespace
}  // namespace velmora::tests
