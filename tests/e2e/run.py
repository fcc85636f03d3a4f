#!/usr/bin/env python3
"""End-to-end tests: the built programs, driven from outside on this machine's real drives.

VELMORA_CONSOLE, VELMORA_WINDOW and VELMORA_BUILD name the console program, the window program and
the build tree to install from; the same names with _WINDOWS appended name those of Windows, and
VELMORA_WINE the program that runs them. VELMORA_HUNG_FS names a filesystem that never answers. Tests of what
is missing are skipped. With words as arguments, only tests run whose names hold one of them.
"""

import os
import sys
import tempfile
import unittest

FOLDER = os.path.dirname(os.path.abspath(__file__))


class Result(unittest.TextTestResult):
    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        print(f"skipped {test.id()}: {reason}")


def use_home(home):
    """Keeps the shortcuts and autostart entries of the programs out of the user's own home."""
    os.environ["HOME"] = home
    for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
        os.environ.pop(name, None)


def main():
    with tempfile.TemporaryDirectory(prefix="velmora-e2e-") as home:
        use_home(home)
        return run()


def run():
    sys.path.insert(0, FOLDER)
    loader = unittest.TestLoader()
    if sys.argv[1:]:
        loader.testNamePatterns = [f"*{word}*" for word in sys.argv[1:]]
    suite = loader.discover(FOLDER, pattern="test_*.py")
    result = unittest.TextTestRunner(stream=sys.stdout, resultclass=Result, verbosity=2).run(suite)
    failed = len({test.id().split(" ")[0] for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    passed = result.testsRun - failed - skipped
    print(f"{passed} passed, {failed} failed, {skipped} skipped")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
