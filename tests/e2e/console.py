"""Drives a velmora-console from outside, through its pipes, in JSON."""

import json
import os
import queue
import subprocess
import threading
import time

# How long a reply may take at most; a check with a drive that doesn't answer takes seconds.
PATIENCE = 60


class ConsoleError(Exception):
    """An error reply."""


class Console:
    def __init__(self, command, environment=None):
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE, env=environment)
        self.lines = queue.Queue()
        self.noise = []
        self.events = []
        for stream, take in ((self.process.stdout, self.lines.put),
                             (self.process.stderr, self.noise.append)):
            threading.Thread(target=self._pump, args=(stream, take), daemon=True).start()
        self.greeting = self.next_line()
        self.send("json on")
        # Before that the start reports its events, as text.
        while not self.next_line().startswith("{"):
            pass

    @staticmethod
    def _pump(stream, take):
        for line in stream:
            take(line.decode("utf-8").rstrip("\n"))
        take(None)

    def next_line(self):
        line = self.lines.get(timeout=PATIENCE)
        if line is None:
            raise EOFError("the console has ended:\n" + "\n".join(filter(None, self.noise)))
        return line

    def noise_with(self, text):
        """Waits until the console has said that on standard error; returns what it has said."""
        end = time.monotonic() + PATIENCE
        while text not in self.noise and time.monotonic() < end:
            time.sleep(0.05)
        return list(self.noise)

    def send(self, line):
        """Sends a line without waiting for its reply."""
        data = line if isinstance(line, bytes) else line.encode("utf-8")
        self.process.stdin.write(data + b"\n")
        self.process.stdin.flush()

    def reply(self):
        """The next reply; events before it are kept in `events`."""
        while True:
            message = json.loads(self.next_line())
            if "event" in message:
                self.events.append(message)
            elif "error" in message:
                raise ConsoleError(message["error"])
            else:
                return message["ok"]

    def run(self, line):
        """Runs a command and returns the content of its reply."""
        self.send(line)
        return self.reply()

    def get(self, name):
        return self.run("get " + name)

    def set(self, name, value):
        """Sets a text, which may hold any characters."""
        return self.run(f"set {name} ${json.dumps(value, ensure_ascii=False)}")

    def rows(self, name="ListView1"):
        return self.run("rows " + name)

    def row_number(self, path):
        return [row["Text"] for row in self.rows()].index(path) + 1

    def watch_only(self, *paths):
        """Ticks these rows and no others."""
        for number, row in enumerate(self.rows(), 1):
            if row["Checked"] != (row["Text"] in paths):
                self.run(f"tick ListView1 {number} {'on' if row['Text'] in paths else 'off'}")

    def add(self, path):
        """Adds a path as the folder browser would give it."""
        quoted = path.replace('"', '""')
        self.run(f'answer folder "{quoted}"')
        self.run("click lblDP(0)")
        return self.rows()[-1]

    def check(self):
        """Runs one check now and returns the alerts that it raised, oldest first."""
        self.run("set DTPInterval.Value 0:00:00")
        before = len(self.events)
        self.run("fire Timer1")
        return [event for event in self.events[before:] if event["event"] == "alert"]

    def boxes(self):
        return [event for event in self.events if event["event"] == "box"]

    def wait_for_noise(self, text):
        """Waits until standard error has a line with the text."""
        deadline = time.monotonic() + PATIENCE
        while not any(line and text in line for line in list(self.noise)):
            if time.monotonic() > deadline:
                raise ConsoleError(f"no line with {text!r} on standard error: {self.noise}")
            time.sleep(0.01)

    def end(self):
        """Ends the input and returns the exit status."""
        self.process.stdin.close()
        return self.process.wait(PATIENCE)

    def close(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()


def native():
    """The console of this machine; None when VELMORA_CONSOLE isn't set."""
    path = os.environ.get("VELMORA_CONSOLE")
    return Console([path]) if path else None


def windows():
    """The Windows console under Wine; None without one."""
    wine, path = os.environ.get("VELMORA_WINE"), os.environ.get("VELMORA_CONSOLE_WINDOWS")
    return Console([wine, path]) if wine and path else None
