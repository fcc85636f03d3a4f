"""The figures of the watch, read by the parser of those who collect them."""

import json
import math
import pathlib
import subprocess

from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from console import Console
from mail_servers import PYTHON
from settings import scrambled

READER = pathlib.Path(__file__).with_name("read_metrics.py")


class Metrics:
    def setUp(self):
        if subprocess.run([PYTHON, "-c", "import prometheus_client"], check=False).returncode != 0:
            self.skipTest("python3-prometheus-client is missing")
        super().setUp()
        self.put_settings(scrambled("txtTime=60\r\n", "minspace=1\r\n"))
        self.file = self.folder / "velmora.prom"
        self.launch_with("--metrics-file", self.typed(self.file))

    def launch_with(self, *options):
        self.console = Console([*self.command(), *options], self.environment())
        self.addCleanup(self.console.close)

    def figures(self):
        """The values by name and path."""
        self.assertNotIn(b"\r", self.file.read_bytes())
        read = subprocess.run([PYTHON, READER, self.file], capture_output=True, text=True,
                              check=False)
        self.assertEqual(read.returncode, 0, read.stderr)
        return {(name, path): value for name, path, value in json.loads(read.stdout)}

    def test_a_check_writes_what_its_rows_show(self):
        row = self.console.rows()[0]["Text"]
        self.console.watch_only(row)
        self.assertFalse(self.file.exists())
        self.console.check()
        figures = self.figures()
        self.assertEqual(figures[("velmora_checks_total", None)], 1)
        self.assertEqual(figures[("velmora_watched", row)], 1)
        self.assertEqual(figures[("velmora_short_of_space", row)], 0)
        self.assertEqual(figures[("velmora_minimum_bytes", row)], 1024)
        # As the row shows it, in whole KB.
        shown = self.console.rows()[0]["SubItems"][0]
        kilobytes = float(shown.replace(",", "").removesuffix(" KB"))
        self.assertTrue(math.isclose(figures[("velmora_free_bytes", row)], kilobytes * 1024))

    def test_a_shortage_and_its_alert_are_figures(self):
        self.console.run("set txtSpace.Text 999999999")
        row = self.console.rows()[0]["Text"]
        self.console.watch_only(row)
        self.console.check()
        figures = self.figures()
        self.assertEqual(figures[("velmora_short_of_space", row)], 1)
        self.assertEqual(figures[("velmora_alerts_total", None)], 1)


class Native(Metrics, OwnNative, ConsoleCase):
    def typed(self, path):
        return str(path)

    def test_a_label_is_read_back_as_it_was(self):
        folder = self.folder / r'a "b" \ \n ö'
        folder.mkdir()
        row = self.console.add(str(folder))["Text"]
        self.console.check()
        self.assertEqual(self.figures()[("velmora_watched", row)], 0)


class Windows(Metrics, OwnWindows, WindowsCase):
    def typed(self, path):
        return "Z:" + str(path).replace("/", "\\")
