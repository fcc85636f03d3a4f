"""What a screen reader learns of the window and can do in it, natively."""

import pathlib
import shutil
import tempfile
import unittest

import accessibility
import desktop
import window
from desktop import wait_for
from settings import plain_lines, scrambled

# No check comes in between; then one every ten seconds, with a minimum that no drive has.
QUIET = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4711\r\n", "custtime=0\r\n")
SHORT_OF_SPACE = scrambled("chkLog=1", "txtTime=10\r\n", "minspace=2000000000\r\n", "lstAct=0\r\n")

PAGES = ("Specified options", "Program options", "Alerts and log", "Configuration", "Overview")
# Roles of what takes the keyboard.
OPERATED = ("push button", "check box", "radio button", "text", "combo box", "slider", "spin button", "table", "list",
            "page tab")


class Accessibility(unittest.TestCase):
    def setUp(self):
        window.needs("VELMORA_WINDOW")
        try:
            self.bus = accessibility.shared()
        except accessibility.Unavailable as why:
            self.skipTest(str(why))
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.settings = self.folder / "set.dat"

    def start(self, settings):
        self.settings.write_bytes(settings)
        self.program = window.Program(False, window.copy("VELMORA_WINDOW", self.folder), self.folder,
                                      self.bus.environment)
        self.addCleanup(self.program.close)
        self.window = self.program.window
        self.window.activate()
        self.screen = self.bus.program(self.program.process)

    def wait_for_states(self, what, *states):
        wait_for(lambda: set(states) <= what.states(), f"{what.name!r} {' and '.join(states)}")

    def go_to(self, page):
        tab = self.screen.find("page tab", page)
        tab.act("Press")
        self.wait_for_states(tab, "selected")

    def first_row(self):
        """The cell with the path of the watch list's first row."""
        table = self.screen.find("table", "Watched drives and paths")
        return next(cell for cell in table.children() if cell.role == "table cell")

    def test_whatever_is_operated_has_a_name_on_every_page(self):
        self.start(QUIET)
        for page in PAGES:
            self.go_to(page)
            operated = [each for each in self.screen.descendants()
                        if each.role in OPERATED and "focusable" in each.states()]
            self.assertGreater(len(operated), 20, page)
            self.assertEqual([each.role for each in operated if not each.name.strip()], [], page)

    def test_tabs_are_tabs_of_a_list_and_change_by_the_arrow_keys(self):
        self.start(QUIET)
        strip = self.screen.find("page tab list", "Pages")
        self.assertEqual([(tab.role, tab.name) for tab in strip.children()], [("page tab", page) for page in PAGES])
        self.go_to(PAGES[0])
        strip.children()[0].act("SetFocus")
        self.wait_for_states(strip.children()[0], "focused")
        for key, page in (("Down", 1), ("End", 4), ("Up", 3), ("Home", 0)):
            self.window.press(key)
            self.wait_for_states(strip.children()[page], "focused", "selected")
            chosen = [tab.name for tab in strip.children() if "selected" in tab.states()]
            self.assertEqual(chosen, [PAGES[page]])

    def test_a_later_starts_file_is_listed(self):
        self.start(QUIET)
        listed = self.folder / "one.log"
        listed.write_text("x", encoding="utf-8")
        self.assertEqual(self.program.start_again("--single", str(listed)), 0)
        self.go_to("Files")

        def names():
            return [each.name for each in self.screen.descendants() if each.role == "table cell"]
        wait_for(lambda: "one.log" in names(), "the row of the file")

    def test_figures_are_read_with_their_words(self):
        self.start(QUIET)
        self.go_to("Overview")
        # Two labels: the words, and the day and the hour.
        texts = [each.text() for each in self.screen.descendants() if each.name == "Program started"]
        self.assertEqual(texts.count(None), 1)
        self.assertRegex("".join(filter(None, texts)), r"\d.*:\d\d")
        self.assertEqual(self.screen.find("label", "Heading of the page").text(), "Specified Options (Files, Paths...)")

    def test_a_toggled_check_box_counts_for_the_program(self):
        self.start(QUIET)
        self.go_to("Configuration")
        box = self.screen.find("check box", "Auto Save Log to file")
        self.assertNotIn("checked", box.states())
        box.act("Toggle")
        self.wait_for_states(box, "checked")
        self.first_row().act("Toggle")
        self.wait_for_states(self.first_row(), "checked")
        self.screen.find("push button", "Save Set").act("Press")
        wait_for(lambda: "path=C:\\\r\n" in plain_lines(self.settings.read_bytes()), "the saved settings")
        self.assertIn("chkAutoSave=1", plain_lines(self.settings.read_bytes()))

    def test_an_entry_of_a_list_is_ticked_with_the_rules_of_the_list(self):
        self.start(QUIET)
        self.go_to("Program options")
        entries = self.screen.find("list", "Actions on a space shortage").children()
        self.assertEqual({entry.role for entry in entries}, {"list item"})
        entries[1].act("Toggle")
        self.wait_for_states(entries[1], "checked")
        entries[2].act("Toggle")
        box = desktop.shared().window("Velmora", self.window)
        box.press("Return")
        self.wait_for_states(entries[2], "checked")
        self.assertNotIn("checked", entries[1].states())

    def test_the_focus_stays_in_the_list_over_a_check(self):
        self.start(SHORT_OF_SPACE)
        row = self.first_row()
        self.assertEqual(row.description, "not watched")
        row.act("SetFocus")
        self.wait_for_states(row, "focused")
        row.act("Toggle")
        self.wait_for_states(row, "checked", "focused")
        self.assertEqual(row.description, "not checked yet")
        self.go_to("Overview")
        row.act("SetFocus")
        checks = self.screen.find("label", "Number of finished checks")
        self.window.press("F6")
        wait_for(lambda: int(checks.text() or 0) >= 1, "a finished check")
        self.assertEqual(row.description, "short of space")
        self.wait_for_states(row, "focused")
        self.window.press("space")
        wait_for(lambda: "checked" not in row.states(), "the tick gone")
        # No button was pressed instead, which would have opened a dialog.
        self.assertEqual([each.role for each in self.screen.children() if "showing" in each.states()], ["frame"])

    def test_the_button_of_the_pause_tells_its_state(self):
        self.start(QUIET)
        button = self.screen.find("push button", "Start Watch")
        self.assertEqual(button.description, "The watch is paused")
        button.act("Press")
        wait_for(lambda: button.name == "Pause Watch", "the running watch")
        self.assertEqual(button.description, "The watch is running")

    def test_the_pages_of_the_mail_settings_are_tabs(self):
        self.start(QUIET)
        self.window.press("ctrl+n")
        desktop.shared().window("Notification Settings")
        tab = self.screen.find("page tab", "Email Acct. Info.")
        tab.act("Press")
        self.wait_for_states(tab, "selected")
        self.screen.find("text", "Mail server")


if __name__ == "__main__":
    unittest.main()
