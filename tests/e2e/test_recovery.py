"""Settings that end the next start: told when they are saved, and put back afterwards."""

import os
import pathlib
import subprocess

import console
from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from settings import scrambled

START = scrambled("txtTime=60\r\n", "minspace=50000\r\n")

# Name, commands, the field that is named, its line in the file, and words of the advice.
TRAPS = [
    ("two send times", ["tick frmNotify.lstNotTime 1 on", "tick frmNotify.lstNotTime 3 on"],
     "frmNotify.lstNotTime", "notlstTime=", "Tick one entry at most."),
    ("a password with +!", ["set frmNotify.txtPass.Text abc+!def"],
     "frmNotify.txtPass", "notEmailPass=", 'Take "+" out of it.'),
    ("a message with a key", ["set frmNotify.txtCustMsg.Text new custtime=late"],
     "frmNotify.txtCustMsg", "notCustMsg=", 'Take "custtime=" out of it.'),
]


class Recovery:
    def run_to_the_end(self, *options, lines=()):
        return subprocess.run([*self.command(), *options], input="\n".join([*lines, ""]).encode(),
                              timeout=console.PATIENCE, capture_output=True, check=False,
                              env=self.environment())

    def test_what_would_end_the_next_start_is_told_and_the_start_after_it_has_a_way_back(self):
        for name, commands, field, key, advice in TRAPS:
            with self.subTest(name):
                self.put_settings(START)
                self.assertEqual(self.run_to_the_end().returncode, 0)
                saved = self.run_to_the_end(lines=["json on", *commands, "click Command8"])
                self.assertEqual(saved.returncode, 0)
                self.assertIn(f'{{"event":"hint","field":"{field}"', saved.stdout.decode())
                said = saved.stderr.decode()
                self.assertIn("The next start would end at", said)
                self.assertIn(advice, said)
                self.assertNotIn("abc", said)

                broken = self.settings.read_bytes()
                failed = self.run_to_the_end("--keep-running")
                self.assertEqual(failed.returncode, 1)
                self.assertIn("Run-time error '13':", failed.stdout.decode())
                self.assertEqual(self.settings.read_bytes(), broken)
                said = failed.stderr.decode()
                for words in ("set.dat", key, field, "--restore-settings"):
                    self.assertIn(words, said)
                place = next(word for word in said.split() if word.endswith("-1.dat."))
                self.assertEqual(self.host_path(place.rstrip(".")).read_bytes(), START)

                back = self.run_to_the_end("--restore-settings", lines=["get txtSpace"])
                self.assertEqual(back.returncode, 0, back.stdout + back.stderr)
                self.assertIn(b"\n50000", back.stdout)
                self.assertEqual(self.settings.read_bytes(), START)
                said = back.stderr.decode()
                self.assertIn("Settings were put back", said)
                kept = next(word for word in said.split() if word.endswith("-replaced-1.dat."))
                self.assertEqual(self.host_path(kept.rstrip(".")).read_bytes(), broken)

    def test_a_missing_file_is_put_back_too(self):
        self.put_settings(START)
        self.assertEqual(self.run_to_the_end().returncode, 0)
        self.put_settings(None)
        self.assertEqual(self.run_to_the_end().returncode, 1)
        self.assertEqual(self.run_to_the_end("--restore-settings").returncode, 0)
        self.assertEqual(self.settings.read_bytes(), START)

    def test_restoring_again_goes_further_back_and_everything_that_was_replaced_is_kept(self):
        starts = [START + scrambled(f"notEmailSubj=number {number}") for number in range(3)]
        for content in starts:
            self.put_settings(content)
            self.assertEqual(self.run_to_the_end().returncode, 0)
        self.put_settings(b"broken")
        for content in reversed(starts):
            back = self.run_to_the_end("--restore-settings")
            self.assertEqual(back.returncode, 0, back.stderr)
            self.assertEqual(self.settings.read_bytes(), content)
            place = back.stderr.decode().strip().split()[-1].rstrip(".")
            replaced = b"broken" if content == starts[-1] else starts[starts.index(content) + 1]
            self.assertIn(replaced, [path.read_bytes() for path in
                                     self.host_path(place).parent.glob("set-*.dat")])

    def test_without_a_copy_the_start_ends_as_ever(self):
        self.put_settings(b"")
        failed = self.run_to_the_end("--restore-settings")
        self.assertEqual(failed.returncode, 1)
        self.assertIn("There is no other good copy", failed.stderr.decode())
        self.assertEqual(self.settings.read_bytes(), b"")


class Native(Recovery, OwnNative, ConsoleCase):
    def host_path(self, path):
        return pathlib.Path(path)

    def test_the_copies_are_the_users_own(self):
        self.put_settings(START)
        self.run_to_the_end()
        folder = self.folder / ".local/state/velmora"
        copies = list(folder.glob("set-*-1.dat"))
        self.assertEqual(len(copies), 1)
        self.assertEqual(folder.stat().st_mode & 0o777, 0o700)
        self.assertEqual(copies[0].stat().st_mode & 0o777, 0o600)

    def test_what_cant_be_kept_is_not_replaced(self):
        self.put_settings(START)
        self.run_to_the_end()
        self.put_settings(b"broken")
        folder = self.folder / ".local/state/velmora"
        name = next(folder.glob("set-*-1.dat")).name.replace("-1.dat", "-replaced-0.dat")
        (folder / name).mkdir()
        failed = self.run_to_the_end("--restore-settings")
        self.assertEqual(failed.returncode, 1)
        self.assertIn("Settings were not put back, and nothing was changed", failed.stdout.decode())
        self.assertEqual(self.settings.read_bytes(), b"broken")

    def test_five_are_kept(self):
        for number in range(7):
            self.put_settings(START + scrambled(f"notEmailSubj=number {number}"))
            self.assertEqual(self.run_to_the_end().returncode, 0)
        folder = self.folder / ".local/state/velmora"
        newest = sorted(folder.glob("set-*.dat"))
        self.assertEqual([copy.read_bytes() for copy in newest],
                         [START + scrambled(f"notEmailSubj=number {number}")
                          for number in (6, 5, 4, 3, 2)])


class Windows(Recovery, OwnWindows, WindowsCase):
    def host_path(self, path):
        """The file in Wine's drive C."""
        return pathlib.Path(os.environ["WINEPREFIX"], "drive_c", *path[3:].split("\\"))
