"""The Debian package installed, used by people, upgraded, removed and purged, in a root of its own."""

import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import unittest

import debian_package as debian
from desktop import wait_for
from private_root import PrivateRoot
from service_manager import Service, Unit

USERS = ("anna", "bert", "cora")

# What dpkg and its triggers keep for themselves.
OTHERS = ("/var/lib/dpkg", "/var/log", "/var/cache", "/var/lib/systemd", "/usr/share/applications/mimeinfo.cache",
          "/usr/share/icons/hicolor/icon-theme.cache")

RELOAD = "systemctl --system daemon-reload"

DATA = ".local/share/velmora"


class Installed(unittest.TestCase):
    """One root for all tests of the class, with the package in it."""

    @classmethod
    def setUpClass(cls):
        debian.needs_package()
        cls.root = PrivateRoot()
        cls.addClassCleanup(cls.root.close)
        cls.folder = tempfile.mkdtemp(prefix="velmora-deb-", dir="/tmp")
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        for user in USERS:
            cls.root.run("useradd", "--create-home", user)
        cls.prepare()
        cls.before = cls.root.added()
        # Bind mounts of a container lie over some files; dpkg must not meet them.
        cls.install(debian.package())

    @classmethod
    def prepare(cls):
        """What is done before the installation."""

    @classmethod
    def install(cls, package):
        # The folder of the packages may be a mount of this machine.
        copy = shutil.copy(package, cls.folder + "/install.deb")
        cls.root.run("dpkg", "--install", copy, env=cls.system())

    @staticmethod
    def system():
        """The environment of an administrator."""
        return {**os.environ, "PATH": "/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"}

    @staticmethod
    def users_own(user, *words):
        """The words of a command that a user gives, with nothing but a home."""
        return ("runuser", "-u", user, "--", "env", "-i", f"HOME=/home/{user}", "PATH=/usr/bin:/bin", "LANG=C.UTF-8",
                f"XDG_RUNTIME_DIR=/home/{user}", "QT_QPA_PLATFORM=offscreen", *words)

    def as_user(self, user, *words, **options):
        return self.root.run(*self.users_own(user, *words), **options)

    def console(self, user, *lines, options=()):
        """What the console prints for these lines."""
        return self.as_user(user, "velmora-console", *options, input="\n".join([*lines, ""])).stdout

    def data(self, user, name=""):
        return self.root.file(f"/home/{user}/{DATA}/{name}")


class Use(Installed):
    def test_the_programs_are_in_the_search_path(self):
        for name in ("velmora", "velmora-console"):
            printed = self.as_user("anna", name, "--version").stdout
            self.assertEqual(printed.strip(), f"{name} {debian.field('Version')}")

    def test_the_manual_page_is_found(self):
        debian.needs_tool("man")
        for name in ("velmora", "velmora-console"):
            self.assertEqual(self.as_user("anna", "man", "--where", name).stdout.strip(),
                             f"/usr/share/man/man1/{name}.1.gz")

    def test_the_settings_lie_in_the_users_own_folder_which_nobody_else_can_read(self):
        installed = self.root.file("/usr/lib/velmora/set.dat").read_bytes()
        self.console("anna", "set txtSpace.Text 4711", "click Command8")
        folder = self.data("anna")
        self.assertEqual(oct(folder.stat().st_mode & 0o7777), oct(0o700))
        self.assertNotEqual((folder / "set.dat").read_bytes(), installed)
        self.assertEqual(self.root.file("/usr/lib/velmora/set.dat").read_bytes(), installed)
        self.assertIn("\n4711\n", self.console("anna", "get txtSpace"))

    def test_two_users_share_nothing(self):
        self.console("anna", "set txtSpace.Text 4711", "click Command8")
        self.assertIn("\n50000\n", self.console("bert", "get txtSpace"))
        self.console("bert", "set txtSpace.Text 42", "click Command8")
        self.assertIn("\n4711\n", self.console("anna", "get txtSpace"))
        refused = self.as_user("bert", "cat", f"/home/anna/{DATA}/set.dat", check=False)
        self.assertIn("Permission denied", refused.stderr)

    def test_the_window_starts_for_a_user(self):
        words = self.users_own("cora", "velmora", "--keep-running", "--single")
        window = subprocess.Popen(self.root.command(*words), stdin=subprocess.DEVNULL,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(window.wait)
        self.addCleanup(self.root.run, "pkill", "-x", "-u", "cora", "velmora", check=False)
        # It keeps the settings that a start was good with.
        kept = self.root.file("/home/cora/.local/state/velmora")
        wait_for(lambda: list(kept.glob("set-*-1.dat")), "copy of good settings")
        self.assertTrue(self.data("cora", "set.dat").exists())
        self.assertIsNone(window.poll())

    def test_systemd_takes_both(self):
        debian.needs_tool("systemd-analyze")
        unit = "/usr/lib/systemd/{}/velmora.service"
        done = self.root.run("systemd-analyze", "verify", unit.format("system"))
        self.assertEqual(done.stderr, "")
        done = self.root.run("env", "XDG_RUNTIME_DIR=/run", "systemd-analyze", "--user", "verify",
                             unit.format("user"))
        self.assertEqual(done.stderr, "")

    def test_neither_is_enabled(self):
        links = self.root.shell("find /etc/systemd /run/systemd -name 'velmora*' 2>/dev/null || true")
        self.assertEqual(links, "")

    def test_the_users_service_watches_with_the_users_own_settings(self):
        debian.needs_tool("setpriv")
        config = "/home/bert/.config"
        self.root.shell(f"mkdir -p {config}/velmora && echo 'set txtSpace.Text 77' > {config}/velmora/start.txt")
        unit = Unit(self.root.file("/usr/lib/systemd/user/velmora.service").read_text("utf-8"), config)
        self.assertEqual(unit.one("ConditionPathExists"), f"{config}/velmora/start.txt")
        service = Service(self.root, unit, 60, user="bert", environment={"HOME": "/home/bert"})
        self.addCleanup(service.close)
        service.wait_for("READY=1")
        self.assertNotIn("error:", service.output())
        self.assertEqual(service.send(signal.SIGTERM), 0)
        self.assertEqual(self.data("bert", "set.dat").stat().st_uid,
                         int(self.root.run("id", "-u", "bert").stdout))


class Life(Installed):
    """From the installation to the purge, as on a system that runs systemd."""

    @classmethod
    def prepare(cls):
        cls.log = pathlib.Path(cls.folder, "called")
        for name in ("systemctl", "deb-systemd-invoke"):
            cls.root.shell(f"""
printf '%s\\n' '#!/bin/sh' 'echo {name} "$@" >>{cls.log}' >/usr/local/bin/{name}
chmod 755 /usr/local/bin/{name}
mkdir -p /run/systemd/system""")

    def called(self):
        """What was asked of the service manager since the last call."""
        lines = self.log.read_text("utf-8").splitlines()
        self.log.write_text("")
        return lines

    def test_an_upgrade_keeps_the_settings_and_a_purge_leaves_nothing(self):
        self.assertEqual(self.called(), [RELOAD])
        self.console("anna", "set txtSpace.Text 4711", "click Command8")
        saved = self.data("anna", "set.dat").read_bytes()
        self.assertLess({"/usr/lib/velmora", "/usr/bin/velmora", "/etc/velmora/start.txt"}, self.root.added())
        self.root.shell("mkdir -p /var/lib/velmora && cp /usr/lib/velmora/set.dat /var/lib/velmora/")
        # As "systemctl enable" does.
        enabled = "/etc/systemd/system/multi-user.target.wants/velmora.service"
        self.root.run("ln", "-s", "/usr/lib/systemd/system/velmora.service", enabled)

        later = debian.later_version(self.folder, debian.field("Version") + "+1")
        self.install(later)
        # The old package's script comes first.
        self.assertEqual(self.called(), [RELOAD, RELOAD, "deb-systemd-invoke try-restart velmora.service"])
        self.assertIn(debian.field("Version") + "+1",
                      self.root.run("dpkg-query", "-W", "-f", "${Version}", "velmora").stdout)
        self.assertEqual(self.data("anna", "set.dat").read_bytes(), saved)
        self.assertIn("\n4711\n", self.console("anna", "get txtSpace"))
        self.assertTrue(self.root.file("/var/lib/velmora/set.dat").exists())

        self.root.run("dpkg", "--remove", "velmora", env=self.system())
        self.assertEqual(self.called(), ["deb-systemd-invoke stop velmora.service", RELOAD])
        self.assertNotIn("/usr/lib/velmora", self.root.added())
        self.assertTrue(self.root.file("/var/lib/velmora/set.dat").exists())
        self.assertTrue(self.root.file(enabled).is_symlink())

        self.root.run("dpkg", "--purge", "velmora", env=self.system())
        self.assertEqual(self.called(), [RELOAD])
        left = {path for path in self.root.added() - self.before
                if not path.startswith((*OTHERS, "/home/"))}
        self.assertEqual(left, set())
        self.assertEqual(self.data("anna", "set.dat").read_bytes(), saved)


if __name__ == "__main__":
    unittest.main()
