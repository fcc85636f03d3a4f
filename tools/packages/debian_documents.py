#!/usr/bin/env python3
"""Makes the documents of the Debian package: the change log, the manual pages and the AppStream data.

  debian_documents.py --version VERSION --homepage ADDRESS --maintainer NAME --programs FOLDER --root FOLDER

Below the root they lie as they are installed. The change log is made from CHANGELOG.md, the options of a
manual page are those that the program prints for --help. SOURCE_DATE_EPOCH is the date in them, else now.
"""

import argparse
import datetime
import gzip
import os
import pathlib
import re
import subprocess
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parents[2]
LINUX = ROOT / "dist" / "linux"
PACKAGE = "velmora"
PROGRAMS = ("velmora", "velmora-console")

# As wide as a change log may be.
WIDTH = 79


class Unreadable(Exception):
    """A source has not the form that this script reads; says which."""


def build_time():
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    now = datetime.datetime.now(datetime.timezone.utc)
    return datetime.datetime.fromtimestamp(int(epoch), datetime.timezone.utc) if epoch else now


def points_of(section):
    """The points of a list in Markdown, each in one line."""
    points = []
    for line in section.replace("`", "'").splitlines():
        if line.startswith("- "):
            points.append(line[2:].strip())
        elif line.startswith("  ") and points:
            points[-1] += " " + line.strip()
    return points


def change_log(text, version, maintainer, when):
    """The entry of the version, in Debian's form. Older ones have no dates and are left out."""
    found = re.search(rf"^## {re.escape(version)}\b.*?$\n(.*?)(?=^## |\Z)", text, re.M | re.S)
    points = points_of(found.group(1)) if found else []
    if not points:
        raise Unreadable(f"CHANGELOG.md tells nothing of {version}")
    entries = [textwrap.fill(point, WIDTH, initial_indent="  * ", subsequent_indent="    ")
               for point in points]
    date = when.strftime("%a, %d %b %Y %H:%M:%S +0000")
    return "\n".join([f"{PACKAGE} ({version}) unstable; urgency=medium", "", *entries, "",
                      f" -- {maintainer}  {date}", ""])


def usage_of(program):
    return subprocess.run([program, "--help"], check=True, capture_output=True, text=True,
                          stdin=subprocess.DEVNULL).stdout


def options_in(usage):
    """The options that a program's help lists: pairs of the words and what they do."""
    options = []
    for line in usage.splitlines():
        first = re.fullmatch(r"  (--[a-z-]+(?: [A-Z]+)?)(?: +(.*))?", line)
        if first:
            options.append((first.group(1), first.group(2) or ""))
        elif options and re.match(r" {10,}\S", line):
            words, text = options[-1]
            options[-1] = (words, (text + " " + line.strip()).strip())
        elif options:
            break
    if not options:
        raise Unreadable("no options in:\n" + usage)
    return options


def escaped(text):
    """As roff reads it literally."""
    return text.replace("\\", "\\e").replace("-", "\\-").replace("'", "\\(aq")


def manual_options(usage):
    """The same options as roff."""
    lines = []
    for words, text in options_in(usage):
        option, *value = words.split(" ")
        tag = f".BI {escaped(option)} \" {escaped(value[0])}\"" if value else f".B {escaped(option)}"
        lines += [".TP", tag, escaped(text[0].upper() + text[1:]) + "."]
    return "\n".join(lines)


def filled(template, values):
    text = template.read_text(encoding="utf-8")
    for name, value in values.items():
        text = text.replace(f"@{name}@", value)
    return text


def write(path, content):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)
    path.chmod(0o644)


def write_packed(path, text):
    """As `gzip -9n` does: the same content gives the same file."""
    write(path, gzip.compress(text.encode("utf-8"), 9, mtime=0))


def make(options):
    when = build_time()
    share = options.root / "usr" / "share"
    values = {"VERSION": options.version, "HOMEPAGE": options.homepage,
              "DATE": when.strftime("%Y-%m-%d")}
    changes = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
    write_packed(share / "doc" / PACKAGE / "changelog.gz",
                 change_log(changes, options.version, options.maintainer, when))
    for name in PROGRAMS:
        usage = usage_of(options.programs / name)
        page = filled(LINUX / "man" / f"{name}.1.in", {**values, "OPTIONS": manual_options(usage)})
        write_packed(share / "man" / "man1" / f"{name}.1.gz", page)
    metainfo = "example.velmora.velmora.metainfo.xml"
    write(share / "metainfo" / metainfo, filled(LINUX / f"{metainfo}.in", values).encode("utf-8"))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    for name in ("version", "homepage", "maintainer"):
        parser.add_argument(f"--{name}", required=True)
    for name in ("programs", "root"):
        parser.add_argument(f"--{name}", required=True, type=pathlib.Path)
    make(parser.parse_args())


if __name__ == "__main__":
    try:
        main()
    except Unreadable as why:
        sys.exit(str(why))
