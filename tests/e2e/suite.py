"""Runs the tests of a folder in a home of their own, and counts them for tools/run_tests.py."""

import os
import shutil
import sys
import tempfile
import unittest

ALONE = "VELMORA_ALONE"


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


# The first process of a machine takes the ends of all whose parents are gone. A shell does that while it waits.
FIRST_PROCESS = ["sh", "-c", '"$0" "$@"; exit $?']


def become_alone(with_processes=False):
    """Goes on with mounts of its own, so that no drive of another test takes a letter meanwhile.

    `with_processes`: also as if no other process ran on this machine."""
    if os.environ.get(ALONE) or os.geteuid() != 0 or not shutil.which("unshare"):
        return
    command = ["unshare", "--mount", "--propagation", "private"]
    if with_processes:
        command += ["--pid", "--fork", "--kill-child", "--mount-proc", *FIRST_PROCESS]
    command += [sys.executable, *sys.argv]
    os.execvpe(command[0], command, {**os.environ, ALONE: "yes"})


def chosen(tests, words):
    """The tests whose names hold one of the words, if there are any, and no word behind a minus."""
    wanted = [word for word in words if not word.startswith("-")]
    unwanted = [word[1:] for word in words if word.startswith("-")]
    found = unittest.TestSuite()
    for test in tests:
        if isinstance(test, unittest.TestSuite):
            found.addTest(chosen(test, words))
        elif (not wanted or any(word in test.id() for word in wanted)) and not any(
                word in test.id() for word in unwanted):
            found.addTest(test)
    return found


def run(folder, words):
    """Runs every test_*.py of the folder; with words, only those that are chosen. The exit status."""
    suite = chosen(unittest.TestLoader().discover(folder, pattern="test_*.py"), words)
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
