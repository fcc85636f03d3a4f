"""A service as its unit file says, started as a service manager does: with the unit's command line, environment and
rights, and with a socket for what it tells. There is no systemd in the test's root that could do it."""

import os
import pathlib
import re
import shlex
import signal
import socket
import struct
import subprocess
import tempfile
import threading

from desktop import wait_for

CREDENTIALS = struct.Struct("iII")  # process, user, group


class Unit:
    """The settings of a unit file, with the folders of its user in place of the specifiers."""

    def __init__(self, text, config="/etc"):
        text = text.replace("%E", config)
        self.settings = {}
        for name, value in re.findall(r"^([A-Za-z]+)=(.*)$", text, re.M):
            self.settings.setdefault(name, []).append(value)

    def all(self, name):
        return self.settings.get(name, [])

    def one(self, name):
        value, = self.all(name)
        return value

    def command(self):
        return shlex.split(self.one("ExecStart"))

    def environment(self):
        return {"PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin",
                **dict(pair.split("=", 1) for line in self.all("Environment") for pair in shlex.split(line))}

    def rights(self):
        """A command line in front of the unit's own that takes the rights that the unit takes."""
        words = ["setpriv", "--inh-caps=-all"]
        for names in self.all("CapabilityBoundingSet"):
            kept = ["+" + name.removeprefix("CAP_").lower() for name in names.split()]
            words.append("--bounding-set=" + ",".join(["-all", *kept]))
        return [*words, "--no-new-privs"] if self.one("NoNewPrivileges") == "yes" else words


class Service:
    """A running service. `messages` are pairs of what was told and by which process."""

    def __init__(self, root, unit, watchdog, user="root", environment=()):
        self.folder = tempfile.mkdtemp(prefix="velmora-notify-", dir="/tmp")
        place = os.path.join(self.folder, "notify")
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM)
        self.socket.setsockopt(socket.SOL_SOCKET, socket.SO_PASSCRED, 1)
        self.socket.bind(place)
        os.chmod(self.folder, 0o755)
        os.chmod(place, 0o666)
        self.messages = []
        self.ended = False
        threading.Thread(target=self._listen, daemon=True).start()
        environment = {**unit.environment(), **dict(environment), "NOTIFY_SOCKET": place,
                       "WATCHDOG_USEC": str(watchdog * 1_000_000)}
        words = ["setpriv", f"--reuid={user}", f"--regid={user}", "--init-groups", "env", "-i",
                 *(f"{name}={value}" for name, value in environment.items()), *unit.rights(), *unit.command()]
        with open(os.path.join(self.folder, "output"), "wb") as output:
            self.process = subprocess.Popen(root.command(*words), stdin=subprocess.DEVNULL, stdout=output,
                                            stderr=subprocess.STDOUT)

    def _listen(self):
        while not self.ended:
            data, extra, _, _ = self.socket.recvmsg(4096, socket.CMSG_SPACE(CREDENTIALS.size))
            sender, _, _ = CREDENTIALS.unpack(extra[0][2])
            self.messages.append((data.decode("utf-8"), sender))

    def main(self):
        """The number of its main process on this machine."""
        children = pathlib.Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children").read_text("ascii")
        child, = children.split()
        return int(child)

    def lines(self):
        return [line for text, _ in list(self.messages) for line in text.split("\n")]

    def wait_for(self, text, times=1):
        """Waits until lines with this text have come so often; returns them."""
        def found():
            if self.process.poll() is not None:
                raise AssertionError(f"the service has ended with {self.process.poll()}:\n{self.output()}")
            lines = [line for line in self.lines() if text in line]
            return lines if len(lines) >= times else None
        return wait_for(found, f"message {text!r}, but {self.lines()} and\n{self.output()}")

    def output(self):
        return pathlib.Path(self.folder, "output").read_text("utf-8")

    def send(self, number):
        """Sends a signal to the main process and waits for the end; the exit status."""
        os.kill(self.main(), number)
        return self.process.wait(60)

    def close(self):
        if self.process.poll() is None:
            self.send(signal.SIGKILL)
        self.ended = True
        with socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM) as last:
            last.sendto(b"", os.path.join(self.folder, "notify"))
        self.socket.close()
