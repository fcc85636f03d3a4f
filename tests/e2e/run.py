#!/usr/bin/env python3
"""End-to-end tests: the built programs, driven from outside on this machine's real drives.

VELMORA_CONSOLE, VELMORA_WINDOW and VELMORA_BUILD name the console program, the window program and
the build tree to install from; the same names with _WINDOWS appended name those of Windows, and
VELMORA_WINE the program that runs them. VELMORA_HUNG_FS names a filesystem that never answers. Tests of what
is missing are skipped. With words as arguments, only tests run whose names hold one of them; those with a word
behind a minus don't. With --alone, what is mounted here is seen by nobody else.
"""

import os
import sys

import suite

if __name__ == "__main__":
    if "--alone" in sys.argv:
        suite.become_alone()
        sys.argv.remove("--alone")
    sys.exit(suite.run_at_home(os.path.dirname(os.path.abspath(__file__)), sys.argv[1:]))
