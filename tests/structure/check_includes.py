#!/usr/bin/env python3
"""Checks that the source tree keeps to the architecture.

  check_includes.py               checks src/
  check_includes.py --self-test   proves on small trees that each kind of violation is found

An include goes down the picture below, never up, and folders never include in a circle, nor do the
rooms within a folder (its own folders; what lies beside them belongs to all of them). Headers and
macros of an operating system, of Qt and of sockets stay in the folders that are made for them.
Prints one line a broken rule, and counts one check a source file and two for the circles.
"""

import re
import sys
import tempfile
from pathlib import Path

GROUND = {"platform", "base"}
FIELDS = GROUND | {"forms", "rows", "controls"}
SUBSYSTEMS = {"monitor", "alerts", "persist", "notify", "inspect"}

# What each folder may include besides itself.
MAY_SEE = {
    "base": set(),
    "controls": {"base"},
    "rows": {"controls", "base"},
    "forms": {"controls", "base"},
    "platform": {"base"},
    "platform/network": GROUND,
    "platform/linux": GROUND | {"platform/network"},
    "platform/windows": GROUND | {"platform/network"},
    "persist": FIELDS,
    "notify": FIELDS | {"alerts"},
    "inspect": FIELDS,
    "alerts": FIELDS,
    "monitor": FIELDS | SUBSYSTEMS - {"monitor"},
    "shell": FIELDS | SUBSYSTEMS,
    "console": FIELDS | SUBSYSTEMS | {"shell"},
    "qt": FIELDS | SUBSYSTEMS | {"shell"},
}
MAY_SEE["app"] = set(MAY_SEE)

# Where the operating system and Qt may be seen.
NEAR_THE_SYSTEM = {"platform/linux", "platform/windows", "qt", "app"}

STANDARD_HEADERS = set("""
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono
    cinttypes climits clocale cmath codecvt compare complex concepts condition_variable coroutine
    csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque
    exception execution filesystem format forward_list fstream functional future initializer_list
    iomanip ios iosfwd iostream istream iterator latch limits list locale map memory memory_resource
    mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
    semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf
    string string_view strstream syncstream system_error thread tuple type_traits typeindex typeinfo
    unordered_map unordered_set utility valarray variant vector version
""".split())
# Libraries that are the same on every system.
PORTABLE_HEADERS = {"curl/curl.h", "nlohmann/json.hpp", "nlohmann/json_fwd.hpp", "zlib.h"}

LONGEST_FILE = 500

INCLUDE = re.compile(r'\s*#\s*include\s*([<"])([^>"]+)[>"]')
CONDITION = re.compile(r"\s*#\s*(?:if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*)")
SYSTEM_MACRO = re.compile(
    r"\b(_?_?WIN(?:32|64|NT)(?:_?_)?|WIN32_\w+|__MINGW\w+|__CYGWIN__|_MSC_VER|_?_?linux(?:__)?|"
    r"_?_?unix(?:__)?|__gnu_linux__|__APPLE__|__MACH__|__ANDROID__|__\w+BSD__|_POSIX_\w+|Q_OS_\w+|"
    r"__has_include)\b")


def folder_of(path):
    """The folder of the picture in which a path below src lies."""
    parts = path.split("/")
    if parts[0] == "platform" and len(parts) > 2:
        return "/".join(parts[:2])
    return parts[0] if len(parts) > 1 else ""


def room_of(path):
    """The room of its folder in which a path below src lies, with the folder; empty in none."""
    folder = folder_of(path)
    rest = path[len(folder) + 1:].split("/")
    return f"{folder}/{rest[0]}" if len(rest) > 1 else ""


class Tree:
    def __init__(self, src):
        self.src = src
        self.files = sorted(p.relative_to(src).as_posix() for p in src.rglob("*")
                            if p.suffix in (".h", ".hpp", ".cpp", ".cc", ".inc"))
        # folder or room -> {another that it includes: the first place where it does}
        self.arrows = {}
        self.room_arrows = {}

    def check(self):
        """A list of (what was checked, the rules it broke)."""
        checks = [(name, self.check_file(name)) for name in self.files]
        checks.append(("circles", circles(self.arrows)))
        checks.append(("circles of rooms", circles(self.room_arrows)))
        return checks

    def check_file(self, name):
        lines = (self.src / name).read_text(encoding="utf-8").splitlines()
        folder = folder_of(name)
        broken = []
        if folder not in MAY_SEE:
            broken.append(f"{name}: folder '{folder}' is not in the picture")
        if len(lines) > LONGEST_FILE:
            broken.append(f"{name}: {len(lines)} lines, more than {LONGEST_FILE}")
        if name.endswith((".h", ".hpp")) and not (lines and lines[0].startswith(("//", "/*"))):
            broken.append(f"{name}:1: a header begins with a comment that states its purpose")
        for number, line in enumerate(lines, 1):
            problem = self.check_line(folder, name, number, line)
            if problem:
                broken.append(f"{name}:{number}: {problem}")
        return broken

    def check_line(self, folder, name, number, line):
        include = INCLUDE.match(line)
        if include and include.group(1) == '"':
            return self.check_own_include(folder, name, number, include.group(2))
        if folder in NEAR_THE_SYSTEM:
            return None
        if include and include.group(2) not in STANDARD_HEADERS | PORTABLE_HEADERS:
            return f"<{include.group(2)}> is no header of the standard library"
        condition = CONDITION.match(line)
        macro = condition and SYSTEM_MACRO.search(condition.group(1))
        return f"a condition on the system: {macro.group(1)}" if macro else None

    def check_own_include(self, folder, name, number, included):
        if included not in self.files:
            # Qt's tools and CMake make headers that no folder of src holds.
            made = folder in ("qt", "app")
            return None if made else f'"{included}" names no file of src'
        target = folder_of(included)
        if target == folder:
            rooms = room_of(name), room_of(included)
            if all(rooms) and rooms[0] != rooms[1]:
                self.room_arrows.setdefault(rooms[0], {}).setdefault(rooms[1], f"{name}:{number}")
            return None
        self.arrows.setdefault(folder, {}).setdefault(target, f"{name}:{number}")
        if target not in MAY_SEE.get(folder, set()):
            return f'"{included}": {folder} may not see {target}'
        return None


def circles(arrows):
    """One line a circle, with the places where its folders include each other."""
    found = {}

    def walk(folder, way):
        if folder in way:
            circle = way[way.index(folder):]
            found.setdefault(frozenset(circle), circle)
            return
        for target in sorted(arrows.get(folder, {})):
            walk(target, way + [folder])

    for folder in sorted(arrows):
        walk(folder, [])
    return ["circle: " + ", ".join(
        f"{folder} -> {target} ({arrows[folder][target]})"
        for folder, target in zip(circle, circle[1:] + circle[:1]))
        for circle in found.values()]


def close(passed, failed):
    print(f"{passed} passed, {failed} failed")
    return 1 if failed else 0


def check_sources():
    src = Path(__file__).resolve().parents[2] / "src"
    checks = Tree(src).check()
    for _, broken in checks:
        for rule in broken:
            print(rule)
    failed = sum(1 for _, broken in checks if broken)
    return close(len(checks) - failed, failed)


PURPOSE = "// What it is for.\n"

# name of the case, the tree, the beginnings of the broken rules in order
CASES = [
    ("a tree that keeps to the rules",
     {"base/text.h": PURPOSE + "#pragma once\n#include <string>\n",
      "platform/clock.h": PURPOSE + '#include "base/text.h"\n',
      "platform/windows/clock.cpp": '#include <windows.h>\n#include "platform/clock.h"\n',
      "platform/linux/clock.cpp": '#include <unistd.h>\n#ifdef __linux__\n#endif\n',
      "alerts/list.h": PURPOSE, "notify/mail.cpp": '#include "alerts/list.h"\n',
      "controls/list_view.h": PURPOSE, "rows/watch_row.h": PURPOSE + '#include "controls/list_view.h"\n',
      "monitor/check.cpp": '#include "rows/watch_row.h"\n',
      "qt/window.cpp": '#include <QWidget>\n#include "moc_window.cpp"\n',
      "app/main.cpp": '#include <unistd.h>\n#include "platform/clock.h"\n#ifdef _WIN32\n#endif\n'},
     []),
    ("an upward arrow",
     {"forms/form1.h": PURPOSE, "controls/list.cpp": '\n#include "forms/form1.h"\n'},
     ["controls/list.cpp:2:"]),
    ("an arrow against the order of the subsystems",
     {"notify/mail.h": PURPOSE, "alerts/list.cpp": '#include "notify/mail.h"\n'},
     ["alerts/list.cpp:1:"]),
    ("an arrow between two subsystems that have none",
     {"persist/settings.h": PURPOSE, "inspect/disk.cpp": '#  include "persist/settings.h"\n'},
     ["inspect/disk.cpp:1:"]),
    ("a row that sees a window",
     {"forms/form1.h": PURPOSE, "rows/watch_row.cpp": '#include "forms/form1.h"\n'},
     ["rows/watch_row.cpp:1:"]),
    ("a window that sees a row",
     {"rows/watch_row.h": PURPOSE, "forms/form1.cpp": '#include "rows/watch_row.h"\n'},
     ["forms/form1.cpp:1:"]),
    ("an interface that sees its backend",
     {"platform/linux/mounts.h": PURPOSE,
      "platform/paths.cpp": '#include "platform/linux/mounts.h"\n'},
     ["platform/paths.cpp:1:"]),
    ("a backend that sees another",
     {"platform/linux/mounts.h": PURPOSE,
      "platform/windows/drive.cpp": '#include "platform/linux/mounts.h"\n'},
     ["platform/windows/drive.cpp:1:"]),
    ("the console that sees the window",
     {"qt/window.h": PURPOSE, "console/lines.cpp": '#include "qt/window.h"\n'},
     ["console/lines.cpp:1:"]),
    ("a circle",
     {"controls/list.h": PURPOSE + '#include "forms/form1.h"\n',
      "forms/form1.h": PURPOSE + '#include "controls/list.h"\n'},
     ["controls/list.h:2:", "circle: controls -> forms (controls/list.h:2), forms -> controls"]),
    ("a circle of three",
     {"base/a.h": PURPOSE + '#include "monitor/c.h"\n',
      "forms/b.h": PURPOSE + '#include "base/a.h"\n',
      "monitor/c.h": PURPOSE + '#include "forms/b.h"\n'},
     ["base/a.h:2:", "circle: base -> monitor"]),
    ("rooms of a folder in one direction, beside what belongs to all",
     {"alerts/ports.h": PURPOSE + '#include "alerts/journal/log.h"\n',
      "alerts/journal/log.h": PURPOSE + '#include "alerts/ports.h"\n',
      "alerts/dialog/box.h": PURPOSE + '#include "alerts/journal/log.h"\n'}, []),
    ("a circle of rooms",
     {"alerts/journal/log.h": PURPOSE + '#include "alerts/dialog/box.h"\n',
      "alerts/dialog/box.cpp": '#include "alerts/journal/log.h"\n',
      "alerts/dialog/box.h": PURPOSE},
     ["circle: alerts/dialog -> alerts/journal (alerts/dialog/box.cpp:1), alerts/journal -> alerts/"]),
    ("a circle of rooms of a backend",
     {"platform/linux/paths/a.h": PURPOSE + '#include "platform/linux/trash/b.h"\n',
      "platform/linux/trash/b.h": PURPOSE + '#include "platform/linux/paths/a.h"\n'},
     ["circle: platform/linux/paths -> platform/linux/trash"]),
    ("a header of Windows", {"base/a.cpp": "#include <windows.h>\n"}, ["base/a.cpp:1:"]),
    ("a header of POSIX", {"shell/a.cpp": "#include <unistd.h>\n"}, ["shell/a.cpp:1:"]),
    ("a header of sockets", {"notify/a.cpp": "#include <sys/socket.h>\n"}, ["notify/a.cpp:1:"]),
    ("a header of Qt", {"shell/a.cpp": "#include <QString>\n"}, ["shell/a.cpp:1:"]),
    ("a header of the system in the interfaces",
     {"platform/a.cpp": "#include <sys/stat.h>\n"}, ["platform/a.cpp:1:"]),
    ("a condition on Windows", {"base/a.cpp": "#ifdef _WIN32\n#endif\n"}, ["base/a.cpp:1:"]),
    ("a condition on Linux",
     {"shell/a.cpp": "#if 0\n#elif defined(__linux__)\n#endif\n"}, ["shell/a.cpp:2:"]),
    ("a condition on Qt's system", {"shell/a.cpp": "#if defined(Q_OS_WIN)\n#endif\n"},
     ["shell/a.cpp:1:"]),
    ("a condition on what headers there are",
     {"base/a.cpp": "#if __has_include(<unistd.h>)\n#endif\n"}, ["base/a.cpp:1:"]),
    ("a condition on something else", {"base/a.cpp": "#ifdef NDEBUG\n#endif\n"}, []),
    ("an include that leads nowhere", {"base/a.cpp": '#include "text.h"\n'}, ["base/a.cpp:1:"]),
    ("a folder that nobody knows", {"misc/a.cpp": "\n"}, ["misc/a.cpp: folder 'misc'"]),
    ("a file beside the folders", {"a.cpp": "\n"}, ["a.cpp: folder ''"]),
    ("a file of the greatest length", {"base/a.cpp": "\n" * LONGEST_FILE}, []),
    ("a file that is too long", {"base/a.cpp": "\n" * (LONGEST_FILE + 1)}, ["base/a.cpp: 501"]),
    ("a header without a purpose", {"base/a.h": "#pragma once\n"}, ["base/a.h:1:"]),
    ("an empty header", {"base/a.h": ""}, ["base/a.h:1:"]),
]


def rules_broken_by(files):
    with tempfile.TemporaryDirectory() as scratch:
        for name, text in files.items():
            path = Path(scratch, name)
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
        return [rule for _, broken in Tree(Path(scratch)).check() for rule in broken]


def self_test():
    failed = 0
    for name, files, expected in CASES:
        found = rules_broken_by(files)
        fits = len(found) == len(expected) and all(
            rule.startswith(beginning) for rule, beginning in zip(found, expected))
        if not fits:
            failed += 1
            print(f"{name}: expected {expected}, found {found}")
    return close(len(CASES) - failed, failed)


if __name__ == "__main__":
    sys.exit(self_test() if "--self-test" in sys.argv[1:] else check_sources())
