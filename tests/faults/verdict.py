"""What a run with a fault may have done, compared with the same run without one."""

import errno
import re

from settings import plain_lines
from world import CONTENT

WRITING = ("fallocate", "fsync", "ftruncate", "write")
OWN_FILES = ("/set.dat", "/log.dat")
EVENT = re.compile(r"(alert|box|hint|shell|status|error)\b")


def plain(line):
    """Without figures, times and ids, which differ from run to run."""
    return re.sub(r"[\d.,/:]*\d", "#", line)


def said(run):
    """All that the program has told beside its replies."""
    lines = [line for line in run.output.splitlines() if EVENT.match(line)]
    return sorted(map(plain, lines + run.errors.splitlines()))


def answers(run):
    """How things stood behind the steps."""
    text = run.output
    for mark, part in (("==end==\n", 1), ("==again==\n", 0)):
        if mark not in text:
            return None
        text = text.split(mark, 1)[part]
    return [plain(line) for line in text.splitlines()]


def whole_settings(content):
    lines = plain_lines(content.replace(b" \r\n", b"\r\n"))
    return [line.rstrip("\r\n") for line in lines if line]


class Verdict:
    """`before`, `between` and `after` are the world's trees before a run without a fault, behind its steps and at its
    end; `base` is that run."""

    def __init__(self, scenario, base, before, between, after):
        self.scenario, self.base = scenario, base
        self.before, self.between, self.after = before, between, after

    def complaints(self, run, now):
        """What is wrong with another run and the trees that it left."""
        # Where it can't be seen whether the source is still there, the copy stays.
        is_unseen = len(run.calls) == 1 and run.calls[0].name == "newfstatat" and run.calls[0].path in CONTENT
        return [*self._life(run), *self.whole(now, is_unseen), *self._log(now), *self._told(run, now),
                *self._handles(run)]

    def whole(self, now, is_on_the_way):
        """What is wrong with the files. One that is on its way to another drive can be there twice, both whole."""
        return [*self._kept(now), *self._listed(now, is_on_the_way), *self._settings(now)]

    def _life(self, run):
        if run.status in (0, 1, 2) and (run.status == 0 or "error" in run.output or run.errors) and self.scenario.begin != "-":
            return  # a start may end with an error that is told
        if run.status != 0:
            yield f"status {run.status}: {run.errors[-300:]}"
        if self._was_left(run):
            return
        if "==last==" not in run.output:
            yield "the program did not go on"
        elif "Times Checked" not in run.output.split("==again==")[1]:
            yield "the next check did not come"

    @staticmethod
    def _was_left(run):
        """Whether a connection failed, which is waited for until the user leaves."""
        return "Exit the program?" in run.output and run.calls[0].name in ("clone3", "connect", "poll", "socket")

    def _kept(self, now):
        """What no step names stays as it was."""
        for place in ("small", "other"):
            for path, state in self.before[place].items():
                listed = path in CONTENT or path.split("/")[0] == "old"
                if not listed and now[place].get(path) != state:
                    yield f"{place}/{path} was touched"

    def _listed(self, now, is_on_the_way):
        for name, content in CONTENT.items():
            places = [f"{place}/{path}" for place in ("small", "other") for path, state in now[place].items()
                      if state[0] == "file" and state[2] == content]
            if len(places) > (2 if is_on_the_way else 1):
                yield f"{name} is there twice: {places}"
            if not places and name not in self.scenario.gone:
                yield f"{name} is lost"
            if places and name in self.scenario.gone and places != [f"small/{name}"]:
                yield f"{name} was moved to {places}"
        for path, state in self.before["small"].items():
            if path.startswith("old") and "old" not in self.scenario.gone and now["small"].get(path) != state:
                yield f"{path} was touched"

    def _settings(self, now):
        content = now["program"]["set.dat"][2]
        allowed = [whole_settings(trees["program"]["set.dat"][2])
                   for trees in (self.before, self.between, self.after)]
        if whole_settings(content) not in allowed:
            yield "the settings are neither old nor new"

    def _log(self, now):
        content = now["program"].get("log.dat", ("", 0, b""))[2]
        if content and not content.endswith(b"\r\n"):
            yield f"the last line of the log is cut: {content[-60:]}"

    def _told(self, run, now):
        """What isn't as without the fault is told."""
        differs = answers(run) != answers(self.base) or self._names(now) != self._names(self.after)
        if differs and said(run) == said(self.base):
            yield f"nothing was told of what differs: {answers(run)} {self.differing(now)}"

    def wrongly_told(self, run, error):
        """A full disk is told as one, and nothing else is."""
        told = set(said(run)) - set(said(self.base))
        is_full = any("Disk full" in line for line in told)
        if is_full and error != errno.ENOSPC:
            yield f"a full disk is told: {told}"
        of_own_file = any(call.name in WRITING and call.file.endswith(OWN_FILES) for call in run.calls)
        if error == errno.ENOSPC and of_own_file and told and not is_full:
            yield f"no full disk is told: {told}"

    @staticmethod
    def _names(trees):
        return {place: {plain(path) for path in trees[place]} for place in ("small", "other")}

    def differing(self, now):
        """Paths that one of both has alone."""
        return [sorted(set(now[place]) ^ set(self.after[place])) for place in ("small", "other", "program")]

    def leftovers(self, now):
        """What a run without the fault doesn't leave."""
        for place in ("small", "other", "program", "home"):
            known = {plain(path) for trees in (self.before, self.after) for path in trees[place]}
            for path in now[place]:
                if plain(path) not in known:
                    yield f"{place}/{path}"

    def _handles(self, run):
        for mark in ("end", "last"):
            now, usual = run.files.get(mark), self.base.files.get(mark)
            if now is not None and len(now) > len(usual):
                yield f"open at {mark}: {sorted(set(now) - set(usual)) or now}"
