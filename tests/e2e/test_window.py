"""The program with its window, driven on a desktop, natively and under Wine."""

import os
import subprocess
import unittest

import desktop
import window
from desktop import wait_for
from settings import plain_lines, scrambled

# By the digits of their keys; the first is shown at the start.
PAGES = ((1, "spec"), (2, "options"), (3, "alerts"), (4, "config"), (5, "overview"))

# A short interval, a minimum that no drive has, and alerts written to the log.
SHORT_OF_SPACE = scrambled("chkLog=1", "chkAutoSave=1", "txtTime=10\r\n", "minspace=2000000000\r\n",
                           "lstAct=0\r\n")
# No check comes in between.
QUIET = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4711\r\n", "custtime=0\r\n")

# Places in the main window, in pixels: a row of the watch list, and a button from the edges.
A_ROW = (60, 134)
SAVE_SET = (-45, -41)

# A screenshot of controls and texts has more colours; a window that wasn't drawn has one.
FEWEST_COLOURS = 30


class Steps:
    """The same on this machine and under Wine."""

    def setUp(self):
        super().setUp()
        self.log = self.folder / "log.dat"

    def screenshot(self, shown, name, unlike=None, moving=False):
        kind = "windows" if self.windows else "native"
        picture = shown.screenshot(f"{kind}-{name}", unlike, moving, FEWEST_COLOURS)
        self.assertEqual(picture.size, shown.size())
        return picture

    def wait_for_title(self, title):
        wait_for(lambda: self.window.title() == title, f"the title {title}")

    def tick_first_row(self):
        self.window.click(*A_ROW)
        self.window.press("Home")
        self.window.press("space")

    def end(self):
        self.assertEqual(self.program.end(), 0)

    def test_every_page_is_shown_and_the_watch_starts_and_pauses(self):
        self.start(QUIET)
        picture = None
        for number, page in PAGES:
            self.window.press(f"ctrl+{number}")
            picture = self.screenshot(self.window, page, picture)
        self.window.press("F6")
        self.wait_for_title(window.WATCHING)
        self.window.press("F6")
        self.wait_for_title(window.PAUSED)
        self.screenshot(self.window, "paused")
        self.end()

    def test_a_second_start_is_taken_over_by_the_first(self):
        self.start(QUIET)
        with_path = self.folder / "one.log"
        with_path.write_text("x", encoding="utf-8")
        self.window.minimise()
        self.assertEqual(self.program.start_again("--single", str(with_path)), 0)
        wait_for(self.window.shown, "the window of the first start")
        self.assertIsNone(self.program.process.poll())
        self.end()

    def started_beside(self, *arguments, errors=None, windows=1):
        """One more start, once so many more windows with the program's title are there, and the
        smallest of them."""
        screen = desktop.shared()
        environment = {**os.environ, **screen.environment, "HOME": str(self.folder),
                       "XDG_RUNTIME_DIR": str(self.folder)}
        environment.pop("QT_QPA_PLATFORM", None)
        before = set(screen.windows(window.TITLE))
        noise = errors or (subprocess.DEVNULL if self.windows else None)
        program = subprocess.Popen([*window.runner(self.windows), str(self.copy), *arguments],
                                   env=environment, stdin=subprocess.DEVNULL, stderr=noise)
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)

        def new():
            found = set(screen.windows(window.TITLE)) - before
            return found if len(found) >= windows else None
        shown = [desktop.Window(screen, each) for each in wait_for(new, f"{windows} more windows")]
        return program, min(shown, key=lambda each: each.size()[1])

    def test_putting_settings_back_beside_a_running_program_is_refused(self):
        self.start(QUIET)
        # What Wine leaves running would hold the pipe.
        pipe = None if self.windows else subprocess.PIPE
        second, box = self.started_beside("--single", "--restore-settings", errors=pipe)
        self.screenshot(box, "refused")
        box.press("Return")
        _, errors = second.communicate(timeout=desktop.PATIENCE)
        self.assertEqual(second.returncode, 1)
        if not self.windows:
            self.assertIn(b"End it first, then start with --restore-settings again.", errors)
        self.assertEqual(self.settings.read_bytes(), QUIET)
        self.end()

    def test_a_start_beside_one_that_has_failed_is_a_program_of_its_own(self):
        self.settings.write_bytes(b"")
        # The box of the failure, over the main window.
        first, box = self.started_beside(windows=2)
        self.settings.write_bytes(QUIET)
        second, _ = self.started_beside("--single")
        self.assertIsNone(second.poll())
        self.assertIsNone(first.poll())
        box.press("Return")

    def test_a_ticked_drive_that_is_short_of_space_raises_the_alert(self):
        self.log.write_bytes(b"")
        self.start(SHORT_OF_SPACE)
        self.tick_first_row()
        self.window.press("F6")
        wait_for(lambda: b"ALERT: Space Shortage < 2000000000 KB Drive: C:" in self.log.read_bytes(),
                 "the alert in the log")
        self.window.press("ctrl+3")
        self.screenshot(self.window, "shortage")
        self.end()

    def test_an_action_with_something_to_report_opens_the_alert_dialog(self):
        # The move, with nothing to move.
        self.start(SHORT_OF_SPACE + scrambled("lstAct=1\r\n"))
        self.tick_first_row()
        self.window.press("F6")
        dialog = desktop.shared().window("Alert Dialog")
        # No further check opens it once more.
        self.window.press("F6")
        self.wait_for_title(window.PAUSED)
        dialog.press("Tab")  # comes in front
        self.screenshot(dialog, "alert")
        dialog.press("Escape")
        wait_for(lambda: not dialog.shown(), "the alert dialog gone")
        self.end()

    def test_save_set_writes_the_settings_and_shows_the_about_box(self):
        self.start(QUIET)
        self.tick_first_row()
        before = self.screenshot(self.window, "ticked")
        self.window.press("ctrl+4")
        self.screenshot(self.window, "config", before)
        self.window.click(*SAVE_SET)
        wait_for(lambda: "path=C:\\\r\n" in plain_lines(self.settings.read_bytes()),
                 "the saved settings")
        self.assertIn("minspace=4711\r\n", plain_lines(self.settings.read_bytes()))
        about = desktop.shared().window("About Velmora")
        self.screenshot(about, "about", moving=True)
        about.press("alt+F4")
        wait_for(lambda: not about.shown(), "the about box gone")
        self.end()

    def test_it_goes_on_when_the_question_for_the_end_is_dismissed(self):
        self.start(QUIET)
        question = self.program.ask_for_the_end()
        self.screenshot(question, "exit")
        question.press("Escape")
        wait_for(lambda: not question.shown(), "the question gone")
        self.assertIsNone(self.program.process.poll())
        self.end()


class Native(Steps, window.OwnNative, unittest.TestCase):
    def test_it_begins_minimised_when_asked_and_a_later_start_shows_it(self):
        self.settings.write_bytes(QUIET)
        screen = desktop.shared()
        environment = {**os.environ, **screen.environment, "HOME": str(self.folder),
                       "XDG_RUNTIME_DIR": str(self.folder)}
        environment.pop("QT_QPA_PLATFORM", None)
        first = subprocess.Popen([str(self.copy), "--minimized"], env=environment,
                                 stdin=subprocess.DEVNULL)
        self.addCleanup(first.wait)
        self.addCleanup(first.kill)
        wait_for((self.state / "windows").exists, "the end of the start, and its place kept")
        self.assertEqual(screen.windows(window.TITLE), [])
        second = subprocess.run([str(self.copy), "--single"], env=environment, check=False,
                                stdin=subprocess.DEVNULL, timeout=desktop.PATIENCE)
        self.assertEqual(second.returncode, 0)
        wait_for(lambda: screen.windows(window.TITLE), "the window")
        self.assertIsNone(first.poll())


class Windows(Steps, window.OwnWindows, unittest.TestCase):
    pass
