#!/usr/bin/env python3
"""Fault tests: calls of the system that fail, one by one, and kills at every moment of a step.

VELMORA_CONSOLE names the console program. Tests of what is missing are skipped. With words as arguments, only tests run
whose names hold one of them. For root, what is mounted here is seen by nobody else, and no other process of the machine
is seen here: the program's lists of them would be others in each run.
"""

import os
import sys

FOLDER = os.path.dirname(os.path.abspath(__file__))
# What drives the programs and the machine is shared with the end-to-end tests.
sys.path.insert(0, os.path.join(os.path.dirname(FOLDER), "e2e"))

import suite  # noqa: E402

if __name__ == "__main__":
    suite.become_alone(with_processes=True)
    sys.exit(suite.run_at_home(FOLDER, sys.argv[1:]))
