"""What a scenario runs in: a copy of the program, two small filesystems and a mail server, made anew for each run."""

import os
import pathlib
import shutil

import filesystems
from taking_server import TakingServer
from settings import scrambled
from trees import tree

SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=50000\r\n", "custtime=0\r\n")
LOG = b"03/14/26 15:09:26 - Moved File: C:\\old\r\n . \r\n\r\n"
KB = 1024

# Of each listed file; several pages and an odd end.
CONTENT = {name: bytes((number * 7 + at * 13) % 251 for at in range(20_001 + number))
           for number, name in enumerate(("one.bin", "two.bin", "three.bin", "größe.log"))}
OPENER = "#!/bin/sh\nexit 0\n"


class World:
    """`small` has the listed files, `other` is where files are moved to; `kept` is on no list."""

    def __init__(self, built, folder, target=filesystems.Tmpfs):
        self.folder = pathlib.Path(folder)
        self.home = self.folder / "home"
        self.place = self.folder / "program"
        self.place.mkdir()
        self.program = self.place / "velmora-console"
        shutil.copy2(built, self.program)
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        for name in ("xdg-open", "pw-play", "bleachbit"):
            (self.tools / name).write_text(OPENER)
            (self.tools / name).chmod(0o755)
        self.mounts = [filesystems.Tmpfs(8)]
        self.mounts.append(target(16))
        self.small, self.other = (mount.folder for mount in self.mounts)
        self.mail = TakingServer()

    def close(self):
        self.mail.close()
        for mount in self.mounts:
            mount.close()

    def environment(self):
        return {"HOME": str(self.home), "PATH": f"{self.tools}:/usr/bin:/bin", "LANG": "C.UTF-8",
                "ASAN_OPTIONS": "detect_leaks=0", "UBSAN_OPTIONS": "halt_on_error=1:print_stacktrace=1"}

    def reset(self):
        """Everything as before the first run."""
        for folder in (self.home, self.small, self.other):
            for entry in folder.iterdir() if folder.exists() else ():
                shutil.rmtree(entry) if entry.is_dir() and not entry.is_symlink() else entry.unlink()
        self.home.mkdir(exist_ok=True)
        self.settings.unlink(missing_ok=True)
        self.settings.write_bytes(SETTINGS)
        self.log.unlink(missing_ok=True)
        self.log.write_bytes(LOG)
        for name in set(os.listdir(self.place)) - {"velmora-console", "set.dat", "log.dat"}:
            (self.place / name).unlink()
        (self.small / "kept").mkdir()
        (self.small / "kept" / "заметки.txt").write_bytes(b"precious" * 1000)
        (self.small / "kept.bin").write_bytes(b"kept" * 999)
        (self.other / "kept too.bin").write_bytes(b"too" * 999)
        (self.other / "archive").mkdir()
        for name, content in CONTENT.items():
            (self.small / name).write_bytes(content)
        (self.small / "old").mkdir()
        (self.small / "old" / "deeper").mkdir()
        (self.small / "old" / "deeper" / "a.log").write_bytes(b"a" * 5000)
        (self.small / "old" / "b.log").write_bytes(b"b" * 5000)

    @property
    def settings(self):
        return self.place / "set.dat"

    @property
    def log(self):
        return self.place / "log.dat"

    def trees(self):
        return {"small": tree(self.small), "other": tree(self.other), "program": tree(self.place),
                "home": tree(self.home)}
