"""What the end-to-end tests share: a console for each test, on this machine and under Wine."""

import os
import pathlib
import shutil
import tempfile
import unittest

import console
import filesystems


class OwnFolder:
    """Each test runs a copy of the program in its own folder, so that it saves only there."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        built = os.environ.get(self.variable)
        if not built or not self.runner():
            self.skipTest(f"{self.variable} or the program that runs it is missing")
        self.program = self.folder / pathlib.Path(built).name
        shutil.copy2(built, self.program)
        self.settings = self.folder / "set.dat"

    def put_settings(self, content):
        self.settings.unlink(missing_ok=True)
        if content is not None:
            self.settings.write_bytes(content)

    def launch(self):
        self.console = console.Console(self.command(), self.environment())
        self.addCleanup(self.console.close)

    def environment(self):
        return {**os.environ, "HOME": str(self.folder), "XDG_CONFIG_HOME": "",
                "XDG_DATA_HOME": "", "XDG_STATE_HOME": ""}


class OwnNative(OwnFolder):
    variable = "VELMORA_CONSOLE"

    def runner(self):
        return True

    def command(self):
        return [str(self.program)]


class OwnWindows(OwnFolder):
    variable = "VELMORA_CONSOLE_WINDOWS"

    def runner(self):
        return os.environ.get("VELMORA_WINE")

    def command(self):
        return [os.environ["VELMORA_WINE"], str(self.program)]

    def environment(self):
        return dict(os.environ)


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
        self.console.run("select ListView1 %d" % len(self.console.rows()))
        self.console.run("click lblDP(1)")
        return row["Text"][:3]


class WindowsCase(ConsoleCase):
    """The same with the Windows program under Wine."""

    letters = "UTSRQPONM"

    def start(self):
        started = console.windows()
        if started is None:
            self.skipTest("no Wine or no Windows program here")
        return started

    def give_letter(self, mounted, device=None):
        """Makes a mounted filesystem a drive of Wine's and returns its root. The volume is what
        lies at the path `device`."""
        devices = pathlib.Path(os.environ["WINEPREFIX"], "dosdevices")
        taken = {link.name for link in devices.iterdir()}
        letter = next(each for each in self.letters if not {each.lower() + ":", each.lower() + "::"} & taken)
        link = devices / f"{letter.lower()}:"
        link.symlink_to(mounted.folder)
        self.addCleanup(link.unlink)
        if device is not None:
            volume = devices / f"{letter.lower()}::"
            volume.symlink_to(device)
            self.addCleanup(volume.unlink)
        return letter + ":\\"
