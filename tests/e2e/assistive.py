"""A user with an assistive tool, who knows a program by the roles and names of what it shows."""

import json
import os
import pathlib
import subprocess

import desktop

PYTHON = "/usr/bin/python3"  # the one that Debian's packages are for
READER = pathlib.Path(__file__).with_name("assistive_reader.py")
LAUNCHER = pathlib.Path("/usr/libexec/at-spi-bus-launcher")


class Assistive:
    """Has a message bus of its own, which a program joins by `environment`."""

    def __init__(self, folder):
        """`folder` takes the sockets; the display of the tests has to run."""
        if not LAUNCHER.exists():
            raise desktop.Unavailable("not installed: at-spi2-core")
        runtime = pathlib.Path(folder, "runtime")
        runtime.mkdir(mode=0o700)
        self.environment = {"XDG_RUNTIME_DIR": str(runtime)}
        self.processes = []
        try:
            bus = self._start("dbus-daemon", "--session", "--nofork", "--print-address=1")
            self.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()
            self.reader = self._start(PYTHON, str(READER), stdin=subprocess.PIPE)
            if self.reader.stdout.readline().strip() != "ready":
                raise desktop.Unavailable("no accessibility bus, or no dbus for " + PYTHON)
        except BaseException:
            self.close()
            raise

    def _start(self, *command, **options):
        environment = {**os.environ, **desktop.shared().environment, **self.environment}
        process = subprocess.Popen(command, env=environment, stdout=subprocess.PIPE,
                                   stderr=subprocess.DEVNULL, text=True, **options)
        self.processes.append(process)
        return process

    def ask(self, **request):
        self.reader.stdin.write(json.dumps(request) + "\n")
        self.reader.stdin.flush()
        return json.loads(self.reader.stdout.readline())

    def find(self, window, role, name, **request):
        """Waits until something of that role and name is shown and can be used."""
        def usable():
            found = self.ask(window=window, role=role, name=name, **request)
            return found if found and "sensitive" in found.get("states", ()) else None
        return desktop.wait_for(usable, f"{role} {name} in the window {window}")

    def do(self, action, window, role, name):
        """Carries an action out once it can be."""
        self.find(window, role, name)
        self.ask(window=window, role=role, name=name, do=action)

    def press(self, window, name):
        self.do("Press", window, "push button", name)

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait(desktop.PATIENCE)
