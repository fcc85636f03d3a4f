#!/usr/bin/env python3
"""End-to-end tests: the built programs, driven from outside on this machine's real drives.

VELMORA_CONSOLE, VELMORA_WINDOW and VELMORA_BUILD name the console program, the window program and
the build tree to install from; the same with _WINDOWS behind them name those of Windows, and
VELMORA_WINE what runs them. VELMORA_HUNG_FS names a filesystem that never answers. Tests of what
isn't there are skipped. Words given as arguments choose tests whose name holds one of them.
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


def leave_the_user_alone(home):
    """The programs make a shortcut and perhaps an autostart entry: not in the user's own home."""
    os.environ["HOME"] = home
    for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"):
        os.environ.pop(name, None)


def main():
    with tempfile.TemporaryDirectory(prefix="velmora-e2e-") as home:
        leave_the_user_alone(home)
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
