"""The content of a folder, to compare it before and after a step."""

import os
import pathlib
import stat


def tree(folder):
    """Everything below the folder by its path: kind, permissions and content. No link is followed."""
    found = {}
    for place, folders, files in os.walk(folder):
        for name in folders + files:
            path = pathlib.Path(place, name)
            found[str(path.relative_to(folder))] = state_of(path)
    return found


def state_of(path):
    status = path.lstat()
    if stat.S_ISLNK(status.st_mode):
        return ("link", os.readlink(path))
    if stat.S_ISDIR(status.st_mode):
        return ("folder", stat.S_IMODE(status.st_mode))
    # A pipe would keep its reader waiting.
    if not stat.S_ISREG(status.st_mode):
        return ("special", stat.S_IFMT(status.st_mode))
    return ("file", stat.S_IMODE(status.st_mode), path.read_bytes())


def without(all_of_it, *names):
    """The same without these paths and what lies below them."""
    return {path: kind for path, kind in all_of_it.items()
            if not any(path == name or path.startswith(name + "/") for name in names)}
