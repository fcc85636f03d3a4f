"""A drive that never answers, or stops answering, costs its deadline once and no time afterwards."""

import pathlib
import threading
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


QUANTITY, MODIFICATION = 2, 3
DEADLINE = 2


class StoppedServer(ConsoleCase):
    """A real file server, which is stopped while the program uses it."""

    files = 1000

    def setUp(self):
        self.share = self.mount(filesystems.Sshfs)
        for number in range(self.files):
            (self.share.shared / f"file {number}").touch()
        self.mounts = [self.mount(filesystems.Tmpfs) for _ in range(7)]
        super().setUp()
        self.roots = [self.drive_of(mounted) for mounted in self.mounts]
        self.shared_root = self.drive_of(self.share)
        self.console.watch_only(*self.roots, self.shared_root)
        # Every drive is short of so much.
        self.space = 2 ** 31 - 1000
        self.assertEqual(self.timed_check()[1], 8)
        # With every drive alive, on a machine that may have other work.
        self.quick = max(self.timed_check()[0] for _ in range(9))

    def timed_check(self):
        """The seconds of a check, and how many rows it found short."""
        self.space += 1
        self.console.set("txtSpace.Text", str(self.space))
        began = time.monotonic()
        alerts = self.console.check()
        short = [alert for alert in alerts if "Space Shortage" in alert["text"]]
        return time.monotonic() - began, len(short)

    def helpers(self):
        """The processes that ask the drives."""
        found = []
        for stat in pathlib.Path("/proc").glob("[0-9]*/stat"):
            try:
                name, rest = stat.read_text(encoding="utf-8").rsplit(") ", 1)
            except OSError:
                continue
            if name.endswith("(velmora-drive") and int(rest.split()[1]) == self.console.process.pid:
                found.append(stat)
        return len(found)

    def assert_only_the_share_waits(self):
        # Where the stop came behind the share's row, this check is the one that meets it.
        self.assertLess(self.timed_check()[0], DEADLINE + 1)
        parked = self.helpers()
        taken = []
        for _ in range(20):
            # The share misses; the other rows don't wait for it.
            seconds, short = self.timed_check()
            self.assertEqual(short, 7)
            taken.append(seconds)
        # Other programs may hold up some of them, but no check waits for the share.
        self.assertLess(min(taken), self.quick + 0.05)
        self.assertLess(max(taken), DEADLINE)
        self.assertEqual(self.helpers(), parked)

    def assert_recovers(self):
        self.share.go_on()
        end = time.monotonic() + 20
        while self.timed_check()[1] != 8:
            self.assertLess(time.monotonic(), end, "the share didn't come back")

    def test_a_check_meets_it_once(self):
        self.share.stop()
        seconds, short = self.timed_check()
        self.assertEqual(short, 7)
        self.assertLess(seconds, DEADLINE + 1)
        self.assert_only_the_share_waits()
        self.assert_recovers()

    def test_a_listing_that_it_stops_in_is_given_up(self):
        self.console.run(f"tick lstEvt {MODIFICATION} on")
        self.assert_given_up_in_the_middle()

    def test_a_count_of_files_that_it_stops_in_is_given_up(self):
        self.console.run(f"tick lstEvt {QUANTITY} on")
        # Links are asked for one by one.
        for number in range(self.files // 10):
            (self.share.shared / f"link {number}").symlink_to(f"file {number}")
        self.assert_given_up_in_the_middle()

    def assert_given_up_in_the_middle(self):
        whole, short = self.timed_check()
        self.assertEqual(short, 8)
        self.stop_during_a_check(whole / 2)
        self.assert_only_the_share_waits()
        self.assert_recovers()

    def stop_during_a_check(self, delay):
        stopper = threading.Timer(delay, self.share.stop)
        stopper.start()
        seconds, _ = self.timed_check()
        stopper.join()
        # At most a question that hangs, for each of the row's folder and drive.
        self.assertLess(seconds, delay + DEADLINE + 1)
