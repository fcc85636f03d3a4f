"""The reports on the machine, beside the system's own programs for the same.

bench_inventory.py CONSOLE: the console program, which is copied beside settings of its own.
"""

import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

TESTS = pathlib.Path(__file__).resolve().parent.parent / "tests" / "e2e"
sys.path.insert(0, str(TESTS))

from console import Console  # noqa: E402
from settings import scrambled  # noqa: E402

SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4096\r\n", "custtime=0\r\n")
TIMES = 20
# A report and the programs that say the same.
PEERS = {
    "processes": (["ps", "-e", "-o", "pid,ppid,lstart,nlwp,min_flt,maj_flt,vsz,rss,time,sess,args"],),
    "processlist": (["ps", "-e", "-o", "comm,pid"],),
    "ram": (["free"], ["lshw", "-class", "memory"]),
    "users": (["who"],),
    "ntevents 10": (["journalctl", "-r", "-n", "10", "-o", "verbose"],),
    "netstat": (["netstat", "--tcp"], ["ss", "--tcp"]),
    "jobs": (["systemctl", "list-timers"],),
}


def median_of(action):
    spans = []
    for _ in range(TIMES):
        begin = time.perf_counter()
        action()
        spans.append(time.perf_counter() - begin)
    return statistics.median(spans)


def measure(console, report, peers):
    ours = median_of(lambda: console.run(f"report {report}"))
    print(f"report {report:14} {ours * 1000:8.1f} ms")
    for command in peers:
        if not shutil.which(command[0]):
            print(f"    {command[0]} isn't installed")
            continue
        ended = subprocess.run(command, capture_output=True, check=False).returncode
        if ended != 0:
            print(f"    {' '.join(command)} ends with status {ended} here")
            continue
        peer = median_of(lambda: subprocess.run(command, capture_output=True, check=True))
        print(f"    {command[0]:17} {peer * 1000:8.1f} ms   ratio {ours / peer:.2f}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder)
        program = shutil.copy2(sys.argv[1], home)
        (home / "set.dat").write_bytes(SETTINGS)
        console = Console([str(program)], {**os.environ, "HOME": folder})
        print(f"{len(os.listdir('/proc'))} entries in /proc, medians of {TIMES}")
        for report, peers in PEERS.items():
            measure(console, report, peers)
        console.close()


if __name__ == "__main__":
    main()
