"""Somebody who sees the program for the first time follows the setup wizard, by an assistive tool."""

import pathlib
import shutil
import tempfile
import time
import unittest

import assistive
import desktop
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
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        try:
            self.user = assistive.Assistive(self.folder)
        except desktop.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(self.user.close)
        copy = window.copy("VELMORA_WINDOW", self.folder)
        # As it is delivered.
        shutil.copy2(pathlib.Path(__file__).parents[2] / "dist" / "set.dat", self.folder)
        self.begun = time.monotonic()
        self.program = window.Program(False, copy, self.folder, self.user.environment)
        self.addCleanup(self.program.close)

    def shows(self, name):
        return self.user.ask(window=WIZARD, role=None, name=name)

    def press_in(self, role, name, *keys):
        """Gives something the keyboard and presses keys."""
        self.user.do("focus", WIZARD, role, name)
        wait_for(lambda: "focused" in self.user.find(WIZARD, role, name)["states"],
                 f"the keyboard in {name}")
        for key in keys:
            self.program.desktop.press(key)

    def choose_last(self, box):
        """Opens the box, which then has the keyboard."""
        self.user.do("Press", WIZARD, "combo box", box)
        wait_for(lambda: "expanded" in self.user.find(WIZARD, "combo box", box)["states"],
                 f"the open box {box}")
        self.program.desktop.press("End")
        self.program.desktop.press("Return")

    def tick_first_drive(self):
        self.press_in("table", DRIVES, "Home", "space")
        wait_for(lambda: "checked" in self.user.find(WIZARD, "table cell", "C:\\")["states"],
                 "the tick")

    def test_has_a_watched_drive_and_a_finished_check_within_a_minute(self):
        self.user.press(window.TITLE, "Wizard Settings")
        passed = []
        for step in STEPS:
            self.user.find(WIZARD, None, step)
            passed.append(step)
            if step == STEPS[1]:
                self.tick_first_drive()
            if step == STEPS[7]:
                self.choose_last("Connection speed")
                wait_for(lambda: self.user.find(WIZARD, "text", SECONDS)["value"] == "30",
                         "the proposed interval")
            if step != STEPS[-1]:
                self.user.press(WIZARD, "Next")
                wait_for(lambda number=len(passed) + 1: self.shows(f"Options: {number}/10"),
                         f"the step after {step}")
        self.user.press(WIZARD, "OK")
        wait_for(lambda: not self.shows("Options: 10/10"), "the wizard gone")
        row = self.user.find(window.TITLE, "table cell", "C:\\")
        self.assertIn("checked", row["states"])
        wait_for(lambda: self.user.find(window.TITLE, None, "Counter")["description"]
                 == "Times Checked: 1", "the first check")
        self.assertLess(time.monotonic() - self.begun, MINUTE)

    def test_the_step_list_says_where_one_is_and_close_leaves_all_as_it_was(self):
        self.user.press(window.TITLE, "Wizard Settings")
        for number, step in enumerate(STEPS, 1):
            shown = self.user.find(WIZARD, "push button", step)
            self.assertEqual(shown["description"], f"Step {number} of 10" +
                             (", shown" if number == 1 else ""))
        self.user.press(WIZARD, STEPS[1])
        self.tick_first_drive()
        self.user.press(WIZARD, "Close")
        wait_for(lambda: not self.shows("Close"), "the wizard gone")
        row = self.user.find(window.TITLE, "table cell", "C:\\")
        self.assertNotIn("checked", row["states"])
