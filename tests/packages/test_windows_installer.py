"""The installer for Windows under Wine: installed, started, updated, removed without a trace."""

import shutil
import subprocess
import unittest
import zipfile

import windows_machine
from windows_machine import PATIENCE, Machine, package, version

import console
import desktop
import window
from settings import plain_lines, scrambled
from trees import tree

PROGRAMS = r"C:\Program Files\Velmora"
MENU = r"C:\ProgramData\Microsoft\Windows\Start Menu\Programs\Velmora"
APPS = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora"
RUN = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Run"
AUTOSTART = rf'"{PROGRAMS}\velmora.exe" --keep-running --single --minimized'
OPTIONS = "--keep-running --single"
# What is laid beside what the portable program has.
OF_THE_INSTALLER = {"velmora.installed", "uninstall.exe"}
STILL_RUNNING = 3
FORMER_STAYS = 4
# Settings that differ from the installed ones.
SETTINGS = scrambled("txtTime=60\r\n", "minspace=77777\r\n")
# What the program can leave in the folder of its user, the last ones when it is ended meanwhile.
WRITTEN = ("set.dat", "log.dat", "clen.dat", "history.csv", "tmpLogNTEvt.vbs", "windows", "watched",
           "tray-note-read", "set-0123456789abcdef-1.dat", "set-0123456789abcdef-replaced-0.dat",
           "set-0123456789abcdef-turns.txt", ".set.dat.4711", ".windows.4711",
           ".set-0123456789abcdef-0.dat.4711", ".set-0123456789abcdef-turns.txt.4711")
# Seconds in which nobody answers.
SHORT_WAIT = "/WAIT=2"
LONG_WAIT = f"/WAIT={PATIENCE}"


def setUpModule():
    global setup, machine
    setup = package("exe")
    machine = Machine()


def tearDownModule():
    machine.close()


def portable_files():
    """What the portable program consists of, by the paths below its folder."""
    with zipfile.ZipFile(package("zip")) as packed:
        return {name.split("/", 1)[1] for name in packed.namelist() if not name.endswith("/")}


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}


class Installation(unittest.TestCase):
    """Each test begins and ends on a machine without the program."""

    def setUp(self):
        self.folder = machine.path(PROGRAMS)
        self.users = machine.user() / "AppData/Local/Velmora"
        self.send_to = machine.user() / "AppData/Roaming/Microsoft/Windows/SendTo/Velmora.lnk"
        self.addCleanup(self.clean_up)

    def clean_up(self):
        shutil.rmtree(self.users, ignore_errors=True)
        if self.folder.exists():
            self.uninstall("/SETTINGS", SHORT_WAIT)

    def install(self, *words):
        on_drive_z = "Z:" + str(setup).replace("/", "\\")
        return machine.run_line(" ".join([f'"{on_drive_z}" /S', *words]))

    def uninstall(self, *words, place=PROGRAMS):
        """Silently and to its end, as a program that manages many machines does."""
        uninstaller = machine.path(place) / "uninstall.exe"
        status = machine.run_line(" ".join([rf'"{place}\uninstall.exe" /S', *words, f"_?={place}"]))
        if status == 0:
            uninstaller.unlink(missing_ok=True)
            if uninstaller.parent.exists() and not any(uninstaller.parent.iterdir()):
                uninstaller.parent.rmdir()
        return status

    def autostart(self):
        return machine.values(RUN).get("Velmora")

    def start_window(self):
        program = window.Program(True, self.folder / "velmora.exe", machine.user(),
                                 arguments=OPTIONS.split())
        self.addCleanup(self.end_by_force, program.process)
        return program

    def use_the_start_menu(self):
        """Starts the window and ends it. What starts the shortcut ends at once."""
        self.addCleanup(machine.stop)
        program = window.Program(True, "start", machine.user(), arguments=[rf"{MENU}\Velmora.lnk"])
        program.ask_for_the_end().press("Return")
        desktop.wait_for(lambda: not program.desktop.windows("Velmora.*"), "the end of the program")
        program.close()

    def end_by_force(self, process):
        if process.poll() is None:
            process.kill()
            process.wait()
            machine.stop()

    def start_console(self):
        """The console, with the options of the start menu."""
        started = console.Console([machine.wine, str(self.folder / "velmora-console.exe"),
                                   *OPTIONS.split()])
        self.addCleanup(started.close)
        return started

    def save_settings(self):
        """Changes the user's settings; gives the file's content."""
        running = self.start_console()
        running.set("txtSpace.Text", "77777")
        running.run("click Command8")
        self.assertEqual(running.end(), 0)
        return (self.users / "set.dat").read_bytes()

    def test_installed_it_starts_and_is_removed_without_a_trace(self):
        self.assertEqual(self.install(), 0)
        self.assertEqual(files_below(self.folder), portable_files() | OF_THE_INSTALLER)
        self.check_entry_in_apps()
        self.check_start_menu()
        self.assertIsNone(self.autostart())
        installed = tree(self.folder)

        self.use_the_start_menu()
        running = self.start_console()
        self.assertEqual(running.get("txtSpace"), "50000")
        row = running.add("C:\\")
        running.watch_only(row["Text"])
        running.set("txtSpace.Text", "999999999")
        alerts = [alert["text"] for alert in running.check()]
        self.assertTrue(any("Space Shortage" in text for text in alerts), alerts)
        running.run("click Command8")
        self.assertEqual(running.end(), 0)
        # The user's own folder has it all; the programs' folder is as it was laid.
        self.assertIn("minspace=999999999", "".join(plain_lines((self.users / "set.dat").read_bytes())))
        self.assertEqual(tree(self.folder), installed)
        kept = tree(self.users)

        self.remove_as_apps_does()
        self.assertFalse(self.send_to.exists())
        self.assertEqual(tree(self.users), kept)
        shutil.rmtree(self.users)
        self.assertEqual(machine.traces(), [])

    def remove_as_apps_does(self):
        """The uninstaller goes on in a copy of itself."""
        self.assertEqual(machine.run_line(machine.values(APPS)["QuietUninstallString"]), 0)
        desktop.wait_for(lambda: not self.folder.exists(), "end of the uninstaller")
        desktop.wait_for(lambda: not machine.values(APPS), "end of the entry in Apps")

    def check_entry_in_apps(self):
        entry = machine.values(APPS)
        size = sum(path.stat().st_size for path in self.folder.rglob("*") if path.is_file()) / 1024
        self.assertAlmostEqual(entry.pop("EstimatedSize"), size, delta=0.05 * size)
        self.assertEqual(entry, {
            "DisplayName": "Velmora", "DisplayVersion": version(), "Publisher": "Velmora",
            "DisplayIcon": rf"{PROGRAMS}\velmora.exe,0", "InstallLocation": PROGRAMS,
            "UninstallString": rf'"{PROGRAMS}\uninstall.exe"',
            "QuietUninstallString": rf'"{PROGRAMS}\uninstall.exe" /S', "NoModify": 1, "NoRepair": 1})

    def check_start_menu(self):
        self.assertEqual(files_below(machine.path(MENU)),
                         {"Velmora.lnk", "Velmora console.lnk", "Uninstall Velmora.lnk"})
        for name, program, options in (("Velmora.lnk", "velmora.exe", OPTIONS),
                                       ("Velmora console.lnk", "velmora-console.exe", OPTIONS),
                                       ("Uninstall Velmora.lnk", "uninstall.exe", "")):
            link = (machine.path(MENU) / name).read_bytes()
            self.assertIn(rf"{PROGRAMS}\{program}".encode("ascii"), link)
            self.assertIn(options.encode("utf-16-le"), link)

    def test_a_running_window_is_asked_to_close_before_an_update(self):
        self.assertEqual(self.install(), 0)
        saved = self.save_settings()
        # As an older version would have left it.
        (self.folder / "velmora.html").write_bytes(b"old")
        (self.folder / "help" / "old.png").write_bytes(b"old")
        (self.folder / "strange.txt").write_bytes(b"somebody's")
        marker = self.folder / "velmora.installed"
        marker.write_bytes(marker.read_bytes() + b"help\\old.png\r\n..\\outside.txt\r\nC:\\outside.txt\r\n")
        outside = self.folder.parent / "outside.txt"
        outside.write_bytes(b"somebody's")
        self.addCleanup(outside.unlink)
        before = tree(self.folder)

        program = self.start_window()
        update = machine.start(setup, "/S", LONG_WAIT)
        question = program.desktop.window("Velmora", program.window)
        question.press("Escape")
        self.assertEqual(self.install(SHORT_WAIT), STILL_RUNNING)
        program.desktop.window("Velmora", program.window).press("Escape")
        self.assertIsNone(program.process.poll())
        self.assertIsNone(update.poll())
        self.assertEqual(tree(self.folder), before)

        # Closed at last, by its user: the first update goes on.
        self.assertEqual(program.end(), 0)
        self.assertEqual(update.wait(PATIENCE), 0)
        self.assertEqual(files_below(self.folder), portable_files() | OF_THE_INSTALLER | {"strange.txt"})
        self.assertGreater((self.folder / "velmora.html").stat().st_size, 1000)
        self.assertTrue(outside.exists())
        self.assertEqual((self.users / "set.dat").read_bytes(), saved)
        running = self.start_console()
        self.assertEqual(running.get("txtSpace"), "77777")

        # The console's user isn't asked by a window. An uninstaller waits for it, too.
        before = tree(self.folder)
        self.assertEqual(self.install(SHORT_WAIT), STILL_RUNNING)
        self.assertEqual(self.uninstall(SHORT_WAIT), STILL_RUNNING)
        self.assertEqual(tree(self.folder), before)
        self.assertEqual(running.end(), 0)
        self.assertEqual(self.uninstall(), 0)
        self.assertEqual(files_below(self.folder), {"strange.txt"})
        self.assertEqual((self.users / "set.dat").read_bytes(), saved)
        shutil.rmtree(self.folder)

    def open_installer(self):
        """Through its pages to the point where it begins; gives its process and its window."""
        process = machine.start(setup)
        self.addCleanup(self.end_by_force, process)
        pages = machine.desktop.window("Velmora Setup")
        picture = None
        for page in ("welcome", "components", "folder"):
            picture = pages.screenshot("installer-" + page, picture)
            pages.press("Return")
        return process, pages

    def press_away(self, pages):
        """Whether a window is gone, by Return."""
        if machine.desktop.active() == pages.identity:
            machine.desktop.press("Return")
        return not pages.shown()

    def test_by_hand_the_person_is_told_and_tries_again(self):
        self.assertEqual(self.install(), 0)
        page = self.folder / "velmora.html"
        page.write_bytes(b"old")
        program = self.start_window()
        setup_process, pages = self.open_installer()
        # Cancel, in the box and on the page.
        machine.desktop.window("Velmora Setup", pages).press("Escape")
        pages.press("Escape")
        self.assertEqual(setup_process.wait(PATIENCE), STILL_RUNNING)
        self.assertEqual(page.read_bytes(), b"old")

        setup_process, pages = self.open_installer()
        # Retry.
        machine.desktop.window("Velmora Setup", pages).press("Return")
        machine.desktop.window("Velmora", program.window).press("Return")
        self.assertEqual(program.process.wait(PATIENCE), 0)
        # On the last page it is started again, by the desktop.
        self.addCleanup(machine.stop)
        desktop.wait_for(lambda: self.press_away(pages), "end of the installer")
        self.assertEqual(setup_process.wait(PATIENCE), 0)
        self.assertGreater(page.stat().st_size, 1000)
        started = machine.desktop.window("Velmora")
        started.click(*window.EXIT_BUTTON)
        machine.desktop.window("Velmora", started).press("Return")
        desktop.wait_for(lambda: not machine.desktop.windows("Velmora.*"), "end of the program")

    def test_a_console_that_keeps_watch_ends_when_it_is_asked(self):
        self.assertEqual(self.install(), 0)
        running = machine.start(self.folder / "velmora-console.exe", "--keep-running", "--watch",
                                output=subprocess.PIPE)
        self.addCleanup(running.stdout.close)
        self.addCleanup(self.end_by_force, running)
        # The first of its events: it watches.
        self.assertTrue(running.stdout.readline())
        self.assertEqual(self.install(LONG_WAIT), 0)
        self.assertEqual(running.wait(PATIENCE), 0)

    def test_another_path_to_the_same_folder_is_an_update(self):
        self.assertEqual(self.install("/AUTOSTART=1"), 0)
        page = self.folder / "velmora.html"
        page.write_bytes(b"old")
        alias = machine.path(r"C:\alias")
        alias.symlink_to(self.folder, target_is_directory=True)
        self.addCleanup(alias.unlink)
        self.assertEqual(self.install(r"/D=C:\alias"), 0)
        self.assertEqual(files_below(self.folder), portable_files() | OF_THE_INSTALLER)
        self.assertGreater(page.stat().st_size, 1000)
        self.check_entry_in_apps()
        self.check_start_menu()
        self.assertEqual(self.autostart(), AUTOSTART)
        self.assertEqual(self.uninstall(), 0)
        self.assertEqual(machine.traces(), [])

    def test_a_former_installation_that_cannot_be_removed_keeps_its_uninstaller(self):
        self.assertEqual(self.install(), 0)
        uninstaller = self.folder / "uninstall.exe"
        sound = uninstaller.read_bytes()
        place = r"C:\my tools"
        # A program that doesn't know these words, and ends at once with another status.
        unsound = setup.parent / "windows" / "installer" / "velmora-close.exe"
        uninstaller.write_bytes(unsound.read_bytes())
        before = tree(self.folder)
        self.assertEqual(self.install(f"/D={place}"), FORMER_STAYS)
        self.assertEqual(tree(self.folder), before)
        self.assertEqual(files_below(machine.path(place)), portable_files() | OF_THE_INSTALLER)
        self.assertEqual(machine.values(APPS)["InstallLocation"], place)
        self.assertEqual(self.uninstall(place=place), 0)
        machine.set_value(APPS, "InstallLocation", PROGRAMS)
        uninstaller.write_bytes(sound)
        self.assertEqual(self.uninstall(), 0)
        self.assertEqual(machine.traces(), [])

    def test_asked_for_it_the_uninstaller_takes_the_settings_along(self):
        self.assertEqual(self.install(), 0)
        self.save_settings()
        for name in WRITTEN:
            (self.users / name).write_bytes(b"the program's")
        mine = {"letter.txt", "settings.dat", "windows.txt", "set-mine.dat", "set-mine-turns.txt", "deeper/set.dat"}
        for name in mine:
            (self.users / name).parent.mkdir(exist_ok=True)
            (self.users / name).write_bytes(b"somebody's")
        self.assertEqual(self.uninstall("/SETTINGS"), 0)
        self.assertFalse(self.folder.exists())
        self.assertEqual(files_below(self.users), mine)
        # With nothing of somebody else the folder goes, too.
        shutil.rmtree(self.users)
        self.assertEqual(self.install(), 0)
        self.save_settings()
        self.assertEqual(self.uninstall("/SETTINGS"), 0)
        self.assertEqual(machine.traces(), [])

    def test_the_start_with_the_system_is_chosen_kept_and_removed(self):
        self.assertEqual(self.install("/AUTOSTART=1"), 0)
        self.assertEqual(self.autostart(), AUTOSTART)
        self.assertEqual(self.install(), 0)
        self.assertEqual(self.autostart(), AUTOSTART)
        self.assertEqual(self.install("/AUTOSTART=0"), 0)
        self.assertIsNone(self.autostart())
        # The program's own check box switches the same value.
        running = self.start_console()
        running.run("set chkStartUp.Value on")
        self.assertEqual(running.end(), 0)
        self.assertTrue(self.autostart().startswith(rf"{PROGRAMS}\velmora"))
        self.remove_as_apps_does()
        self.assertIsNone(self.autostart())
        # Switched off there, it is empty.
        self.assertEqual(self.install(), 0)
        machine.set_value(RUN, "Velmora", "")
        self.assertEqual(self.uninstall(), 0)
        self.assertNotIn("Velmora", machine.values(RUN))

    def test_the_start_of_another_copy_stays(self):
        other = r"C:\elsewhere\velmora"
        machine.set_value(RUN, "Velmora", other)
        self.addCleanup(machine.run, "reg", "delete", RUN, "/v", "Velmora", "/f")
        self.assertEqual(self.install(), 0)
        self.assertEqual(self.uninstall(), 0)
        self.assertEqual(self.autostart(), other)

    def test_a_folder_of_the_user_keeps_what_is_his(self):
        place = r"C:\my tools"
        folder = machine.path(place)
        folder.mkdir()
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        for name, content in (("set.dat", SETTINGS), ("log.dat", b"a log"), ("letter.txt", b"mine")):
            (folder / name).write_bytes(content)
        mine = tree(folder)
        self.assertEqual(self.install(f"/D={place}"), 0)
        self.assertEqual((folder / "set.dat").read_bytes(), SETTINGS)
        # What lay beside the portable program is what each user begins with.
        running = console.Console([machine.wine, str(folder / "velmora-console.exe")])
        self.addCleanup(running.close)
        self.assertEqual(running.get("txtSpace"), "77777")
        self.assertEqual(running.end(), 0)
        self.assertEqual(self.uninstall(place=place), 0)
        self.assertEqual(tree(folder), mine)
        # Without a folder it goes where it is, and to another one it moves.
        self.assertEqual(self.install(f"/D={place}"), 0)
        self.assertEqual(self.install(), 0)
        self.assertFalse(self.folder.exists())
        self.assertEqual(self.install(f"/D={PROGRAMS}"), 0)
        self.assertEqual(tree(folder), mine)
        self.assertEqual(machine.values(APPS)["InstallLocation"], PROGRAMS)
        self.assertEqual(self.install("/AUTOSTART=1", f"/D={place}"), 0)
        self.assertFalse(self.folder.exists())
        self.assertEqual(self.uninstall("/SETTINGS", place=place), 0)
        self.assertEqual(files_below(folder), {"letter.txt"})
        shutil.rmtree(folder)
        self.assertEqual(machine.traces(), [])


if __name__ == "__main__":
    unittest.main()
