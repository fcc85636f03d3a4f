#!/usr/bin/env python3
"""Runs test programs and counts what passed, failed and was skipped.

  run_tests.py --tally FILE --build FOLDER [--wine LOADER]   the tests that ctest lists in a build folder
  run_tests.py --tally FILE [--limit SECONDS] --command PROGRAM ARGUMENT...
                                                             a program that counts its own tests

For each program a line "passed failed skipped" is added to the tally file. GoogleTest programs are
counted by their reports, other programs of a build folder as one test each. A program that counts
its own tests prints "N passed, N failed[, N skipped]" as its last line. A crash, a missed time
limit, a missing program and a status that contradicts the count are failures. As many programs of a
build folder run at the same time as there are processors; those with ctest's property RUN_SERIAL
run alone.
"""

import argparse
import concurrent.futures
import json
import os
import re
import signal
import subprocess
import sys
import tempfile
import threading
import time
import xml.etree.ElementTree as ET

# Seconds for one program, and for a command that runs many tests of its own unless it is told
# another limit.
TIME_LIMIT = 1800
COMMAND_LIMIT = 2400

# How many lines of a failed program's output are shown.
LAST_LINES = 60


class Outcome:
    def __init__(self, status, output, limit):
        self.status = status  # None when the time limit was missed
        self.limit = limit
        self.output = output

    def trouble(self):
        if self.status is None:
            return f"did not end within {self.limit} s"
        if self.status < 0:
            return f"ended by {signal.Signals(-self.status).name}"
        return f"ended with status {self.status}" if self.status else ""


def run(command, folder=None, environment=None, limit=TIME_LIMIT):
    """Runs a command in its own session, so that a missed time limit ends its children too."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL,
                                   stdout=output, stderr=subprocess.STDOUT,
                                   env={**os.environ, **(environment or {})},
                                   start_new_session=True)
        try:
            status = process.wait(limit)
        except subprocess.TimeoutExpired:
            status = None
        finally:
            if process.returncode is None:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
        output.seek(0)
        return Outcome(status, output.read().decode(errors="replace"), limit)


class Report:
    """The results of a GoogleTest program."""

    def __init__(self):
        self.passed = 0
        self.failures = []  # texts
        self.skipped = []  # names with reasons


def read_report(path):
    """Reads the report of a GoogleTest program; None when there is none."""
    try:
        cases = ET.parse(path).getroot().iter("testcase")
    except (OSError, ET.ParseError):
        return None
    report = Report()
    for case in cases:
        name = f"{case.get('classname')}.{case.get('name')}"
        if case.find("failure") is not None:
            texts = [failure.text.strip() for failure in case.iter("failure")]
            report.failures.append("\n".join([f"{name} failed:", *texts]))
        elif case.find("skipped") is not None:
            # The first line of the message is the location in the source.
            reason = case.find("skipped").get("message", "").split("\n", 1)[-1].strip()
            report.skipped.append(f"{name}: {reason}")
        elif case.get("status") == "run":
            report.passed += 1
    return report


def properties_of(test):
    return {each["name"]: each["value"] for each in test.get("properties", [])}


class Runner:
    def __init__(self, tally, wine):
        self.tally = tally
        self.wine = wine
        self.output_lock = threading.Lock()

    def count(self, passed, failed, skipped):
        with open(self.tally, "a", encoding="utf-8") as tally:
            tally.write(f"{passed} {failed} {skipped}\n")

    def conclude(self, name, counts, seconds, outcome, remarks=()):
        """Counts a program that ran; one that failed without a failed test counts as a failure."""
        passed, failed, skipped = counts
        trouble = outcome.trouble()
        lines = list(remarks)
        if trouble and not failed:
            failed = 1
            lines += outcome.output.splitlines()[-LAST_LINES:]
        line = f"{name}: {passed} passed, {failed} failed"
        line += f", {skipped} skipped" if skipped else ""
        lines.append(f"{line} ({seconds:.1f} s)" + (f" -- {trouble}" if trouble else ""))
        with self.output_lock:
            print("\n".join(lines), flush=True)
            self.count(passed, failed, skipped)

    def missing(self, name, why):
        with self.output_lock:
            print(f"{name}: 0 passed, 1 failed -- {why}", flush=True)
            self.count(0, 1, 0)

    def run_gtest(self, name, command, folder, environment):
        with tempfile.TemporaryDirectory() as scratch:
            report = os.path.join(scratch, "report.xml")
            place = "Z:" + report.replace("/", "\\") if self.wine else report
            options = ["--gtest_color=no", f"--gtest_output=xml:{place}"]
            begin = time.monotonic()
            outcome = run([*command, *options], folder, environment)
            seconds = time.monotonic() - begin
            counted = read_report(report)
        if counted is None and not outcome.trouble():
            self.missing(name, "wrote no report of its tests")
            return
        counted = counted or Report()
        remarks = [*counted.failures, *(f"skipped {skipped}" for skipped in counted.skipped)]
        counts = (counted.passed, len(counted.failures), len(counted.skipped))
        self.conclude(name, counts, seconds, outcome, remarks)

    def run_plain(self, name, command, folder, environment):
        begin = time.monotonic()
        outcome = run(command, folder, environment)
        counts = (0, 1, 0) if outcome.trouble() else (1, 0, 0)
        self.conclude(name, counts, time.monotonic() - begin, outcome)

    def run_build(self, build):
        listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"],
                                 check=True, capture_output=True, stdin=subprocess.DEVNULL)
        tests = json.loads(listing.stdout)["tests"]
        if not tests:
            self.missing(build, "no tests here")
        alone = [test for test in tests if properties_of(test).get("RUN_SERIAL")]
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as threads:
            list(threads.map(self.run_listed, [test for test in tests if test not in alone]))
        for test in alone:
            self.run_listed(test)

    def run_listed(self, test):
        command = test.get("command")
        if not command or not os.path.exists(command[0]):
            self.missing(test["name"], "the program was not built")
            return
        properties = properties_of(test)
        folder = properties.get("WORKING_DIRECTORY")
        environment = dict(pair.split("=", 1) for pair in properties.get("ENVIRONMENT", []))
        program = os.path.basename(command[0])
        if self.wine:
            command = [self.wine, *command]
        kind = self.run_gtest if program.startswith("test_") else self.run_plain
        kind(test["name"] + (" (Windows)" if self.wine else ""), command, folder, environment)

    def run_command(self, command, limit):
        name = " ".join(os.path.basename(part) for part in command[1:])
        begin = time.monotonic()
        outcome = run(command, limit=limit)
        print(outcome.output, end="")
        lines = outcome.output.strip().splitlines()
        outcome.output = ""  # printed already
        count = re.fullmatch(r"(\d+) passed, (\d+) failed(?:, (\d+) skipped)?",
                            lines[-1].strip() if lines else "")
        if not count:
            self.missing(name, outcome.trouble() or "did not print how many passed")
            return
        counts = tuple(int(number or 0) for number in count.groups())
        self.conclude(name, counts, time.monotonic() - begin, outcome)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--tally", required=True)
    parser.add_argument("--wine")
    parser.add_argument("--limit", type=int, default=COMMAND_LIMIT)
    what = parser.add_mutually_exclusive_group(required=True)
    what.add_argument("--build")
    what.add_argument("--command", nargs=argparse.REMAINDER)
    options = parser.parse_args()
    runner = Runner(options.tally, options.wine)
    if options.build:
        runner.run_build(options.build)
    else:
        runner.run_command(options.command, options.limit)


if __name__ == "__main__":
    main()
