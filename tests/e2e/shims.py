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

extern long syscall(long number, ...);
#include <sys/syscall.h>

/* Its children load nothing. */
static pid_t program;
__attribute__((constructor)) static void begin(void) { program = getpid(); }

static int is_end(const char* call, int file) {
    const char* chosen = getenv("VELMORA_END_AT");
    struct stat status;
    const int is_file = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    return chosen && is_file && strcmp(chosen, call) == 0;
}

static void end_at(const char* call, int file) {
    if (!is_end(call, file)) return;
    kill(program, SIGKILL);
    if (getenv("VELMORA_END_CHILDREN")) raise(SIGKILL);
}

ssize_t write(int file, const void* bytes, size_t size) {
    const size_t page = 4096;
    if (size > page && is_end("write", file)) {
        syscall(SYS_write, file, bytes, page);
        end_at("write", file);
        const ssize_t more = syscall(SYS_write, file, (const char*)bytes + page, size - page);
        return more < 0 ? more : more + (ssize_t)page;
    }
    return syscall(SYS_write, file, bytes, size);
}

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


def ending_at(call, folder, children=True):
    """The environment in which a program is killed in front of a call on a regular file, in a write
    behind its first page; with or without the child that makes the call."""
    library = pathlib.Path(folder, "shim.so")
    if not library.exists():
        _compile(library)
    # The sanitizer's own library need not come first.
    sanitizer = ":".join(filter(None, [os.environ.get("ASAN_OPTIONS"), "verify_asan_link_order=0"]))
    all_of_it = {"VELMORA_END_CHILDREN": "1"} if children else {}
    return {"LD_PRELOAD": str(library), "VELMORA_END_AT": call, "ASAN_OPTIONS": sanitizer,
            **all_of_it}


def _compile(library):
    compiler = shutil.which("cc") or shutil.which("gcc")
    if compiler is None:
        raise Unavailable("no C compiler")
    with tempfile.NamedTemporaryFile("w", suffix=".c") as source:
        source.write(SOURCE)
        source.flush()
        subprocess.run([compiler, "-shared", "-fPIC", "-o", str(library), source.name], check=True)
