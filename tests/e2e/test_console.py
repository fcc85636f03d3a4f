"""The console itself: its replies, the texts it carries, how it ends."""

import fcntl
import os
import pathlib
import signal
import subprocess
import termios
import unittest

import desktop
from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from console import PATIENCE, ConsoleError
from settings import scrambled


class Lines:
    def test_it_greets_with_one_line_of_help(self):
        self.assertIn("help", self.console.greeting)

    def test_text_with_line_ends_quotes_and_other_letters_survives_both_ways(self):
        text = 'a "quoted" word,\r\na second line\n\ttab, back\\slash, größe, Привет, 日本, 🙂'
        self.console.set("txtAlert.Text", text)
        self.assertEqual(self.console.get("txtAlert"), text)

    def test_a_line_of_a_megabyte_is_read_and_a_longer_one_refused(self):
        command = "set txtAlert.Text "
        text = "x" * (1024 * 1024 - len(command))
        self.console.run(command + text)
        self.assertEqual(self.console.get("txtAlert"), text)
        with self.assertRaises(ConsoleError):
            self.console.run(command + text + "yy")
        self.assertEqual(self.console.get("txtAlert"), text)

    def test_bad_lines_get_an_error_and_the_program_goes_on(self):
        for line in ("nonsense", "get", "get Nobody", "get txtSpace.Nothing", "get lblDP(9)",
                     "get frmNobody.txtSpace", "set txtSpace", "set chkDrive.Value 7",
                     "set DTPInterval.Value 25:00:00", "set Slider1.Value 101",
                     "tick ListView1 99 on", "tick lstAct 12 on", "select ListView1 99",
                     "rows txtSpace", "fire ListView1", "answer maybe", "wait -1",
                     'drop ListView1 "unclosed', "menu lblDP", "get StatusBar1(4)",
                     'set txtSpace.Text $"\\q"', b"get \xff\xfe", "get ListView1(0)"):
            with self.subTest(line), self.assertRaises(ConsoleError):
                self.console.run(line)
        self.assertEqual(self.console.get("StatusBar1(1)")[:6], "Ready.")

    def test_exit_asks_and_goes_on_without_an_answer(self):
        self.console.run("exit")
        self.assertEqual(self.console.boxes()[-1]["text"], "Exit the program?")
        self.assertEqual(self.console.boxes()[-1]["answer"], "cancel")
        self.console.run("answer ok")
        self.console.send("exit")
        with self.assertRaises(EOFError):
            self.console.reply()
        self.assertEqual(self.console.process.wait(30), 0)

    def test_the_end_of_the_input_ends_it(self):
        self.assertEqual(self.console.end(), 0)

    def test_waiting_counts_down_and_checks(self):
        self.console.run("set DTPInterval.Value 0:00:05")
        self.console.run("wait until Times Checked: 1")
        self.assertEqual(self.console.get("StatusBar1(3)"), "Times Checked: 1")

    def test_a_nonsense_row_is_reported_and_ends_the_pass(self):
        self.console.run('answer text "nonsense"')
        self.console.run("click cmdLVAdd")
        self.console.watch_only(self.console.rows()[-1]["Text"])
        alerts = self.console.check()
        self.assertEqual([alert["text"] for alert in alerts],
                         ["Error: Invalid procedure call or argument"])
        self.assertEqual(self.console.get("Timer1.Enabled"), True)

    def test_an_empty_trigger_of_a_row_is_reported_until_the_tick_gives_up(self):
        self.console.run("set chkDrive.Value on")
        # A row that comes after the switch has no value of its own. With no interval to wait for,
        # the tick begins again at once, three times.
        self.console.add(self.console.rows()[0]["Text"])
        self.console.run(f"tick ListView1 {len(self.console.rows())} on")
        alerts = self.console.check()
        self.assertEqual([alert["text"] for alert in alerts],
                         ["Error: Type mismatch"] * 3 + ["Program Run Time Error: "])
        self.assertEqual(self.console.boxes()[-1]["text"], "Please check your settings for errors")
        self.console.events.clear()
        # With one, it waits for the next check.
        self.console.run("set DTPInterval.Value 0:00:05")
        self.console.run("wait until Error: Type mismatch")
        self.console.run("wait 0")
        alerts = [event for event in self.console.events if event["event"] == "alert"]
        self.assertEqual(len(alerts), 1)
        self.assertEqual(self.console.get("Timer1.Enabled"), True)


class Watch:
    """A console that keeps watch, which has raised an alert that isn't in the log yet."""

    def started(self, *options, **start):
        return subprocess.Popen([*self.command(), *options], env=self.environment(),
                                **{"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE,
                                   **start})

    def watching(self, *later, **start):
        """One whose script goes on with these lines once there is the alert."""
        self.put_settings(scrambled("txtTime=10\r\n", "minspace=2000000000\r\n", "chkLog=1",
                                    "chkAutoSave=1"))
        script = self.folder / "script"
        lines = ["tick ListView1 1 on", "fire Timer1", "wait until alert Space Shortage", *later]
        script.write_text("\n".join(lines) + "\n", encoding="utf-8")
        watch = self.started("--watch", "--script", str(script), **start)
        for stream in filter(None, (watch.stdout, watch.stderr)):
            self.addCleanup(stream.close)
        self.addCleanup(watch.wait)
        self.addCleanup(watch.kill)
        return watch

    def read_alert(self, watch):
        self.read_to(watch, b"alert:")

    def read_to(self, watch, beginning):
        lines = [watch.stdout.readline()]
        while not lines[-1].startswith(beginning):
            lines.append(watch.stdout.readline())
            self.assertTrue(lines[-1], lines)

    def expect_clean_end(self, watch):
        rest, _ = watch.communicate(timeout=PATIENCE)
        self.assertEqual(watch.returncode, 0)
        self.assertIn(b"box: Velmora | question | Exit the program? | ok cancel -> ok",
                      [line.rstrip(b"\r") for line in rest.split(b"\n")])
        self.expect_saved()

    def expect_saved(self):
        log = (self.folder / "log.dat").read_bytes()
        self.assertIn(b"ALERT: Space Shortage < 2000000000 KB", log)


class WatchUnderWine(Watch, OwnWindows, unittest.TestCase):
    def environment(self):
        # Without a display Wine makes no window, not even one that nobody sees.
        try:
            screen = desktop.shared()
        except desktop.Unavailable as missing:
            self.skipTest(str(missing))
        return {**super().environment(), **screen.environment}

    def tell(self, what):
        teller = pathlib.Path(os.environ["VELMORA_BUILD_WINDOWS"], "tests", "end_console.exe")
        subprocess.run([*self.command()[:1], str(teller), self.program.name, what], check=True,
                       timeout=PATIENCE, env=self.environment())

    def named_watch(self, name):
        """The only one of this name, which shows a 50 some time after the alert."""
        self.program = self.program.rename(self.folder / name)
        watch = self.watching("after 15 get txtAmt")
        self.read_alert(watch)
        return watch

    def test_it_ends_cleanly_with_its_console_but_not_with_another_session(self):
        watch = self.named_watch("velmora-closed.exe")
        self.tell("logoff")
        self.read_to(watch, b"50")
        self.tell("close")
        self.expect_clean_end(watch)

    def test_it_ends_cleanly_with_its_session_once_that_ends_for_good(self):
        watch = self.named_watch("velmora-session.exe")
        self.tell("session-stays")
        self.read_to(watch, b"50")
        self.tell("session-ends")
        self.expect_clean_end(watch)

    def test_it_ends_cleanly_when_it_is_asked_to_without_force(self):
        watch = self.named_watch("velmora-asked.exe")
        self.tell("windows")
        self.expect_clean_end(watch)


class Options(Watch, OwnNative, ConsoleCase):
    """The console's options, as a service uses them."""

    def test_a_watch_ends_cleanly_by_a_signal_and_saves_its_log(self):
        watch = self.watching()
        self.read_alert(watch)
        watch.send_signal(signal.SIGTERM)
        self.expect_clean_end(watch)

    def test_a_watch_ends_cleanly_when_its_terminal_is_closed(self):
        terminal, inner = os.openpty()
        watch = self.watching(start_new_session=True, preexec_fn=lambda: fcntl.ioctl(inner, termios.TIOCSCTTY, 0),
                              stdin=inner, stdout=inner, stderr=inner)
        os.close(inner)
        with open(terminal, "rb", buffering=0) as outer:
            while not outer.readline().startswith(b"alert:"):
                pass
        self.assertEqual(watch.wait(PATIENCE), 0)
        self.expect_saved()

    def test_a_watch_that_is_to_outlive_its_terminal_does(self):
        watch = self.watching("after 3 get txtAmt",
                              preexec_fn=lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN))
        self.read_alert(watch)
        watch.send_signal(signal.SIGHUP)
        self.read_to(watch, b"50")
        watch.send_signal(signal.SIGTERM)
        self.expect_clean_end(watch)

    def test_a_second_signal_does_not_wait(self):
        self.put_settings(scrambled("txtTime=3600\r\n"))
        watch = self.started("--watch")
        self.addCleanup(watch.stdout.close)
        self.addCleanup(watch.stderr.close)
        watch.stdout.readline()
        for _ in range(2):
            watch.send_signal(signal.SIGINT)
        self.assertIn(watch.wait(PATIENCE), (0, -signal.SIGINT))

    def test_help_and_version_are_printed_and_wrong_options_refused(self):
        for option, status, said in (("--version", 0, b"velmora-console 1."),
                                     ("--help", 0, b"Usage: velmora-console"),
                                     ("--script", 2, b"--script needs a file.")):
            asked = self.started(option)
            out, errors = asked.communicate(timeout=PATIENCE)
            self.assertEqual(asked.returncode, status)
            self.assertIn(said, errors if status else out)

    def test_a_script_from_a_pipe_tells_its_failure_by_the_status(self):
        self.put_settings(scrambled("txtTime=3600\r\n"))
        reading, writing = os.pipe()
        os.write(writing, b"get txtAmt\nnonsense\n")
        os.close(writing)
        asked = subprocess.run([*self.command(), "--json", "--script", f"/dev/fd/{reading}"],
                               pass_fds=[reading], stdin=subprocess.DEVNULL, capture_output=True,
                               timeout=PATIENCE, check=False, env=self.environment())
        os.close(reading)
        self.assertEqual(asked.returncode, 3)
        self.assertEqual([b'{"ok":"50"}', b'{"error":"unknown command: nonsense"}'],
                         asked.stdout.splitlines()[-2:])


class NativeLines(Lines, ConsoleCase):
    def test_without_input_it_says_how_to_use_it(self):
        output = subprocess.run([os.environ["VELMORA_CONSOLE"]], stdin=subprocess.DEVNULL,
                              capture_output=True, text=True, timeout=60, check=True).stdout
        self.assertIn("velmora-console", output)


class WindowsLines(Lines, WindowsCase):
    pass


if __name__ == "__main__":
    unittest.main()
