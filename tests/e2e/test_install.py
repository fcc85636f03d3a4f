"""What `cmake --install` puts into a folder works there: both programs find the files beside them."""

import os
import pathlib
import re
import shlex
import shutil
import subprocess
import tempfile
import unittest

import window

ROOT = pathlib.Path(__file__).parents[2]
SIZES = (16, 20, 24, 32, 40, 48, 64, 128, 256)


class Installed:
    """The same on this machine and under Wine."""

    def setUp(self):
        build, *programs = self.variables
        for variable in (build, *programs):
            if not os.environ.get(variable):
                self.skipTest(f"{variable} is not set")
        self.prefix = pathlib.Path(tempfile.mkdtemp(prefix="velmora e2e-"))
        self.addCleanup(shutil.rmtree, self.prefix, ignore_errors=True)
        self.folder = self.prefix / "velmora"
        self.install()

    def install(self):
        subprocess.run(["cmake", "--install", os.environ[self.variables[0]], "--prefix",
                        str(self.prefix)], check=True, stdout=subprocess.DEVNULL)

    def path(self, name):
        return self.folder / (name + (".exe" if self.windows else ""))

    def test_the_console_finds_its_settings(self):
        command = [*window.runner(self.windows), str(self.path("velmora-console"))]
        output = subprocess.run(command, input="get txtSpace\n", check=True, capture_output=True,
                              text=True, timeout=60).stdout
        # As in the settings that are installed.
        self.assertIn("50000\n", output)

    def test_the_window_finds_its_settings(self):
        window.needs(self.window_variable)
        program = window.Program(self.windows, self.path("velmora"), self.prefix)
        self.addCleanup(program.close)
        self.assertEqual(program.end(), 0)

    def test_the_alert_sound_lies_beside_the_programs(self):
        sound = (self.folder / "sound" / "alert.WAV").read_bytes()
        self.assertEqual((sound[:4], sound[8:12]), (b"RIFF", b"WAVE"))

    def test_the_help_page_finds_its_pictures(self):
        page = (self.folder / "velmora.html").read_text("utf-8")
        pictures = set(re.findall(r"help/[\w-]+\.png", page))
        self.assertGreater(len(pictures), 20)
        for picture in pictures:
            self.assertEqual((self.folder / picture).read_bytes()[:8], b"\x89PNG\r\n\x1a\n")

    def test_settings_that_somebody_has_saved_survive_the_next_installation(self):
        (self.folder / "set.dat").write_bytes(b"saved")
        self.install()
        self.assertEqual((self.folder / "set.dat").read_bytes(), b"saved")
        self.assertTrue((self.folder / "velmora.html").exists())


class BuildTree(unittest.TestCase):
    def test_settings_that_were_deleted_come_back_with_the_next_build(self):
        build = os.environ.get("VELMORA_BUILD")
        if not build:
            self.skipTest("VELMORA_BUILD is not set")
        settings = pathlib.Path(build, "src/app/set.dat")
        kept = settings.read_bytes() if settings.exists() else None
        if kept is not None:
            self.addCleanup(settings.write_bytes, kept)
        make = ["cmake", "--build", build, "--target", "velmora_settings"]
        settings.unlink(missing_ok=True)
        subprocess.run(make, check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(settings.read_bytes(), (ROOT / "dist/set.dat").read_bytes())
        settings.write_bytes(b"saved")
        subprocess.run(make, check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(settings.read_bytes(), b"saved")


class Native(Installed, unittest.TestCase):
    windows = False
    variables = ("VELMORA_BUILD",)
    window_variable = "VELMORA_WINDOW"

    def test_the_desktop_finds_the_program_and_its_icon(self):
        window.needs(self.window_variable)
        entry = (self.prefix / "share/applications/velmora.desktop").read_text("utf-8")
        start = next(line for line in entry.splitlines() if line.startswith("Exec="))
        program, *options, files = shlex.split(start.removeprefix("Exec="))
        self.assertEqual(pathlib.Path(program), self.path("velmora"))
        self.assertTrue(os.access(program, os.X_OK))
        self.assertEqual((options, files), (["--keep-running", "--single"], "%F"))
        self.assertIn("Icon=velmora\n", entry)
        for size in SIZES:
            icon = self.prefix / f"share/icons/hicolor/{size}x{size}/apps/velmora.png"
            # Width and height follow the signature and the header of the first chunk.
            self.assertEqual(icon.read_bytes()[16:24], 2 * size.to_bytes(4, "big"))


class Windows(Installed, unittest.TestCase):
    windows = True
    variables = ("VELMORA_BUILD_WINDOWS", "VELMORA_WINE")
    window_variable = "VELMORA_WINDOW_WINDOWS"
