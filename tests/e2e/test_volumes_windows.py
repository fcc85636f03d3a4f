"""Boot sectors and attributes of drives under Wine, beside what the file systems were made with."""

import os
import pathlib
import re
import struct
import subprocess
import unittest

import filesystems
import volumes
from cases import WindowsCase
from console import ConsoleError

MB = 1024 * 1024
DRIVES_OF_WINE = r"HKLM\Software\Wine\Drives"
OPENING = "Error opening the drive.\r\nClose some applications and try again."
READING = "Error reading the drive."

FAT32 = ("mkfs.fat", "-F", "32", "-n", "VELMORA", "-i", "1234ABCD", "-S", "512", "-s", "1", "-R", "40", "-f", "2",
         "-M", "0xF8", "-h", "2048", "-b", "6", "-g", "16/32", "-D", "0x81")
# Of 4096 clusters and a few: too many for FAT12.
FAT16 = ("mkfs.fat", "-F", "16", "-S", "512", "-s", "4")
NTFS = ("mkntfs", "-F", "-Q", "-q", "-p", "2048", "-H", "16", "-S", "63", "-s", "512", "-c", "2048", "-L", "Data")


def steady(rows):
    """The rows without the number in front of the version, which isn't the volume's: it is of the running process."""
    return [(name, re.sub(r"^\d{1,3}\.", "any.", value) if name == "Drive Version" else value)
            for name, value in rows]


class Volumes(WindowsCase):
    def make(self, kind, *arguments):
        try:
            made = kind(*arguments)
        except filesystems.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(made.close)
        return made

    def show(self, image):
        """Makes an image the volume of a drive, and returns its letter and colon."""
        device = self.make(volumes.LoopDevice, image)
        root = self.give_letter(self.mount(filesystems.Tmpfs), device.path)
        self.restart()
        return root[:2]

    def kinds(self, *words):
        """Changes what kinds of drives Wine is told of, which it asks when its first program starts."""
        subprocess.run([os.environ["VELMORA_WINE"], "reg", words[0], DRIVES_OF_WINE, *words[1:], "/f"], check=True,
                       stdin=subprocess.DEVNULL, capture_output=True)
        pathlib.Path(os.environ["WINEPREFIX"], "known-surroundings").unlink(missing_ok=True)

    def open_partition_view(self):
        self.console.run("click cmdAdv")
        self.console.run("set dlgDriveInfo.Combo1.ListIndex 2")

    def choose(self, drive):
        drives = [row["Text"] for row in self.console.rows("dlgDriveInfo.drvDrive")]
        number = drives.index(drive)
        if int(self.console.get("dlgDriveInfo.drvDrive.ListIndex")) == number:
            self.console.run("click dlgDriveInfo.cmdEnter")
        else:
            self.console.run(f"set dlgDriveInfo.drvDrive.ListIndex {number}")

    def rows_of_dialog(self):
        return steady((row["Text"], row["SubItems"][0]) for row in self.console.rows("dlgDriveInfo.lvInfo"))

    def check_views(self, image, file_system, expected):
        """The report and the dialog show these rows in their order, and the bytes of the sector.
        Nothing is written to the volume."""
        before = image.checksum()
        sector = image.first_bytes(512)
        drive = self.show(image)
        fields = self.console.run(f"report bootsector {drive}")[0]
        self.assertEqual(bytes.fromhex(fields.pop("First 512 Bytes of partition")), sector)
        self.assertEqual(steady(fields.items()), [("File system", file_system), *expected])
        self.open_partition_view()
        self.choose(drive)
        self.assertEqual(self.console.boxes(), [])
        self.assertEqual(self.rows_of_dialog(), expected)
        self.assertEqual(bytes.fromhex(self.console.get("dlgDriveInfo.txtBytes")), sector)
        self.console.close()
        self.assertEqual(image.checksum(), before)

    def test_fat32_is_what_it_was_made_with(self):
        image = self.make(volumes.Image, 64, *FAT32)
        first = image.first_bytes(1024)
        fat_size = str(struct.unpack_from("<i", first, 36)[0])
        said = image.said_by("minfo", "-i", "IMAGE", "::")
        if said:
            self.assertEqual(re.search(r"Big fatlen=(\d+)", said)[1], fat_size)
        # The number of the sector with the last two rows, 1, is taken for the position of a byte.
        free, start = struct.unpack_from("<ii", first, 1 + 488)
        self.check_views(image, "FAT32", [
            ("OEM name", "mkfs.fat"),
            ("Bytes per Sector", "512"),
            ("Sectors per cluster", "1"),
            ("Reserved sectors", "40"),
            ("Number of copies of FAT", "2"),
            ("Media Descriptor", "F8"),
            ("Sectors per track", "32"),
            ("Number of heads", "16"),
            ("Number of hidden sectors", "2048"),
            ("Number of sectors", str(image.sectors)),
            ("Number of sectors per FAT", fat_size),
            ("Active FAT copy", "0"),
            ("FAT mirroring enabled", "False"),
            ("Drive Version", "any.0"),
            ("Root Directory cluster number", "2"),
            ("File System Information sector", "1"),
            ("Backup boot sector number", "6"),
            ("Drive number", "129"),
            ("Serial number", "1234ABCD"),
            ("Volume name", "VELMORA    "),
            ("FAT name", "FAT32   "),
            ("Last known free cluster", str(free)),
            ("Starting free cluster", str(start)),
        ])

    def test_ntfs_is_what_it_was_made_with(self):
        image = self.make(volumes.Image, 64, *NTFS)
        table, mirror = struct.unpack_from("<qq", image.first_bytes(512), 48)
        said = image.said_by("ntfsinfo", "-m", "-f", "IMAGE")
        if said:
            self.assertEqual(re.search(r"Attribute for FILE_MFT: (\d+)", said)[1], str(table))
            self.assertEqual(re.search(r"Attribute for File_MFTMirr: (\d+)", said)[1], str(mirror))
        self.check_views(image, "NTFS", [
            ("OEM name", "NTFS    "),
            ("Bytes per Sector", "512"),
            ("Sectors per cluster", "4"),
            ("Media descriptor", "F8"),
            ("Sectors per track", "63"),
            ("Number of heads", "16"),
            # The last sector is the copy of the first and not counted.
            ("Sectors in storage unit", str(image.sectors - 1)),
            ("LCN of MFT data attribute", str(table)),
            ("LCN of MFT mirror data attribute", str(mirror)),
            # A record of 1024 bytes is less than a cluster: 2 to the power of 10, stored as -10 in a byte.
            ("File record size", "246 clusters"),
            ("Index buffer size", "2 clusters"),
            ("Volume serial number", format(struct.unpack_from("<I", image.first_bytes(512), 72)[0], "X")),
        ])

    def test_fat16_has_another_name_under_wine_and_so_no_rows(self):
        self.check_views(self.make(volumes.Image, 16, *FAT16), "FAT", [])

    def test_the_attributes_are_those_of_the_drive(self):
        mounted = self.mount(filesystems.Tmpfs, 8)
        drive = self.give_letter(mounted)[:2].lower()
        self.kinds("add", "/v", drive)
        self.addCleanup(self.kinds, "delete", "/v", drive)
        for kind, name in (("floppy", "Removable"), ("hd", "Fixed"), ("network", "Remote"), ("cdrom", "CD-ROM"),
                           ("ramdisk", "Ram Disk")):
            with self.subTest(kind):
                self.console.close()
                self.kinds("add", "/v", drive, "/d", kind)
                self.restart()
                self.assertEqual(self.console.run(f"report drive {drive}")[0]["Drive Type"], name)
        mounted.fill("file", 2 * MB)
        shown = self.console.run(f"report drive {drive}")[0]
        self.assertEqual((shown["Total Free Space"], shown["Total Drive Space"]), ("6", "8"))
        cluster = int(shown["Sectors per Cluster"]) * int(shown["Bytes per Sector"])
        self.assertEqual(int(shown["Total Clusters"]) * cluster, 8 * MB)
        self.assertEqual(int(shown["Free Clusters"]) * cluster, 6 * MB)

    def test_a_drive_that_may_not_be_opened_closes_the_dialog(self):
        self.open_partition_view()
        self.choose("Z:")
        box, = self.console.boxes()
        self.assertEqual((box["text"], box["icon"]), (OPENING, "critical"))
        self.assertFalse(self.console.get("dlgDriveInfo.Visible"))
        reason = "the right to read Z: is missing: start the program as administrator"
        self.assertEqual(self.console.get("dlgDriveInfo.lblReason"), reason)
        with self.assertRaisesRegex(ConsoleError, f"^the drive can't be opened: {reason}$"):
            self.console.run("report bootsector Z:")

    def test_a_drive_without_a_volume_opens_and_cannot_be_read(self):
        self.open_partition_view()
        self.choose("C:")
        box, = self.console.boxes()
        self.assertEqual((box["text"], box["icon"]), (READING, "critical"))
        self.assertTrue(self.console.get("dlgDriveInfo.Visible"))
        self.assertEqual(self.rows_of_dialog(), [])
        with self.assertRaisesRegex(ConsoleError, "^the drive can't be read: ."):
            self.console.run("report bootsector C:")

    def test_a_letter_without_a_drive_is_not_there(self):
        with self.assertRaisesRegex(ConsoleError, "^the drive can't be opened: ."):
            self.console.run("report bootsector K:")
        with self.assertRaisesRegex(ConsoleError, "^the drive doesn't answer: K:$"):
            self.console.run("report drive K:")


if __name__ == "__main__":
    unittest.main()
