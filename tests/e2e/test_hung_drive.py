"""A drive that never answers costs its deadline once and no time afterwards."""

import time

import filesystems
from cases import ConsoleCase


class HungDrive(ConsoleCase):
    def setUp(self):
        self.hung = self.mount(filesystems.Hung)
        self.mounts = [self.mount(filesystems.Tmpfs) for _ in range(7)]
        super().setUp()

    def test_seven_drives_beside_a_hung_one_are_measured_on_time(self):
        roots = [self.drive_of(mounted) for mounted in self.mounts]
        hung = [row["Text"] for row in self.console.rows()
                if row["SubItems"][0].startswith("N/A")]
        self.assertEqual(len(hung), 1)
        self.console.watch_only(*roots, *hung)
        self.console.set("txtSpace.Text", str(1024 * 1024))
        # The start has asked the drive already; its question is still pending.
        for _ in range(3):
            self.console.set("txtSpace.Text", str(int(self.console.get("txtSpace")) + 1))
            began = time.monotonic()
            alerts = self.console.check()
            self.assertLess(time.monotonic() - began, 1)
            self.assertEqual(len(alerts), 7)
        self.assertEqual(self.console.get("StatusBar1(3)"), "Times Checked: 3")

        began = time.monotonic()
        self.assertEqual(self.console.end(), 0)
        self.assertLess(time.monotonic() - began, 2)
