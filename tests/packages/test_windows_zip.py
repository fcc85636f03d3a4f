"""The portable program for Windows: complete, stripped, and at home in its own folder."""

import re
import shutil
import subprocess
import unittest
import zipfile

import windows_machine
from windows_machine import Machine, package, version

import console
import window
from settings import plain_lines

MEGABYTE = 1024 * 1024
LARGEST_INSTALLER = 20 * MEGABYTE

LICENCES = {"velmora.txt": "MIT License", "zlib.txt": "Jean-loup Gailly", "curl.txt": "Daniel Stenberg",
            "nlohmann-json.txt": "Niels Lohmann", "gcc-runtime-exception.txt": "GCC RUNTIME LIBRARY EXCEPTION",
            "mingw-w64.txt": "winpthreads", "third-party.md": "libcurl",
            "qt/LGPL-3.0-only.txt": "LESSER GENERAL PUBLIC LICENSE",
            "qt/GPL-3.0-only.txt": "GNU GENERAL PUBLIC LICENSE", "qt/third-party.txt": "harfbuzz"}

# DLLs of every Windows 10; Wine has them too.
OF_THE_SYSTEM = set("""
    advapi32 authz bcrypt comdlg32 crypt32 d3d11 d3d9 dwmapi dwrite dxgi gdi32 imm32 kernel32 mpr msvcrt
    netapi32 ntdll ole32 oleaut32 rpcrt4 secur32 setupapi shell32 shlwapi user32 userenv uxtheme version
    wininet winmm winspool.drv ws2_32 wtsapi32 api-ms-win-core-synch-l1-2-0 api-ms-win-core-winrt-l1-1-0
    api-ms-win-core-winrt-string-l1-1-0 shcore iphlpapi
""".split())


def objdump(*words):
    tool = shutil.which("x86_64-w64-mingw32-objdump")
    if not tool:
        raise unittest.SkipTest("not installed: x86_64-w64-mingw32-objdump")
    return subprocess.run([tool, *map(str, words)], check=True, capture_output=True, text=True).stdout


class Files(unittest.TestCase):
    """What lies in the archive, without starting it."""

    @classmethod
    def setUpClass(cls):
        cls.archive = package("zip")
        cls.place = windows_machine.ROOT / "build" / "portable"
        shutil.rmtree(cls.place, ignore_errors=True)
        cls.addClassCleanup(shutil.rmtree, cls.place, ignore_errors=True)
        with zipfile.ZipFile(cls.archive) as packed:
            packed.extractall(cls.place)
        cls.folder = cls.place / f"velmora-{version()}"
        cls.binaries = [path for path in cls.folder.rglob("*") if path.suffix in (".exe", ".dll")]

    def test_it_is_one_folder_without_the_marker_of_an_installation(self):
        self.assertEqual([each.name for each in self.place.iterdir()], [f"velmora-{version()}"])
        for name in ("velmora.exe", "velmora-console.exe", "set.dat", "velmora.html", "sound/alert.WAV",
                     "help/start-overview-light.png", "platforms/qwindows.dll"):
            self.assertTrue((self.folder / name).is_file(), name)
        self.assertFalse((self.folder / "velmora.installed").exists())
        beside = (windows_machine.ROOT / "dist" / "set.dat").read_bytes()
        self.assertEqual((self.folder / "set.dat").read_bytes(), beside)

    def test_each_program_finds_all_its_dlls(self):
        here = {path.name.lower() for path in self.binaries}
        for path in self.binaries:
            needed = {name.lower() for name in re.findall(r"DLL Name: (\S+)", objdump("-p", path))}
            self.assertTrue(needed, path)
            missing = {name for name in needed - here if name.removesuffix(".dll") not in OF_THE_SYSTEM}
            self.assertEqual(missing, set(), path.name)
            if path.name == "velmora-console.exe":
                self.assertEqual(needed & here, set())
        # Nothing superfluous either, but the plugins, which Qt loads by name.
        used = {name.lower() for path in self.binaries
                for name in re.findall(r"DLL Name: (\S+)", objdump("-p", path))}
        libraries = {path.name.lower() for path in self.folder.glob("*.dll")}
        self.assertEqual(libraries - used, set())

    def test_every_binary_is_stripped(self):
        for path in self.binaries:
            self.assertIn("no symbols", objdump("-t", path), path.name)
            self.assertNotIn(".debug_", objdump("-h", path), path.name)

    def test_every_licence_is_there(self):
        folder = self.folder / "licenses"
        found = {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}
        self.assertEqual(found, set(LICENCES))
        for name, words in LICENCES.items():
            self.assertIn(words, (folder / name).read_text("utf-8"), name)

    def test_the_packages_are_small(self):
        setup = package("exe")
        for path in (setup, self.archive):
            print(f"{path.name}: {path.stat().st_size / MEGABYTE:.1f} MB")
        self.assertLess(setup.stat().st_size, LARGEST_INSTALLER)


class Started(unittest.TestCase):
    """The program started from an unpacked folder."""

    def setUp(self):
        archive = package("zip")
        self.machine = Machine()
        self.addCleanup(self.machine.close)
        place = self.machine.path(r"C:\stick")
        self.addCleanup(shutil.rmtree, place, ignore_errors=True)
        with zipfile.ZipFile(archive) as packed:
            packed.extractall(place)
        self.folder = place / f"velmora-{version()}"
        self.own = self.machine.user() / "AppData/Local/Velmora"
        self.addCleanup(shutil.rmtree, self.own, ignore_errors=True)

    def test_settings_and_log_stay_beside_it(self):
        program = window.Program(True, self.folder / "velmora.exe", self.folder)
        self.addCleanup(program.close)
        self.assertEqual(program.end(), 0)
        running = console.Console([self.machine.wine, str(self.folder / "velmora-console.exe")])
        self.addCleanup(running.close)
        row = running.add("C:\\")
        running.watch_only(row["Text"])
        running.set("txtSpace.Text", "999999999")
        running.run("set chkAutoSave.Value on")
        self.assertTrue(any("Space Shortage" in alert["text"] for alert in running.check()))
        running.run("click Command8")
        self.assertEqual(running.end(), 0)
        self.assertIn("minspace=999999999", "".join(plain_lines((self.folder / "set.dat").read_bytes())))
        self.assertIn("Space Shortage", (self.folder / "log.dat").read_text("utf-8"))

        # What else it leaves is for its user alone: where its windows were, copies of good settings,
        # and the shortcut that sends files to it.
        beside = {path.name for path in self.own.iterdir()}
        self.assertEqual(beside & {"set.dat", "log.dat", "clen.dat"}, set())
        shutil.rmtree(self.folder.parent)
        shutil.rmtree(self.own)
        link = self.machine.user() / "AppData/Roaming/Microsoft/Windows/SendTo/Velmora.lnk"
        link.unlink(missing_ok=True)
        self.assertEqual(self.machine.traces(), [])


if __name__ == "__main__":
    unittest.main()
