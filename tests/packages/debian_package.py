"""The Debian package: where it lies, what is in it, and later versions of it."""

import functools
import os
import pathlib
import shutil
import subprocess
import tarfile
import tempfile
import unittest

NAME = "velmora"


@functools.cache
def package():
    """The package's file; None when none was made."""
    found = sorted(pathlib.Path(os.environ.get("VELMORA_PACKAGES", "/nowhere")).glob(f"{NAME}_*.deb"))
    return found[0] if found else None


def needs_package():
    if package() is None:
        raise unittest.SkipTest("VELMORA_PACKAGES names no folder with a Debian package")


def needs_tool(name):
    if shutil.which(name) is None:
        raise unittest.SkipTest(f"{name} isn't installed")


def said_by(*command, **options):
    """What a program prints; the test fails when the program does."""
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=False, **options)
    if done.returncode:
        raise AssertionError(f"{command} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


def field(name):
    return said_by("dpkg-deb", "--field", package(), name).strip()


@functools.cache
def entries():
    """The entries of the package by their paths, which begin with a slash."""
    archive = subprocess.run(["dpkg-deb", "--fsys-tarfile", str(package())], check=True,
                             capture_output=True).stdout
    with tempfile.TemporaryFile() as file:
        file.write(archive)
        file.seek(0)
        with tarfile.open(fileobj=file) as tar:
            return {entry.name.removeprefix("."): entry for entry in tar}


def unpack(folder):
    subprocess.run(["dpkg-deb", "--extract", str(package()), str(folder)], check=True)


def later_version(folder, version):
    """The same package under a higher version, in the folder."""
    tree = pathlib.Path(folder, "tree")
    subprocess.run(["dpkg-deb", "--raw-extract", str(package()), str(tree)], check=True)
    control = tree / "DEBIAN" / "control"
    now = f"Version: {field('Version')}\n"
    text = control.read_text(encoding="utf-8")
    assert now in text
    control.write_text(text.replace(now, f"Version: {version}\n"), encoding="utf-8")
    later = pathlib.Path(folder, f"{NAME}_{version}.deb")
    said_by("dpkg-deb", "--root-owner-group", "-Znone", "--build", tree, later)
    shutil.rmtree(tree)
    return later
