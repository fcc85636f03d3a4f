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

    def run_with(self, *options, lines=(), **environment):
        """The finished program."""
        return subprocess.run([*self.command(), *options], input="\n".join([*lines, ""]).encode(),
                              timeout=PATIENCE, capture_output=True, check=False,
                              env={**self.environment(), **environment})

    def save_with(self, *options, **environment):
        done = self.run_with(*options, lines=SAVE, **environment)
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

    def test_a_folder_that_cannot_be_made_is_named(self):
        done = self.run_with("--settings", self.typed(self.folder / "none" / "below"))
        self.assertEqual(done.returncode, 2)
        self.assertIn(b"is not there and can't be made", done.stderr)
        self.assertIn(b"below", done.stderr)
        self.assertFalse((self.folder / "none").exists())

    def test_two_users_of_an_installed_program_do_not_share(self):
        self.lay_marker()
        users = [self.user(name) for name in ("one", "two")]
        self.save_with(**users[0][0])
        done = self.run_with(lines=["get txtSpace"], **users[1][0])
        self.assertIn(b"50000", done.stdout)
        self.assertEqual(saved(users[0][1] / "set.dat"), "minspace=777")
        self.assertEqual((users[1][1] / "set.dat").read_bytes(), FIRST)
        self.assertEqual(self.settings.read_bytes(), FIRST)


class Native(DataFolder, OwnNative, ConsoleCase):
    def typed(self, path):
        return str(path)

    def user(self, name):
        """What a user's environment has, and his folder for the program."""
        home = self.folder / name
        home.mkdir()
        return {"HOME": str(home)}, home / ".local/share/velmora"

    def test_two_watches_on_one_program_are_told_apart(self):
        self.launch()
        other = self.run_with("--settings", str(self.folder / "other"))
        self.assertNotIn(b"Another watch", other.stderr)
        self.assertIn(b"Another watch", self.run_with().stderr)


class Windows(DataFolder, OwnWindows, WindowsCase):
    def typed(self, path):
        return "Z:" + str(path).replace("/", "\\")

    def user(self, name):
        home = self.folder / name
        home.mkdir()
        return {"LOCALAPPDATA": self.typed(home)}, home / "Velmora"
