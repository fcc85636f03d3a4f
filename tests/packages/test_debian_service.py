"""The system service of the Debian package, started as its unit says: it watches a small disk, alerts, mails, acts on
a listed file, and goes on after it was ended in either way."""

import shutil
import signal
import tempfile
import unittest

import debian_package as debian
import mail_servers
from desktop import wait_for
from private_root import PrivateRoot
from service_manager import Service, Unit
from settings import plain_lines

UNIT = "/usr/lib/systemd/system/velmora.service"
SMALL = "/srv/small"
LISTED = "rubbish.bin"
MEGABYTE = 1024 * 1024
WATCHDOG = 4  # s

# What the service does at its start, below the shipped remarks. The first check comes at once, the
# next ones with each tick of the timer.
START = """
set frmNotify.txtMailPort.Text {port}
tick ListView1 {small} on
answer yes
drop LVFile "{small}/{listed}"
set DTPInterval.Value 0:00:00
fire Timer1
"""

# Once, by the administrator: what the settings keep.
SETTINGS = """
set txtSpace.Text 8192
set frmNotify.txtMailServer.Text 127.0.0.1
set frmNotify.txtYourEmail.Text <watch@test.example>
set frmNotify.cboNotEmail.Text <admin@test.example>
click frmNotify.cmdAdd
tick frmNotify.lstNotContent 0 on
answer no
tick lstAct 8 on
tick lstAct 2 on
set chkAutoSave.Value on
click Command8
"""

SHORTAGE = "ALERT: Space Shortage < 8192 KB"
FINE = "STATUS=1 watched, all fine"


class SystemService(unittest.TestCase):
    def setUp(self):
        debian.needs_package()
        debian.needs_tool("setpriv")
        self.root = PrivateRoot()
        self.addCleanup(self.root.close)
        folder = tempfile.mkdtemp(prefix="velmora-deb-", dir="/tmp")
        self.addCleanup(shutil.rmtree, folder)
        self.root.run("dpkg", "--install", shutil.copy(debian.package(), folder))
        self.unit = Unit(self.root.file(UNIT).read_text("utf-8"))
        self.make_disk()
        try:
            self.mail = mail_servers.Aiosmtpd()
        except mail_servers.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(self.mail.close)
        self.configure()

    def make_disk(self):
        """A disk of 16 MB, which belongs to a user."""
        done = self.root.run("sh", "-ec", f"""
useradd anna
mkdir {SMALL}
truncate -s 16M /srv/image
mkfs.ext4 -q -F -m 0 /srv/image
mount -o loop /srv/image {SMALL}
chown anna {SMALL}
chmod 700 {SMALL}""", check=False)
        if done.returncode:
            self.skipTest("no disk can be made here: " + done.stderr)

    def fill(self):
        """The user writes what leaves too little space."""
        self.root.shell(f"""
runuser -u anna -- sh -c 'head -c {10 * MEGABYTE} /dev/zero > {SMALL}/{LISTED}.new && chmod 600 {SMALL}/{LISTED}.new'
mv {SMALL}/{LISTED}.new {SMALL}/{LISTED}""")

    def configure(self):
        # As StateDirectory= makes it.
        self.root.run("mkdir", "-m", self.unit.one("StateDirectoryMode"), "/var/lib/" + self.unit.one("StateDirectory"))
        with self.root.file("/etc/velmora/start.txt").open("a", encoding="utf-8") as script:
            script.write(START.format(port=self.mail.port, small=SMALL, listed=LISTED))
        printed = self.root.run("velmora-console", "--settings", "/var/lib/velmora", input=SETTINGS).stdout
        self.assertNotIn("error:", printed)

    def state(self, name):
        return self.root.file(f"/var/lib/velmora/{name}")

    def start(self):
        service = self.service = Service(self.root, self.unit, WATCHDOG)
        self.addCleanup(service.close)
        ready = service.wait_for("READY=1")
        self.assertEqual(len(ready), 1)
        self.assertNotIn("error:", service.output())
        return service

    def wait_for_action(self):
        """The listed file is gone."""
        try:
            wait_for(lambda: not self.root.file(f"{SMALL}/{LISTED}").exists(), "action on the listed file")
        except AssertionError as late:
            raise AssertionError(f"{late}:\n{self.service.lines()}\n{self.service.output()}") from late

    def expect_whole(self, shortages):
        """Settings and log are as the program writes them, and the log has so many shortages at least."""
        lines = plain_lines(self.state("set.dat").read_bytes())
        self.assertIn("minspace=8192\r\n", [line for line in lines if line])
        self.assertIn("notMailServer=127.0.0.1", lines)
        log = self.state("log.dat").read_bytes().decode("utf-8")
        self.assertGreaterEqual(log.count(SHORTAGE), shortages, log)
        self.assertTrue(log.endswith("\r\n"), log[-200:])
        self.assertNotIn("\0", log)

    def test_it_watches_alerts_mails_and_goes_on_after_either_end(self):
        service = self.start()
        service.wait_for(FINE)
        self.fill()
        service.wait_for("STATUS=1 of 1 short of space")
        self.wait_for_action()
        wait_for(lambda: SHORTAGE in service.output(), "alert in the output")
        mail, *_ = self.mail.messages(1)
        self.assertIn(b"Listed Drive/Path(s)", mail)
        service.wait_for(FINE, times=2)
        service.wait_for("WATCHDOG=1", times=2)
        main = service.main()
        self.assertEqual({sender for _, sender in service.messages}, {main})

        self.assertEqual(service.send(signal.SIGTERM), 0)
        wait_for(lambda: service.lines()[-1] == "STOPPING=1", "message of the end")
        self.expect_whole(1)

        service = self.start()
        service.wait_for(FINE)
        self.fill()
        service.wait_for("STATUS=1 of 1 short of space")
        self.assertNotEqual(service.send(signal.SIGKILL), 0)
        self.expect_whole(2)

        self.fill()
        service = self.start()
        self.wait_for_action()
        self.assertEqual(service.send(signal.SIGTERM), 0)
        self.expect_whole(3)
        self.assertGreaterEqual(len(self.mail.messages(2)), 2)


if __name__ == "__main__":
    unittest.main()
