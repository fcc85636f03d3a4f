"""Images of file systems with known figures, and block devices that show them."""

import hashlib
import pathlib
import shutil
import subprocess
import tempfile

import filesystems

SECTOR = 512


class Image:
    """A file with a file system that `command` makes in it; its options come before the file."""

    def __init__(self, megabytes, *command):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.path = self.folder / "image"
        self.sectors = megabytes * filesystems.KB * filesystems.KB // SECTOR
        try:
            with self.path.open("wb") as file:
                file.truncate(self.sectors * SECTOR)
            self._make(command)
        except filesystems.Unavailable:
            self.close()
            raise

    def _make(self, command):
        if not shutil.which(command[0]):
            raise filesystems.Unavailable(f"{command[0]} isn't installed")
        filesystems.run(*command, str(self.path))

    def first_bytes(self, count):
        with self.path.open("rb") as file:
            return file.read(count)

    def checksum(self):
        return hashlib.sha256(self.path.read_bytes()).hexdigest()

    def said_by(self, *command):
        """What a program says of the image; None where it isn't installed."""
        if not shutil.which(command[0]):
            return None
        words = [str(self.path) if word == "IMAGE" else word for word in command]
        return subprocess.run(words, check=True, capture_output=True, text=True).stdout

    def close(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class LoopDevice:
    """A block device with the bytes of an image, which can be written through it."""

    def __init__(self, image):
        self.path = filesystems.run("losetup", "--find", "--show", str(image.path)).strip()

    def close(self):
        subprocess.run(["losetup", "--detach", self.path], check=False, capture_output=True)
