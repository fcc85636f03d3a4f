"""The window from its start to its first painting, at rest, and under alerts."""

import os
import statistics
import subprocess
import sys
import time

ROUNDS = 15
SURROUNDINGS = {**os.environ, "QT_QPA_PLATFORM": "offscreen"}


def painted(program):
    begin = time.perf_counter()
    with subprocess.Popen([program, "start"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          env=SURROUNDINGS) as window:
        while b"painted" not in window.stdout.readline():
            pass
        return time.perf_counter() - begin


def main():
    program = sys.argv[1]
    painted(program)
    start = statistics.median(painted(program) for _ in range(ROUNDS))
    print(f"\nThe window\nstart to a painted window: {start * 1000:.0f} ms")
    for mode in ("alerts", "inspect", "rest"):
        subprocess.run([program, mode], stderr=subprocess.DEVNULL, env=SURROUNDINGS, check=True)


main()
