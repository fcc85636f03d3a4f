"""Where settings and log lie: beside the program, with the user, or in a folder that was chosen."""

import subprocess

from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from console import PATIENCE
from settings import plain_lines, scrambled

FIRST = scrambled("txtTime=60\r\n", "minspace=50000\r\n")
SAVE = ["set txtSpace.Text 777", "click Command8"]


def saved(settings):
    """The minimum in a settings file."""
    lines = [line.strip() for line in plain_lines(settings.read_bytes())]
    return next(line for line in lines if line.startswith("minspace="))


class DataFolder:
    def setUp(self):
        super().setUp()
        self.put_settings(FIRST)

    def lay_marker(self):
        (self.folder / "velmora.installed").touch()

    def run_with(self, *options, lines=()):
        return self.finished([*self.command(), *options], self.environment(), lines)

    def finished(self, command, environment, lines):
        """The program after these lines."""
        return subprocess.run(command, input="\n".join([*lines, ""]).encode(), timeout=PATIENCE,
                              capture_output=True, check=False, env=environment)

    def save_with(self, *options):
        done = self.run_with(*options, lines=SAVE)
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_beside_the_program_as_long_as_nothing_else_is_said(self):
        self.save_with()
        self.assertEqual(saved(self.settings), "minspace=777")

    def test_in_the_chosen_folder_which_begins_with_the_first_settings(self):
        chosen = self.folder / "two words"
        self.save_with("--settings", self.typed(chosen))
        self.assertEqual(saved(chosen / "set.dat"), "minspace=777")
        self.assertEqual(self.settings.read_bytes(), FIRST)
        done = self.run_with("--settings", self.typed(chosen), lines=["get txtSpace", "get lblLog"])
        self.assertIn(b"777", done.stdout)
        self.assertIn(b"two words\\log.dat", done.stdout)

    def test_each_folder_has_its_own_way_back(self):
        chosen = self.folder / "chosen"
        self.save_with("--settings", self.typed(chosen))
        good = (chosen / "set.dat").read_bytes()
        for folder in (self.folder, chosen):
            options = [] if folder == self.folder else ["--settings", self.typed(folder)]
            self.assertEqual(self.run_with(*options).returncode, 0)
            (folder / "set.dat").write_bytes(b"broken")
        for folder, first in ((chosen, good), (self.folder, FIRST)):
            options = [] if folder == self.folder else ["--settings", self.typed(folder)]
            back = self.run_with(*options, "--restore-settings")
            self.assertEqual(back.returncode, 0, back.stderr)
            self.assertEqual((folder / "set.dat").read_bytes(), first)

    def test_a_drive_that_is_not_there_is_no_reason_to_take_another_folder(self):
        done = self.run_with("--settings", "Q:\\none", lines=SAVE)
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"Q:\\none", done.stderr)
        self.assertEqual(self.settings.read_bytes(), FIRST)

    def test_a_folder_that_cannot_be_made_is_named(self):
        done = self.run_with("--settings", self.typed(self.folder / "none" / "below"))
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"is not there and can't be made", done.stderr)
        self.assertIn(b"below", done.stderr)
        self.assertFalse((self.folder / "none").exists())

    def test_two_users_of_an_installed_program_do_not_share(self):
        self.lay_marker()
        one, two = self.home("one"), self.home("two")
        self.run_as(one, SAVE)
        self.assertIn(b"50000", self.run_as(two, ["get txtSpace"]).stdout)
        self.assertIn(b"777", self.run_as(one, ["get txtSpace"]).stdout)
        self.assertEqual(saved(self.folder_of(one) / "set.dat"), "minspace=777")
        self.assertEqual((self.folder_of(two) / "set.dat").read_bytes(), FIRST)
        self.assertEqual(self.settings.read_bytes(), FIRST)

    def home(self, name):
        home = self.folder / name
        home.mkdir()
        return home


class Native(DataFolder, OwnNative, ConsoleCase):
    def typed(self, path):
        return str(path)

    def run_as(self, home, lines):
        return self.finished(self.command(), {**self.environment(), "HOME": str(home)}, lines)

    def folder_of(self, home):
        return home / ".local/share/velmora"

    def test_two_watches_on_one_program_are_told_apart(self):
        self.launch()
        other = self.run_with("--settings", str(self.folder / "other"))
        self.assertNotIn(b"Another watch", other.stderr)
        self.assertIn(b"Another watch", self.run_with().stderr)


class Windows(DataFolder, OwnWindows, WindowsCase):
    def typed(self, path):
        return "Z:" + str(path).replace("/", "\\")

    def run_as(self, home, lines):
        # Wine itself sets the variable at each start.
        line = f"set LOCALAPPDATA={self.typed(home)}&& {self.typed(self.program)}"
        command = [self.runner(), "cmd", "/c", line]
        return self.finished(command, self.environment(), lines)

    def folder_of(self, home):
        return home / "Velmora"
