"""The console from its start to the end of its first check, and its memory at rest."""

import statistics
import subprocess
import sys
import time

ROUNDS = 15
FIRST_CHECK = b"set DTPInterval.Value 0:00:00\ntick ListView1 1 on\nfire Timer1\nget StatusBar1(3)\n"


def first_check(program):
    begin = time.perf_counter()
    with subprocess.Popen([program], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as console:
        console.stdin.write(FIRST_CHECK)
        console.stdin.flush()
        while b"Times Checked: 1" not in console.stdout.readline():
            pass
        took = time.perf_counter() - begin
        with open(f"/proc/{console.pid}/status", encoding="utf-8") as status:
            rss = next(int(line.split()[1]) for line in status if line.startswith("VmRSS"))
        console.stdin.close()
    return took, rss


def bare_start():
    begin = time.perf_counter()
    subprocess.run(["/bin/true"], check=True)
    return time.perf_counter() - begin


def main():
    runs = [first_check(sys.argv[1]) for _ in range(ROUNDS)]
    start = statistics.median(took for took, _ in runs) * 1000
    bare = statistics.median(bare_start() for _ in range(ROUNDS)) * 1000
    print(f"\nStart to the end of the first check: {start:.1f} ms"
          f" (starting /bin/true: {bare:.1f} ms, ratio {start / bare:.1f})")
    print(f"Memory at rest after it: {max(rss for _, rss in runs) / 1024:.1f} MB")


main()
