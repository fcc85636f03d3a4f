"""Runs a program under fail_call (fail_call.c), which lets one of its system calls fail or kills it there."""

import collections
import errno
import pathlib
import shutil
import subprocess

SOURCE = pathlib.Path(__file__).with_name("fail_call.c")
BEGIN, END, AGAIN, LAST = ("set txtFileType.Text ==%s==\nget txtFileType" % name
                           for name in ("begin", "end", "again", "last"))

# A run takes a tenth of a second; the longest wait of the program itself is that for a mail server.
PATIENCE = 100

# What each call can fail with where the disk, the rights or the memory are at an end.
ANYWHERE = (errno.EIO, errno.ENOMEM)
PATHS = (*ANYWHERE, errno.EACCES)
MAKING = (*PATHS, errno.ENOSPC)
ERRORS = collections.defaultdict(lambda: ANYWHERE, {
    **dict.fromkeys(("access", "chdir", "connect", "execve", "faccessat", "faccessat2", "lstat", "newfstatat", "open",
                     "readlink", "readlinkat", "rmdir", "stat", "statfs", "statx", "unlink", "unlinkat", "utimensat",
                     "fchmod", "fchown"), PATHS),
    **dict.fromkeys(("openat", "openat2", "mkdir", "mkdirat", "link", "linkat", "symlinkat", "rename", "renameat",
                     "renameat2", "socket"), MAKING),
    **dict.fromkeys(("write", "writev", "pwrite64", "sendfile", "copy_file_range", "fallocate", "ftruncate", "fsync",
                     "fdatasync"), (*ANYWHERE, errno.ENOSPC)),
    **dict.fromkeys(("clone", "clone3", "fork", "vfork"), (errno.EAGAIN, errno.ENOMEM)),
})

Call = collections.namedtuple("Call", "number process name file path")


class Unavailable(Exception):
    """There is no compiler, or not this kind of machine."""


def compiled(folder):
    """The program fail_call, made in a folder."""
    program = pathlib.Path(folder, "fail_call")
    compiler = shutil.which("cc") or shutil.which("gcc")
    if compiler is None:
        raise Unavailable("no C compiler")
    done = subprocess.run([compiler, "-O1", "-o", str(program), str(SOURCE)], capture_output=True, text=True,
                          check=False)
    if done.returncode:
        raise Unavailable("fail_call can't be made: " + done.stderr[-300:])
    return program


class Run:
    """What a program did: `status`, `output`, `errors`, the counted or chosen `calls` and the open `files` by mark."""

    def __init__(self, done, report):
        self.status = done.returncode
        self.output = done.stdout.decode("utf-8")
        self.errors = done.stderr.decode("utf-8", errors="replace")
        self.calls = []
        self.files = {}
        self.counted = 0
        for line in report.read_text("utf-8", errors="replace").splitlines():
            kind, *words = line.split("\t")
            if kind == "call":
                self.calls.append(Call(int(words[0]), *words[1:]))
            elif kind == "files":
                self.files[words[0]] = words[1:]
            elif kind == "counted":
                self.counted = int(words[0])


class Tracer:
    def __init__(self, folder):
        self.program = compiled(folder)
        self.report = pathlib.Path(folder, "report")

    def run(self, command, lines, environment, *, what="count", number=0, error=0, begin="-"):
        """Runs a command with these lines as its input."""
        self.report.unlink(missing_ok=True)
        traced = [str(self.program), str(self.report), begin, what, str(number), str(error), *command]
        done = subprocess.run(traced, input=("\n".join(lines) + "\n").encode("utf-8"), capture_output=True,
                              timeout=PATIENCE, check=False, env=environment)
        return Run(done, self.report)
