"""Somebody who sees the program for the first time follows the setup wizard, by an assistive tool."""

import pathlib
import shutil
import tempfile
import time
import unittest

import accessibility
import window
from desktop import wait_for

WIZARD = "Velmora Wizard/Pref."
DRIVES = "Drives and paths to watch"
SECONDS = "Interval between checks in seconds"
MINUTE = 60

STEPS = ("Welcome", "Drives and Paths to Watch", "Size in (KB) or Percentage",
         "Action on Space Shortage", "Specified Path to Move", "Listed Specified Program(s)",
         "Specified Files", "Custom Watch Time", "Alert on Selected Events",
         "Notification Settings")


class Newcomer(unittest.TestCase):
    def setUp(self):
        window.needs("VELMORA_WINDOW")
        try:
            bus = accessibility.shared()
        except accessibility.Unavailable as why:
            self.skipTest(str(why))
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        copy = window.copy("VELMORA_WINDOW", self.folder)
        # As it is delivered.
        shutil.copy2(pathlib.Path(__file__).parents[2] / "dist" / "set.dat", self.folder)
        self.program = window.Program(False, copy, self.folder, bus.environment)
        self.addCleanup(self.program.close)
        self.screen = bus.program(self.program.process)
        self.main = self.screen.window(window.TITLE)

    def open_wizard(self):
        self.main.find("push button", "Wizard Settings").act("Press")
        self.wizard = self.screen.window(WIZARD)

    def wait_for_state(self, what, state):
        wait_for(lambda: state in what.states(), f"{what.name!r} {state}")

    def press(self, *keys):
        for key in keys:
            self.program.desktop.press(key)

    def choose_last(self, name):
        box = self.wizard.find("combo box", name)
        box.act("Press")
        self.wait_for_state(box, "expanded")
        self.press("End", "Return")

    def tick_first_drive(self):
        drives = self.wizard.find("table", DRIVES)
        drives.act("SetFocus")
        self.wait_for_state(drives, "focused")
        self.press("Home", "space")
        self.wait_for_state(drives.find("table cell", "C:\\"), "checked")

    def watched_row(self):
        table = self.main.find("table", "Watched drives and paths")
        return table.find("table cell", "C:\\")

    def test_has_a_watched_drive_and_a_finished_check_a_minute_after_the_last_step(self):
        self.main.find("push button", "Set up").act("Press")
        self.wizard = self.screen.window(WIZARD)
        for number, step in enumerate(STEPS, 1):
            self.wizard.find("label", f"Options: {number}/10")
            self.wizard.find("label", step)
            if number == 2:
                self.tick_first_drive()
            if number == 8:
                self.choose_last("Connection speed")
                seconds = self.wizard.find("text", SECONDS)
                wait_for(lambda box=seconds: box.text() == "30", "the proposed interval")
            if step != STEPS[-1]:
                self.wizard.find("push button", "Next").act("Press")
        # The way through the steps takes as long as it takes.
        begun = time.monotonic()
        self.wizard.find("push button", "OK").act("Press")
        wait_for(lambda: not self.wizard.shown(), "the wizard gone")
        self.assertIn("checked", self.watched_row().states())
        self.assertNotIn("Set up", [each.name for each in self.main.descendants()])
        counter = self.main.find("label", "Counter")
        wait_for(lambda: counter.description == "Times Checked: 1", "the first check")
        self.assertLess(time.monotonic() - begun, MINUTE)

    def test_the_step_list_says_where_one_is_and_close_leaves_all_as_it_was(self):
        self.open_wizard()
        for number, step in enumerate(STEPS, 1):
            self.assertEqual(self.wizard.find("push button", step).description,
                             f"Step {number} of 10" + (", shown" if number == 1 else ""))
        self.wizard.find("push button", STEPS[1]).act("Press")
        self.tick_first_drive()
        self.wizard.find("push button", "Close").act("Press")
        wait_for(lambda: not self.wizard.shown(), "the wizard gone")
        self.assertNotIn("checked", self.watched_row().states())


if __name__ == "__main__":
    unittest.main()
