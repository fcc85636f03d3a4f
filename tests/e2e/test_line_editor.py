"""The console at a terminal: lines are edited, called back and completed."""

import os
import pty
import select
import subprocess
import termios
import time

from cases import ConsoleCase, OwnNative
from console import PATIENCE
from settings import scrambled


class Terminal(OwnNative, ConsoleCase):
    def setUp(self):
        super().setUp()
        self.put_settings(scrambled("txtTime=60\r\n", "minspace=50000\r\n"))
        self.shown = b""

    def start_at_terminal(self, kind="xterm"):
        ours, theirs = pty.openpty()
        self.addCleanup(os.close, ours)
        environment = {**self.environment(), "TERM": kind}
        self.process = subprocess.Popen(self.command(), stdin=theirs, stdout=theirs,
                                        stderr=theirs, env=environment, start_new_session=True)
        self.addCleanup(self.process.wait)
        self.addCleanup(self.process.kill)
        os.close(theirs)
        self.terminal = ours
        self.read_until(b"Type help for the commands")

    def read_until(self, text):
        """What the terminal shows from now on, until the text is there."""
        end = time.monotonic() + PATIENCE
        while text not in self.shown:
            rest = end - time.monotonic()
            self.assertTrue(rest > 0 and select.select([self.terminal], [], [], rest)[0], self.shown)
            self.shown += os.read(self.terminal, 65536)
        before, self.shown = self.shown.split(text, 1)
        return before

    def type(self, text):
        os.write(self.terminal, text)

    def wait_until_it_edits(self):
        """Before that the terminal edits the line itself."""
        end = time.monotonic() + PATIENCE
        while termios.tcgetattr(self.terminal)[3] & termios.ICANON:
            self.assertLess(time.monotonic(), end)
            time.sleep(0.01)

    def edits_lines(self):
        return "libedit" in subprocess.run(["ldd", str(self.program)], capture_output=True,
                                           text=True, check=False).stdout

    def skip_without_editor(self):
        if not self.edits_lines():
            self.skipTest("built without libedit")

    def type_the_end(self):
        """The key that ends the input. The terminal itself takes it between two edited lines."""
        if self.edits_lines():
            self.read_until(b"> ")
            self.wait_until_it_edits()
        self.type(b"\x04")

    def start(self):
        """No console over pipes here."""

    def test_names_complete_themselves(self):
        self.skip_without_editor()
        self.start_at_terminal()
        self.wait_until_it_edits()
        self.type(b"ge\ttxtSp\t\n")
        # The minimum in the settings: only the whole name gives it.
        self.read_until(b"50000")

    def test_earlier_lines_come_back_and_can_be_changed(self):
        self.skip_without_editor()
        self.start_at_terminal()
        self.type(b"get txtSpace\n")
        self.read_until(b"50000")
        self.read_until(b"> ")
        self.wait_until_it_edits()
        # Up; then another name in place of the last letters.
        self.type(b"\x1b[A" + b"\x7f" * 5 + b"Time\n")
        self.read_until(b"60")

    def test_a_line_of_other_letters_is_carried_whole(self):
        self.skip_without_editor()
        self.start_at_terminal()
        self.type("set frmNotify.txtCustMsg.Text größer 漢\n".encode())
        self.read_until(b"ok")
        self.type(b"get frmNotify.txtCustMsg\n")
        self.read_until("größer 漢\r\n".encode())

    def test_the_end_of_the_input_ends_it(self):
        self.start_at_terminal()
        self.type(b"get txtSpace\n")
        self.read_until(b"50000")
        self.type_the_end()
        self.assertEqual(self.process.wait(PATIENCE), 0)

    def test_a_terminal_that_can_do_nothing_gets_plain_lines(self):
        self.start_at_terminal("dumb")
        self.type(b"get txtSpace\n")
        self.read_until(b"50000")
        self.assertNotIn(b"> ", self.shown)
        self.type(b"\x04")
        self.assertEqual(self.process.wait(PATIENCE), 0)
