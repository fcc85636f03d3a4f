"""A console that runs for half an hour with the least interval: a shortage comes and goes, each with a mail,
settings and log are saved at each check. What it holds stays as it is after the first minutes.
"""

import os
import pathlib
import time

import filesystems
import mail_servers
from cases import ConsoleCase, OwnNative
from settings import scrambled

MINUTES = float(os.environ.get("VELMORA_SOAK_MINUTES", "30"))
# Until buffers and caches have the size that they keep.
FIRST_MINUTES = min(3.0, MINUTES / 4)
ALLOWANCE_KB = 1024
SHORTAGE_EVERY = 60  # seconds; it lasts for half of them


class Figures:
    """What a process holds."""

    def __init__(self, pid):
        folder = pathlib.Path(f"/proc/{pid}")
        status = dict(line.split(":", 1) for line in (folder / "status").read_text().splitlines())
        self.memory_kb = int(status["VmRSS"].split()[0])
        self.threads = int(status["Threads"])
        self.files = len(list((folder / "fd").iterdir()))
        self.children = len((folder / "task" / str(pid) / "children").read_text().split())
        ticks = (folder / "stat").read_text().rsplit(")", 1)[1].split()
        self.processor = (int(ticks[11]) + int(ticks[12])) / os.sysconf("SC_CLK_TCK")

    def __str__(self):
        return (f"{self.memory_kb} KB, {self.files} files, {self.threads} threads, {self.children} children,"
                f" {self.processor:.2f} s of processor")


class HalfAnHour(OwnNative, ConsoleCase):
    def prepare(self, root, server):
        """A watch on the mounted drive alone, that mails and saves at each check."""
        self.console.run("set txtSpace.Text 2000")
        self.console.watch_only(root)
        for field in ("chkSaveSet", "chkAutoSave", "chkLog"):
            self.console.run(f"set {field}.Value 1")
        for name, value in (("txtMailServer", "127.0.0.1"), ("txtMailPort", str(server.port)),
                            ("txtYourEmail", "me@test.example")):
            self.console.set(f"frmNotify.{name}.Text", value)
        self.console.set("frmNotify.cboNotEmail.Text", "you@test.example")
        self.console.run("click frmNotify.cmdAdd")
        self.console.run("tick lstAct 0 on")
        self.console.run("tick lstAct 8 on")
        self.console.run("set DTPInterval.Value 0:00:00")
        self.console.run("click cmdPause")

    def change_space(self, mounted, elapsed):
        filler = mounted.folder / "filler"
        is_short = elapsed % SHORTAGE_EVERY < SHORTAGE_EVERY / 2
        if is_short and not filler.exists():
            mounted.fill("filler", 7 * 1024 * 1024)
        elif not is_short:
            filler.unlink(missing_ok=True)

    def test_holds_what_it_held_after_the_first_minutes(self):
        self.put_settings(scrambled("txtTime=60\r\n"))
        (self.folder / "log.dat").touch()
        mounted = self.mount(filesystems.Tmpfs)
        server = mail_servers.Aiosmtpd()
        self.addCleanup(server.close)
        self.launch()
        self.prepare(self.drive_of(mounted), server)
        first, told, begun = None, 0.0, time.monotonic()
        while (elapsed := time.monotonic() - begun) < MINUTES * 60:
            self.change_space(mounted, elapsed)
            if elapsed >= told:
                last = Figures(self.console.process.pid)
                print(f"{elapsed / 60:4.0f} min: {last}", flush=True)
                told += 60
                if elapsed >= FIRST_MINUTES * 60 and first is None:
                    first = last
            self.console.run("wait 1")
        last = Figures(self.console.process.pid)
        checks = int(self.console.get("StatusBar1(3)").rsplit(" ", 1)[1])
        print(f"{checks} checks, {len(server.messages(1))} mails, at the end {last}")
        self.assertGreaterEqual(checks, MINUTES * 60 / 10 * 0.9)
        self.assertTrue(server.messages(1))
        self.assertLessEqual(last.memory_kb, first.memory_kb + ALLOWANCE_KB)
        self.assertEqual((last.threads, last.children), (first.threads, first.children))
        self.assertLessEqual(last.files, first.files)
