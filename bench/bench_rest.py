"""A console that waits between its checks: wake-ups a second, processor, memory, and its end.

bench_rest.py CONSOLE [SECONDS]: it watches 26 folders each minute, under --watch.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time

TESTS = pathlib.Path(__file__).resolve().parent.parent / "tests" / "e2e"
sys.path.insert(0, str(TESTS))

from settings import scrambled  # noqa: E402

SETTINGS = scrambled("chkLog=1", "txtTime=60\r\n", "minspace=1\r\n", "custtime=0\r\n")
ROWS = 26


def state_of(process):
    """Wake-ups since the start, KB of memory, seconds of processor."""
    status = pathlib.Path(f"/proc/{process}/status").read_text(encoding="utf-8")
    wakes, size = (int(re.search(rf"^{name}:\s+(\d+)", status, re.MULTILINE)[1])
                   for name in ("voluntary_ctxt_switches", "VmRSS"))
    spent = pathlib.Path(f"/proc/{process}/schedstat").read_text(encoding="utf-8").split()[0]
    return wakes, size, int(spent) / 1e9


def watch_script(home):
    folders = [home / f"watched{i}" for i in range(ROWS)]
    for folder in folders:
        folder.mkdir()
    script = home / "script.txt"
    script.write_text("set DTPInterval.Value 0:01:00\ndrop ListView1 " +
                      " ".join(f'"{folder}"' for folder in folders) + "\n" +
                      "".join(f'tick ListView1 "{folder}" on\n' for folder in folders) +
                      "fire Timer1\n", encoding="utf-8")
    return script


def main():
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 180
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        program = shutil.copy2(sys.argv[1], home)
        (home / "set.dat").write_bytes(SETTINGS)
        with subprocess.Popen([program, "--watch", "--script", str(watch_script(home))],
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL) as watch:
            time.sleep(10)
            begin, before = time.monotonic(), state_of(watch.pid)
            time.sleep(seconds)
            after, took = state_of(watch.pid), time.monotonic() - begin
            watch.terminate()
            asked = time.monotonic()
            status = watch.wait(60)
            ended = time.monotonic() - asked
    print(f"{ROWS} rows, a check a minute, {took:.0f} s")
    print(f"wake-ups a second: {(after[0] - before[0]) / took:.3f}")
    print(f"processor:         {(after[2] - before[2]) / took * 100:.4f} %")
    print(f"memory:            {before[1]} KB, then {after[1]} KB")
    print(f"end after SIGTERM: {ended * 1000:.0f} ms, status {status}")


if __name__ == "__main__":
    main()
