"""What the end-to-end tests share: a console for each test, on this machine and under Wine."""

import os
import pathlib
import unittest

import console
import filesystems


class ConsoleCase(unittest.TestCase):
    """A test with a native console in `self.console`."""

    def start(self):
        started = console.native()
        if started is None:
            self.skipTest("VELMORA_CONSOLE names no program")
        return started

    def setUp(self):
        self.console = self.start()
        self.addCleanup(self.console.close)

    def restart(self):
        """A fresh console that knows the filesystems mounted meanwhile."""
        self.console.close()
        self.console = self.start()
        self.addCleanup(self.console.close)

    def mount(self, kind, *arguments):
        try:
            mounted = kind(*arguments)
        except filesystems.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(mounted.close)
        return mounted

    def drive_of(self, mounted):
        """The root under which the console shows a mounted filesystem, as a row of its own."""
        row = self.console.add(str(mounted.folder))
        self.console.tell("select ListView1 %d" % len(self.console.rows()))
        self.console.tell("click lblDP(1)")
        return row["Text"][:3]


class WindowsCase(ConsoleCase):
    """The same with the Windows program under Wine."""

    letters = iter("UTSRQPONM")

    def start(self):
        started = console.windows()
        if started is None:
            self.skipTest("no Wine or no Windows program here")
        return started

    def give_letter(self, mounted):
        """Makes a mounted filesystem a drive of Wine's and gives its root."""
        letter = next(WindowsCase.letters)
        link = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices", letter.lower() + ":")
        link.symlink_to(mounted.folder)
        self.addCleanup(link.unlink)
        return letter + ":\\"
