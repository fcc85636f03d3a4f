"""The settings file while it is written: kills, a full disk, two programs at once."""

import fcntl
import os
import pathlib
import random
import shutil
import signal
import subprocess
import time

import filesystems
import shims
from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from console import PATIENCE, ConsoleError, Console
from settings import plain_lines, scrambled

ROOT = pathlib.Path(__file__).parents[2]
START = scrambled("txtTime=60\r\n", "minspace=50000\r\n")
SHORT = ["set frmNotify.txtCustMsg.Text short", "tick lstAct 2 off"]
# Several pages of memory, with the action that deletes in its tail.
LONG = ["set frmNotify.txtCustMsg.Text " + "long " * 1500, "tick lstAct 2 on"]
SAVE = "click Command8"
KILLS = 40
SECONDS_OF_TWO_WRITERS = 3


def whole_lines(content):
    """The lines that a reader takes: blank ones say nothing. Values gain a line end by each saving."""
    lines = plain_lines(content.replace(b" \r\n", b"\r\n"))
    return [line.rstrip("\r\n") for line in lines if line]


class Saving:
    def settings_after(self, *lines):
        """What the program saves after these commands."""
        self.put_settings(START)
        return self.saved_again(*lines)

    def saved_again(self, *lines):
        """The same over the settings that are there."""
        done = subprocess.run(self.command(), input="\n".join([*lines, SAVE, ""]).encode(),
                              timeout=PATIENCE, capture_output=True, check=False,
                              env=self.environment())
        self.assertEqual(done.returncode, 0, done.stdout)
        return whole_lines(self.settings.read_bytes())

    def both(self):
        """What it saves with a long and with a short content, whatever was saved before."""
        long, short = self.settings_after(*LONG), self.settings_after(*SHORT)
        self.assertNotEqual(long, short)
        return long, short

    def saver(self, lines, times):
        """A program that saves over and over; it has begun when this returns."""
        process = subprocess.Popen(self.command(), stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, env=self.environment())
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        process.stdout.readline()
        try:
            process.stdin.write("\n".join([*lines * times, "get txtAmt", ""]).encode())
            process.stdin.close()
        except BrokenPipeError:
            pass
        return process

    def test_kills_at_any_moment_leave_one_of_both_whole(self):
        both = self.both()
        dice = random.Random(1)
        seen = set()
        hits = 0
        life = self.longest_life
        end = time.monotonic() + 5 * PATIENCE
        while (hits < self.kills or seen != {0, 1}) and time.monotonic() < end:
            self.put_settings(START)
            process = self.saver([*LONG, SAVE, *SHORT, SAVE], 15)
            before = START
            deadline = time.monotonic() + PATIENCE
            while before == START and time.monotonic() < deadline:
                before = self.settings.read_bytes()
            time.sleep(dice.uniform(0, life))
            process.send_signal(signal.SIGKILL)
            is_killed = process.wait(PATIENCE) == -signal.SIGKILL
            left = whole_lines(self.content_left())
            self.assertIn(left, both)
            # One that had ended shows nothing: the next ones are killed earlier. So long as all were in the first
            # save, they are killed later.
            if not is_killed:
                life /= 2
                continue
            hits += 1
            seen.add(both.index(left))
            if seen == {0}:
                life = min(2 * life, 1)
        self.assertGreaterEqual(hits, self.kills)
        self.assertEqual(seen, {0, 1}, "the kills must come at different moments")

    def test_two_programs_that_save_at_once_leave_whole_settings(self):
        self.allowed = (*self.both(), whole_lines(START))
        self.put_settings(START)
        writers = [self.saver([*lines, SAVE], 40) for lines in (LONG, SHORT)]
        end = time.monotonic() + self.longest_race
        while time.monotonic() < end and any(writer.poll() is None for writer in writers):
            self.look()
        for writer in writers:
            writer.kill()
            writer.wait(PATIENCE)
        left = self.settings.read_bytes()
        self.assertNotIn(b"\0", left)
        self.assertIn(whole_lines(left), self.allowed)
        self.launch()


class Native(Saving, OwnNative, ConsoleCase):
    kills = KILLS
    longest_life = 0.02
    longest_race = SECONDS_OF_TWO_WRITERS

    def content_left(self):
        """As the program reads: when nobody writes any more."""
        with self.settings.open("rb") as settings:
            fcntl.flock(settings, fcntl.LOCK_SH)
            return settings.read()

    def look(self):
        """While nobody writes, each content is whole."""
        content = self.content_left()
        self.assertNotIn(b"\0", content)
        self.assertIn(whole_lines(content), self.allowed)

    def test_saved_settings_are_the_users_alone(self):
        self.put_settings(START)
        self.settings.chmod(0o644)
        self.saved_again(*SHORT)
        self.assertEqual(self.settings.stat().st_mode & 0o7777, 0o600)

    def test_the_console_tells_of_another_watch_on_its_folder(self):
        self.put_settings(START)
        self.launch()
        second = subprocess.run(self.command(), input=b"get txtAmt\n", timeout=PATIENCE,
                                capture_output=True, check=False, env=self.environment())
        self.assertEqual(second.returncode, 0)
        self.assertIn(f"Another watch runs on this folder: {self.folder}", second.stderr.decode())
        self.console.close()
        third = subprocess.run(self.command(), input=b"get txtAmt\n", timeout=PATIENCE,
                               capture_output=True, check=False, env=self.environment())
        self.assertNotIn("Another watch", third.stderr.decode())

    def killed_at(self, call, **how):
        """Saves the short content over the long one, killed at that call. Returns the file before and after
        it, and as it should be."""
        self.assertIn("lstAct=2", self.settings_after(*LONG))
        before = self.settings.read_bytes()
        self.saved_again(*SHORT)
        wanted = self.settings.read_bytes()
        self.put_settings(before)
        try:
            shim = shims.ending_at(call, self.folder, **how)
        except shims.Unavailable as why:
            self.skipTest(str(why))
        done = subprocess.run(self.command(), input="\n".join([*SHORT, SAVE, ""]).encode(),
                              timeout=PATIENCE, capture_output=True, check=False,
                              env={**self.environment(), **shim})
        self.assertEqual(done.returncode, -signal.SIGKILL)
        return before, self.content_left(), wanted

    def test_a_kill_between_two_pages_of_a_write_leaves_the_new_settings(self):
        _, left, wanted = self.killed_at("write", children=False)
        self.assertEqual(left, wanted)

    def test_so_does_a_kill_between_write_and_cut(self):
        _, left, wanted = self.killed_at("ftruncate", children=False)
        self.assertEqual(left, wanted)

    def test_an_end_of_all_between_write_and_cut_leaves_nothing_of_the_old_settings(self):
        before, left, wanted = self.killed_at("ftruncate")
        self.assertEqual(len(left), len(before))
        self.assertTrue(left.startswith(wanted))
        self.assertEqual(left[len(wanted):].replace(b"\r\n", b"").strip(b" "), b"")
        self.launch()
        self.assertFalse(any(entry["Checked"] for entry in self.console.rows("lstAct")))
        self.assertEqual(self.console.get("frmNotify.txtCustMsg"), "short")

    def test_what_is_on_its_way_to_the_disk_is_cut_already(self):
        _, left, wanted = self.killed_at("fsync")
        self.assertEqual(left, wanted)

    def on_a_full_disk(self, mounted, *options):
        """Tries to save the long content where there is no room for it."""
        settings = mounted.folder / "set.dat"
        shutil.copy(ROOT / "dist" / "set.dat", settings)
        place = mounted.folder / "velmora-console"
        program = filesystems.Bound(self.program, place)
        self.addCleanup(program.close)
        mounted.fill_up()
        before = settings.read_bytes()
        self.console = Console([str(place), *options], self.environment())
        self.addCleanup(self.console.close)
        for line in LONG:
            self.console.run(line)
        return settings, before

    def keeps_its_settings(self, mounted):
        settings, before = self.on_a_full_disk(mounted, "--keep-running")
        for _ in range(2):
            with self.assertRaises(ConsoleError):
                self.console.run(SAVE)
            self.assertEqual(settings.read_bytes(), before)
        box = self.console.boxes()[-1]["text"]
        for word in ("'61'", "save the settings", str(settings)):
            self.assertIn(word, box)
        (mounted.folder / "filler").unlink()
        self.console.run(SAVE)
        self.assertIn("lstAct=2\r\n", plain_lines(settings.read_bytes()))

    def test_a_full_tmpfs_leaves_the_old_settings_of_a_program_that_keeps_running(self):
        self.keeps_its_settings(self.mount(filesystems.Tmpfs, 1))

    def test_a_full_disk_leaves_them_too(self):
        self.keeps_its_settings(self.mount(filesystems.Loop, 1))

    def test_and_so_does_one_that_can_not_reserve(self):
        self.keeps_its_settings(self.mount(filesystems.Loop, 1, "-O", "^has_journal,^extent,^64bit"))

    def test_started_plainly_it_ends_with_a_cut_file(self):
        settings, _ = self.on_a_full_disk(self.mount(filesystems.Tmpfs, 1))
        with self.assertRaises(EOFError):
            self.console.run(SAVE)
        self.assertEqual(self.console.process.wait(PATIENCE), 1)
        self.assertEqual(settings.stat().st_size, 4096)


class Windows(Saving, OwnWindows, WindowsCase):
    kills = 5
    longest_life = 0.1
    longest_race = 5

    def content_left(self):
        return self.settings.read_bytes()

    def look(self):
        """Wine's locks are its own: a reader from outside can come in the middle."""
        time.sleep(0.1)
