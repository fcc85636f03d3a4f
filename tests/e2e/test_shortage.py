"""A shortage is found on real drives, with the figures of df."""

import re

import filesystems
from cases import ConsoleCase, WindowsCase

SHORTAGE = re.compile(r" - ALERT: Space Shortage < (\d+) KB Drive: (.+)\[([\d,]+) KB\]$")

# Other programs write to this machine's own drives while the tests run.
SLACK_KB = 64 * 1024


def figures(alert):
    """Trigger, drive and free KB of a shortage alert."""
    trigger, drive, free = SHORTAGE.match(alert["text"]).groups()
    return int(trigger), drive, int(free.replace(",", ""))


class SmallFilesystem:
    """The same steps on this machine and under Wine; `root_of` returns the root under which the drive appears."""

    def steps_on_a_filling_filesystem(self, mounted):
        root = self.root_of(mounted)
        self.console.watch_only(root)
        free, total = mounted.free_and_total_kb()

        # As much as is free is no shortage; one KB more is.
        self.console.set("txtSpace.Text", str(free))
        self.assertEqual(self.console.check(), [])
        self.assertEqual(self.state_of(root), "ok")
        self.console.set("txtSpace.Text", str(free + 1))
        alerts = self.console.check()
        self.assertEqual([figures(alert) for alert in alerts], [(free + 1, root[:2], free)])
        self.assertEqual([alert["rating"] for alert in alerts], ["High"])
        self.assertEqual(self.state_of(root), "alert")

        # It fills up.
        self.console.set("txtSpace.Text", str(free // 2))
        self.assertEqual(self.console.check(), [])
        mounted.fill("large", (free // 2 + 512) * filesystems.KB)
        less, same_total = mounted.free_and_total_kb()
        self.assertLess(less, free // 2)
        self.assertEqual(same_total, total)
        alerts = self.console.check()
        self.assertEqual([figures(alert) for alert in alerts], [(free // 2, root[:2], less)])
        # The very same alert again is dropped only when it is the row's first.
        journal = self.console.get("txtAlert")
        self.assertEqual(journal.count("Space Shortage"), 2)
        (mounted.folder / "large").unlink()
        self.assertEqual(self.console.check(), [])
        self.assertEqual(self.state_of(root), "ok")

    def steps_in_percent(self, mounted):
        root = self.root_of(mounted)
        self.console.watch_only(root)
        free, total = mounted.free_and_total_kb()
        self.console.set("txtSpace.Text", "100")
        self.console.run("click OpDriv(1)")
        mounted.fill("some", 4 * filesystems.KB)
        free, total = mounted.free_and_total_kb()
        alerts = self.console.check()
        self.assertEqual([figures(alert) for alert in alerts], [(total, root[:2], free)])

    def steps_with_each_row_its_own(self, mounted):
        root = self.root_of(mounted)
        self.console.watch_only(root)
        free, _ = mounted.free_and_total_kb()
        self.console.set("txtSpace.Text", str(free + 7))
        self.console.run("set chkDrive.Value on")
        row = self.console.rows()[self.console.row_number(root) - 1]
        self.assertEqual(row["SubItems"][2], str(free + 7))
        alerts = self.console.check()
        self.assertEqual([figures(alert) for alert in alerts], [(free + 7, root[:2], free)])

    def state_of(self, root):
        return self.console.rows()[self.console.row_number(root) - 1]["ReportIcon"]


class Native(SmallFilesystem, ConsoleCase):
    def root_of(self, mounted):
        self.restart()
        return self.drive_of(mounted)

    def test_a_tmpfs_that_fills_up_raises_the_alert(self):
        self.steps_on_a_filling_filesystem(self.mount(filesystems.Tmpfs))

    def test_a_loop_mounted_disk_that_fills_up_raises_the_alert(self):
        self.steps_on_a_filling_filesystem(self.mount(filesystems.Loop))

    def test_percent_is_taken_of_the_filesystems_size(self):
        self.steps_in_percent(self.mount(filesystems.Tmpfs))

    def test_each_row_has_its_own_trigger(self):
        self.steps_with_each_row_its_own(self.mount(filesystems.Tmpfs))

    def test_the_drives_listed_at_start_have_the_figures_of_df(self):
        row = self.console.rows()[0]
        self.assertEqual(row["Text"], "C:\\")
        free, total = filesystems.free_and_total_kb("/")
        shown = [int(text.removesuffix(" KB").replace(",", "")) for text in row["SubItems"][:2]]
        self.assertAlmostEqual(shown[0], free, delta=SLACK_KB)
        self.assertEqual(shown[1], total)

    def test_a_folder_is_measured_by_its_drive(self):
        mounted = self.mount(filesystems.Tmpfs)
        (mounted.folder / "größe und заметки").mkdir()
        self.restart()
        row = self.console.add(str(mounted.folder / "größe und заметки"))
        self.assertTrue(row["Text"].endswith(":\\größe und заметки"), row["Text"])
        self.console.watch_only(row["Text"])
        free, _ = mounted.free_and_total_kb()
        self.console.set("txtSpace.Text", str(free + 1))
        self.assertEqual([figures(alert) for alert in self.console.check()],
                         [(free + 1, row["Text"][:2], free)])

    def test_a_drive_that_goes_away_is_not_ready_and_the_others_are_checked(self):
        first, second = self.mount(filesystems.Tmpfs), self.mount(filesystems.Tmpfs)
        self.restart()
        roots = [self.drive_of(first), self.drive_of(second)]
        self.console.watch_only(*roots)
        free, _ = second.free_and_total_kb()
        self.console.set("txtSpace.Text", str(free + 1))
        self.assertEqual(len(self.console.check()), 2)
        first.unmount()
        self.console.events.clear()
        self.console.set("txtSpace.Text", str(free + 2))
        self.assertEqual([figures(alert) for alert in self.console.check()],
                         [(free + 2, roots[1][:2], free)])
        self.assertIn("Not Ready: " + roots[0],
                      [event.get("text") for event in self.console.events])
        first.mount()
        self.console.set("txtSpace.Text", str(free + 3))
        self.assertEqual(len(self.console.check()), 2)


class Windows(SmallFilesystem, WindowsCase):
    def root_of(self, mounted):
        root = self.give_letter(mounted)
        self.restart()
        return root

    def test_a_small_drive_that_fills_up_raises_the_alert(self):
        self.steps_on_a_filling_filesystem(self.mount(filesystems.Tmpfs))

    def test_percent_is_taken_of_the_drives_size(self):
        self.steps_in_percent(self.mount(filesystems.Tmpfs))

    def test_each_row_has_its_own_trigger(self):
        self.steps_with_each_row_its_own(self.mount(filesystems.Tmpfs))

    def test_the_systems_drive_has_the_figures_of_df(self):
        row = self.console.rows()[self.console.row_number("Z:\\") - 1]
        free, total = filesystems.free_and_total_kb("/")
        shown = [int(text.removesuffix(" KB").replace(",", "")) for text in row["SubItems"][:2]]
        self.assertAlmostEqual(shown[0], free, delta=SLACK_KB)
        self.assertEqual(shown[1], total)
