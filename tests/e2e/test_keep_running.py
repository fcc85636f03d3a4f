"""A program that keeps running: errors of a full disk are told, and the watch goes on."""

import pathlib
import shutil
import subprocess
import time

import filesystems
from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from console import PATIENCE, Console, ConsoleError
from settings import plain_lines, scrambled
from taking_server import TakingServer

ROOT = pathlib.Path(__file__).parents[2]
OPTION = "--keep-running"


class Survivor:
    """The console with the option, in `self.console`."""

    option = [OPTION]

    def launch(self, *paths):
        self.console = Console([*self.command(), *self.option, *paths], self.environment())
        self.addCleanup(self.console.close)

    def refused(self, line):
        with self.assertRaises(ConsoleError):
            self.console.run(line)

    def errors(self):
        """Standard error of a console that has ended, to its end."""
        deadline = time.monotonic() + PATIENCE
        while None not in self.console.noise and time.monotonic() < deadline:
            time.sleep(0.01)
        return "\n".join(filter(None, self.console.noise))


class Anywhere(Survivor):
    def test_an_error_is_a_box_and_a_line_and_the_watch_goes_on(self):
        self.put_settings(scrambled("txtTime=60\r\n"))
        self.launch()
        self.console.set("txtAmt.Text", "many")
        self.refused("click UpDown3.up")
        box = self.console.boxes()[-1]
        self.assertEqual(box["icon"], "critical")
        self.assertTrue(box["text"].startswith("Run-time error '13':\r\nType mismatch"), box)
        self.assertIn("click UpDown3.up", box["text"])
        self.assertEqual(self.console.end(), 0)
        self.assertIn("Run-time error '13': Type mismatch. Tried: click UpDown3.up", self.errors())

    def test_without_the_option_it_ends(self):
        self.option = []
        self.put_settings(scrambled("txtTime=60\r\n"))
        self.launch()
        self.console.set("txtAmt.Text", "many")
        with self.assertRaises(EOFError):
            self.console.run("click UpDown3.up")
        self.assertEqual(self.console.process.wait(60), 1)

    def test_a_value_that_cant_be_written_is_named_and_the_settings_stay_whole(self):
        settings = scrambled("txtTime=60\r\n", "minspace=50000\r\n")
        self.put_settings(settings)
        self.launch()
        self.console.set("frmNotify.txtCustMsg.Text", "m" * 33_000)
        self.refused("click Command8")
        self.assertIn("notCustMsg= is too long", self.console.boxes()[-1]["text"])
        self.assertEqual(self.settings.read_bytes(), settings)
        self.console.set("frmNotify.txtCustMsg.Text", "short")
        self.console.run("click Command8")
        self.assertIn("notCustMsg=short", plain_lines(self.settings.read_bytes()))

    def test_behind_the_first_path_the_word_is_a_path(self):
        self.put_settings(scrambled("txtTime=60\r\n"))
        self.launch("a.txt", OPTION)
        self.assertEqual(len(self.console.rows("LVFile")), len(self.expected_rows()))
        self.console.set("txtAmt.Text", "many")
        self.refused("click UpDown3.up")


class OnAFullDisk(Survivor):
    """The program's folder on a drive of 1 MB without a free byte. `start_on` starts it there and gives the root of that
    drive, `path_of` a file's path as the console takes it."""

    def full_program_folder(self):
        """The program in a tmpfs of 1 MB, with its settings and an empty log."""
        mounted = self.mount(filesystems.Tmpfs, 1)
        shutil.copy(ROOT / "dist" / "set.dat", mounted.folder / "set.dat")
        (mounted.folder / "log.dat").touch()
        self.program = self.bound(mounted)
        return mounted

    def bound(self, mounted):
        place = mounted.folder / self.program.name
        program = filesystems.Bound(self.program, place)
        self.addCleanup(program.close)
        return place

    def mail_account(self, server):
        for name, value in (("txtMailServer", "127.0.0.1"), ("txtMailPort", str(server.port)),
                            ("txtYourEmail", "<alice@test.example>"), ("cboNotEmail", "<bob@test.example>")):
            self.console.set(f"frmNotify.{name}.Text", value)
        self.console.run("click frmNotify.cmdAdd")

    def test_start_check_alert_mail_save_and_delete_without_a_free_byte(self):
        mounted = self.full_program_folder()
        rubbish = mounted.folder / "rubbish.bin"
        rubbish.write_bytes(b"x" * 300 * filesystems.KB)
        settings, log = mounted.folder / "set.dat", mounted.folder / "log.dat"
        mounted.fill_up()
        self.assertEqual(mounted.free_and_total_kb()[0], 0)
        before = settings.read_bytes()
        server = TakingServer()
        self.addCleanup(server.close)

        # Start.
        root = self.start_on(mounted)
        self.console.run(f'drop LVFile "{self.path_of(rubbish, root)}"')
        self.console.watch_only(root)
        self.console.set("txtSpace.Text", "100")
        self.console.run("set chkAutoSave.Value on")
        self.mail_account(server)

        # Check, alert and mail: the check comes to its end.
        self.console.run("answer no")
        self.console.run("tick lstAct 8 on")
        alerts = [alert["text"] for alert in self.console.check()]
        for text in ("Space Shortage < 100 KB", "Notfication Message Send to: <bob@test.example>",
                     "Notification Email Sent.", "Log file can't be written: Disk full"):
            self.assertEqual(sum(text in alert for alert in alerts), 1, alerts)
        self.assertEqual(len(server.messages), 1)
        self.assertEqual(self.console.get("StatusBar1(3)"), "Times Checked: 1")
        self.assertEqual(log.read_bytes(), b"")

        # Save: refused, and nothing of the file is lost.
        self.console.set("frmNotify.txtCustMsg.Text", "long " * 1500)
        self.refused("click Command8")
        self.assertIn("'61'", self.console.boxes()[-1]["text"])
        self.assertEqual(settings.read_bytes(), before)

        # The action makes room: the mail, the log and the settings find it.
        self.console.run("tick lstAct 2 on")
        self.console.check()
        self.assertFalse(rubbish.exists())
        self.assertEqual(len(server.messages), 2)
        self.assertEqual(self.console.get("Timer1.Enabled"), True)
        self.assertEqual(self.console.get("StatusBar1(3)"), "Times Checked: 2")
        # One alert, since the row's first one isn't raised again, and an entry of the journal for each check.
        self.assertEqual(log.read_text("utf-8").count("Space Shortage < 100 KB"), 3)
        self.console.run("click Command8")
        self.assertIn("notCustMsg=" + "long " * 1500, plain_lines(settings.read_bytes()))
        self.assertEqual(self.console.end(), 0)


class Native(Anywhere, OnAFullDisk, OwnNative, ConsoleCase):
    def expected_rows(self):
        return ["a.txt", OPTION]

    def start_into(self, output, errors):
        """Starts the program with its output into these."""
        program = subprocess.Popen(self.command() + self.option, stdin=subprocess.PIPE,
                                   stdout=output, stderr=errors, env=self.environment())
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        return program

    def test_a_full_disk_behind_the_output_does_not_end_it(self):
        self.put_settings(scrambled("txtTime=60\r\n"))
        commands = b"get txtAmt\nset txtAmt.Text many\nclick UpDown3.up\n"
        with open("/dev/full", "wb") as full:
            program = self.start_into(full, full)
            program.communicate(commands, timeout=PATIENCE)
            self.assertEqual(program.returncode, 0)
            program = self.start_into(full, subprocess.PIPE)
            _, errors = program.communicate(commands, timeout=PATIENCE)
            self.assertIn(b"Run-time error '13'", errors)
            self.option = []
            program = self.start_into(full, subprocess.PIPE)
            program.communicate(timeout=PATIENCE)
            self.assertEqual(program.returncode, 1)

    def test_a_disk_that_has_room_again_takes_the_output_again(self):
        mounted = self.mount(filesystems.Tmpfs, 1)
        self.put_settings(scrambled("txtTime=60\r\n"))
        events = mounted.folder / "events"
        with open(events, "wb") as output:
            mounted.fill_up()
            program = self.start_into(output, subprocess.PIPE)
        program.stdin.write(b"get txtAmt\nset txtAmt.Text many\nclick UpDown3.up\n")
        program.stdin.flush()
        # The line is said once the disk has refused the replies before it.
        self.assertIn(b"Run-time error '13'", program.stderr.readline())
        self.assertEqual(events.read_bytes(), b"")
        (mounted.folder / "filler").unlink()
        program.communicate(b"set txtAmt.Text 49\nget txtAmt\n", timeout=PATIENCE)
        self.assertEqual(program.returncode, 0)
        self.assertTrue(events.read_bytes().endswith(b"49\n"), events.read_bytes())

    def start_on(self, mounted):
        """Starts the program in that folder; the root of its drive."""
        self.launch()
        return self.drive_of(mounted)

    def path_of(self, file, _):
        return str(file)

    def test_a_program_folder_on_a_full_disk_keeps_the_watch_alive(self):
        mounted = self.full_program_folder()
        rubbish = mounted.folder / "rubbish.bin"
        rubbish.write_bytes(b"x" * 300 * filesystems.KB)
        mounted.fill_up()
        log = mounted.folder / "log.dat"
        self.launch(str(rubbish))
        row = self.console.add(str(mounted.folder))
        self.console.watch_only(row["Text"])
        self.console.set("txtSpace.Text", "100")
        self.console.run("set chkAutoSave.Value on")

        # Start, shortage and log: the disk is full, the check comes to its end.
        alerts = [alert["text"] for alert in self.console.check()]
        self.assertTrue(any("Space Shortage" in text for text in alerts), alerts)
        self.assertEqual(sum("Log file can't be written: Disk full" in text for text in alerts), 1)
        self.assertFalse(any(text.startswith("Error:") for text in alerts), alerts)
        self.assertEqual(self.console.get("StatusBar1(3)"), "Times Checked: 1")
        self.assertEqual(log.read_bytes(), b"")

        # The countdown of the dialog saves the journal; opening the log has no opener; both are told.
        self.console.run("menu mnuShowAl")
        self.console.run("set dlgAlert.chkAutoHide.Value on")
        for _ in range(10):
            self.console.run("fire dlgAlert.Timer1")
        self.assertEqual(self.console.get("dlgAlert.Visible"), False)
        self.assertEqual(self.console.get("dlgAlert.Timer1.Enabled"), True)
        self.console.run("answer yes")
        self.refused("click lblAl(0)")
        self.assertIn("save the journal", self.console.boxes()[-1]["text"])
        self.assertIn(str(log), self.console.boxes()[-1]["text"])

        # The action makes room, and all that waited is written.
        self.console.run("tick lstAct 2 on")
        self.console.check()
        self.assertFalse(rubbish.exists())
        self.assertEqual(self.console.get("StatusBar1(3)"), "Times Checked: 2")
        written = log.read_text("utf-8")
        first = written.index("| High |  - ALERT: Space Shortage")
        self.assertLess(first, written.index("Log file can't be written"))
        self.assertEqual(self.console.end(), 0)

    def test_an_open_log_without_an_opener_does_not_end_it(self):
        self.put_settings(scrambled("txtTime=60\r\n"))
        for name in ("tool", "sh"):
            (self.folder / name).mkdir()
        environment = {**self.environment(), "PATH": str(self.folder / "tool")}
        self.environment = lambda: environment
        self.launch()
        self.refused("click lblAl(1)")
        self.assertIn("open the log file", self.console.boxes()[-1]["text"])
        self.assertEqual(self.console.get("txtAmt"), "50")


class Windows(Anywhere, OnAFullDisk, OwnWindows, WindowsCase):
    def start_on(self, mounted):
        root = self.give_letter(mounted)
        self.program = root + self.program.name
        self.launch()
        return root

    def path_of(self, file, root):
        return root + file.name

    def expected_rows(self):
        # One text with several paths in quotes, which lies between them.
        return ["a.txt " + OPTION]
