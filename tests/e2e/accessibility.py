"""What the program tells a screen reader, read from outside as a screen reader does, on a desktop's own buses."""

import atexit
import ctypes
import functools
import os
import subprocess
import tempfile

import desktop

LIBRARY = "libatspi.so.0"
NEEDED_FILES = ("/usr/share/dbus-1/services/org.a11y.Bus.service",)

# Numbers of states in the interface's own list.
STATES = {"checked": 4, "enabled": 8, "expanded": 10, "focusable": 11, "focused": 12, "selectable": 22, "selected": 23,
          "showing": 25}

# Deeper than any window, against a tree that has become a circle.
DEEPEST = 30


class Unavailable(Exception):
    """This machine lacks a part; says which."""


def declare(library):
    """Declares the functions that are used: the type of the result, and those of the arguments."""
    pointer, text, number = ctypes.c_void_p, ctypes.c_char_p, ctypes.c_int
    functions = {
        "atspi_init": (number,),
        "atspi_set_timeout": (None, number, number),
        "atspi_get_desktop": (pointer, number),
        "atspi_accessible_set_cache_mask": (None, pointer, number),
        "atspi_accessible_clear_cache": (None, pointer),
        "atspi_accessible_get_child_count": (number, pointer, pointer),
        "atspi_accessible_get_child_at_index": (pointer, pointer, number, pointer),
        "atspi_accessible_get_process_id": (ctypes.c_uint, pointer, pointer),
        "atspi_accessible_get_name": (pointer, pointer, pointer),
        "atspi_accessible_get_description": (pointer, pointer, pointer),
        "atspi_accessible_get_role_name": (pointer, pointer, pointer),
        "atspi_accessible_get_state_set": (pointer, pointer),
        "atspi_state_set_contains": (number, pointer, number),
        "atspi_accessible_get_action_iface": (pointer, pointer),
        "atspi_action_get_n_actions": (number, pointer, pointer),
        "atspi_action_get_action_name": (pointer, pointer, number, pointer),
        "atspi_action_do_action": (number, pointer, number, pointer),
        "atspi_accessible_get_text_iface": (pointer, pointer),
        "atspi_text_get_character_count": (number, pointer, pointer),
        "atspi_text_get_text": (pointer, pointer, number, number, pointer),
        "g_free": (None, pointer),
    }
    for name, (result, *arguments) in functions.items():
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


class Bus:
    """A session bus with the service of accessibility; programs find it by `environment`."""

    def __init__(self):
        missing = [path for path in NEEDED_FILES if not os.path.exists(path)]
        try:
            self.library = declare(ctypes.CDLL(LIBRARY))
        except OSError:
            missing.append(LIBRARY)
        if missing:
            raise Unavailable("not installed: " + ", ".join(missing))
        self.folder = tempfile.TemporaryDirectory(prefix="velmora-bus-")
        surroundings = {**os.environ, **desktop.shared().environment, "XDG_RUNTIME_DIR": self.folder.name}
        try:
            self.process = subprocess.Popen(["dbus-daemon", "--session", "--nofork", "--print-address"],
                                            env=surroundings, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                            stderr=subprocess.DEVNULL, text=True)
        except FileNotFoundError as why:
            raise Unavailable("not installed: dbus-daemon") from why
        self.environment = {"DBUS_SESSION_BUS_ADDRESS": self.process.stdout.readline().strip(),
                            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        # The library reads it from this process.
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.environment["DBUS_SESSION_BUS_ADDRESS"]
        if self.library.atspi_init() > 1:
            self.close()
            raise Unavailable("the service of accessibility does not start")
        # Milliseconds of one call, and after the start of a program. A call that takes longer gives nothing.
        self.library.atspi_set_timeout(3000, 15000)

    def program(self, process):
        """The accessible object of a program, once it is there."""
        root = Accessible(self.library, self.library.atspi_get_desktop(0))

        def found():
            return next((child for child in root.children() if child.process_id() == process.pid), None)
        program = desktop.wait_for(found, "the program on the accessibility bus")
        # Nothing is remembered: what has changed must be seen.
        self.library.atspi_accessible_set_cache_mask(program.pointer, 0)
        return program

    def close(self):
        self.process.terminate()
        self.process.wait(desktop.PATIENCE)
        self.process.stdout.close()
        self.folder.cleanup()


@functools.cache
def shared():
    """One bus for all tests: the library connects once."""
    made = Bus()
    atexit.register(made.close)
    return made


class Accessible:
    """An object as a screen reader knows it."""

    def __init__(self, library, pointer):
        self.library = library
        self.pointer = pointer

    def _text(self, function, *arguments):
        self.library.atspi_accessible_clear_cache(self.pointer)
        found = getattr(self.library, function)(*arguments, None)
        if not found:
            return ""
        text = ctypes.string_at(found).decode()
        self.library.g_free(found)
        return text

    name = property(lambda self: self._text("atspi_accessible_get_name", self.pointer))
    description = property(lambda self: self._text("atspi_accessible_get_description", self.pointer))
    role = property(lambda self: self._text("atspi_accessible_get_role_name", self.pointer))

    def process_id(self):
        return self.library.atspi_accessible_get_process_id(self.pointer, None)

    def children(self):
        count = self.library.atspi_accessible_get_child_count(self.pointer, None)
        pointers = (self.library.atspi_accessible_get_child_at_index(self.pointer, i, None) for i in range(count))
        return [Accessible(self.library, pointer) for pointer in pointers if pointer]

    def states(self):
        self.library.atspi_accessible_clear_cache(self.pointer)
        held = self.library.atspi_accessible_get_state_set(self.pointer)
        return {name for name, number in STATES.items() if self.library.atspi_state_set_contains(held, number)}

    def actions(self):
        actions = self.library.atspi_accessible_get_action_iface(self.pointer)
        if not actions:
            return []
        count = self.library.atspi_action_get_n_actions(actions, None)
        return [self._text("atspi_action_get_action_name", actions, i) for i in range(count)]

    def act(self, name):
        """Carries out the action of that name."""
        actions = self.library.atspi_accessible_get_action_iface(self.pointer)
        number = [each.lower() for each in self.actions()].index(name.lower())
        self.library.atspi_action_do_action(actions, number, None)

    def text(self):
        """Its text; None for an object that has none besides its name."""
        held = self.library.atspi_accessible_get_text_iface(self.pointer)
        if not held:
            return None
        count = self.library.atspi_text_get_character_count(held, None)
        return self._text("atspi_text_get_text", held, 0, count)

    def descendants(self, depth=0):
        """Everything within it that is shown, each before what it contains."""
        if depth > DEEPEST:
            raise AssertionError("the accessible objects contain each other")
        for child in self.children():
            if "showing" in child.states():
                yield child
                yield from child.descendants(depth + 1)

    def shown(self):
        return "showing" in self.states()

    def window(self, title):
        """Waits for this program's window of that title."""
        return desktop.wait_for(
            lambda: next((each for each in self.children() if each.name == title and each.shown()), None),
            f"a window {title!r} for assistive tools")

    def find(self, role, name):
        """Waits for the shown object of that role and name within it."""
        return desktop.wait_for(
            lambda: next((each for each in self.descendants() if each.role == role and each.name == name), None),
            f"{role} {name!r}")
