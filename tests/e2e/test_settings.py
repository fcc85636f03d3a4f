"""Settings over real starts of the program: what is restored, what isn't, and what ends a start."""

import pathlib
import shutil
import subprocess

import filesystems
from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from console import Console
from settings import plain_lines, scrambled

ROOT = pathlib.Path(__file__).parents[2]

FIRST = scrambled("txtTime=60\r\n", "minspace=50000\r\n", "cboFile=C:\\old\\größe.log\r\n",
                  "notcboEmail=a@example.org\r\nnotcboEmail=b@example.org\r\n")

# Field, what the user sets, and what the next start shows.
TEXTS = [
    ("txtSpace", "12345", "12345"),
    ("txtDrive", "D:\\target", "D:\\target\r\n"),
    ("txtFileType", ".avi|.tmp", ".avi|.tmp\r\n"),
    ("frmNotify.txtYourEmail", "größe@example.org", "größe@example.org"),
    ("frmNotify.txtUser", "Пользователь", "Пользователь"),
    # A masked field gives away its length only.
    ("frmNotify.txtPass", "p\"a,s's", "*******"),
    ("frmNotify.txtMailServer", "mail.example.org", "mail.example.org"),
    # A comma is written as a "+", which ends the field in the file.
    ("frmNotify.txtMailSubj", "one+two", "one"),
    ("frmNotify.txtMailFromDisplayName", "Disk watch", "Disk watch"),
    ("frmNotify.txtCustMsg", "a message", "a message"),
    ("frmNotify.txtCustEvtAmt", "7", "7"),
    # The port has no key.
    ("frmNotify.txtMailPort", "2525", "25"),
]
CHECKS = ["chkOnTopMonitor", "chkNTLog", "chkCustTime", "frmNotify.chkIsHTML"]


class ThreeStarts:
    def test_settings_saved_by_hand_are_read_as_the_file_holds_them(self):
        self.put_settings(FIRST)
        self.launch()
        self.assertEqual(self.files(), ["C:\\old\\größe.log\r\n"])
        self.change()
        self.console.run("click Command8")
        self.assertEqual(self.console.end(), 0)

        self.launch()
        self.compare()
        self.assertEqual(self.files(), ["C:\\old\\größe.log\r\n\r\n"])
        self.console.run("click Command8")
        self.assertEqual(self.console.end(), 0)

        self.launch()
        self.assertEqual(self.console.get("txtDrive"), "D:\\target\r\n\r\n")
        self.assertEqual(self.files(), ["C:\\old\\größe.log\r\n\r\n\r\n"])
        self.assertEqual(self.console.get("txtSpace"), "12345")
        self.assertEqual(self.ticked("lstAct"), [0, 5])

    def files(self):
        return [entry["Text"] for entry in self.console.rows("cboFile")]

    def ticked(self, name):
        return [i for i, entry in enumerate(self.console.rows(name)) if entry["Checked"]]

    def change(self):
        for name, value, _ in TEXTS:
            self.console.set(name + ".Text", value)
        for name in CHECKS:
            self.console.run(f"set {name}.Value on")
        for name in ("chkLog", "chkSystray"):
            self.console.run(f"set {name}.Value off")
        for line in ("tick lstAct 0 on", "tick lstAct 5 on", "tick lstEvt 2 on",
                     "tick frmNotify.lstNotContent 5 on", "tick ListView1 1 on",
                     "set DTTime1(0).Value 8:15:00", "set DTTime1(1).Value 23:00:30",
                     "set DTPInterval.Value 0:01:30", "fire Timer1"):
            self.console.run(line)

    def compare(self):
        for name, _, back in TEXTS:
            with self.subTest(name):
                self.assertEqual(self.console.get(name), back)
        for name in CHECKS:
            with self.subTest(name):
                self.assertEqual(self.console.get(name), 1)
        self.assertEqual(self.console.get("chkLog"), 0)
        self.assertEqual(self.console.get("chkSystray"), 0)
        self.assertEqual(self.console.get("txtAlert.Enabled"), False)
        self.assertEqual(self.ticked("lstAct"), [0, 5])
        self.assertEqual(self.ticked("lstEvt"), [2])
        self.assertEqual(self.ticked("frmNotify.lstNotContent"), [5])
        # Both addresses are one entry now.
        self.assertEqual([entry["Text"] for entry in self.console.rows("frmNotify.cboNotEmail")],
                         ["a@example.org\r\nb@example.org\r\n\r\n"])
        # Ticks of the watch list don't come back.
        self.assertFalse(any(row["Checked"] for row in self.console.rows()))
        self.assertEqual(self.console.get("DTTime1(0)"), "8:15:00")
        self.assertEqual(self.console.get("DTTime1(1)"), "23:00:30")
        # 90 seconds: a minute and a half, rounded to two, and thirty seconds.
        self.assertEqual(self.console.get("DTPInterval"), "0:02:30")
        self.assertEqual(self.console.get("txtTime"), "90\r\n")

    def test_bad_settings_end_the_start_with_a_box_and_leave_the_file(self):
        cut = scrambled("txtTime=60\r\n", "lstAct=")[:-2]
        for content, number in ((None, 53), (b"", 13), (scrambled("chkLog=1"), 13), (cut, 13),
                                (scrambled("txtTime=60", "chkLog=x"), 13),
                                (scrambled("txtTime=60", "chkLog=7"), 380),
                                (scrambled("txtTime=60", "lstEvt=99"), 13),
                                (scrambled("txtTime=60", "chkLog=99999"), 6),
                                (scrambled("txtTime=60") + b"\x00\r\n", 5)):
            with self.subTest(content):
                self.put_settings(content)
                ended = subprocess.run(self.command(), stdin=subprocess.DEVNULL, timeout=60,
                                      capture_output=True, check=False)
                self.assertEqual(ended.returncode, 1)
                self.assertIn(f"Run-time error '{number}':", ended.stdout.decode("utf-8"))
                if content is not None:
                    self.assertEqual(self.settings.read_bytes(), content)


class Native(OwnNative, ThreeStarts, ConsoleCase):
    def test_a_tmpfs_without_a_free_byte_does_not_cost_the_settings(self):
        self.save_on_a_full_disk(self.mount(filesystems.Tmpfs, 1))

    def test_a_disk_without_a_free_byte_does_not_cost_the_settings(self):
        self.save_on_a_full_disk(self.mount(filesystems.Loop, 1))

    def save_on_a_full_disk(self, mounted):
        settings = mounted.folder / "set.dat"
        shutil.copy(ROOT / "dist" / "set.dat", settings)
        program = filesystems.Bound(self.program, mounted.folder / "velmora-console")
        self.addCleanup(program.close)
        self.program = mounted.folder / "velmora-console"
        mounted.fill_up()
        self.assertEqual(mounted.free_and_total_kb()[0], 0)
        self.launch()
        self.console.set("txtSpace.Text", "777")
        self.console.run("click Command8")
        self.assertEqual(self.console.end(), 0)
        self.assertIn("minspace=777\r\n", plain_lines(settings.read_bytes()))
        self.launch()
        self.assertEqual(self.console.get("txtSpace"), "777")
        self.assertEqual(self.console.end(), 0)
        program.close()

    def test_paths_on_the_command_line_join_the_specified_files(self):
        self.put_settings(FIRST)
        for name in ("one file.log", "größe.log"):
            (self.folder / name).write_text("x", encoding="utf-8")
        self.console = Console([*self.command(), str(self.folder / "one file.log"),
                                str(self.folder / "größe.log")], self.environment())
        self.addCleanup(self.console.close)
        self.assertEqual([row["Text"] for row in self.console.rows("LVFile")],
                         ["one file.log", "größe.log"])

    def test_start_with_the_system_is_switched_on_and_off(self):
        self.put_settings(FIRST)
        self.launch()
        entry = self.folder / ".config" / "autostart" / "velmora.desktop"
        self.console.run("set chkStartUp.Value on")
        self.assertIn(str(self.program), entry.read_text("utf-8"))
        self.console.run("set chkStartUp.Value off")
        self.assertNotIn(str(self.program), entry.read_text("utf-8"))
        self.assertIn("Hidden=true", entry.read_text("utf-8"))


class Windows(OwnWindows, ThreeStarts, WindowsCase):
    pass
