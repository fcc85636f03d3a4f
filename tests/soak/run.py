#!/usr/bin/env python3
"""Long runs, simulated and in real time. VELMORA_CONSOLE names the console program, VELMORA_SOAK the program of the
simulated days, VELMORA_SOAK_MINUTES how long a run in real time takes (30). With words as arguments, only tests run
whose names hold one of them.
"""

import os
import sys

FOLDER = os.path.dirname(os.path.abspath(__file__))
# What drives the programs and the machine is shared with the end-to-end tests.
sys.path.insert(0, os.path.join(os.path.dirname(FOLDER), "e2e"))

import suite  # noqa: E402

if __name__ == "__main__":
    sys.exit(suite.run_at_home(FOLDER, sys.argv[1:]))
