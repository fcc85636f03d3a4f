#!/usr/bin/env python3
"""Images of file systems, decoded by a program and described by the tools of their makers.

    check_boot_sectors.py READ_IMAGE [NUMBER]

Makes so many images (40) of FAT12, FAT16, FAT32 and NTFS with all sizes of clusters up to 64 KB,
different labels, serial numbers and media, and some of exFAT, ext4, zeros and random bytes. The
rows that READ_IMAGE prints are compared with what minfo, ntfsinfo and blkid say, where they say
something. Images are the same at each run. A tool that is missing takes its images with it, which
is printed. With 500 as the number it is a thorough search for ten seconds or so.
"""

import pathlib
import random
import re
import shutil
import subprocess
import sys
import tempfile

KB = 1024
SYSTEM_FOLDERS = "/usr/sbin:/sbin:/usr/bin:/bin"
SMALL = 8 * KB * KB
SECTOR = 512
FAT_CLUSTERS = {12: 1000, 16: 5000, 32: 66000}  # what each of them can count, and the one before it can't
SECTORS_IN_CLUSTER = (1, 2, 4, 8, 16, 32, 64, 128)
NTFS_CLUSTERS = (512, 1024, 2048, 4096, 8192, 16384, 32768, 65536)  # bytes
FLAGS_AND_VERSION = 40  # where these two words of FAT32 are
NO_LABEL = "NO NAME"
VERSION = "Drive Version"


def tool(name):
    return shutil.which(name, path=SYSTEM_FOLDERS)


def run(*command):
    return subprocess.run([tool(command[0]), *command[1:]], check=True, capture_output=True, text=True,
                          errors="replace").stdout


def sized(path, size):
    """An image of so many bytes, which take no room on the disk."""
    with path.open("wb") as image:
        image.truncate(size)


class Fat:
    tools = ("mkfs.fat", "minfo", "blkid")

    def __init__(self, path, chance):
        self.bits = chance.choice((12, 16, 32))
        self.cluster = chance.choice(SECTORS_IN_CLUSTER)
        sized(path, FAT_CLUSTERS[self.bits] * self.cluster * SECTOR + KB * KB)
        self.label = chance.choice(("", "A", "TWO WORDS", "ELEVENCHARS"))
        self.serial = chance.getrandbits(32)
        self.hidden = chance.choice((0, 63, 2048))
        self.media = chance.choice((0xF0, 0xF8, 0xFA))
        command = ["mkfs.fat", "-F", str(self.bits), "-s", str(self.cluster), "-i", f"{self.serial:08x}", "-h",
                   str(self.hidden), "-M", f"0x{self.media:X}", "-f", str(chance.choice((1, 2)))]
        run(*command, *(["-n", self.label] if self.label else []), str(path))
        self.name = f"FAT{self.bits}"
        if self.bits == 32:
            # No maker writes anything but 0 there.
            with path.open("r+b") as image:
                image.seek(FLAGS_AND_VERSION)
                image.write(chance.randbytes(4))

    def expected(self, path):
        said = run("minfo", "-i", str(path), "::").split("bootsector information")[1]

        def value(label, base=10):
            return int(re.search(rf"{label}[:=] ?(\w+)", said)[1], base)

        rows = {"OEM name": re.search(r'banner:"(.*)"', said)[1],
                "Bytes per Sector": value("sector size"),
                "Sectors per cluster": value("cluster size"),
                "Reserved sectors": value(r"reserved \(boot\) sectors"),
                "Number of copies of FAT": value("fats"),
                "Media Descriptor": f"{value('media descriptor byte', 16):02X}",
                "Sectors per track": value("sectors per track"),
                "Number of heads": value("heads"),
                "Number of hidden sectors": value("hidden sectors"),
                "Drive number": value("physical drive id", 16),
                "Serial number": f"{value('serial number', 16):X}",
                "Volume name": re.search(r'disk label="(.*)"', said)[1]}
        # A small volume has its size in a word that no row shows, and 0 in this row.
        big = re.search(r"big size: (\d+)", said)
        rows["Number of sectors"] = big[1] if big else 0
        if self.bits == 32:
            flags = value("Extended flags", 16)
            rows |= {"Number of sectors per FAT": value("Big fatlen"),
                     "Active FAT copy": flags & 15,
                     "FAT mirroring enabled": bool(flags & 128),
                     VERSION: value("FS version", 16) & 255,
                     "Root Directory cluster number": value("rootCluster"),
                     "File System Information sector": value("infoSector location"),
                     "Backup boot sector number": value("backup boot sector"),
                     "FAT name": re.search(r'disk type="(.*)"', said)[1]}
        else:
            rows["File system type"] = re.search(r'disk type="(.*)"', said)[1]
        # What was asked for arrived.
        assert rows["Serial number"] == f"{self.serial:X}" and int(rows["Sectors per cluster"]) == self.cluster
        assert rows["Volume name"].rstrip() == (self.label or NO_LABEL)
        return rows

    rows = property(lambda self: 23 if self.bits == 32 else 14)


class Ntfs:
    tools = ("mkntfs", "ntfsinfo", "blkid")
    name = "NTFS"
    rows = 12

    def __init__(self, path, chance):
        sized(path, SMALL)
        self.cluster = chance.choice(NTFS_CLUSTERS)
        run("mkntfs", "-F", "-Q", "-q", "-c", str(self.cluster), "-p", str(chance.choice((0, 63))), "-H", "16", "-S",
            "63", "-s", "512", "-L", chance.choice(("", "A b c")), str(path))

    def expected(self, path):
        said = run("ntfsinfo", "-m", str(path))

        def value(label):
            return int(re.search(rf"{label}: (\d+)", said)[1])

        sectors = value("Cluster Size") // value("Sector Size")
        assert value("Cluster Size") == self.cluster
        serial = re.search(r"^UUID=(\w+)$", run("blkid", "-p", "-o", "export", str(path)), re.M)[1]
        # The last sector of the volume is kept for a copy of the first.
        return {"Bytes per Sector": value("Sector Size"),
                "Sectors per cluster": sectors,
                "LCN of MFT data attribute": value("LCN of Data Attribute for FILE_MFT"),
                "LCN of MFT mirror data attribute": value("LCN of Data Attribute for File_MFTMirr"),
                "Sectors in storage unit": SMALL // SECTOR - 1,
                "File record size": self.in_clusters(value("MFT Record Size")),
                "Index buffer size": self.in_clusters(value("Index Block Size")),
                "OEM name": "NTFS    ",
                "Media descriptor": "F8",
                "Sectors per track": 63,
                "Number of heads": 16,
                "Volume serial number": f"{int(serial[8:], 16):X}"}


    def in_clusters(self, size):
        """A size that is less than a cluster is stored as the power of two, negative, in one byte."""
        stored = size // self.cluster if size >= self.cluster else 257 - size.bit_length()
        return f"{stored} clusters"


class Other:
    """A volume that no record describes."""

    rows = 0

    def __init__(self, path, name, *maker):
        sized(path, SMALL)
        self.name = name
        if maker:
            run(*maker, str(path))

    def expected(self, path):
        return {}


class Any(Other):
    """Random bytes taken for each file system: only the number of rows is known."""

    def __init__(self, path, chance):
        path.write_bytes(chance.randbytes(64 * KB + 512))
        self.name, self.rows = chance.choice((("FAT12", 14), ("FAT16", 14), ("FAT32", 23), ("NTFS", 12), ("EXT4", 0)))


def kinds():
    return (("mkfs.fat minfo blkid", Fat), ("mkfs.fat minfo blkid", Fat), ("mkntfs ntfsinfo blkid", Ntfs), ("", Any),
            ("mkfs.exfat", lambda path, chance: Other(path, "EXFAT", "mkfs.exfat")),
            ("mkfs.ext4", lambda path, chance: Other(path, "EXT4", "mkfs.ext4", "-q", "-F")),
            ("", lambda path, chance: Other(path, "")))


def make(folder, number):
    """The images by their paths, and how many could not be made."""
    chance = random.Random(1)
    images, missing = {}, set()
    known = kinds()
    for i in range(number):
        tools, kind = known[i % len(known)] if i < 2 * len(known) else known[chance.randrange(4)]
        lacking = [each for each in tools.split() if not tool(each)]
        missing.update(lacking)
        if not lacking:
            path = folder / f"{i}.img"
            images[path] = kind(path, chance)
    for each in sorted(missing):
        print(f"skipped: {each} is missing")
    return images, number - len(images)


def decoded(program, images):
    asked = "".join(f"{image.name or 'ZEROS'} {path}\n" for path, image in images.items())
    printed = subprocess.run([program], input=asked, check=True, capture_output=True, text=True).stdout
    return [[line.split("\t") for line in block.split("\n") if line] for block in blocks(printed)]


def blocks(printed):
    """Each block of rows ends with an empty line; one without rows is that line alone."""
    block = []
    for line in printed.split("\n")[:-1]:
        if line:
            block.append(line)
        else:
            yield "\n".join(block)
            block = []


def faults(image, path, rows):
    if len(rows) != image.rows:
        yield f"{len(rows)} rows instead of {image.rows}"
    shown = dict(rows)
    # The number before the point is one of the running process.
    if VERSION in shown:
        shown[VERSION] = shown[VERSION].split(".")[1]
    for label, value in image.expected(path).items():
        if shown.get(label) != str(value):
            yield f"{label}: {shown.get(label)!r} instead of {str(value)!r}"


def main():
    program, number = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 40
    with tempfile.TemporaryDirectory(prefix="velmora-images-") as folder:
        images, skipped = make(pathlib.Path(folder), number)
        failed = 0
        answers = decoded(program, images)
        if len(answers) != len(images):
            print(f"{len(answers)} answers for {len(images)} images")
            failed += 1
        for (path, image), rows in zip(images.items(), answers):
            found = list(faults(image, path, rows))
            failed += bool(found)
            for fault in found:
                print(f"{path.name} ({image.name}): {fault}")
    print(f"{len(images) - failed} passed, {failed} failed, {skipped} skipped")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
