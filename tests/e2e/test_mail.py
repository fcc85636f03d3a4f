"""The notification mail, to real servers on loopback: what each stored is what was sent, and what readers make of it."""

import email
import email.policy
import pathlib
import re
import subprocess
import unittest

import filesystems
import mail_servers
from cases import OwnNative, OwnWindows
from console import PATIENCE
from scripted_server import ScriptedServer
from settings import scrambled

SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4096\r\n", "custtime=0\r\n")
KB = 1024

SENDER = "<alice@other.example>"
BOB = "<bob@test.example>"
SUBJECT = "Karvelle Velmora: system info"
MESSAGE = "Two lines\r\nand a dotted one\r\n.hidden, größer"


def wire(body, recipient=BOB, html=False):
    """What the server gets between DATA and the closing dot."""
    kind = "html" if html else "plain"
    return (f'From: "Velmora" {SENDER}\r\nSubject: {SUBJECT}\r\nContent-Type: text/{kind};To: {recipient}\r\n\r\n'
            f"{body}\r\n\r\n").encode()


def custom(message):
    """The body of a mail without sections."""
    return "\r\nCustom Message: \r\n" + message


# What each server is known to do to a message: headers that it adds, and what becomes of line ends. Each takes one
# leading dot off a line.
ADDED = {
    mail_servers.Aiosmtpd: (),
    mail_servers.Postfix: (b"Return-Path", b"X-Original-To", b"Delivered-To", b"Received", b"Message-Id", b"Date"),
    mail_servers.Exim: (b"Received", b"Return-path", b"Envelope-to", b"Delivery-date"),
    mail_servers.Opensmtpd: (b"Return-Path", b"Delivered-To", b"Received", b"Date", b"Message-ID"),
}


def without_additions(stored, kind):
    """The message as it was before the server added its headers, with CR LF as line ends."""
    text = stored.replace(b"\r\n", b"\n")
    head, body = text.split(b"\n\n", 1)
    lines = re.split(rb"\n(?![ \t])", head)
    kept = [line for line in lines if line.split(b":")[0] not in ADDED[kind]]
    return (b"\n".join(kept) + b"\n\n" + body).replace(b"\n", b"\r\n")


def dots_lost(sent):
    """A line that begins with a dot loses it."""
    return sent.replace(b"\r\n.", b"\r\n")


class Mail:
    """The same on this machine and under Wine."""

    def setUp(self):
        super().setUp()
        self.put_settings(SETTINGS)
        self.launch()
        self.console.run("watch on")

    def serve(self, kind, **options):
        try:
            server = kind(**options)
        except mail_servers.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(server.close)
        return server

    def script(self, *replies, **options):
        server = ScriptedServer(replies, **options)
        self.addCleanup(server.close)
        return server

    def account(self, port, *recipients, message=MESSAGE):
        for name, value in (("txtMailServer", "127.0.0.1"), ("txtMailPort", str(port)), ("txtYourEmail", SENDER),
                            ("txtCustMsg", message)):
            self.console.set(f"frmNotify.{name}.Text", value)
        for recipient in recipients:
            self.console.set("frmNotify.cboNotEmail.Text", recipient)
            self.console.run("click frmNotify.cmdAdd")

    def send(self):
        self.console.run("answer yes")
        self.console.run("click frmNotify.Command1")

    def statuses(self):
        return [event["text"] for event in self.console.events
                if event["event"] == "status" and event["panel"] == 0]

    def mail_alerts(self):
        return [row["SubItems"][1] for row in self.console.rows("LVAlert")]

    def check_server(self, kind):
        server = self.serve(kind)
        self.account(server.port, BOB)
        self.send()
        stored, = server.messages(1)
        self.assertEqual(without_additions(stored, kind), dots_lost(wire(custom(MESSAGE))))
        self.assertEqual(self.statuses(), ["Busy sending mail...", "Busy sending mail - Email sent: 1/1",
                                           "Ready - Emails sent: 1"])
        self.check_reader(stored)

    def check_reader(self, stored):
        message = email.message_from_bytes(stored)
        self.assertIn("alice@other.example", message["From"])
        self.assertEqual(message["Subject"], SUBJECT)
        self.assertEqual(message.get_content_type(), "text/plain")
        self.assertIn("größer", message.get_payload(decode=True).decode("utf-8"))

    def test_aiosmtpd_stores_what_was_sent(self):
        self.check_server(mail_servers.Aiosmtpd)

    def test_postfix_stores_what_was_sent(self):
        self.check_server(mail_servers.Postfix)

    def test_exim_stores_what_was_sent(self):
        self.check_server(mail_servers.Exim)

    def test_opensmtpd_stores_what_was_sent(self):
        self.check_server(mail_servers.Opensmtpd)

    def test_each_recipient_gets_the_body_with_breaks_through_a_proxy(self):
        server = self.serve(mail_servers.Aiosmtpd)
        recipients = ["<a@test.example>", "<b@test.example>", "<c@test.example>"]
        self.account(1, *recipients, message="one\r\ntwo")
        self.console.run("click frmNotify.chkProxy")
        self.console.set("frmNotify.txtProxy.Text", "127.0.0.1")
        self.console.set("frmNotify.txtPort.Text", str(server.port))
        self.send()
        body = "<br>Custom Message: <br>one<br>two"
        self.assertEqual(server.messages(3), [wire(body, each, html=True) for each in recipients])
        self.assertEqual(self.statuses()[-1], "Ready - Emails sent: 3")

    def test_a_refused_recipient_is_counted_all_the_same(self):
        # After the refusal a server of this kind waits for the next command; this one closes.
        server = self.script(b"220 hello\r\n", b"250 a\r\n", b"250 b\r\n", b"550 no\r\n", None)
        self.account(server.port, BOB)
        self.console.run("after 1 set frmNotify.cboNotEmail.Text later")
        server.replies[3:] = [None]
        self.send()
        self.assertEqual(self.statuses()[-1], "Ready - Emails sent: 1")
        self.assertEqual(self.mail_alerts()[0], "Notfication Message Send to: " + BOB)
        self.assertTrue(server.received.endswith(f"rcpt to:{BOB}\r\n".encode()), server.received)

    def test_the_program_can_be_left_while_a_server_is_silent(self):
        server = self.script(silent=True)
        self.account(server.port, BOB)
        self.console.run("answer yes")
        self.console.run("answer ok")
        self.console.run("after 3 exit")
        self.console.send("click frmNotify.Command1")
        self.assertEqual(self.console.process.wait(PATIENCE), 0)
        self.assertEqual(server.connections, 1)

    def test_a_second_send_takes_the_socket_of_the_first(self):
        silent = self.script(silent=True)
        friendly = self.serve(mail_servers.Aiosmtpd)
        self.account(silent.port, BOB)
        for answer in ("yes", "yes", "ok"):
            self.console.run("answer " + answer)
        self.console.run(f"after 0.5 set frmNotify.txtMailPort.Text {friendly.port}")
        self.console.run("after 0.6 click frmNotify.Command1")
        self.console.send("click frmNotify.Command1")
        stored, = friendly.messages(1)
        self.assertEqual(stored, dots_lost(wire(custom(MESSAGE))))

    def test_a_host_that_can_not_be_found_is_waited_for(self):
        self.account(25, BOB)
        self.console.set("frmNotify.txtMailServer.Text", "nowhere.invalid")
        self.console.run("answer yes")
        self.console.run("answer ok")
        self.console.run("after 2 exit")
        self.console.send("click frmNotify.Command1")
        self.assertEqual(self.console.process.wait(PATIENCE), 0)

    def test_a_port_that_is_no_number_is_passed_over(self):
        self.account("abc", BOB)
        self.send()
        self.assertEqual(self.statuses()[-1], "Ready - Emails sent: 1")

    def test_the_question_for_updates_ends_in_its_box(self):
        self.console.run("click Label5(5)")
        self.assertEqual([box["text"] for box in self.console.boxes()], ["The program is currently up to date"])


class Native(Mail, OwnNative, unittest.TestCase):
    def test_s_nail_shows_the_mail(self):
        server = self.serve(mail_servers.Postfix)
        self.account(server.port, BOB)
        self.send()
        server.messages(1)
        reader = subprocess.run(["s-nail", "-n", "-#", "-R", "-Y", "headers\ntype 1\nxit", "-f",
                                 f"maildir://{server.store}/inbox"],
                                stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
        self.assertIn(SUBJECT, reader.stdout)
        self.assertIn("and a dotted one", reader.stdout)

    def test_a_shortage_sends_the_row_that_is_short(self):
        server = self.serve(mail_servers.Aiosmtpd)
        try:
            small = filesystems.Tmpfs(8)
        except filesystems.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(small.close)
        self.console.close()
        self.launch()
        self.console.run("watch on")
        # Its folder tells which drive it is; that drive has a row of its own.
        drive = self.console.add(str(small.folder))["Text"][:3]
        self.console.run("select ListView1 %d" % len(self.console.rows()))
        self.console.run("click lblDP(1)")
        self.console.watch_only(drive)
        self.account(server.port, BOB)
        self.console.run("tick frmNotify.lstNotContent 0 on")
        self.console.run("answer no")
        self.console.run("tick lstAct 8 on")
        small.fill("large", 6 * KB * KB)
        alerts = [event["text"] for event in self.console.check()]
        self.assertIn("Notfication Message Send to: " + BOB, alerts)
        self.assertIn("Notification Email Sent.", alerts)
        stored, = server.messages(1)
        text = stored.decode("utf-8")
        self.assertIn("Listed Drive/Path(s)\r\n=============\r\n", text)
        short = [line for line in text.splitlines() if line.startswith(f"Drive Path: {drive} ")]
        self.assertEqual(len(short), 1, text)
        self.assertRegex(short[0], r"Free Space: [\d,.]+ KB")


class Windows(Mail, OwnWindows, unittest.TestCase):
    pass


class Certificates:
    """An authority of the test's own and a certificate for a host, made with openssl."""

    def __init__(self, folder, host):
        self.folder = pathlib.Path(folder)
        self._run("req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", "ca.key", "-out", "ca.pem", "-subj",
                  "/CN=Test authority", "-days", "30")
        self._run("req", "-newkey", "rsa:2048", "-nodes", "-keyout", "host.key", "-out", "host.csr", "-subj",
                  f"/CN={host}")
        (self.folder / "san").write_text(f"subjectAltName=DNS:{host}", encoding="utf-8")
        self._run("x509", "-req", "-in", "host.csr", "-CA", "ca.pem", "-CAkey", "ca.key", "-CAcreateserial", "-out",
                  "host.pem", "-days", "30", "-extfile", "san")

    def _run(self, *arguments):
        subprocess.run(["openssl", *arguments], cwd=self.folder, check=True, capture_output=True)

    @property
    def authority(self):
        return str(self.folder / "ca.pem")

    @property
    def context(self):
        return str(self.folder / "host.pem"), str(self.folder / "host.key")


class Encrypted:
    """The same on this machine and under Wine."""

    host = "localhost"

    def setUp(self):
        super().setUp()
        self.put_settings(SETTINGS)
        self.certificates = Certificates(self.folder, self.host)
        self.authority = self.certificates.authority

    def environment(self):
        return {**super().environment(), "VELMORA_CA_FILE": self.named(self.authority)}

    def begin(self, encryption, server="localhost", password="pass", **options):
        self.launch()
        self.console.run("watch on")
        if self.console.get("frmNotify.cboEncryption.Enabled") is False:
            self.skipTest(self.console.get("frmNotify.cboEncryption.ToolTipText"))
        try:
            self.server = mail_servers.Aiosmtpd(auth=True, context=self.certificates.context,
                                                tls=encryption == "TLS", **options)
        except mail_servers.Unavailable as why:
            self.skipTest(str(why))
        self.addCleanup(self.server.close)
        for name, value in (("txtMailServer", server), ("txtMailPort", str(self.server.port)),
                            ("txtYourEmail", "alice@other.example"), ("txtUser", "user"), ("txtPass", password),
                            ("txtMailSubj", "Platz wird knapp: größer"), ("txtCustMsg", ".one\r\n.\r\ntwo"),
                            ("cboEncryption", encryption), ("cboNotEmail", "bob@test.example")):
            self.console.set(f"frmNotify.{name}.Text", value)
        self.console.run("click frmNotify.cmdAdd")
        self.console.run("answer yes")
        self.console.run("click frmNotify.Command1")

    def alert(self):
        return self.console.rows("LVAlert")[0]["SubItems"][1]

    def check_sent(self, encryption):
        self.begin(encryption)
        self.assertEqual(self.alert(), "Notfication Message Send to: bob@test.example")
        stored, = self.server.messages(1)
        message = email.message_from_bytes(stored, policy=email.policy.default)
        self.assertEqual(message["Subject"], "Platz wird knapp: größer")
        self.assertEqual(message["To"].addresses[0].addr_spec, "bob@test.example")
        self.assertEqual(message.get_content(), "\r\nCustom Message: \r\n.one\r\n.\r\ntwo")
        self.assertFalse(message.defects)

    def check_refused(self, encryption, reason, **options):
        self.begin(encryption, **options)
        self.assertRegex(self.alert(), "^Notification Message not sent to: bob@test.example .*" + reason)
        self.assertEqual(self.server.messages(1, patience=0), [])

    def test_starttls_sends_a_whole_message(self):
        self.check_sent("STARTTLS")

    def test_tls_sends_a_whole_message(self):
        self.check_sent("TLS")

    def test_a_wrong_password_is_refused_with_the_reason(self):
        self.check_refused("TLS", "([Pp]assword|[Ll]ogin|[Aa]uth)", password="wrong")

    def test_a_certificate_of_another_host_is_refused(self):
        self.certificates = Certificates(self.folder, "elsewhere.example")
        self.check_refused("TLS", "[Cc]ertificate")

    def test_a_certificate_of_another_authority_is_refused(self):
        other = self.folder / "other"
        other.mkdir()
        self.authority = Certificates(other, self.host).authority
        self.check_refused("STARTTLS", "[Cc]ertificate")


class NativeEncrypted(Encrypted, OwnNative, unittest.TestCase):
    @staticmethod
    def named(path):
        return path


class WindowsEncrypted(Encrypted, OwnWindows, unittest.TestCase):
    @staticmethod
    def named(path):
        return "Z:" + path.replace("/", "\\")


class WithoutLibraries(OwnNative, unittest.TestCase):
    """The libraries that are loaded when they are needed can't be: a file of their name is none."""

    def setUp(self):
        super().setUp()
        self.put_settings(SETTINGS)
        self.broken = self.folder / "broken"
        self.broken.mkdir()

    def environment(self):
        return {**super().environment(), "LD_LIBRARY_PATH": str(self.broken),
                "NOTIFY_SOCKET": str(self.folder / "nobody")}

    def test_a_mail_that_no_library_sends_is_told_and_the_program_goes_on(self):
        (self.broken / "libcurl.so.4").write_text("no library", encoding="utf-8")
        self.launch()
        for name, value in (("txtMailServer", "localhost"), ("txtMailPort", "465"),
                            ("txtYourEmail", "alice@other.example"), ("txtUser", "user"), ("txtPass", "pass"),
                            ("cboEncryption", "TLS"), ("cboNotEmail", "bob@test.example")):
            self.console.set(f"frmNotify.{name}.Text", value)
        self.console.run("click frmNotify.cmdAdd")
        self.console.run("answer yes")
        self.console.run("click frmNotify.Command1")
        alert = self.console.rows("LVAlert")[0]["SubItems"][1]
        self.assertRegex(alert, "^Notification Message not sent to: bob@test.example .*"
                                r"The library that sends mail \(libcurl\) could not be made ready\.")
        self.assertEqual(self.console.get("frmNotify.txtMailServer"), "localhost")

    def test_a_service_says_that_nobody_is_told_of_it(self):
        if b"libsystemd.so.0" not in self.program.read_bytes():
            self.skipTest("built without libsystemd")
        (self.broken / "libsystemd.so.0").write_text("no library", encoding="utf-8")
        self.launch()
        said = ("The service manager isn't told how the program stands: libsystemd.so.0 "
                "could not be loaded.")
        self.assertIn(said, self.console.noise_with(said))
        self.console.run("get txtAmt")


if __name__ == "__main__":
    unittest.main()
