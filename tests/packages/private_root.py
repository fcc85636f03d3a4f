"""A root of its own over this machine's files, to install a package into and throw away: the machine's list of
packages, its users and its folders stay as they are. It has /tmp and the network in common with the machine."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

IN_ROOT = pathlib.Path(__file__).resolve().parents[1] / "e2e" / "in_root.sh"
READY = "ready"


class PrivateRoot:
    """Raises SkipTest where this machine doesn't allow one."""

    def __init__(self):
        if os.geteuid() != 0 or shutil.which("nsenter") is None:
            raise unittest.SkipTest("a root of its own needs root and nsenter")
        self.base = tempfile.mkdtemp(prefix="velmora-root-", dir="/tmp")
        self.holder = subprocess.Popen([IN_ROOT, "", "sh", "-c", f"echo {READY}; exec sleep infinity"],
                                       stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
                                       env={**os.environ, "IN_ROOT_BASE": self.base})
        if self.holder.stdout.readline().strip() != READY:
            self.close()
            raise unittest.SkipTest("no root of its own can be made here")
        # The first process of the namespace still sees the machine's root, with the layers in it.
        first, *_, last = self._descendants()
        self.inside = str(last)
        self.layer = pathlib.Path(f"/proc/{first}/root{self.base}/upper")

    def _descendants(self):
        """The processes below the holder, each the parent of the next, by their numbers on this machine."""
        process = self.holder.pid
        found = []
        while True:
            children = pathlib.Path(f"/proc/{process}/task/{process}/children").read_text("ascii").split()
            if not children:
                return found
            process = int(children[0])
            found.append(process)

    def command(self, *words):
        """The command line that runs a program in there, as root in the root folder."""
        return ["nsenter", "--target", self.inside, "--mount", "--pid", "--root", "env", "--chdir=/",
                *(str(word) for word in words)]

    def run(self, *words, check=True, **options):
        """The ended program; with `check` the test fails when the program does."""
        done = subprocess.run(self.command(*words), capture_output=True, text=True, check=False,
                              **{"timeout": 120, **options})
        if check and done.returncode:
            raise AssertionError(f"{words} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
        return done

    def shell(self, script, **options):
        """What a script prints."""
        return self.run("sh", "-ec", script, **options).stdout

    def file(self, path):
        """The path under which this machine sees a file in there."""
        return pathlib.Path(f"/proc/{self.inside}/root{path}")

    def added(self):
        """Every path in there that the machine itself doesn't have."""
        inside = ("/" + str(path.relative_to(self.layer)) for path in self.layer.rglob("*"))
        return {path for path in inside if os.path.lexists(self.file(path)) and not os.path.lexists(path)}

    def close(self):
        self.holder.kill()
        self.holder.wait()
        self.holder.stdout.close()
        # The mounts of the namespace go with its last process.
        end = time.monotonic() + 20
        while os.path.exists(self.base) and time.monotonic() < end:
            shutil.rmtree(self.base, ignore_errors=True)
