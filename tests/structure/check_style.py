#!/usr/bin/env python3
"""Checks the sources with clang-format and clang-tidy.

  check_style.py format           every source has the layout of .clang-format
  check_style.py tidy BUILD       .clang-tidy finds no fault in src, as compiled in a build folder
  check_style.py --self-test      proves that both tools find what they are for

A source file, or a file that the compiler is given, counts as one check. What clang-tidy found
nothing in isn't looked at again until the file, something that it includes, the checks or the tool
change: notes about that lie in the user's cache, which fresh checkouts share.
"""

import concurrent.futures
import hashlib
import json
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
FOLDERS = ("src", "tests", "fuzz", "bench")
GCC_COMMAND = ("--extra-arg=-Wno-unknown-warning-option", "--extra-arg=-Wno-error")
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def clang_tool(arguments, folder=ROOT):
    """What a tool of clang says, empty when it found nothing to object to."""
    result = subprocess.run(arguments, cwd=folder, stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if result.returncode == 0:
        return ""
    return result.stdout.strip() or f"{arguments[0]} ended with status {result.returncode}"


def sources():
    return sorted(path for folder in FOLDERS for path in (ROOT / folder).rglob("*")
                  if path.suffix in (".h", ".cpp"))


def check_formats(paths):
    """What clang-format says of each file; one call for many, since starting it takes longest."""
    said = clang_tool(["clang-format", "--dry-run", "--Werror", "-style=file", *map(str, paths)])
    parts = re.split(r"^(?=\S+:\d+:\d+: error:)", said, flags=re.MULTILINE)
    findings = ["".join(part for part in parts if part.startswith(f"{path}:")) for path in paths]
    return findings if any(findings) or not said else [said] * len(paths)


class Unit:
    """A file that the compiler is given, with its command."""

    def __init__(self, build, entry):
        self.build = build
        self.path = Path(entry["directory"], entry["file"]).resolve()
        self.command = entry.get("command") or " ".join(entry["arguments"])

    def identity(self, settings):
        """Changes with whatever clang-tidy looks at; the same in every checkout."""
        digest = hashlib.sha256()
        for text in (settings, self.command, *self.texts()):
            digest.update(text.replace(str(ROOT), "").encode())
            digest.update(b"\0")
        return digest.hexdigest()

    def texts(self):
        """The file and everything of the project that it includes, in an order of its own."""
        known, unread = set(), [self.path]
        while unread:
            path = unread.pop()
            if path in known:
                continue
            known.add(path)
            text = path.read_text(encoding="utf-8")
            yield text
            for name in INCLUDE.findall(text):
                places = (path.parent / name, ROOT / "src" / name, ROOT / "tests" / name)
                unread += [place.resolve() for place in places if place.is_file()][:1]

    def check(self):
        # The commands are GCC's, whose options clang need not know.
        return clang_tool(["clang-tidy", "-p", str(self.build), "--quiet", *GCC_COMMAND, str(self.path)])


def units(build):
    """What is compiled of src, in the order of the build; the programs' own files among it."""
    entries = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    found = {}
    for entry in entries:
        unit = Unit(build, entry)
        below = unit.path.relative_to(build) if unit.path.is_relative_to(build) else None
        is_of_src = unit.path.is_relative_to(ROOT / "src") or (below and below.parts[0] == "src")
        if is_of_src and "_autogen" not in str(unit.path):
            found[unit.path] = unit
    return list(found.values())


def cache_folder():
    folder = Path(os.environ.get("XDG_CACHE_HOME") or Path.home() / ".cache", "velmora/clang-tidy")
    folder.mkdir(parents=True, exist_ok=True)
    return folder


def check_unit(unit, settings, cache):
    note = cache / unit.identity(settings)
    if note.exists():
        return ""
    found = unit.check()
    if not found:
        note.touch()
    return found


def both_at_once(check, what):
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as threads:
        return list(threads.map(check, what))


def close(findings):
    """Prints what was found, each thing once, and counts."""
    shown = set()
    for finding in findings:
        for part in re.split(r"\n(?=\S+:\d+:\d+: (?:error|warning):)", finding):
            if part and part not in shown:
                shown.add(part)
                print(part.replace(f"{ROOT}/", ""))
    failed = sum(1 for finding in findings if finding)
    print(f"{len(findings) - failed} passed, {failed} failed")
    return 1 if failed else 0


def tidy(build):
    version = subprocess.run(["clang-tidy", "--version"], check=True, capture_output=True, text=True)
    settings = version.stdout + (ROOT / ".clang-tidy").read_text(encoding="utf-8")
    cache = cache_folder()
    found = units(build)
    if not found:
        return close([f"{build}: nothing is compiled here"])
    return close(both_at_once(lambda unit: check_unit(unit, settings, cache), found))


# name of the file, its text, what clang-format and what clang-tidy must say
SELF_TEST = (
    ("laid_out.cpp", "int one() {\n    return 1;\n}\n", "", ""),
    ("crooked.cpp", "int one( ){return 1;}\n", "clang-format-violations", ""),
    ("faulty.cpp", "int half(int n) {\n    int zero = 0;\n    return n / zero;\n}\n", "", "DivideZero"),
)


def self_test():
    findings = []
    with tempfile.TemporaryDirectory(dir=ROOT / "build") as scratch:
        for name, text, layout, fault in SELF_TEST:
            path = Path(scratch, name)
            path.write_text(text, encoding="utf-8")
            found = (check_formats([path])[0], clang_tool(["clang-tidy", "--quiet", str(path), "--"]))
            fits = all(word in said if word else not said
                       for word, said in zip((layout, fault), found))
            finds = (layout, fault)
            findings.append("" if fits else f"{name}: expected {finds}, found {found}")
    return close(findings)


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    if arguments == ["format"]:
        return close(check_formats(sources()))
    if len(arguments) == 2 and arguments[0] == "tidy":
        return tidy(Path(arguments[1]).resolve())
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
