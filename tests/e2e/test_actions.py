"""The actions on a shortage, on real drives: listed files are moved, deleted and recycled, and nothing
else is touched."""

import os
import pathlib
import re
import time

import filesystems
from cases import ConsoleCase, OwnNative, OwnWindows, WindowsCase
from settings import scrambled
from trees import tree, without

KB = filesystems.KB
SETTINGS = scrambled("chkLog=1", "txtTime=3600\r\n", "minspace=4096\r\n", "custtime=0\r\n")
LARGE = 6 * KB * KB

ALERT, MOVE, DELETE, RECYCLE = 0, 1, 2, 3
QUANTITY, MODIFICATION = 2, 3

SHORTAGE = r" - ALERT: Space Shortage < 4096 KB Drive: %s\[[\d,]+ KB\]"
STAMP = r"\d\d/\d\d/\d\d \d\d:\d\d:\d\d"
MINUTE = r"\d{8} \d\d:\d\d"


class Actions:
    """The same on this machine and under Wine; `show` makes filesystems drives and starts the
    program."""

    def setUp(self):
        super().setUp()
        self.put_settings(SETTINGS)

    def start(self):
        return None

    def begin(self, *megabytes):
        """Small filesystems with a few files that no step should touch; `self.roots` are theirs."""
        self.begin_on(*(self.mount(filesystems.Tmpfs, size) for size in megabytes))

    def begin_on(self, *mounts):
        """The same on these filesystems."""
        self.mounts = list(mounts)
        small = self.mounts[0].folder
        (small / "keep").mkdir()
        (small / "keep" / "größe und заметки.txt").write_text("precious", encoding="utf-8")
        (small / "read only").write_bytes(b"kept")
        (small / "read only").chmod(0o444)
        self.roots = self.show(*self.mounts)
        self.console.watch_only(self.roots[0])
        self.before = self.trees()

    def trees(self):
        return [tree(mounted.folder) for mounted in self.mounts]

    def fill(self, *names):
        """Files that together leave too little space."""
        for name in names:
            (self.mounts[0].folder / name).write_bytes(b"x" * (LARGE // len(names)))
        self.before = self.trees()

    def list_files(self, *names):
        quoted = " ".join(f'"{self.roots[0]}{name}"' for name in names)
        self.console.run("drop LVFile " + quoted)

    def listed(self):
        return [row["Text"] for row in self.console.rows("LVFile")]

    def texts(self, alerts):
        return [alert["text"] for alert in alerts]

    def state(self):
        row = self.console.rows()[self.console.row_number(self.roots[0]) - 1]
        return row["ReportIcon"]

    def drive(self):
        return self.roots[0][:2]

    def expect_only_gone(self, *names):
        self.assertEqual(tree(self.mounts[0].folder), without(self.before[0], *names))

    def test_a_drive_fills_the_alert_comes_the_listed_file_moves_and_all_is_well(self):
        self.begin(8, 16)
        archive = self.mounts[1].folder / "archive"
        archive.mkdir()
        self.console.set("txtDrive.Text", self.roots[1] + "archive\\")
        self.console.run("set chkAutoSave.Value on")
        self.console.run(f"tick lstAct {ALERT} on")
        self.assertEqual(self.console.check(), [])
        self.assertEqual(self.state(), "ok")

        self.fill("large file.bin")
        self.list_files("large file.bin")
        alerts = self.console.check()
        self.assertEqual(len(alerts), 1)
        self.assertRegex(alerts[0]["text"], "^" + SHORTAGE % self.drive() + "$")
        self.assertEqual(self.state(), "alert")

        self.console.run("select LVFile 1")
        self.console.run("answer yes")
        self.console.run("click lblSF(2)")
        self.assertEqual(self.listed(), [])
        self.assertEqual((archive / "large file.bin").read_bytes(), b"x" * LARGE)
        self.expect_only_gone("large file.bin")
        self.assertTrue(self.console.get("dlgAlert.Visible"))

        self.assertEqual(self.console.check(), [])
        self.assertEqual(self.state(), "ok")
        moved = f"- Moved File: {re.escape(self.roots[0])}large file.bin"
        self.assertRegex(
            (self.folder / "log.dat").read_bytes().decode("utf-8"),
            f"^{STAMP}{SHORTAGE % self.drive()}\r\n \\. \r\n\r\n"
            f"{MINUTE} \\| Medium \\| {moved}\r\n"
            f"{STAMP}{moved}\r\n \\. \r\n\r\n$")

    def test_the_automatic_move_aims_at_the_bare_root_and_moves_nothing(self):
        self.begin(8, 16)
        self.fill("large.bin")
        self.list_files("large.bin")
        # The action asks the box beside the list whether anything is listed.
        self.console.run(f'drop cboFile "{self.roots[0]}large.bin" "{self.roots[0]}keep"')
        self.console.set("txtDrive.Text", self.roots[1] + "archive\\")
        self.console.run(f"tick lstAct {MOVE} on")
        texts = self.texts(self.console.check())
        self.assertEqual(len(texts), 2)
        self.assertRegex(texts[1], "^" + SHORTAGE % self.drive() + "Auto Moved File: ")
        self.assertEqual(self.listed(), [])
        self.assertEqual(self.trees(), self.before)

    def test_one_listed_file_goes_at_each_check_and_nothing_else(self):
        self.begin(8)
        names = ["a b.log", "größe.log", "журнал.log"]
        self.fill(*names)
        self.list_files(*names)
        self.console.run(f"tick lstAct {DELETE} on")
        self.console.set("txtSpace.Text", "100000")
        for done in range(1, 4):
            alerts = self.texts(self.console.check())
            self.assertIn(f"Auto Deleted Specified File: {self.roots[0]}{names[done - 1]}", alerts)
            self.assertEqual(self.listed(), names[done:])
            self.expect_only_gone(*names[:done])

    def make_old_folder(self):
        (self.mounts[0].folder / "old" / "deeper").mkdir(parents=True)
        (self.mounts[0].folder / "old" / "deeper" / "журнал.log").write_bytes(b"x")
        self.fill("old/large.bin")

    def delete_by_hand(self):
        self.list_files("old")
        self.console.run("select LVFile 1")
        self.console.run("click lblSF(3)")
        self.assertEqual(self.listed(), [])
        self.assertEqual(self.console.boxes(), [])
        texts = self.texts(each for each in self.console.events if each["event"] == "alert")
        self.assertEqual(len(texts), 1)
        return texts[0]

    def test_a_listed_folder_goes_with_all_that_is_in_it(self):
        self.begin(8)
        self.make_old_folder()
        self.list_files("old", "missing")
        self.console.run(f"tick lstAct {DELETE} on")
        self.console.check()
        self.expect_only_gone("old")

    def test_a_folder_deleted_by_hand_goes_with_all_that_is_in_it(self):
        self.begin(8)
        self.make_old_folder()
        self.assertIn(f"- Deleted Folder: {self.roots[0]}old | [", self.delete_by_hand())
        self.expect_only_gone("old")

    def test_no_link_is_followed_out_of_a_folder_that_goes(self):
        self.begin(8)
        self.make_old_folder()
        (self.mounts[0].folder / "old" / "link").symlink_to(self.mounts[0].folder / "keep")
        self.before = self.trees()
        self.delete_by_hand()
        self.expect_only_gone(*self.gone_with_a_link)

    def test_a_read_only_file_stays_and_the_error_is_reported(self):
        self.begin(8)
        self.fill("large.bin")
        self.list_files("read only")
        self.console.run(f"tick lstAct {DELETE} on")
        texts = self.texts(self.console.check())
        self.assertIn("Error: Path/File access error", texts)
        self.assertEqual(self.trees(), self.before)
        self.assertEqual(self.listed(), ["read only"])

    def test_delete_all_asks_and_deletes_only_what_is_listed(self):
        self.begin(8)
        self.fill("one.bin", "two.bin", "three.bin")
        self.list_files("one.bin", "three.bin")
        self.console.run("answer cancel")
        self.console.run("click lblSF(5)")
        self.assertEqual(self.trees(), self.before)
        self.console.run("answer no")
        self.console.run("click lblSF(5)")
        self.assertEqual(self.listed(), [])
        self.expect_only_gone("one.bin", "three.bin")

    def test_a_manual_move_to_a_full_drive_leaves_everything_where_it_was(self):
        self.begin(8, 1)
        self.mounts[1].fill_up()
        self.fill("large.bin")
        self.list_files("large.bin")
        self.console.set("txtDrive.Text", self.roots[1])
        self.console.run("select LVFile 1")
        self.console.run("answer yes")
        self.console.run("click lblSF(2)")
        self.assertIn("File was moved unsuccessfully, check for sufficient resources (disk space) "
                      "and try again.", [box["text"] for box in self.console.boxes()])
        self.assertEqual(self.trees(), self.before)

    def test_an_empty_specified_path_moves_nothing_to_the_working_folder(self):
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(self.folder)
        self.begin(8)
        self.fill("large.bin")
        self.list_files("large.bin")
        self.console.set("txtDrive.Text", "")
        self.console.run("select LVFile 1")
        self.console.run("answer yes")
        self.console.run("click lblSF(2)")
        self.assertIn("File was moved unsuccessfully, check for sufficient resources (disk space) "
                      "and try again.", [box["text"] for box in self.console.boxes()])
        self.assertEqual(self.listed(), [])
        self.assertEqual(self.trees(), self.before)
        self.assertFalse(pathlib.Path("large.bin").exists())

    def test_events_report_what_changed_since_the_last_check(self):
        self.begin(8)
        self.console.set("txtSpace.Text", "1")
        self.console.run(f"tick lstEvt {QUANTITY} on")
        self.console.run(f"tick lstEvt {MODIFICATION} on")
        self.console.check()
        self.console.check()
        (self.mounts[0].folder / "new file.txt").write_text("x", encoding="utf-8")
        texts = self.texts(self.console.check())
        root = self.roots[0]
        self.assertTrue(any(text.startswith("Files modified: Change Type: Last Write\r\n  ")
                            and f"  {root}new file.txt\r\n" in text for text in texts), texts)
        quantity = f"File Quantity changed in {root} from 1 to 2\r\n.\r\n"
        self.assertIn(quantity, texts)
        self.assertIn(quantity, self.console.get("txtAlert"))
        self.assertEqual(self.texts(self.console.check()), [])


class Native(Actions, OwnNative, ConsoleCase):
    def show(self, *mounts):
        self.launch()
        return [self.drive_of(mounted) for mounted in mounts]

    # The link itself is removed, not what it points to.
    gone_with_a_link = ["old"]

    def test_links_in_typed_paths_lead_to_where_they_lie(self):
        self.begin(8, 16)
        real, other = (mounted.folder for mounted in self.mounts)
        (real / "real").mkdir()
        (real / "way").symlink_to("real")
        (other / "to real").symlink_to(real / "real")
        (other / "file.bin").write_bytes(b"content")
        self.console.set("cboFile.Text", self.roots[1] + "file.bin")
        self.console.run("click lblSF(0)")
        self.console.set("txtDrive.Text", self.roots[0] + "way\\")
        self.console.run("select LVFile 1")
        self.console.run("answer yes")
        self.console.run("click lblSF(2)")
        self.assertEqual((real / "real" / "file.bin").read_bytes(), b"content")
        self.assertFalse((other / "file.bin").exists())

        self.console.set("cboFile.Text", self.roots[1] + "to real\\file.bin")
        self.console.run("click lblSF(0)")
        self.assertEqual([row["Tag"] for row in self.console.rows("LVFile")],
                         [self.roots[0] + "real\\file.bin"])
        self.console.run("select LVFile 1")
        self.console.run("click lblSF(3)")
        self.assertEqual(list((real / "real").iterdir()), [])
        self.assertTrue((other / "to real").is_symlink())

    def test_a_file_of_dots_goes_to_the_trash_as_any_other(self):
        self.begin(8)
        self.fill("...", "next.bin", "another.bin")
        # The alert names the file in the row with the number of the drive's row.
        self.list_files("...", *["next.bin"] * 9)
        self.console.run(f"tick lstAct {RECYCLE} on")
        self.console.check()
        self.assertEqual(self.listed(), ["next.bin"] * 9)
        trash = f".Trash-{os.getuid()}"
        self.assertEqual(without(tree(self.mounts[0].folder), trash),
                         without(self.before[0], "..."))
        self.assertEqual(len(list((self.mounts[0].folder / trash / "files").iterdir())), 1)

    def test_a_folder_of_dots_is_passed_over_and_the_next_file_goes(self):
        self.begin(8)
        self.fill("next.bin", "another.bin")
        (self.mounts[0].folder / "...").mkdir()
        self.list_files("...", *["next.bin"] * 10)
        self.console.run(f"tick lstAct {RECYCLE} on")
        self.console.check()
        self.assertEqual(self.listed(), ["next.bin"] * 10)
        self.console.check()
        self.assertEqual(self.listed(), ["next.bin"] * 9)
        self.assertTrue((self.mounts[0].folder / "...").is_dir())
        self.assertFalse((self.mounts[0].folder / "next.bin").exists())

    def test_the_next_start_removes_what_a_killed_move_has_left(self):
        self.begin(8)
        left = self.mounts[0].folder / ".velmora-4194999-1"
        left.write_bytes(b"half")
        notes = self.folder / ".local" / "state" / "velmora"
        notes.mkdir(parents=True, exist_ok=True)
        notes.chmod(0o700)
        (notes / "moving-4194999-1").write_text(str(left), encoding="utf-8")
        self.console.close()
        self.launch()
        self.assertFalse(left.exists())
        self.assertEqual(list(notes.glob("moving-*")), [])
        self.assertEqual(self.trees(), self.before)

    def kill_in_the_middle_of_a_move(self, content):
        """Whether the program was killed before the move was done."""
        source = self.mounts[0].folder / "large.bin"
        source.write_bytes(content)
        self.list_files("large.bin")
        self.console.set("txtDrive.Text", self.roots[1])
        self.console.run("select LVFile 1")
        self.console.run("answer yes")
        target = self.mounts[1].folder
        free = os.statvfs(target).f_bfree
        self.console.send("click lblSF(2)")
        deadline = time.monotonic() + 30
        while source.exists() and os.statvfs(target).f_bfree > free - 1000:
            self.assertLess(time.monotonic(), deadline, "nothing was moved")
        self.console.close()
        return source.exists()

    def test_a_kill_in_the_middle_of_a_move_loses_nothing_and_leaves_nothing(self):
        content = os.urandom(KB * KB) * 48
        for kind in (filesystems.Tmpfs, filesystems.WithoutUnnamedFiles):
            with self.subTest(kind.__name__):
                self.begin_on(self.mount(filesystems.Tmpfs, 64), self.mount(kind, 64))
                self.kill_a_move_of(content)

    def killed_in_the_middle(self, content):
        """The same, and there was something half done where that shows."""
        if not self.kill_in_the_middle_of_a_move(content):
            return False
        target = self.mounts[1]
        return (not isinstance(target, filesystems.WithoutUnnamedFiles) or
                any(target.folder.glob(".velmora-*")))

    def kill_a_move_of(self, content):
        target = self.mounts[1].folder
        names = set(os.listdir(target))
        tries = 1
        while not self.killed_in_the_middle(content):
            self.assertLess(tries, 10, "each move was done before the program could be killed")
            tries += 1
            (target / "large.bin").unlink(missing_ok=True)
            self.launch()
        self.assertEqual((self.mounts[0].folder / "large.bin").read_bytes(), content)
        self.launch()
        # A copy that has its name is whole: the program was killed before it removed the source.
        self.assertLessEqual(set(os.listdir(target)) - names, {"large.bin"})
        for copy in target.glob("large.bin"):
            self.assertEqual(copy.read_bytes(), content)

    def test_delete_all_says_why_it_ends_at_a_missing_file(self):
        self.begin(8)
        self.console.run("answer yes")
        self.list_files("gone.bin")
        self.console.run("answer no")
        self.console.run("click lblSF(5)")
        gone = self.roots[0] + "gone.bin"
        self.assertEqual(self.console.boxes()[-1]["text"], "file does not exits: " + gone)
        self.assertEqual(self.listed(), ["gone.bin"])
        self.console.end()
        self.console.wait_for_noise('"Delete All" ends at a file that is missing')

    def test_why_a_file_is_not_in_the_bin_is_said_on_standard_error(self):
        self.begin(8)
        self.fill("a.bin")
        # No trash can be made where a file has its name.
        (self.mounts[0].folder / f".Trash-{os.getuid()}").write_bytes(b"")
        self.before = self.trees()
        self.list_files("a.bin")
        self.console.run("answer yes")
        self.console.run("click lblSF(5)")
        texts = self.texts(each for each in self.console.events if each["event"] == "alert")
        self.assertEqual(texts, [f"- Sended File to Recycle Bin: {self.roots[0]}a.bin"])
        self.assertEqual(self.listed(), [])
        self.assertEqual(self.trees(), self.before)
        self.console.end()
        self.console.wait_for_noise(f"Not sent to the recycle bin: {self.roots[0]}a.bin: it may "
                                    "not be removed, or its drive has no recycle bin (5)")

    def test_a_pipe_is_no_file_and_nothing_deletes_or_recycles_it(self):
        self.begin(8)
        os.mkfifo(self.mounts[0].folder / "pipe")
        self.before = self.trees()
        self.console.run("answer yes")
        self.list_files("pipe")
        self.assertIn("does not exists", self.console.boxes()[0]["text"])
        self.console.run("select LVFile 1")
        self.console.run("click lblSF(3)")
        texts = self.texts(each for each in self.console.events if each["event"] == "alert")
        self.assertEqual(
            texts, [f"- No Folder Found or No Content in Folder: {self.roots[0]}pipe"])
        self.assertEqual(self.trees(), self.before)

    def test_a_change_right_after_a_check_is_reported_once(self):
        ramfs = self.mount(filesystems.Ramfs)
        self.launch()
        folder = self.console.add(str(ramfs.folder))["Text"]
        self.console.watch_only(folder)
        self.console.set("txtSpace.Text", "0")
        self.console.run(f"tick lstEvt {MODIFICATION} on")
        self.console.check()
        for number in range(20):
            (ramfs.folder / f"{number}.txt").write_bytes(b"x")
            texts = self.texts(self.console.check())
            self.assertEqual(len(texts), 1)
            self.assertIn(f"  {folder}\\{number}.txt\r\n", texts[0])
            if number > 0:
                self.assertNotIn(f"  {folder}\\{number - 1}.txt\r\n", texts[0])
        self.assertEqual(self.texts(self.console.check()), [])

    def test_the_recycled_file_lies_in_the_trash_of_its_own_drive(self):
        self.begin(8)
        others = [f"other {number}.bin" for number in range(1, 10)]
        self.fill("große datei.bin", *others)
        self.list_files("große datei.bin", *others)
        self.console.run(f"tick lstAct {RECYCLE} on")
        texts = self.texts(self.console.check())
        # The text names the file that is now in the row with the number of the drive's row.
        named = others[self.console.row_number(self.roots[0]) - 1]
        self.assertIn(f"Auto send file to recycle bin: {self.roots[0]}{named}", texts)
        trash = f".Trash-{os.getuid()}"
        self.assertEqual(without(tree(self.mounts[0].folder), trash),
                         without(self.before[0], "große datei.bin"))
        folder = self.mounts[0].folder / trash
        self.assertEqual((folder / "files/große datei.bin").read_bytes(), b"x" * (LARGE // 10))
        note = (folder / "info/große datei.bin.trashinfo").read_text("utf-8")
        self.assertRegex(note, r"^\[Trash Info\]\nPath=gro%C3%9Fe%20datei\.bin\n"
                               r"DeletionDate=\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\n$")


class Windows(Actions, OwnWindows, WindowsCase):
    def show(self, *mounts):
        roots = [self.give_letter(mounted) for mounted in mounts]
        self.launch()
        return roots

    # Wine shows a link of its host as what it leads to; a folder with one in it is refused whole.
    gone_with_a_link = []
