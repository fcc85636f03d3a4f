#!/usr/bin/env python3
"""Makes set.dat beside this script: a settings file with something in every key.

  make_golden.py           write set.dat
  make_golden.py --check   fail unless set.dat is what would be written

The fields are set alike in settings_golden_test.cpp, which compares the program's file with this
one byte for byte. Nothing here comes out of the program.
"""

import pathlib
import sys

GOLDEN = pathlib.Path(__file__).parent / "set.dat"
CLOSED = "\r\n"  # of a line that carries a line end of its own


def run(key, values):
    return "".join(f"{key}={value}\r\n" for value in values)


LINES = [
    "chkUpdate=1",
    "chkStartUp=0",
    "chkOnTopMonitor=1",
    "chkNTLog=0",
    "chkLog=1",
    "chkAutoSave=1",
    "txtAudio0=C:\\Klänge\\Größe.wav",
    "txtAudio1=D:\\警報\\ベル.wav",
    "txtTime=90" + CLOSED,
    "minspace=50000" + CLOSED,
    "notEmail=jürgen@example.org",
    "notEmailUser=jürgen",
    "notEmailPass=pä55 wörd!",
    "notMailServer=mail.example.org",
    "notEmailSubj=Žluťoučký kůň: málo místa \U0001F4BE",
    "notMailFromDisp=Velmora – Büro",
    run("notcboEmail", ["zoë@example.org", "ops+disk@example.org", "東京@example.org"]),
    run("NotlstContent", [0, 3, 9]),
    run("notlstTime", [1, 4]),
    "notCustMsg=Größe prüfen, \"sofort\"!",
    "notCustCont=C:\\Berichte\\übersicht.txt",
    "notCustEvtAmt=7",
    "notDTPicker1=6:30:00 AM",
    "notDTPicker2=3/14/2026 11:59:59 PM",
    "nottxtProxy=proxy.example.org",
    "nottxtPort=3128",
    "notchkHTML=1",
    "notchkProxy=1",
    "insystray=0",
    "path2move=E:\\Ablage\\größer" + CLOSED,
    "filetype=*.tmp;*.bak" + CLOSED,
    "custtime=1" + CLOSED,
    "custtimebegin=7:45:00 AM" + CLOSED,
    "custtimeend=5:30:15 PM" + CLOSED,
    "custtimeDTPI=12:01:30 AM",
    "updateauto=1" + CLOSED,
    "path=C:\\" + CLOSED,
    "path=\\\\server\\größe" + CLOSED,
    "cboFile=C:\\a.txt" + CLOSED,
    "cboFile=C:\\Temp\\mañana.log" + CLOSED,
    "lstAct=0" + CLOSED,
    "lstAct=5" + CLOSED,
    "lstAct=11" + CLOSED,
    "lstEvt=2" + CLOSED,
    "lstEvt=4" + CLOSED,
]


def main():
    content = b"".join(bytes(code + 1 for code in line.encode("utf-8")) + b"\r\n"
                       for line in LINES)
    if sys.argv[1:] == ["--check"]:
        if GOLDEN.read_bytes() != content:
            sys.exit(f"{GOLDEN} is not what {sys.argv[0]} makes")
        return
    if sys.argv[1:]:
        sys.exit(__doc__)
    GOLDEN.write_bytes(content)


if __name__ == "__main__":
    main()
