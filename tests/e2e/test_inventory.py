"""The reports on the machine beside the system's own programs, and a mail with all of them."""

import email
import email.policy
import os
import pathlib
import pwd
import re
import shutil
import socket
import struct
import subprocess
import time
import unittest

import mail_servers
from cases import OwnNative, OwnWindows
from settings import scrambled

SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4096\r\n", "custtime=0\r\n")
RULE = "=============\r\n"
SENDER, RECIPIENT = "<alice@other.example>", "<bob@test.example>"
JOURNAL_MAKER = "/lib/systemd/systemd-journal-remote"
MACHINE_ID = "fedcba9876543210fedcba9876543210"
USER_PROCESS = 7


def records(report, heading):
    """The records of a report with several: their properties by name."""
    parts = re.split(re.escape(RULE + heading) + r"\d+\r\n", report)[1:]
    return [dict(line.split(": ", 1) for line in part.split("\r\n") if ": " in line) for part in parts]


def processes_by_ps():
    """Parent, name and number of threads of each process, by its number, as ps lists them."""
    lines = subprocess.run(["ps", "-e", "-o", "pid=,ppid=,nlwp=,comm="], check=True, capture_output=True,
                           text=True, errors="replace").stdout.splitlines()
    fields = (line.split(None, 3) for line in lines)
    return {number: (parent, threads, name) for number, parent, threads, name in fields}


def memory_in_bytes():
    lines = pathlib.Path("/proc/meminfo").read_text(encoding="ascii").splitlines()
    return {name: int(rest.split()[0]) * 1024 for name, rest in (line.split(":", 1) for line in lines)}


def login(user, line):
    """An entry of the file of logins, as the C library lays it out on this machine."""
    return struct.pack("hi32s4s32s256shhiii4i20s", USER_PROCESS, os.getpid(), line.encode(), line[-1:].encode(),
                       user.encode(), b"", 0, 0, 0, int(time.time()), 0, 0, 0, 0, 0, b"")


EVENTS = """__REALTIME_TIMESTAMP=1763740800000000
__MONOTONIC_TIMESTAMP=1000000
_BOOT_ID=0123456789abcdef0123456789abcdef
_MACHINE_ID={machine}
_HOSTNAME=testhost
PRIORITY=3
SYSLOG_IDENTIFIER=disk
MESSAGE=first event
_UID=0

__REALTIME_TIMESTAMP=1763740801000000
__MONOTONIC_TIMESTAMP=2000000
_BOOT_ID=0123456789abcdef0123456789abcdef
_MACHINE_ID={machine}
_HOSTNAME=testhost
PRIORITY=6
SYSLOG_IDENTIFIER=cron
MESSAGE=second event

""".format(machine=MACHINE_ID)

SESSION = """UID={number}
USER={user}
ACTIVE=1
STATE=active
TYPE=tty
CLASS={kind}
TTY=tty3
"""

# Lays folders of the test's own over those of the machine, for one process and its children.
IN_OWN_FOLDERS = """
    mount -t tmpfs none /run
    if [[ -e $0/utmp ]]; then cp "$0/utmp" /run/utmp; fi
    if [[ -e $0/sessions ]]; then mkdir /run/systemd && cp -r "$0/sessions" /run/systemd/; fi
    mount -t tmpfs none /var/log && mkdir -p "/var/log/journal/$1" && cp "$0/system.journal" "/var/log/journal/$1/"
    cp "$0/machine-id" /run/machine-id && mount --bind /run/machine-id /etc/machine-id
    mkdir -p /etc/cron.d && mount -t tmpfs none /etc/cron.d && cp "$0/backup" /etc/cron.d/
    shift
    exec "$@"
"""


class ThisMachine(OwnNative, unittest.TestCase):
    def setUp(self):
        super().setUp()
        self.put_settings(SETTINGS)
        self.launch()

    def test_processes_are_those_of_ps(self):
        before = processes_by_ps()
        report = {each["ProcessId"]: each for each in records(self.console.run("report processes"), "Process Count: ")}
        after = processes_by_ps()
        lasting = [number for number in before if before[number] == after.get(number)]
        self.assertGreater(len(lasting), 3)
        for number in lasting:
            parent, threads, name = before[number]
            self.assertEqual(report[number]["ParentProcessId"], parent, name)
            self.assertEqual(report[number]["ThreadCount"], threads, name)
            self.assertEqual(report[number]["Handle"], number)
        own = report[str(self.console.process.pid)]
        self.assertEqual(own["Name"], "velmora-console")
        self.assertEqual(own["ExecutablePath"], str(self.program))
        self.assertEqual(own["CSName"], socket.gethostname())

    def test_the_list_in_the_mail_has_names_and_numbers(self):
        lines = self.console.run("report processlist").split("\r\n")
        self.assertEqual(lines[1], "=" * 14)
        self.assertEqual(lines[-1], "=" * 15)
        self.assertEqual(lines[0], f"Currently Running Processes: {len(lines) - 2}")
        shown = [re.fullmatch(r"(.*) (\d+) 296", line).groups() for line in lines[2:-1]]
        numbers = {number for name, number in shown}
        self.assertNotIn(min(processes_by_ps(), key=int), numbers, "the first isn't shown")
        if len(shown) < 200:
            self.assertIn(("velmora-console", str(self.console.process.pid)), shown)

    def test_memory_is_that_of_the_system(self):
        before = memory_in_bytes()
        report = self.console.run("report ram")
        figures = dict(line.split(": ") for line in report.split("=============")[1].split("\r\n") if line)
        self.assertEqual(int(figures["CommitLimit"]), before["CommitLimit"])
        # The process that reads it counts too, and others come and go.
        for figure, expected in (("CommittedBytes", before["Committed_AS"]),
                                 ("SystemCacheResidentBytes", before["Cached"]),
                                 ("CacheBytes", before["Cached"] + before["Buffers"])):
            self.assertAlmostEqual(int(figures[figure]), expected, delta=64 * 2**20 + expected // 20, msg=figure)
        self.assertNotIn("CacheBytesPeak", figures)
        self.console.run("tick frmNotify.lstNotContent 5 on")
        total = subprocess.run(["free", "-k"], check=True, capture_output=True, text=True).stdout.split()[7]
        most = (2**32 - 1) / 1024  # what the 32-bit record of the memory can say
        self.assertIn(f"Total RAM: {round(min(int(total), most)):,} KB\r\n", self.console.run("report message"))

    def test_connections_are_those_of_the_system(self):
        if not (shutil.which("netstat") or shutil.which("ss")):
            self.skipTest("neither netstat nor ss is installed")
        with socket.create_server(("127.0.0.1", 0)) as server:
            with socket.create_connection(server.getsockname()) as connection:
                port = connection.getsockname()[1]
                self.assertRegex(self.console.run("report netstat"), rf":{port}\b")

    def test_no_report_leaves_a_process_or_a_descriptor(self):
        def kept():
            folder = pathlib.Path(f"/proc/{self.console.process.pid}")
            children = subprocess.run(["ps", "--ppid", folder.name, "-o", "pid="], capture_output=True,
                                      text=True).stdout.split()
            return len(list((folder / "fd").iterdir())), len(children)

        names = ("ram", "users", "processlist", "jobs", "ntevents 5", "netstat")
        for name in names:
            self.console.run(f"report {name}")
        before = kept()
        for _ in range(20):
            for name in names:
                self.console.run(f"report {name}")
        self.assertEqual(kept(), before)


class OwnRecords(OwnNative, unittest.TestCase):
    """The program among logins, events and jobs that the test has made."""

    def setUp(self):
        super().setUp()
        if os.geteuid() != 0:
            self.skipTest("only root can lay folders over those of the machine")
        if not pathlib.Path(JOURNAL_MAKER).exists():
            self.skipTest(f"{JOURNAL_MAKER} is missing")
        self.put_settings(SETTINGS)
        self.user = pwd.getpwuid(os.geteuid()).pw_name
        (self.folder / "utmp").write_bytes(login(self.user, "tty1") + login(self.user, "pts/1")
                                           + login("nobody-knows", "pts/2"))
        (self.folder / "machine-id").write_text(MACHINE_ID + "\n", encoding="ascii")
        (self.folder / "backup").write_text("30 2 * * 1-5 root /usr/bin/true all\n", encoding="ascii")
        (self.folder / "events").write_text(EVENTS, encoding="ascii")
        subprocess.run([JOURNAL_MAKER, "-o", str(self.folder / "system.journal"), str(self.folder / "events")],
                       check=True, capture_output=True)
        self.launch()

    def inside(self, *command):
        return ["unshare", "--mount", "--propagation", "private", "bash", "-ec", IN_OWN_FOLDERS, str(self.folder),
                MACHINE_ID, *command]

    def command(self):
        return self.inside(*super().command())

    def by_system(self, *command):
        return subprocess.run(self.inside(*command), check=True, capture_output=True, text=True).stdout

    def test_users_are_those_of_who(self):
        known = [line for line in self.by_system("who").splitlines() if line.startswith(self.user + " ")]
        self.assertEqual(len(known), 2)
        host = socket.gethostname()
        self.assertEqual(self.console.run("report users"),
                         f"\r\n# of users logged on: 2\r\n{RULE}" + 2 * f"Domain/Machine = {host} Account = {self.user}\r\n")

    def test_without_a_file_of_logins_users_are_those_of_logind(self):
        (self.folder / "utmp").unlink()
        (self.folder / "sessions").mkdir()
        for name, kind in (("1", "user"), ("c2", "user-early"), ("c3", "greeter"), ("c4", "user-incomplete"),
                           ("5", "manager")):
            (self.folder / "sessions" / name).write_text(
                SESSION.format(number=os.geteuid(), user=self.user, kind=kind), encoding="ascii")
        self.console.close()
        self.launch()
        self.assertEqual(self.console.run("report users").count(f"Account = {self.user}"), 2)

    def test_events_are_those_of_journalctl(self):
        report = records(self.console.run("report ntevents 10"), "Event: ")
        listed = self.by_system("journalctl", "-r", "-o", "cat").splitlines()
        self.assertEqual([each["Message"] for each in report], listed)
        self.assertEqual(listed, ["second event", "first event"])
        self.assertEqual([each["Type"] for each in report], ["Information", "Error"])
        self.assertEqual([each["SourceName"] for each in report], ["cron", "disk"])
        self.assertEqual([each["ComputerName"] for each in report], ["testhost", "testhost"])
        self.assertEqual(self.console.run("report ntevents 1").count("Event: "), 1)

    def test_jobs_are_those_of_cron(self):
        jobs = [job for job in records(self.console.run("report jobs"), "Job Count: ")
                if job.get("Name") == "/etc/cron.d/backup"]
        self.assertEqual([(job["Command"], job["Owner"], job["DaysOfWeek"], job["StartTime"][:14]) for job in jobs],
                         [("/usr/bin/true all", "root", "31", "********023000")])

    def test_a_mail_with_all_ten_sections_arrives(self):
        try:
            server = mail_servers.Aiosmtpd()
        except mail_servers.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(server.close)
        content = self.folder / "custom.txt"
        content.write_text("one,two\r\n", encoding="ascii")
        self.console.run("answer yes")
        self.console.run(f'answer file "{content}"')
        for index in range(10):
            self.console.run(f"tick frmNotify.lstNotContent {index} on")
        for name, value in (("txtMailServer", "127.0.0.1"), ("txtMailPort", str(server.port)),
                            ("txtYourEmail", SENDER), ("txtCustMsg", "2"), ("cboNotEmail", RECIPIENT)):
            self.console.set(f"frmNotify.{name}.Text", value)
        self.console.run("click frmNotify.cmdAdd")
        self.console.run("answer yes")
        self.console.run("click frmNotify.Command1")
        self.assertEqual(self.console.get("frmNotify.StatusTxt"), "Ready - Emails sent: 1")
        stored = server.messages(1)[0]
        text = email.message_from_bytes(stored, policy=email.policy.default).get_content()
        headings = ["Listed Drive/Path(s)", "Alerts", "Listed Specified File(s)", "Listed Specified Program(s)",
                    "Currently Running Processes: ", "Ramdon Access Memory (RAM) Status",
                    "File Contents: ", "# of users logged on: 2", "System running time: ", "Last 2 events:",
                    "Event: 2", "Custom Message: "]
        places = [text.find(heading) for heading in headings]
        self.assertNotIn(-1, places, text)
        self.assertEqual(places, sorted(places))
        self.assertIn("velmora-console", text)
        self.assertIn("CommitLimit: ", text)
        self.assertIn("one\ntwo\n", text.replace("\r\n", "\n"))
        self.assertIn("Message: second event", text)


# What a program is taken for under Wine, and how its list of processes looks then.
SNAPSHOT = r"[^\\]* \d+ 296"
OPENED = r"[a-z]:\\.*\.exe \d+ "
VERSIONS = {"win95": SNAPSHOT, "win98": SNAPSHOT, "nt351": None, "nt40": OPENED, "win2k": OPENED,
            "winxp64": None, "win10": None}


class UnderWine(OwnWindows, unittest.TestCase):
    def setUp(self):
        super().setUp()
        self.put_settings(SETTINGS)

    def test_processes_are_those_that_wine_knows(self):
        self.launch()
        report = records(self.console.run("report processes"), "Process Count: ")
        own = [each for each in report if each["Name"] == self.program.name]
        self.assertEqual(len(own), 1)
        self.assertEqual(sorted(own[0]), ["Caption", "Description", "Handle", "Name", "ParentProcessId", "ProcessId",
                                          "ThreadCount", "WorkingSetSize"])
        self.assertEqual(own[0]["Handle"], own[0]["ProcessId"])
        self.assertEqual(self.console.run("report users"), f"\r\n# of users logged on: 0\r\n{RULE}")
        self.assertEqual(self.console.run("report ntevents 3"), f"Last 3 events:\r\n{RULE}")
        self.assertEqual(self.console.run("report jobs"), "")
        self.assertEqual(self.console.run("report ram"),
                         "Random Access Memory Info:\r\n=============\r\n=============")

    def test_each_version_has_its_list_of_processes(self):
        for version, form in VERSIONS.items():
            with self.subTest(version):
                self.program = self.program.rename(self.folder / f"velmora-{version}.exe")
                subprocess.run([*self.command()[:1], "reg", "add",
                                rf"HKCU\Software\Wine\AppDefaults\{self.program.name}", "/v", "Version", "/d", version,
                                "/f"], check=True, capture_output=True, env=self.environment())
                self.launch()
                lines = self.console.run("report processlist").split("\r\n")
                self.console.close()
                self.assertEqual((lines[1], lines[-1]), ("=" * 14, "=" * 15))
                self.assertEqual(lines[0], f"Currently Running Processes: {len(lines) - 2}")
                if form is None:
                    self.assertEqual(len(lines), 3)
                else:
                    self.assertGreater(len(lines), 3)
                    for line in lines[2:-1]:
                        self.assertRegex(line, f"^{form}$")
                    self.assertTrue(any(self.program.name in line for line in lines[2:-1]), lines)

    def test_connections_are_what_the_program_writes(self):
        self.launch()
        self.assertIn("Proto  Local Address", self.console.run("report netstat"))


if __name__ == "__main__":
    unittest.main()
