"""Where the program's windows and menus are on a desktop, and which of them has the keyboard."""

import shutil
import unittest

import desktop
import window
from desktop import wait_for
from settings import scrambled

QUIET = scrambled("txtTime=3600\r\n", "custtime=0\r\n")
# An action with nothing to do, which the alert dialog reports.
ALARMED = scrambled("txtTime=10\r\n", "minspace=2000000000\r\n", "lstAct=1\r\n")

# Places in the main window, in pixels.
A_ROW = (60, 134)
FUNCTIONS = (258, 30)

# What the window manager puts around a window, at most.
FRAME = 40


class Steps:
    """The same on this machine and under Wine."""

    def start(self, settings=QUIET, screen=None, **variables):
        super().start(settings, screen, **variables)
        self.desktop = self.program.desktop

    def end(self):
        self.assertEqual(self.program.end(), 0)

    def kept(self):
        """The words that are kept of the main window."""
        file = self.state / "windows"
        lines = file.read_text().splitlines() if file.exists() else []
        return next((line.split() for line in lines if line.startswith("Form1 ")), [])

    def wait_for_place(self, look, place, tolerance=3):
        """A window is there a moment before the window manager has put it at its place."""
        seen = None

        def is_there():
            nonlocal seen
            seen = look()
            return all(abs(a - b) <= tolerance for a, b in zip(seen, place))
        try:
            wait_for(is_there, f"window at {place}")
        except AssertionError as late:
            raise AssertionError(f"{late}, but at {seen}") from late

    def put(self, place, size):
        """Moves and sizes the main window, and waits until both are kept."""
        wait_for(self.kept, "the end of the start, and its place kept")
        self.desktop.xdotool("windowsize", self.window.identity, *map(str, size))
        self.desktop.xdotool("windowmove", self.window.identity, *map(str, place))
        twips = [str(15 * pixels) for pixels in size]
        wait_for(lambda: self.window.size() == size, "the new size")
        wait_for(lambda: self.kept()[1:3] == twips, "the new size kept")
        return self.window.place()

    def test_the_main_window_comes_back_where_it_was_and_as_large(self):
        self.start()
        place = self.put((140, 90), (620, 660))
        self.end()
        self.start()
        wait_for(lambda: self.window.size() == (620, 660), "the size of the last run")
        self.wait_for_place(self.window.place, place)
        self.end()

    def test_a_small_window_comes_over_the_main_one(self):
        self.start()
        self.put((300, 200), (620, 660))
        question = self.program.ask_for_the_end()
        self.wait_for_place(question.middle, self.window.middle(), 25)
        question.press("Escape")
        wait_for(lambda: not question.shown(), "the question gone")
        self.end()

    def tick_first_row(self):
        self.window.click(*A_ROW)
        self.window.press("Home")
        self.window.press("space")

    def test_the_alert_dialog_stands_in_its_corner_and_leaves_the_keyboard(self):
        self.start(ALARMED)
        self.tick_first_row()
        self.window.press("F6")
        dialog = self.desktop.window("Alert Dialog")
        right, bottom = self.desktop.size

        def is_in_the_corner():
            (left, top), (width, height) = dialog.place(), dialog.size()
            return right - FRAME < left + width <= right and bottom - FRAME < top + height <= bottom
        wait_for(is_in_the_corner, "dialog in its corner")
        # Wine doesn't tell the window manager that the dialog is shown without the keyboard.
        if not self.windows:
            self.assertEqual(self.desktop.active(), self.window.identity)
        self.window.press("F6")
        dialog.click(20, 20)
        wait_for(lambda: self.desktop.active() == dialog.identity, "the keyboard after a click")
        dialog.press("Escape")
        self.end()

    def is_within(self, screen):
        (left, top), (width, height) = self.window.place(), self.window.size()
        return 0 < width and left + width <= screen[0] and 0 < height and top + height <= screen[1]

    def test_the_window_fits_a_low_screen_and_keeps_its_own_size(self):
        for size, scale in (((1366, 768), "1.25"), ((1920, 1080), "2")):
            screen = desktop.Desktop(size)
            self.addCleanup(screen.close)
            self.start(screen=screen, QT_SCALE_FACTOR=scale)
            wait_for(lambda: self.kept()[1:3] == ["8070", "9100"], "the size of the fields")
            wait_for(lambda: self.is_within(size), f"window within {size}")
            self.program.close()
            shutil.rmtree(self.state)


class Native(Steps, window.OwnNative, unittest.TestCase):
    def menu(self):
        """The menu that is open: it has no title of its own, and is higher than an icon."""
        return next((each for each in self.desktop.windows_of("velmora")
                     if each.title() == "velmora" and each.size()[1] > 60), None)

    def popped_up(self):
        return wait_for(self.menu, "a menu")

    def open_icon(self):
        """Starts with a notification area; gives the place of the program's icon."""
        try:
            tray = desktop.shared().start_tray()
        except desktop.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(desktop.shared().stop, tray)
        self.start()
        width, height = self.desktop.size
        return width - 12, height - 16

    def test_the_menu_of_the_tool_bar_opens_below_its_button(self):
        self.start()
        self.window.click(*FUNCTIONS)
        x, y = self.desktop.pointer()
        left, top = self.popped_up().place()
        self.assertTrue(x - 60 < left <= x and y < top < y + 40, f"{left}, {top} from {x}, {y}")
        self.desktop.press("Escape")
        self.end()

    def test_the_menu_key_opens_the_menu_at_the_row_wherever_the_pointer_is(self):
        self.start()
        self.window.click(*A_ROW)
        x, y = self.desktop.pointer()
        self.desktop.point(1270, 1010)
        self.desktop.press("Menu")
        left, top = self.popped_up().place()
        self.assertTrue(x - 100 < left <= x and y < top < y + 30, f"{left}, {top} from {x}, {y}")
        self.desktop.press("Escape")
        self.end()

    def test_the_icons_menu_opens_at_the_icon_and_the_window_comes_back_to_its_place(self):
        icon = self.open_icon()
        place = self.put((140, 90), (620, 660))
        menu = desktop.wait_after(lambda: self.desktop.point(*icon, "click", "3"), self.menu, "the icon's menu")
        (left, top), (width, height) = menu.place(), menu.size()
        self.assertLess(icon[1] - 40, top + height)
        self.assertLessEqual(top + height, icon[1])
        self.assertLess(icon[0] - 40, left + width)
        self.desktop.press("Escape")
        wait_for(lambda: not menu.shown(), "the menu gone")

        for shown in (False, True):
            self.desktop.point(*icon, "click", "--repeat", "2", "--delay", "80", "1")
            wait_for(lambda: self.window.shown() == shown, f"the window shown: {shown}")
        self.wait_for_place(self.window.place, place)
        self.end()


class Windows(Steps, window.OwnWindows, unittest.TestCase):
    pass
