"""A virtual desktop, and a program's windows on it, driven as by mouse and keyboard."""

import atexit
import collections
import functools
import os
import pathlib
import re
import select
import shutil
import subprocess
import tempfile
import time

SCREENSHOTS = pathlib.Path(__file__).parents[2] / "build" / "screenshots"

# How long to wait for something to show, and the pause between two attempts, in seconds.
PATIENCE = 60
PAUSE = 0.1
# Between two clicks on something that may have missed the first.
BETWEEN_ACTS = 8

NEEDED = ("Xvfb", "openbox", "xdotool", "import", "identify")


class Unavailable(Exception):
    """This machine lacks a tool; says which."""


def wait_after(act, look, what):
    """Acts and waits until the result of `look` is true. Acts again from time to time: a window that was not there
    yet has got nothing of it."""
    again = 0
    def looked():
        nonlocal again
        if time.monotonic() >= again:
            act()
            again = time.monotonic() + BETWEEN_ACTS
        return look()
    return wait_for(looked, what)


def wait_for(look, what):
    """Calls `look` until its result is true and returns that result."""
    end = time.monotonic() + PATIENCE
    while True:
        seen = look()
        if seen:
            return seen
        if time.monotonic() > end:
            raise AssertionError(f"no {what} within {PATIENCE} s")
        time.sleep(PAUSE)


class Desktop:
    """An X server with a window manager. `size` is that of its screen in pixels."""

    def __init__(self, size=(1280, 1024)):
        self.size = size
        missing = [tool for tool in NEEDED if not shutil.which(tool)]
        if missing:
            raise Unavailable("not installed: " + ", ".join(missing))
        self.processes = []
        self.files = []
        try:
            self.environment = {"DISPLAY": ":" + self._start_server()}
            self._start("openbox", "--sm-disable", *self._without_animation())
            wait_for(lambda: self.xdotool("get_desktop"), "the window manager")
        except BaseException:
            self.close()
            raise

    def _start(self, *command, **options):
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL,
                 "stderr": subprocess.DEVNULL}
        environment = {**os.environ, **getattr(self, "environment", {})}
        self.processes.append(subprocess.Popen(command, env=environment, **quiet, **options))

    def _start_server(self):
        """Starts it on a free display, whose number it writes to a pipe when it is ready. It isn't to
        reset when its last client leaves: that may throw out the window manager as it comes."""
        reading, writing = os.pipe()
        try:
            self._start("Xvfb", "-displayfd", str(writing), "-screen", "0", "%dx%dx24" % self.size,
                        "-nolisten", "tcp", "-noreset", pass_fds=[writing])
        finally:
            os.close(writing)
        with open(reading, encoding="ascii") as pipe:
            ready, _, _ = select.select([pipe], [], [], PATIENCE)
            number = pipe.readline().strip() if ready else ""
        if not number:
            raise AssertionError("Xvfb does not start")
        return number

    def _without_animation(self):
        """Options for the window manager: a window that comes back is at its place at once. Otherwise
        it glides there, and a click meets nothing."""
        usual = pathlib.Path("/etc/xdg/openbox/rc.xml")
        if not usual.exists():
            return []
        animated = "<animateIconify>yes<"
        content = usual.read_text(encoding="utf-8")
        if animated not in content:
            return []
        # The manager reads it once, when it starts.
        with tempfile.NamedTemporaryFile("w", suffix=".xml", encoding="utf-8", delete=False) as own:
            own.write(content.replace(animated, "<animateIconify>no<"))
        self.files.append(pathlib.Path(own.name))
        return ["--config-file", own.name]

    def run(self, *command):
        return subprocess.run(command, env={**os.environ, **self.environment}, timeout=PATIENCE,
                              stdin=subprocess.DEVNULL, capture_output=True, text=True,
                              check=False)

    def xdotool(self, *command):
        """What xdotool prints; an empty text when it fails."""
        done = self.run("xdotool", *command)
        return done.stdout.strip() if done.returncode == 0 else ""

    def windows(self, title):
        """The visible windows whose whole title matches a pattern."""
        return self.xdotool("search", "--onlyvisible", "--name", f"^{title}$").split()

    def windows_of(self, program):
        """All visible windows of a program, also menus, which have no title."""
        return [Window(self, each) for each in self.xdotool(
            "search", "--onlyvisible", "--classname", f"^{program}$").split()]

    def window(self, title, *others):
        """Waits for a window with such a title that is none of `others`."""
        known = {other.identity for other in others}
        found = wait_for(lambda: set(self.windows(title)) - known, f"a window {title}")
        return Window(self, found.pop())

    def start_tray(self):
        """Starts a notification area in the lower right corner; gives its process."""
        if not shutil.which("trayer"):
            raise Unavailable("not installed: trayer")
        self._start("trayer", "--edge", "bottom", "--align", "right", "--widthtype", "request",
                    "--height", "32", "--SetDockType", "true", "--SetPartialStrut", "true")
        return self.processes[-1]

    def stop(self, process):
        process.terminate()
        process.wait(PATIENCE)
        self.processes.remove(process)

    def point(self, x, y, *clicks):
        """Moves the pointer to a place on the screen and clicks there."""
        self.xdotool("mousemove", str(x), str(y), *clicks)

    def pointer(self):
        """Where the pointer is."""
        place = self.xdotool("getmouselocation", "--shell")
        return tuple(int(re.search(rf"^{name}=(\d+)$", place, re.M).group(1)) for name in "XY")

    def active(self):
        """The identity of the window that has the keyboard."""
        return self.xdotool("getactivewindow")

    def press(self, key):
        """Presses a key for the active window."""
        self.xdotool("key", "--clearmodifiers", key)

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait(PATIENCE)
        for file in self.files:
            file.unlink()


# The size in pixels, the number of colours, and a hash of the pixels.
Picture = collections.namedtuple("Picture", "size colours signature")


@functools.cache
def shared():
    """One desktop for all tests: another one would need another start of Wine."""
    made = Desktop()
    atexit.register(made.close)
    return made


class Window:
    def __init__(self, desktop, identity):
        self.desktop = desktop
        self.identity = identity

    def title(self):
        return self.desktop.xdotool("getwindowname", self.identity)

    def shown(self):
        return self.identity in self.desktop.windows(".*")

    def _geometry(self, *names):
        geometry = self.desktop.xdotool("getwindowgeometry", "--shell", self.identity)
        found = [re.search(rf"^{name}=(-?\d+)$", geometry, re.M) for name in names]
        # One that is gone has no size.
        return tuple(int(each.group(1)) if each else 0 for each in found)

    def size(self):
        """Width and height of the content, in pixels."""
        return self._geometry("WIDTH", "HEIGHT")

    def place(self):
        """The upper left corner of the content on the screen."""
        self.desktop.xdotool("mousemove", "--window", self.identity, "0", "0")
        return self.desktop.pointer()

    def middle(self):
        (left, top), (width, height) = self.place(), self.size()
        return left + width // 2, top + height // 2

    def activate(self):
        def active():
            self.desktop.xdotool("windowactivate", self.identity)
            return self.desktop.xdotool("getactivewindow") == self.identity
        wait_for(active, f"the window {self.title()} in front")

    def minimise(self):
        """Waits until it is: a window that the manager doesn't know yet stays as it is."""
        def minimised():
            self.desktop.xdotool("windowminimize", self.identity)
            return not self.shown()
        wait_for(minimised, "minimised window")

    def press(self, key):
        self.activate()
        self.desktop.press(key)

    def click(self, x, y):
        """Clicks into the content; negative values count from the right or from the bottom."""
        self.activate()
        width, height = self.size()
        self.desktop.xdotool("mousemove", "--window", self.identity,
                          str(x + width if x < 0 else x), str(y + height if y < 0 else y),
                          "click", "1")

    def screenshot(self, name, unlike=None, moving=False, fewest=0):
        """Saves a picture of the window once it has more than the `fewest` colours, differs from `unlike` and has
        stopped changing; with `moving`, it need not stop."""
        SCREENSHOTS.mkdir(parents=True, exist_ok=True)
        path = SCREENSHOTS / (name + ".png")
        last = None

        def settled():
            nonlocal last
            before, last = last, self._picture(path)
            same = before and last and (moving or before.signature == last.signature)
            same = same and last.colours > fewest
            return last if same and not (unlike and unlike.signature == last.signature) else None
        return wait_for(settled, f"the picture {name}")

    def _picture(self, path):
        self.desktop.run("import", "-window", self.identity, str(path))
        facts = self.desktop.run("identify", "-format", "%w %h %k %#", str(path)).stdout.split()
        return Picture((int(facts[0]), int(facts[1])), int(facts[2]), facts[3]) if facts else None
