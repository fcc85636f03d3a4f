"""Libraries loaded in front of the system's, which end a program at a chosen call."""

import os
import pathlib
import shutil
import subprocess
import tempfile

SOURCE = r"""
#define _GNU_SOURCE
#include <signal.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

static void end_at(const char* call, int file) {
    const char* chosen = getenv("VELMORA_END_AT");
    struct stat status;
    const int is_file = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    if (chosen && is_file && strcmp(chosen, call) == 0) raise(SIGKILL);
}

extern long syscall(long number, ...);
#include <sys/syscall.h>

int ftruncate(int file, off_t size) {
    end_at("ftruncate", file);
    return (int)syscall(SYS_ftruncate, file, size);
}
int ftruncate64(int file, off_t size) { return ftruncate(file, size); }
int fsync(int file) {
    end_at("fsync", file);
    return (int)syscall(SYS_fsync, file);
}
"""


class Unavailable(Exception):
    """There is no compiler."""


def ending_at(call, folder):
    """The environment in which a program is killed in front of a call on a regular file."""
    library = pathlib.Path(folder, "shim.so")
    if not library.exists():
        _compile(library)
    # The sanitizer's own library need not come first.
    sanitizer = ":".join(filter(None, [os.environ.get("ASAN_OPTIONS"), "verify_asan_link_order=0"]))
    return {"LD_PRELOAD": str(library), "VELMORA_END_AT": call, "ASAN_OPTIONS": sanitizer}


def _compile(library):
    compiler = shutil.which("cc") or shutil.which("gcc")
    if compiler is None:
        raise Unavailable("no C compiler")
    with tempfile.NamedTemporaryFile("w", suffix=".c") as source:
        source.write(SOURCE)
        source.flush()
        subprocess.run([compiler, "-shared", "-fPIC", "-o", str(library), source.name], check=True)
