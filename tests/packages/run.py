#!/usr/bin/env python3
"""Tests of the packages that users install, as tools/make_packages.sh makes them.

VELMORA_PACKAGES names the folder with the packages. Tests of what is missing are skipped. With words as
arguments, only tests run whose names hold one of them.
"""

import os
import sys

FOLDER = os.path.dirname(os.path.abspath(__file__))
# What drives the programs and the machine is shared with the end-to-end tests.
sys.path.insert(0, os.path.join(os.path.dirname(FOLDER), "e2e"))

import suite  # noqa: E402

if __name__ == "__main__":
    sys.exit(suite.run_at_home(FOLDER, sys.argv[1:]))
