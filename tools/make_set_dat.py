#!/usr/bin/env python3
"""Makes a settings file from plain lines; dist/set.dat was made with it.

  make_set_dat.py OUTPUT [PLAIN]   scramble the lines of PLAIN (default: the ones below)
  make_set_dat.py --show FILE      print the plain lines of a settings file

In PLAIN a line end inside a value is written \\r\\n. See docs/settings-file.md.
"""

import sys

# The settings of a first start: a check each minute, 50,000 KB, the log shown.
DIST = r"""chkUpdate=0
chkStartUp=0
chkOnTopMonitor=0
chkNTLog=0
chkLog=1
chkAutoSave=0
txtTime=60\r\n
minspace=50000\r\n
insystray=1
custtime=0\r\n
lstAct=0\r\n
"""


def scramble(line):
    plain = line.replace("\\r\\n", "\r\n").encode("utf-8")
    return bytes(code + 1 for code in plain) + b"\r\n"


def show(path):
    with open(path, "rb") as file:
        for line in file.read().split(b"\r\n")[:-1]:
            plain = bytes(code - 1 for code in line)
            print(plain.decode("utf-8", "replace").replace("\r\n", "\\r\\n"))


def main():
    if len(sys.argv) == 3 and sys.argv[1] == "--show":
        return show(sys.argv[2])
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    plain = DIST
    if len(sys.argv) == 3:
        with open(sys.argv[2], encoding="utf-8", newline="\n") as file:
            plain = file.read()
    with open(sys.argv[1], "wb") as file:
        file.writelines(scramble(line) for line in plain.splitlines())
    return None


if __name__ == "__main__":
    main()
