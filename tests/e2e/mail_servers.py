"""Real mail servers on loopback, each with a configuration and a store of its own that end with it.

Aiosmtpd is a package of the machine. The packages of the others exclude each other, so they are only downloaded, and
unpacked into a root that is thrown away (in_root.sh); that needs root and overlay mounts.
"""

import functools
import glob
import os
import pathlib
import shutil
import socket
import subprocess
import tempfile
import time

HERE = pathlib.Path(__file__).resolve().parent
DOMAIN = "test.example"
PYTHON = "/usr/bin/python3"  # the one that Debian's packages are for
LIBRARIES = ["libnsl2", "libsasl2-2", "libdb5.3", "libicu72", "libgnutls-dane0", "libidn12", "libevent-2.1-7"]
PACKAGES = ["postfix", "exim4-daemon-light", "exim4-base", "opensmtpd"]


class Unavailable(Exception):
    """This machine can't run the server; says why."""


@functools.cache
def packages_folder():
    """The folder with the servers' packages, downloaded once."""
    if os.geteuid() != 0:
        raise Unavailable("unpacking a mail server needs root")
    folder = pathlib.Path(os.environ.get("VELMORA_BUILD", tempfile.gettempdir())).parent / "mail-servers"
    folder.mkdir(exist_ok=True)
    if all(list(folder.glob(f"{name}_*.deb")) for name in PACKAGES):
        return folder
    for command in (["apt-get", "install", "-y", "--no-install-recommends", *LIBRARIES],
                    ["apt-get", "download", *PACKAGES]):
        done = subprocess.run(command, cwd=folder, capture_output=True, text=True, check=False)
        if done.returncode:
            raise Unavailable("no packages of mail servers: " + done.stderr.strip()[-200:])
    return folder


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


class Server:
    """A running server; `port` is where it listens, `messages` what it stored."""

    packages = ()

    def __init__(self, **options):
        self.options = options
        if not os.path.exists(PYTHON):
            raise Unavailable(f"no {PYTHON}")
        if self.packages:
            self.debs = " ".join(str(path) for name in self.packages
                                 for path in sorted(packages_folder().glob(f"{name}_*.deb")))
        self.folder = tempfile.mkdtemp(prefix="velmora-mail-", dir="/tmp")
        os.chmod(self.folder, 0o777)
        self.store = os.path.join(self.folder, "store")
        os.mkdir(self.store)
        os.chmod(self.store, 0o777)
        self.root = tempfile.mkdtemp(prefix="velmora-root-", dir="/tmp")
        self.port = free_port()
        self.log_path = os.path.join(self.folder, "log")
        with open(self.log_path, "wb") as log:
            self.child = subprocess.Popen(self.command(), stdout=log, stderr=log, stdin=subprocess.DEVNULL,
                                          env={**os.environ, "IN_ROOT_BASE": self.root})
        self._await_greeting()

    def _await_greeting(self, patience=30):
        end = time.monotonic() + patience
        while not self._greets():
            if self.child.poll() is not None or time.monotonic() > end:
                log = pathlib.Path(self.log_path).read_text(encoding="utf-8", errors="replace")
                self.close()
                raise Unavailable(f"{type(self).__name__} does not start: {log[-300:]}")
            time.sleep(0.02)

    def _greets(self):
        try:
            with socket.create_connection(("127.0.0.1", self.port), 1) as connection:
                if self.options.get("tls"):
                    return True
                connection.settimeout(5)
                return connection.recv(512).startswith(b"220")
        except OSError:
            return False

    def write(self, name, text):
        path = os.path.join(self.folder, name)
        pathlib.Path(path).write_text(text, encoding="utf-8")
        return path

    def in_root(self, script):
        return [str(HERE / "in_root.sh"), self.debs, "bash", "-ec", script]

    def messages(self, count, patience=20):
        """The stored messages, oldest first, once there are so many."""
        end = time.monotonic() + patience
        while True:
            found = sorted(glob.glob(self.store + "/**/new/*", recursive=True), key=os.path.getmtime)
            if len(found) >= count or time.monotonic() > end:
                return [pathlib.Path(path).read_bytes() for path in found]
            time.sleep(0.02)

    def close(self):
        if self.child.poll() is None:
            self.child.kill()
        self.child.wait()
        os.rmdir(self.root)
        # The last processes of the namespace may still write for a moment.
        while os.path.exists(self.folder):
            shutil.rmtree(self.folder, ignore_errors=True)


class Aiosmtpd(Server):
    """Keeps the bytes as they come. Options: `auth` asks for user and pass; `context`, the paths of a certificate and
    its key, with `tls` from the first byte on, else by STARTTLS."""

    def command(self):
        certificate, key = self.options.get("context", ("", ""))
        program = self.write("server.py", f"""
import asyncio, itertools, os, ssl
try:
    from aiosmtpd.smtp import SMTP, AuthResult
except ImportError as missing:
    raise SystemExit(str(missing))
count = itertools.count()
os.makedirs({self.store!r} + "/new", exist_ok=True)

class Handler:
    async def handle_RCPT(self, server, session, envelope, address, options):
        if not address.endswith("@{DOMAIN}"):
            return "550 not relaying to that domain"
        envelope.rcpt_tos.append(address)
        return "250 OK"
    async def handle_DATA(self, server, session, envelope):
        name = "%06d" % next(count)
        part = {self.store!r} + "/" + name
        with open(part, "wb") as file:
            file.write(envelope.original_content)
        os.rename(part, {self.store!r} + "/new/" + name)
        return "250 Message accepted for delivery"

def check(server, session, envelope, mechanism, data):
    right = (data.login, data.password) == (b"user", b"pass")
    return AuthResult(success=right, handled=False)

async def main():
    options = {{}}
    context = None
    if {bool(certificate)}:
        context = ssl.create_default_context(ssl.Purpose.CLIENT_AUTH)
        context.load_cert_chain({certificate!r}, {key!r})
    tls = {bool(self.options.get("tls"))}
    if context and not tls:
        options.update(tls_context=context, require_starttls=True)
    if {bool(self.options.get("auth"))}:
        options.update(authenticator=check, auth_required=True, auth_require_tls=False)
    await asyncio.get_running_loop().create_server(
        lambda: SMTP(Handler(), hostname="mx.{DOMAIN}", **options), "127.0.0.1", {self.port},
        ssl=context if tls else None)
    await asyncio.Event().wait()

asyncio.run(main())
""")
        return [PYTHON, program]


class Postfix(Server):
    packages = ("postfix",)

    def command(self):
        self.write("main.cf", f"""
compatibility_level = 3.6
inet_interfaces = 127.0.0.1
inet_protocols = ipv4
myhostname = mx.{DOMAIN}
mydestination =
virtual_mailbox_domains = {DOMAIN}
virtual_mailbox_base = {self.store}
virtual_mailbox_maps = static:inbox/
virtual_uid_maps = static:65534
virtual_gid_maps = static:65534
smtpd_relay_restrictions = reject_unauth_destination
maillog_file = {self.folder}/maillog
maillog_file_prefixes = /tmp
queue_directory = /var/spool/postfix
""")
        self.write("master.cf", f"""
127.0.0.1:{self.port} inet n - n - - smtpd
pickup    unix  n       -       n       60      1       pickup
cleanup   unix  n       -       n       -       0       cleanup
qmgr      unix  n       -       n       300     1       qmgr
rewrite   unix  -       -       n       -       -       trivial-rewrite
bounce    unix  -       -       n       -       0       bounce
defer     unix  -       -       n       -       0       bounce
trace     unix  -       -       n       -       0       bounce
error     unix  -       -       n       -       -       error
discard   unix  -       -       n       -       -       discard
virtual   unix  -       n       n       -       -       virtual
anvil     unix  -       -       n       -       1       anvil
proxymap  unix  -       -       n       -       -       proxymap
postlog   unix-dgram n  -       n       -       1       postlogd
""")
        return self.in_root(f"""
groupadd -r postdrop
useradd -r -d /var/spool/postfix postfix
cp {self.folder}/*.cf /etc/postfix/
cp -n /usr/share/postfix/postfix-files /etc/postfix/ 2>/dev/null || true
mkdir -p /var/spool/postfix /var/lib/postfix
chown postfix /var/lib/postfix
exec postfix start-fg""")


class Exim(Server):
    """With the checks of Debian's own configuration: no line over 998 bytes, and headers of the right form."""

    packages = ("exim4-daemon-light", "exim4-base")

    def command(self):
        self.write("exim.conf", f"""
primary_hostname = mx.{DOMAIN}
domainlist local_domains = {DOMAIN}
daemon_smtp_ports = {self.port}
local_interfaces = 127.0.0.1
acl_smtp_rcpt = acl_rcpt
acl_smtp_data = acl_data
log_file_path = {self.folder}/%slog
spool_directory = /var/spool/exim4
tls_advertise_hosts =
keep_environment =
begin acl
acl_rcpt:
  accept domains = +local_domains
  deny message = relay not permitted
acl_data:
  deny message = maximum allowed line length is 998 octets, got $max_received_linelength
       condition = ${{if > {{$max_received_linelength}}{{998}}}}
  deny message = header syntax
       !verify = header_syntax
  accept
begin routers
all:
  driver = accept
  domains = +local_domains
  transport = box
begin transports
box:
  driver = appendfile
  directory = {self.store}/inbox
  create_directory
  maildir_format
  user = Debian-exim
""")
        return self.in_root(f"""
useradd -r -d /var/spool/exim4 Debian-exim
mkdir -p /var/spool/exim4 /etc/exim4
chown Debian-exim:Debian-exim /var/spool/exim4
cp {self.folder}/exim.conf /etc/exim4/exim4.conf
chown root: /etc/exim4/exim4.conf
chmod 644 /etc/exim4/exim4.conf
exec exim4 -bdf -q1m""")


class Opensmtpd(Server):
    packages = ("opensmtpd",)

    def command(self):
        self.write("smtpd.conf", f"""
listen on 127.0.0.1 port {self.port} hostname mx.{DOMAIN}
table boxes {{ "@" = "vmail" }}
action "keep" maildir "{self.store}/inbox" virtual <boxes>
match from any for domain "{DOMAIN}" action "keep"
""")
        return self.in_root(f"""
useradd -r opensmtpd
useradd -r opensmtpq
useradd -r -m vmail
mkdir -p /run/opensmtpd /var/empty /var/spool/smtpd
chmod 711 /var/spool/smtpd
cp {self.folder}/smtpd.conf /etc/smtpd.conf
touch /etc/aliases
exec smtpd -d -f /etc/smtpd.conf""")


ALL = (Aiosmtpd, Postfix, Exim, Opensmtpd)
