"""A machine of Wine's for the packages for Windows: a prefix of its own, in which nothing else runs."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).parents[2]
sys.path.insert(0, str(ROOT / "tests" / "e2e"))

import desktop  # noqa: E402

# How long a program of Windows may take, in seconds.
PATIENCE = 120
PREFIX = ROOT / "build" / "wine-packages"
START_WINE = """
root=$1
source "$root/tools/setup.sh"
source "$root/tools/wine.sh"
[[ -x $(command -v "$wine") ]] || exit 3
start_wine >&2 || exit 4
env -0
"""


def package(kind):
    """The installer (`exe`) or the portable program (`zip`) that was made, or a skipped test."""
    folder = pathlib.Path(os.environ.get("VELMORA_PACKAGES") or ROOT / "build" / "packages")
    found = sorted(folder.glob(f"velmora-*-win64.{kind}"))
    if not found:
        raise unittest.SkipTest(f"no velmora-*-win64.{kind} in {folder}: tools/make_packages.sh windows "
                                "makes it, with NSIS and Qt for Windows")
    return found[-1]


def version():
    """That of the project."""
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"^project\(velmora VERSION ([\d.]+)", text, re.M)[1]


class Machine:
    """The prefix, made anew when an earlier test has left something in it. The environment of this
    process names it while it is there, for the helpers of the end-to-end tests."""

    def __init__(self):
        try:
            self.desktop = desktop.shared()
        except desktop.Unavailable as why:
            raise unittest.SkipTest(str(why)) from why
        self.before = dict(os.environ)
        self.server_stays = False
        for name in ("WINEPREFIX", "VELMORA_WINE_PREFIX"):
            os.environ[name] = str(PREFIX)
        os.environ.update(self.desktop.environment)
        if PREFIX.exists() and self.traces():
            shutil.rmtree(PREFIX)
        self._start()
        self.keep_server()

    def _start(self):
        done = subprocess.run(["bash", "-c", START_WINE, "bash", str(ROOT)], stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=400, check=False)
        if done.returncode == 3:
            self.restore_environment()
            raise unittest.SkipTest("Wine isn't installed")
        if done.returncode:
            raise AssertionError("Wine does not start: " + done.stderr.decode("utf-8", "replace"))
        variables = dict(line.split("=", 1) for line in done.stdout.decode("utf-8").split("\0") if line)
        for name in ("WINEPREFIX", "WINEDEBUG", "WINEDLLOVERRIDES", "XDG_DATA_HOME"):
            os.environ[name] = variables[name]
        os.environ["VELMORA_WINE"] = str(ROOT / "tools" / "wine_with_drives")
        self.wine = os.environ["VELMORA_WINE"]
        # Wine knows the drives and the display after this and isn't ended for them later.
        self._start_nothing()
        self.stop()
        self._own_the_users_folders()

    def _own_the_users_folders(self):
        """Wine makes links to the home of whoever made the prefix, which is a test's own and goes with it. Without
        a desktop folder no shortcut is followed."""
        for place in self.user().iterdir():
            if place.is_symlink():
                place.unlink()
                place.mkdir()

    def close(self):
        self.stop()
        self.restore_environment()

    def restore_environment(self):
        os.environ.clear()
        os.environ.update(self.before)

    def stop(self):
        """Ends what runs in the prefix; the registry is on the disk then."""
        self._wineserver("-k")
        self._wineserver("-w")
        self.server_stays = False

    def _wineserver(self, option):
        words = 'root=$1; source "$root/tools/wine.sh"; "$wineserver" "$2"'
        subprocess.run(["bash", "-c", words, "bash", str(ROOT), option], stdin=subprocess.DEVNULL,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=PATIENCE,
                       check=False)

    def _start_nothing(self):
        """Starts what Wine itself needs. It keeps the output of the first program open as long as it
        runs, so that must not be one that somebody reads."""
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        subprocess.run([self.wine, "cmd", "/c", "exit"], timeout=PATIENCE, check=False, **quiet)

    def keep_server(self):
        """Has Wine's server run until it is told to end. One that ends by itself, seconds after its
        last program, can take along a program that starts then."""
        if self.server_stays:
            return
        self._wineserver("-p")
        self._start_nothing()
        self.server_stays = True

    def start(self, *words, output=subprocess.DEVNULL):
        """Starts a program of Windows, by its path on the host, and gives its process."""
        self.keep_server()
        return subprocess.Popen([self.wine, *map(str, words)], stdin=subprocess.DEVNULL,
                                stdout=output, stderr=subprocess.DEVNULL)

    def run(self, *words):
        """The status of a program of Windows that has ended."""
        return self.start(*words).wait(PATIENCE)

    def run_line(self, line):
        """The status of a command line that is passed on as it is: an installer takes its folder
        without quotes, whatever is in it."""
        script = PREFIX / "drive_c" / "line.bat"
        script.write_bytes(f"@start /wait \"\" {line}\r\n@exit /b %errorlevel%\r\n".encode("ascii"))
        try:
            return self.run("cmd", "/c", r"C:\line.bat")
        finally:
            script.unlink()

    def output(self, *words):
        """What a program of Windows prints; empty when it fails."""
        process = self.start(*words, output=subprocess.PIPE)
        said = process.communicate(timeout=PATIENCE)[0].decode("utf-8", "replace")
        return said if process.returncode == 0 else ""

    def values(self, key):
        """The values of a registry key by their names; numbers as such."""
        found = {}
        for line in self.output("reg", "query", key).splitlines():
            parts = re.match(r"    (.+?)    (REG_\w+)    ?(.*)$", line.rstrip("\r"))
            if parts:
                name, kind, value = parts.groups()
                found[name] = int(value, 16) if kind == "REG_DWORD" else value
        return found

    def set_value(self, key, name, value):
        self.run("reg", "add", key, "/v", name, "/d", value, "/f")

    def path(self, windows_path):
        """Where a path on drive C: lies on the host."""
        drive, rest = windows_path.split(":\\", 1)
        assert drive == "C"
        return PREFIX / "drive_c" / rest.replace("\\", "/")

    def user(self):
        """The folder of the user."""
        users = PREFIX / "drive_c" / "users"
        return next(each for each in users.iterdir() if each.name != "Public")

    def traces(self):
        """Files and lines of the registry that tell of the program. What runs is ended first."""
        self.stop()
        files = [str(path.relative_to(PREFIX)) for path in (PREFIX / "drive_c").rglob("*")
                 if "velmora" in path.name.lower()]
        lines = []
        for name in ("system.reg", "user.reg", "userdef.reg"):
            registry = PREFIX / name
            text = registry.read_text("utf-8", "replace") if registry.exists() else ""
            lines += [line for line in text.splitlines() if "velmora" in line.lower()]
        return files + lines
