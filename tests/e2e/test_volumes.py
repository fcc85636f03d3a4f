"""Volumes below their file systems: what the program reads and what the system's own tools say."""

import os
import re
import shutil
import subprocess

import filesystems
from cases import ConsoleCase
from console import ConsoleError

VIEW_OF_PARTITIONS = 2
SECTOR = 512


def said_by(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, errors="replace").stdout


class Volume(filesystems.Mount):
    """A file system on a loop device. The commands get the path of the image, or device and folder."""

    def __init__(self, megabytes, maker, mounter):
        super().__init__()
        self.device = None
        self.image = self.folder.with_suffix(".img")
        for program in (maker[0], mounter[0], "losetup"):
            if not shutil.which(program):
                self.close()
                raise filesystems.Unavailable(f"{program} is missing")
        with self.image.open("wb") as image:
            image.truncate(megabytes * filesystems.KB * filesystems.KB)
        try:
            filesystems.run(*maker, str(self.image))
            self.device = self.attached()
            filesystems.run(*(each.format(self.device) for each in mounter), self.device, str(self.folder))
        except filesystems.Unavailable:
            self.close()
            raise
        self.mounted = True

    def attached(self):
        done = subprocess.run(["losetup", "--find", "--show", str(self.image)], capture_output=True, text=True,
                              check=False)
        if done.returncode:
            raise filesystems.Unavailable(f"losetup: {done.stderr.strip()}")
        return done.stdout.strip()

    def close(self):
        super().close()
        if self.device:
            subprocess.run(["losetup", "--detach", self.device], check=False, capture_output=True)
            self.device = None
        self.image.unlink(missing_ok=True)


class Fat32(Volume):
    def __init__(self):
        super().__init__(40, ("mkfs.fat", "-F", "32", "-n", "EVERY DAY", "-i", "0BADCAFE", "-h", "63"),
                         ("fusefat", "-o", "rw+,fsname={}"))


class Ntfs(Volume):
    def __init__(self):
        super().__init__(8, ("mkntfs", "-F", "-Q", "-q", "-L", "Night", "-H", "16", "-S", "63", "-p", "0"), ("ntfs-3g",))


class Ext4(Volume):
    def __init__(self):
        super().__init__(8, ("mkfs.ext4", "-q", "-F", "-L", "extra"), ("mount",))


class Volumes(ConsoleCase):
    def open(self, kind):
        self.volume = self.mount(kind)
        self.restart()
        self.drive = self.drive_of(self.volume)[:2]

    def report(self):
        return self.console.run(f"report bootsector {self.drive}")[0]

    def rows_of_the_dialog(self):
        """What the dialog shows after the drive was chosen, as pairs."""
        self.console.run("click cmdAdv")
        self.console.run(f"set dlgDriveInfo.Combo1.ListIndex {VIEW_OF_PARTITIONS}")
        # The drives are offered in the order of the alphabet, C: first; choosing another one reads it.
        offered = [chr(letter) + ":" for letter in range(ord("C"), ord("Z") + 1)]
        for index, drive in enumerate(offered):
            if drive == self.drive:
                self.console.run(f"set dlgDriveInfo.drvDrive.ListIndex {index}")
        return [(row["Text"], row["SubItems"][0]) for row in self.console.rows("dlgDriveInfo.lvInfo")]

    def dump(self, bytes_):
        lines = [" ".join(f"{byte:02X}" for byte in bytes_[at:at + 8]) for at in range(0, SECTOR, 8)]
        return "\r\n".join(lines)

    def check_dump(self, report):
        with open(self.volume.device, "rb") as device:
            self.assertEqual(report["First 512 Bytes of partition"], self.dump(device.read(SECTOR)))

    def test_fat32_is_what_minfo_says(self):
        if not shutil.which("minfo"):
            self.skipTest("minfo is missing")
        self.open(Fat32)
        report = self.report()
        said = said_by("minfo", "-i", self.volume.device, "::").split("bootsector information")[1]

        def value(label, base=10):
            return int(re.search(rf"{label}[:=] ?(\w+)", said)[1], base)

        self.assertEqual(report["File system"], "FAT32")
        self.assertEqual(report["Volume name"], "EVERY DAY  ")
        self.assertEqual(report["Serial number"], "BADCAFE")
        self.assertEqual(report["Number of hidden sectors"], "63")
        for label, name in (("Bytes per Sector", "sector size"), ("Sectors per cluster", "cluster size"),
                            ("Number of sectors", "big size"), ("Number of sectors per FAT", "Big fatlen"),
                            ("Backup boot sector number", "backup boot sector"),
                            ("Root Directory cluster number", "rootCluster")):
            self.assertEqual(report[label], str(value(name)), label)
        self.check_dump(report)
        shown = self.rows_of_the_dialog()
        self.assertEqual(len(shown), 23)
        # A row of the version holds a number of the running process.
        expected = [(label, text) for label, text in report.items() if label in dict(shown)]
        self.assertEqual([row for row in shown if row[0] != "Drive Version"],
                         [row for row in expected if row[0] != "Drive Version"])

    def test_ntfs_is_what_ntfsinfo_says(self):
        if not shutil.which("ntfsinfo"):
            self.skipTest("ntfsinfo is missing")
        self.open(Ntfs)
        report = self.report()
        shown = self.rows_of_the_dialog()
        device = self.volume.device
        serial = re.search(r"^UUID=(\w+)$", said_by("blkid", "-p", "-o", "export", device), re.M)[1]
        said = said_by("ntfsinfo", "-f", "-m", device)

        def value(label):
            return int(re.search(rf"{label}: (\d+)", said)[1])

        self.assertEqual(report["File system"], "NTFS")
        self.assertEqual(report["Bytes per Sector"], str(value("Sector Size")))
        self.assertEqual(report["Sectors per cluster"], str(value("Cluster Size") // value("Sector Size")))
        self.assertEqual(report["LCN of MFT data attribute"], str(value("LCN of Data Attribute for FILE_MFT")))
        self.assertEqual(report["LCN of MFT mirror data attribute"],
                         str(value("LCN of Data Attribute for File_MFTMirr")))
        self.assertEqual(report["Volume serial number"], f"{int(serial[8:], 16):X}")
        self.assertEqual((report["Sectors per track"], report["Number of heads"]), ("63", "16"))
        self.check_dump(report)
        self.assertEqual(len(shown), 12)
        self.assertEqual(shown, [(label, text) for label, text in report.items() if label in dict(shown)])

    def test_ext4_has_a_name_and_a_dump_alone(self):
        self.open(Ext4)
        report = self.report()
        self.assertEqual(list(report), ["File system", "First 512 Bytes of partition"])
        self.assertEqual(report["File system"], "EXT4")
        self.check_dump(report)
        self.assertEqual(self.rows_of_the_dialog(), [])
        self.assertEqual(self.console.get("dlgDriveInfo.txtBytes.Text"), report["First 512 Bytes of partition"])

    def test_attributes_are_the_figures_of_the_system(self):
        self.open(Ext4)
        report = self.console.run(f"report drive {self.drive}")[0]
        space = os.statvfs(self.volume.folder)
        self.assertEqual(report["Drive Type"], "Fixed")
        self.assertEqual(int(report["Sectors per Cluster"]) * int(report["Bytes per Sector"]), space.f_frsize)
        self.assertEqual(report["Bytes per Sector"], "512")
        self.assertEqual(report["Free Clusters"], str(space.f_bavail))
        self.assertEqual(report["Total Clusters"], str(space.f_blocks))
        self.assertEqual(report["Total Drive Space"], f"{round(space.f_blocks * space.f_frsize / 2**20):,}")

    def test_what_has_no_volume_says_why(self):
        self.open(filesystems.Tmpfs)
        with self.assertRaisesRegex(ConsoleError, rf"^the drive can't be opened: {self.drive} has no block device"):
            self.report()
        self.assertEqual(self.console.run(f"report drive {self.drive}")[0]["Drive Type"], "Ram Disk")
        self.assertEqual(self.rows_of_the_dialog(), [])
        self.assertEqual([box["text"] for box in self.console.boxes()][-1],
                         "Error opening the drive.\r\nClose some applications and try again.")
        reason = f"{self.drive} has no block device (tmpfs)"
        self.assertEqual(self.console.get("dlgDriveInfo.lblReason.Caption"), reason)
        self.assertIn(reason, self.console.noise_with(reason))
