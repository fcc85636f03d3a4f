"""How ./run starts the programs: by copies of it, with programs that say how they were started."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).parents[2]

# In place of what builds.
SETUP = """
build_packages=()
say() { echo "$@" >&2; }
install_packages() { :; }
configure_preset() { :; }
build_preset() { echo "built $2" >&2; }
has_target() { :; }
"""
PROGRAM = """#!/bin/sh
printf '%s\\n' "${0##*/}" "$@"
"""
OPTIONS = ["--keep-running", "--single"]


class Run(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        shutil.copy2(ROOT / "run", self.folder)
        (self.folder / "tools").mkdir()
        (self.folder / "tools" / "setup.sh").write_text(SETUP, encoding="utf-8")
        self.programs = self.folder / "build" / "release" / "src" / "app"
        self.programs.mkdir(parents=True)
        for name in ("velmora", "velmora-console"):
            self.make(name, PROGRAM)

    def make(self, name, script):
        (self.programs / name).write_text(script, encoding="utf-8")
        (self.programs / name).chmod(0o755)

    def started(self, *arguments, display=""):
        """The name of the program that is started, and its arguments."""
        environment = {**os.environ, "DISPLAY": display, "WAYLAND_DISPLAY": ""}
        done = subprocess.run([str(self.folder / "run"), *arguments], capture_output=True,
                              env=environment, text=True, timeout=60, check=True)
        name, *rest = done.stdout.splitlines()
        self.assertIn(f"built {name}", done.stderr)
        return name, rest

    def test_the_window_keeps_running_and_is_the_only_one(self):
        self.assertEqual(self.started("--window"), ("velmora", OPTIONS))

    def test_so_it_is_for_the_console(self):
        self.assertEqual(self.started("--console"), ("velmora-console", OPTIONS))

    def test_options_of_the_user_come_behind_them_and_before_his_paths(self):
        self.assertEqual(self.started("--window", "--restore-settings", "two words", "$x"),
                         ("velmora", [*OPTIONS, "--restore-settings", "two words", "$x"]))

    def test_the_display_decides_which_one_it_is(self):
        self.assertEqual(self.started("a"), ("velmora-console", [*OPTIONS, "a"]))
        self.make("velmora-display", "#!/bin/sh\nexit 0\n")
        self.assertEqual(self.started("a", display=":7"), ("velmora", [*OPTIONS, "a"]))
        self.make("velmora-display", "#!/bin/sh\nexit 1\n")
        self.assertEqual(self.started("a", display=":7"), ("velmora-console", [*OPTIONS, "a"]))
