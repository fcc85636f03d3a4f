"""A thousand paths checked beside monit, in the same run: processor time a cycle and memory.

bench_monit.py CONSOLE [PATHS]: the console program, which is copied beside settings of its own. Both
watch the same mount points for the free space of their file systems; no limit is reached. monit takes
only what is mounted, so the folders are mounted on themselves, out of sight of all other programs.
"""

import ctypes
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

TESTS = pathlib.Path(__file__).resolve().parent.parent / "tests" / "e2e"
sys.path.insert(0, str(TESTS))

from console import Console  # noqa: E402
from settings import scrambled  # noqa: E402

SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=1\r\n", "custtime=0\r\n")
CYCLES = 200
MONIT_SECONDS = 20
TICKS_A_SECOND = os.sysconf("SC_CLK_TCK")


def processor_time(process):
    """Seconds of processor of a process, to some microseconds where the kernel counts them."""
    try:
        spent, _, _ = pathlib.Path(f"/proc/{process}/schedstat").read_text().split()
        return int(spent) / 1e9
    except (OSError, ValueError):
        fields = pathlib.Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / TICKS_A_SECOND


def threads_time(process):
    tasks = pathlib.Path(f"/proc/{process}/task").iterdir()
    return sum(processor_time(f"{process}/task/{task.name}") for task in tasks)


def children(process):
    tasks = pathlib.Path(f"/proc/{process}/task").iterdir()
    return [int(child) for task in tasks for child in (task / "children").read_text().split()]


def memory(process):
    """MB of a process and those it started, what several share counted once."""
    total = 0
    for each in [process, *children(process)]:
        sizes = pathlib.Path(f"/proc/{each}/smaps_rollup").read_text().splitlines()
        total += next(int(line.split()[1]) for line in sizes if line.startswith("Pss:"))
    return total / 1024


def checks(console, count):
    """Without a report of each status text, as in a watch."""
    console.send("json off")
    for _ in range(count):
        console.send("fire Timer1")
    console.send("json on")
    while not console.next_line().startswith("{"):
        pass


def ours(program, folders):
    console = Console([str(program)], {**os.environ, "HOME": str(program.parent)})
    before = len(console.rows())
    console.run("drop ListView1 " + " ".join(f'"{folder}"' for folder in folders))
    after = len(console.rows())
    for row in range(1, after + 1):
        console.run(f"tick ListView1 {row} {'on' if row > before else 'off'}")
    if after - before != len(folders):
        sys.exit(f"only {after - before} of {len(folders)} paths are watched")
    console.run("set DTPInterval.Value 0:00:00")
    process = console.process.pid
    checks(console, 3)
    begin = time_of_all(process)
    checks(console, CYCLES)
    spent = (time_of_all(process) - begin) / CYCLES
    size = memory(process)
    checked = console.get("StatusBar1(3)")
    console.end()
    return spent, size, checked


def time_of_all(process):
    return sum(threads_time(each) for each in [process, *children(process)])


def monits(folder, folders):
    config = folder / "monitrc"
    checks = "".join(
        f"check filesystem f{i} with path {path}\n  if space usage > 99.9% then alert\n"
        for i, path in enumerate(folders))
    config.write_text(f"set daemon 1\nset idfile {folder}/id\nset statefile {folder}/state\n"
                      f"set pidfile {folder}/pid\n{checks}")
    config.chmod(0o600)
    log = folder / "monit.log"
    with log.open("w", encoding="utf-8") as output, subprocess.Popen(
            ["monit", "-I", "-c", str(config)], stdout=output, stderr=output) as monit:
        time.sleep(4)
        if monit.poll() is not None or "unable to read" in log.read_text(encoding="utf-8"):
            monit.kill()
            sys.exit("monit doesn't watch:\n" + log.read_text(encoding="utf-8")[-500:])
        begin, since = threads_time(monit.pid), time.monotonic()
        time.sleep(MONIT_SECONDS)
        spent = threads_time(monit.pid) - begin
        took = time.monotonic() - since
        size = memory(monit.pid)
        monit.kill()
        monit.wait()
    # Its pause of a second begins when a cycle has ended.
    cycles = took / (1 + spent / took)
    return spent / cycles, size


def mount_on_itself(folder):
    bind = 4096
    path = os.fsencode(folder)
    if ctypes.CDLL(None, use_errno=True).mount(path, path, None, bind, None) != 0:
        raise OSError(ctypes.get_errno(), "mount", str(folder))


def main():
    if not shutil.which("monit"):
        print("monit isn't installed: nothing to compare with")
        return
    if os.geteuid() != 0:
        print("only root may mount: nothing that monit would watch")
        return
    if "--apart" not in sys.argv:
        sys.exit(subprocess.run(["unshare", "--mount", sys.executable, *sys.argv, "--apart"],
                                check=False).returncode)
    sys.argv.remove("--apart")
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 1000
    with tempfile.TemporaryDirectory() as name:
        home = pathlib.Path(name)
        program = pathlib.Path(shutil.copy2(sys.argv[1], home))
        (home / "set.dat").write_bytes(SETTINGS)
        folders = [home / f"watched {i}".replace(" ", "_") for i in range(count)]
        for folder in folders:
            folder.mkdir()
            mount_on_itself(folder)
        spent, size, checked = ours(program, folders)
        peer, peer_size = monits(home, folders)
        for folder in folders:
            ctypes.CDLL(None).umount2(os.fsencode(folder), 2)
    print(f"{count} paths, {CYCLES} cycles of ours ({checked}), {MONIT_SECONDS} s of monit")
    print(f"processor a cycle: {spent * 1000:8.2f} ms, monit {peer * 1000:8.2f} ms,"
          f" ratio {spent / peer:.3f}")
    print(f"memory:            {size:8.1f} MB, monit {peer_size:8.1f} MB")


if __name__ == "__main__":
    main()
