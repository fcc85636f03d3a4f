"""Small real filesystems: mounted for one test and removed after it."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

KB = 1024


class Unavailable(Exception):
    """This machine doesn't allow it; says why."""


def free_and_total_kb(path):
    """The figures of df: available and size, in KB."""
    printed = subprocess.run(["df", "--block-size=1", "--output=avail,size", path], check=True,
                             capture_output=True, text=True).stdout
    return tuple(round_kb(int(value)) for value in printed.splitlines()[1].split())


def round_kb(size):
    # Ties away from zero, as the program rounds.
    return (2 * size + KB) // (2 * KB)


def run(*command):
    """What a program prints; Unavailable when it isn't there or fails."""
    try:
        return _printed(command)
    except OSError as why:
        raise Unavailable(f"{command[0]}: {why}") from why


def _printed(command):
    done = subprocess.run(command, capture_output=True, text=True, check=False)
    if done.returncode:
        raise Unavailable(f"{' '.join(command)}: {done.stderr.strip()}")
    return done.stdout


class Mount:
    """A mounted filesystem with its folder."""

    def __init__(self):
        if os.geteuid() != 0:
            raise Unavailable("mounting needs root")
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.mounted = False

    def unmount(self):
        if self.mounted:
            subprocess.run(["umount", "--lazy", str(self.folder)], check=False,
                           capture_output=True)
            self.mounted = False

    def close(self):
        self.unmount()
        shutil.rmtree(self.folder, ignore_errors=True)

    def free_and_total_kb(self):
        return free_and_total_kb(str(self.folder))

    def fill(self, name, size):
        """Writes a file of so many bytes."""
        (self.folder / name).write_bytes(b"x" * size)

    def fill_up(self):
        """Leaves no free byte."""
        with (self.folder / "filler").open("wb", buffering=0) as filler:
            for size in (64 * KB, KB, 1):
                try:
                    while filler.write(b"x" * size) == size:
                        pass
                except OSError:
                    pass


class Bound:
    """A file that is bind-mounted on another path."""

    def __init__(self, source, place):
        self.place = place
        place.touch()
        run("mount", "--bind", str(source), str(place))

    def close(self):
        if self.place is not None:
            subprocess.run(["umount", "--lazy", str(self.place)], check=False,
                           capture_output=True)
            self.place = None


class Tmpfs(Mount):
    def __init__(self, megabytes=8):
        super().__init__()
        self.size = f"size={megabytes}m"
        self.mount()

    def mount(self):
        try:
            run("mount", "-t", "tmpfs", "-o", self.size, "tmpfs", str(self.folder))
        except Unavailable:
            self.close()
            raise
        self.mounted = True


class Ramfs(Mount):
    """One that dates its files by the steps of the kernel's clock. It has no size, and so is no
    drive."""

    def __init__(self):
        super().__init__()
        try:
            run("mount", "-t", "ramfs", "ramfs", str(self.folder))
        except Unavailable:
            self.close()
            raise
        self.mounted = True


class Image(Mount):
    """A filesystem in a file."""

    def __init__(self, megabytes):
        super().__init__()
        handle, self.image = tempfile.mkstemp(prefix="velmora-e2e-", suffix=".img")
        os.truncate(handle, megabytes * KB * KB)
        os.close(handle)

    def made(self, *commands):
        """Makes and mounts it by commands."""
        try:
            for command in commands:
                run(*command)
        except Unavailable:
            self.close()
            raise
        self.mounted = True

    def close(self):
        super().close()
        pathlib.Path(self.image).unlink(missing_ok=True)


class Loop(Image):
    """An ext4 in a file, mounted through a loop device; `options` are those of its making."""

    def __init__(self, megabytes=16, *options):
        super().__init__(megabytes)
        # No blocks reserved for root, who runs these tests.
        self.made(("mkfs.ext4", "-q", "-F", "-m", "0", *options, self.image),
                  ("mount", "-o", "loop", self.image, str(self.folder)))


class WithoutUnnamedFiles(Image):
    """An exFAT in a file, served by a program: it makes no files without a name, has no links and
    can't rename without replacing."""

    def __init__(self, megabytes=16):
        super().__init__(megabytes)
        self.device = None
        try:
            run("mkfs.exfat", self.image)
            self.device = run("losetup", "-f", "--show", self.image).strip()
        except Unavailable:
            self.close()
            raise
        self.made(("mount.exfat-fuse", self.device, str(self.folder)))

    def close(self):
        super().close()
        if self.device is not None:
            subprocess.run(["losetup", "-d", self.device], check=False, capture_output=True)
            self.device = None


class Hung(Mount):
    """A filesystem that never answers when it is asked for its space."""

    def __init__(self):
        super().__init__()
        program = os.environ.get("VELMORA_HUNG_FS", "")
        if not os.path.exists(program) or not os.path.exists("/dev/fuse"):
            self.close()
            raise Unavailable("no hung_fs program or no /dev/fuse")
        self.server = subprocess.Popen([program, str(self.folder)], stdin=subprocess.DEVNULL,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        while not self._listed():
            if self.server.poll() is not None:
                self.close()
                raise Unavailable("hung_fs could not mount")
        self.mounted = True

    def _listed(self):
        mounts = pathlib.Path("/proc/self/mountinfo").read_text(encoding="utf-8")
        return f" {self.folder} " in mounts

    def close(self):
        self.unmount()
        if hasattr(self, "server"):
            self.server.kill()
            self.server.wait()
        super().close()


class Sshfs(Mount):
    """A folder by way of a file server, over pipes: no network, and the server can be stopped."""

    server_program = "/usr/lib/openssh/sftp-server"
    options = "passive,attr_timeout=0,entry_timeout=0,dcache_timeout=0,no_readahead"

    def __init__(self):
        super().__init__()
        self.shared = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.server = self.client = None
        if not shutil.which("sshfs") or not os.path.exists(self.server_program):
            self.close()
            raise Unavailable("no sshfs or no sftp-server")
        if not os.path.exists("/dev/fuse"):
            self.close()
            raise Unavailable("no /dev/fuse")
        self.server = subprocess.Popen([self.server_program], stdin=subprocess.PIPE,
                                       stdout=subprocess.PIPE)
        self.client = subprocess.Popen(["sshfs", "-f", "-o", self.options,
                                        f"fileserver:{self.shared}", str(self.folder)],
                                       stdin=self.server.stdout, stdout=self.server.stdin)
        while not os.path.ismount(self.folder):
            if self.client.poll() is not None:
                self.close()
                raise Unavailable("sshfs could not mount")
        self.mounted = True

    def stop(self):
        """From now on it doesn't answer."""
        os.kill(self.server.pid, signal.SIGSTOP)

    def go_on(self):
        os.kill(self.server.pid, signal.SIGCONT)

    def close(self):
        if self.server is not None:
            self.go_on()
        self.unmount()
        for process in (self.client, self.server):
            if process is not None:
                process.kill()
                process.wait()
        for pipe in (self.server.stdin, self.server.stdout) if self.server else ():
            pipe.close()
        shutil.rmtree(self.shared, ignore_errors=True)
        super().close()
