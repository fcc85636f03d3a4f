"""What the Debian package contains, and what the tools for packages say of it."""

import gzip
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

import debian_package as debian

ROOT = pathlib.Path(__file__).parents[2]
SIZES = (16, 20, 24, 32, 40, 48, 64, 128, 256)
PROGRAMS = ("velmora", "velmora-console")

FILES = {
    "/etc/velmora/start.txt", "/usr/lib/velmora/set.dat", "/usr/lib/velmora/velmora.html", "/usr/lib/velmora/velmora.installed",
    "/usr/lib/velmora/sound/alert.WAV", "/usr/share/applications/velmora.desktop",
    "/usr/share/metainfo/example.velmora.velmora.metainfo.xml", "/usr/share/man/man1/velmora.1.gz",
    "/usr/share/man/man1/velmora-console.1.gz", "/usr/share/doc/velmora/copyright",
    "/usr/share/doc/velmora/changelog.gz", "/usr/lib/systemd/system/velmora.service",
    "/usr/lib/systemd/user/velmora.service", "/usr/share/icons/hicolor/scalable/apps/velmora.svg",
    *(f"/usr/share/icons/hicolor/{size}x{size}/apps/velmora.png" for size in SIZES),
    *(f"/usr/lib/velmora/help/{picture.name}" for picture in (ROOT / "dist/help").glob("*.png")),
}
RUN = {f"/usr/lib/velmora/{name}" for name in PROGRAMS}
LINKS = {f"/usr/bin/{name}": f"../lib/velmora/{name}" for name in PROGRAMS}


class Unpacked(unittest.TestCase):
    """The package's files in a folder."""

    @classmethod
    def setUpClass(cls):
        debian.needs_package()
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-deb-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        debian.unpack(cls.folder)

    def file(self, path):
        return self.folder / path.lstrip("/")


class Contents(unittest.TestCase):
    def setUp(self):
        debian.needs_package()

    def test_it_has_these_files_and_no_others(self):
        files = {path for path, entry in debian.entries().items() if not entry.isdir()}
        self.assertEqual(files, FILES | RUN | set(LINKS))

    def test_each_belongs_to_root_and_only_root_may_change_it(self):
        for path, entry in debian.entries().items():
            with self.subTest(path):
                self.assertEqual((entry.uid, entry.gid), (0, 0))
                if path in LINKS:
                    self.assertEqual(entry.linkname, LINKS[path])
                else:
                    expected = 0o755 if entry.isdir() or path in RUN else 0o644
                    self.assertEqual(oct(entry.mode), oct(expected))

    def test_it_says_what_it_is(self):
        version = re.search(r"project\(velmora VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text("utf-8"))
        self.assertEqual(debian.field("Package"), "velmora")
        self.assertEqual(debian.field("Version"), version.group(1))
        self.assertEqual(debian.field("Section"), "utils")
        self.assertRegex(debian.field("Maintainer"), r"^The Velmora developers <\S+@velmora\.example>$")
        self.assertEqual(debian.field("Homepage"), "http://velmora.example/")
        self.assertTrue(debian.field("Description").startswith("watches free disk space"))

    def test_it_needs_the_libraries_that_the_programs_load(self):
        needed = debian.field("Depends")
        for library in ("libqt6widgets6", "libcurl4", "zlib1g", "libsystemd0", "libblkid1", "libc6"):
            self.assertRegex(needed, rf"\b{library} \(>= ")
        # The first versions that have all functions that are called.
        self.assertRegex(needed, r"\blibcurl4 \(>= 7\.87\)")
        self.assertRegex(needed, r"\blibsystemd0 \(>= 241\)")

    def test_it_is_small(self):
        self.assertLess(debian.package().stat().st_size, 3_000_000)


class Documents(Unpacked):
    def test_the_programs_are_stripped(self):
        for path in RUN:
            sections = debian.said_by("readelf", "--section-headers", "--wide", self.file(path))
            self.assertIn(".text", sections)
            self.assertNotRegex(sections, r"\.(symtab|debug_info)\b")

    def test_few_libraries_are_loaded_with_the_console(self):
        """Those of mail and of the service manager bring thirty more, and come when they are needed."""
        dynamic = debian.said_by("readelf", "--dynamic", "--wide", self.file("/usr/lib/velmora/velmora-console"))
        needed = re.findall(r"\(NEEDED\).*\[(.+?)\]", dynamic)
        self.assertIn("libc.so.6", needed)
        self.assertFalse([name for name in needed if name.startswith(("libcurl", "libsystemd"))], needed)

    def test_the_change_log_tells_of_this_version(self):
        text = gzip.decompress(self.file("/usr/share/doc/velmora/changelog.gz").read_bytes()).decode()
        self.assertTrue(text.startswith(f"velmora ({debian.field('Version')}) unstable; urgency="))
        self.assertIn("  * Watches drives, shares and folders by a minimum", text)
        self.assertEqual(debian.said_by("dpkg-parsechangelog", "-l-", "-S", "Version", input=text).strip(),
                         debian.field("Version"))

    def test_the_copyright_holds_the_licence(self):
        words = " ".join(self.file("/usr/share/doc/velmora/copyright").read_text("utf-8")
                         .replace("\n .\n", "\n").split())
        licence = (ROOT / "LICENSE").read_text("utf-8").split("\n\n", 2)[2]
        self.assertIn(" ".join(licence.split()), words)
        # What is compiled in.
        self.assertIn("nlohmann-json", words)
        self.assertIn("Copyright 2013-2022 Niels Lohmann", words)

    def test_the_manual_pages_have_no_faults(self):
        debian.needs_tool("man")
        for name in PROGRAMS:
            page = self.file(f"/usr/share/man/man1/{name}.1.gz")
            done = subprocess.run(["man", "--warnings=w", "-E", "UTF-8", "-l", "-Tutf8", "-Z", str(page)],
                                  capture_output=True, text=True, check=False)
            self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_the_manual_pages_have_the_options_of_help(self):
        for name in PROGRAMS:
            usage = debian.said_by(self.file(f"/usr/lib/velmora/{name}"), "--help")
            told = set(re.findall(r"^  (--[a-z-]+)", usage, re.M))
            page = gzip.decompress(self.file(f"/usr/share/man/man1/{name}.1.gz").read_bytes()).decode()
            options = page.split(".SH OPTIONS", 1)[1].split("\n.SH ", 1)[0].replace("\\-", "-")
            self.assertGreater(len(told), 4)
            self.assertEqual(set(re.findall(r"^\.BI? (--[a-z-]+)", options, re.M)), told)

    def test_the_manual_page_says_what_an_option_does(self):
        page = gzip.decompress(self.file("/usr/share/man/man1/velmora-console.1.gz").read_bytes()).decode()
        self.assertIn('.BI \\-\\-script " FILE"\nRead the commands from a file; with \\-\\-watch, watch after them.\n',
                      page)


class Tools(Unpacked):
    def test_lintian_finds_no_error_and_warns_of_nothing(self):
        debian.needs_tool("lintian")
        done = subprocess.run(["lintian", "--fail-on", "error,warning", str(debian.package())],
                              capture_output=True, text=True, check=False)
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_the_desktop_entry_is_valid_and_starts_the_window(self):
        debian.needs_tool("desktop-file-validate")
        entry = self.file("/usr/share/applications/velmora.desktop")
        self.assertEqual(debian.said_by("desktop-file-validate", entry), "")
        lines = entry.read_text("utf-8").splitlines()
        self.assertIn("Exec=velmora --keep-running --single %F", lines)
        self.assertIn("Icon=velmora", lines)

    def test_the_data_for_software_centres_is_valid(self):
        debian.needs_tool("appstreamcli")
        data = self.file("/usr/share/metainfo/example.velmora.velmora.metainfo.xml")
        debian.said_by("appstreamcli", "validate", "--no-net", data)
        text = data.read_text("utf-8")
        self.assertIn('<launchable type="desktop-id">velmora.desktop</launchable>', text)
        self.assertIn(f'<release version="{debian.field("Version")}" date="', text)

    def test_the_scripts_have_the_shells_syntax(self):
        folder = self.folder / "control"
        subprocess.run(["dpkg-deb", "--control", str(debian.package()), str(folder)], check=True)
        for name in ("postinst", "prerm", "postrm"):
            debian.said_by("sh", "-n", folder / name)


if __name__ == "__main__":
    unittest.main()
