"""Runs the tests of a folder in a home of their own, and counts them for tools/run_tests.py."""

import os
import sys
import tempfile
import unittest


class Result(unittest.TextTestResult):
    passed = 0

    def addSuccess(self, test):
        super().addSuccess(test)
        self.passed += 1

    def addSkip(self, test, reason):
        super().addSkip(test, reason)
        print(f"skipped {test.id()}: {reason}")


def use_home(home):
    """Keeps the shortcuts and autostart entries of the programs out of the user's own home."""
    os.environ["HOME"] = home
    for name in ("XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME"):
        os.environ.pop(name, None)


def run(folder, words):
    """Runs every test_*.py of the folder; with words, only tests whose names hold one of them. The
    exit status."""
    loader = unittest.TestLoader()
    if words:
        loader.testNamePatterns = [f"*{word}*" for word in words]
    suite = loader.discover(folder, pattern="test_*.py")
    result = unittest.TextTestRunner(stream=sys.stdout, resultclass=Result, verbosity=2).run(suite)
    failed = len({test.id().split(" ")[0] for test, _ in result.failures + result.errors})
    skipped = len(result.skipped)
    print(f"{result.passed} passed, {failed} failed, {skipped} skipped")
    return 1 if failed else 0


def run_at_home(folder, words):
    """The same in a home that is removed afterwards."""
    with tempfile.TemporaryDirectory(prefix="velmora-e2e-") as home:
        use_home(home)
        return run(folder, words)
