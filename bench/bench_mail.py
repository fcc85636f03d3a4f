"""The mail: sending one beside swaks to the same server, composing a body, and waiting for a silent server.

bench_mail.py CONSOLE: the console program, which is copied beside settings of its own.
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

import mail_servers  # noqa: E402
from console import Console  # noqa: E402
from scripted_server import ScriptedServer  # noqa: E402
from settings import scrambled  # noqa: E402

SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4096\r\n", "custtime=0\r\n")
SENDER, RECIPIENT = "<alice@other.example>", "<bob@test.example>"
MAILS = 16
COMPOSITIONS = 20
FILES = 150
WAIT = 10


def median_of(times, action):
    spans = []
    for _ in range(times):
        begin = time.perf_counter()
        action()
        spans.append(time.perf_counter() - begin)
    return statistics.median(spans)


def start(program, folder):
    copy = shutil.copy2(program, folder)
    (folder / "set.dat").write_bytes(SETTINGS)
    return Console([str(copy)], {**os.environ, "HOME": str(folder)})


def account(console, port):
    for name, value in (("txtMailServer", "127.0.0.1"), ("txtMailPort", str(port)), ("txtYourEmail", SENDER)):
        console.set(f"frmNotify.{name}.Text", value)


def send(console):
    console.run("answer yes")
    console.run("click frmNotify.Command1")


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process.pid}/stat").read_text(encoding="utf-8").rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def measure_sending(console, server):
    account(console, server.port)
    console.set("frmNotify.cboNotEmail.Text", RECIPIENT)
    console.run("click frmNotify.cmdAdd")
    ours = median_of(MAILS, lambda: send(console))
    print(f"one mail to aiosmtpd       {ours * 1000:8.1f} ms")
    if not shutil.which("swaks"):
        print("swaks isn't installed: nothing to compare with")
        return
    command = ["swaks", "--server", "127.0.0.1", "--port", str(server.port), "--helo", "x", "--from",
               SENDER.strip("<>"), "--to", RECIPIENT.strip("<>"), "--body", "hello"]
    peer = median_of(MAILS, lambda: subprocess.run(command, check=True, capture_output=True))
    print(f"the same by swaks          {peer * 1000:8.1f} ms   ratio {ours / peer:.2f}")


def measure_composition(console, folder):
    files = folder / "files"
    files.mkdir()
    for number in range(FILES):
        (files / f"file {number}").write_bytes(b"x")
    names = " ".join(f'"{path}"' for path in files.iterdir())
    console.run("drop LVFile " + names)
    if len(console.rows("LVFile")) != FILES:
        sys.exit("not all files are listed")
    for section in (1, 2):
        console.run(f"tick frmNotify.lstNotContent {section} on")
    console.run("tick frmNotify.lstNotTime 2 on")
    alerts = len(console.rows("LVAlert"))
    span = median_of(COMPOSITIONS, lambda: console.run("fire frmNotify.tmrEmail"))
    console.run("tick frmNotify.lstNotTime 2 off")
    empty = median_of(COMPOSITIONS, lambda: console.run("fire frmNotify.tmrEmail"))
    print(f"a body of {FILES} files and 15 of {alerts} alerts  {(span - empty) * 1000:.2f} ms")


def measure_waiting(console):
    silent = ScriptedServer(silent=True)
    account(console, silent.port)
    console.run("answer yes")
    console.run("answer ok")
    console.run(f"after {WAIT + 1} exit")
    before = processor_seconds(console.process)
    console.send("click frmNotify.Command1")
    time.sleep(WAIT)
    used = processor_seconds(console.process) - before
    if silent.connections != 1:
        sys.exit("the console has not connected")
    print(f"waiting for a silent server  {100 * used / WAIT:.2f} % of a core over {WAIT} s")
    silent.close()


def main():
    folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-bench-"))
    server = mail_servers.Aiosmtpd()
    console = start(sys.argv[1], folder)
    try:
        print("\nThe mail")
        measure_sending(console, server)
        measure_composition(console, folder)
        measure_waiting(console)
    finally:
        console.close()
        server.close()
        shutil.rmtree(folder, ignore_errors=True)


if __name__ == "__main__":
    main()
