"""The program with its window, driven as a user does."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

import desktop

# The titles: after the start, and as the watch is.
TITLE = "Velmora"
WATCHING = "Velmora - Watching Activated"
PAUSED = "Velmora - Watching Paused."

# The exit button, in pixels from the right edge and from the top.
EXIT_BUTTON = (-24, 28)


class Program:
    """The program at `path`, started with `arguments`, which keeps its user's files in the folder
    `home`. `more` is put into its environment."""

    def __init__(self, windows, path, home, more=None, screen=None, arguments=()):
        self.desktop = screen or desktop.shared()
        environment = {**os.environ, **self.desktop.environment, "HOME": str(home),
                       "XDG_RUNTIME_DIR": str(home), **(more or {})}
        environment.pop("QT_QPA_PLATFORM", None)
        # Processes that Wine leaves running outlive the tests and complain once the desktop is gone.
        noise = subprocess.DEVNULL if windows else None
        self.command = [*runner(windows), str(path), *arguments]
        self.options = {"env": environment, "stdin": subprocess.DEVNULL, "stderr": noise}
        self.process = subprocess.Popen(self.command, **self.options)
        try:
            self.window = self.desktop.window(TITLE)
        except BaseException:
            self.close()
            raise

    def start_again(self, *arguments):
        """Starts the program once more and returns the exit status of the second start."""
        return subprocess.run([*self.command, *arguments], timeout=desktop.PATIENCE, check=False,
                              **self.options).returncode

    def ask_for_the_end(self):
        """Clicks the exit button and returns the box with the question."""
        def asked():
            others = set(self.desktop.windows("Velmora")) - {self.window.identity}
            return desktop.Window(self.desktop, others.pop()) if others else None
        # A window that has just come may get its size after the click.
        return desktop.wait_after(lambda: self.window.click(*EXIT_BUTTON), asked, "the question before the end")

    def end(self):
        """Ends the program and returns its exit status."""
        self.ask_for_the_end().press("Return")
        return self.process.wait(desktop.PATIENCE)

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


def state_folder(windows, home):
    """Where the program keeps what it remembers for its user."""
    if not windows:
        return pathlib.Path(home, ".local/state/velmora")
    users = pathlib.Path(os.environ["WINEPREFIX"], "drive_c/users")
    user = next(each for each in users.iterdir() if each.name != "Public")
    return user / "AppData/Local/Velmora"


def runner(windows):
    """The words before the path of a program: Wine for one of Windows."""
    return [os.environ["VELMORA_WINE"]] if windows else []


def needs(*variables):
    """Skips a test unless these variables name its programs and folders."""
    for variable in variables:
        if not os.environ.get(variable):
            raise unittest.SkipTest(f"{variable} is not set")
    try:
        desktop.shared()
    except desktop.Unavailable as why:
        raise unittest.SkipTest(str(why)) from why


def copy(variable, folder):
    """Copies the program that a variable names and links the DLLs beside it; returns the copy's path."""
    built = pathlib.Path(os.environ[variable])
    for library in built.parent.rglob("*.dll"):
        place = folder / library.relative_to(built.parent)
        place.parent.mkdir(exist_ok=True)
        place.symlink_to(library)
    return pathlib.Path(shutil.copy2(built, folder / built.name))


class OwnProgram:
    """Each test has a copy of the program in its own folder, in `self.copy`. The class says in
    `windows` and `variables` which one."""

    def setUp(self):
        needs(*self.variables)
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-e2e-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.copy = copy(self.variables[0], self.folder)
        # Under Wine all tests have the same user.
        self.state = state_folder(self.windows, self.folder)
        shutil.rmtree(self.state, ignore_errors=True)
        self.settings = self.folder / "set.dat"

    def start(self, settings, screen=None, **variables):
        self.settings.write_bytes(settings)
        self.program = Program(self.windows, self.copy, self.folder, variables, screen)
        self.addCleanup(self.program.close)
        self.window = self.program.window


class OwnNative(OwnProgram):
    windows = False
    variables = ("VELMORA_WINDOW",)


class OwnWindows(OwnProgram):
    windows = True
    variables = ("VELMORA_WINDOW_WINDOWS", "VELMORA_WINE")
