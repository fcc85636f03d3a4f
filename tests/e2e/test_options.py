"""Options that are answered instead of a start, as they come from a shell without a display."""

import os
import subprocess
import unittest

from console import PATIENCE


class WindowOptions(unittest.TestCase):
    def setUp(self):
        self.program = os.environ.get("VELMORA_WINDOW")
        if not self.program:
            self.skipTest("VELMORA_WINDOW is not set")

    def answer(self, *options):
        environment = {name: value for name, value in os.environ.items()
                       if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        return subprocess.run([self.program, *options], env=environment, capture_output=True,
                              text=True, timeout=PATIENCE, check=False)

    def test_help_and_version_need_no_display(self):
        for option, text in (("--help", "Usage: velmora "), ("--version", "velmora ")):
            said = self.answer(option)
            self.assertEqual((said.returncode, said.stderr), (0, ""))
            self.assertTrue(said.stdout.startswith(text), said.stdout)

    def test_nor_does_what_is_wrong_with_them(self):
        said = self.answer("--settings")
        self.assertEqual(said.returncode, 2)
        self.assertIn("--settings needs a folder.", said.stderr)
        said = self.answer("--settings", "/proc/none")
        self.assertEqual(said.returncode, 2)
        self.assertIn("can't be made: /proc/none", said.stderr)
