#!/usr/bin/env python3
"""Breaks the code on purpose and tells which breaks no test notices.

  mutate.py [--count N] [--seed S] [--folder-share N] [FOLDER...]

FOLDER: a folder of src ("monitor") or a file in it; without one, every folder. For each folder N breaks
(100) are chosen at random by the seed. Each changes one token of one .cpp file in a private copy of the
tree, builds the unit test programs that see that file, and runs them: the folder's own first, then those
of the folders that use it. What only end-to-end tests see is left out. A break is noticed when a test fails,
crashes, or takes too long or too much memory. One that doesn't compile isn't counted.

Breaks that nobody could notice are listed with the reason in tests/structure/equivalent_breaks.txt, with
" @COLUMN" behind them where a line can break so in several places: they count as noticed. The others are
printed as "survived FILE:LINE  OLD -> NEW" with the line itself.

The copy, its build and the results so far lie in build/mutants: a run that was ended goes on where it
was, as long as the sources stay. The last line counts the folders of whose breaks at least 97 of 100 were
noticed.
"""

import argparse
import contextlib
import hashlib
import json
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
HOME = ROOT / "build" / "mutants"
EQUIVALENT = ROOT / "tests" / "structure" / "equivalent_breaks.txt"
SHARE = 0.97

# Seconds and bytes for one test program. A broken loop can ask for all there is. A program that has passed once
# gets TIMES_AS_LONG times that time and a minute.
TIME_LIMIT = 600
TIMES_AS_LONG = 4
# These wait most of the time, so their tests run in so many processes at once.
PROCESSES = {"test_platform": 4}
# A test that takes longer, in seconds, runs after the others: most breaks are noticed before.
LONG = 0.5
MEMORY_LIMIT = 8 << 30

# Whose tests look at a folder besides its own.
SEEN_BY = {
    "base": "console app",
    "controls": "rows monitor console",
    "rows": "monitor console app",
    "forms": "monitor shell console",
    "platform": "app",
    "alerts": "console app",
    "notify": "console app",
    "inspect": "console app",
    "persist": "shell app",
    "monitor": "shell console app",
    "shell": "app console",
    "console": "app",
    "app": "console qt",
    "qt": "",
}

SWAPS = [(re.compile(pattern), new) for pattern, new in (
    (r"(?<![<>=!-])<=(?!>)", "<"), (r"(?<![<>=!-])>=", ">"), ("==", "!="), ("!=", "=="),
    (r"(?<= )<(?= )", "<="), (r"(?<= )>(?= )", ">="), ("&&", "||"), (r"\|\|", "&&"),
    (r"(?<= )\+(?= )", "-"), (r"(?<= )-(?= )", "+"), (r"(?<= )\*(?= )", "/"), (r"(?<= )/(?= )", "*"),
    (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\+\+", "--"),
    (r"\bbreak;", ";"), (r"\bcontinue;", ";"))]
CONDITION = re.compile(r"(?<=if \()(?!constexpr)")
NUMBER = re.compile(r"(?<![\w.\"'#])(\d+)(?![\w.\"'])")
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')
CALL = re.compile(r"^\s+[\w.:>\-\[\]()]+\([^;{}]*\);$")
PASSED_OVER = ("//", "#", "*", "/*", "static_assert", "namespace", "using", "template")
DECLARED = re.compile(r"(const )?auto|(const )?\w[\w:<>*& ]* \w+ =")


def code_lines(text):
    """Index, line, and whether a statement begins with it, of each line that is code."""
    in_comment, begins = False, True
    for index, line in enumerate(text.split("\n")):
        bare = line.strip()
        starts = begins
        begins = not bare or bare.split("//")[0].rstrip().endswith((";", "{", "}", ":"))
        if in_comment or bare.startswith(PASSED_OVER):
            in_comment = (in_comment or bare.startswith("/*")) and "*/" not in bare
        else:
            yield index, line.split("//")[0], starts


def negated(code, start):
    """The end of the condition that begins there, and its opposite; nothing where it can't be one."""
    depth = 0
    for close in range(start, len(code)):
        depth += {"(": 1, ")": -1}.get(code[close], 0)
        if depth < 0:
            inner = code[start:close]
            return None if ";" in inner or DECLARED.match(inner) else (close, f"!({inner})")
    return None


def breaks_of_line(code, starts):
    """Start, end and replacement of each break of a line."""
    strings = [match.span() for match in TEXT.finditer(code)]

    def is_text(at):
        return any(first <= at < last for first, last in strings)

    if "operator" not in code and "template" not in code:
        for pattern, new in SWAPS:
            for match in pattern.finditer(code):
                if not is_text(match.start()):
                    yield match.start(), match.end(), new
        for match in CONDITION.finditer(code):
            opposite = negated(code, match.start())
            if opposite and not is_text(match.start()):
                yield match.start(), *opposite
    for match in NUMBER.finditer(code):
        if not is_text(match.start()):
            yield match.start(), match.end(), str(int(match.group(1)) + 1)
    for match in TEXT.finditer(code):
        if len(match.group(1)) > 1 and "\\" not in match.group(1):
            yield match.start(), match.end(), '"' + match.group(1)[:-1] + '"'
    if starts and CALL.match(code) and " = " not in code and not re.match(r"\s+(return|throw|delete)\b", code):
        yield len(code) - len(code.lstrip()), len(code), ";"


class Break:
    def __init__(self, file, index, line, start, end, new):
        self.file, self.index, self.line = file, index, line
        self.start, self.end, self.new = start, end, new

    def words(self):
        return f"{self.file}: {self.line.strip()} : {self.line[self.start:self.end]} -> {self.new}"

    def place(self):
        return f"{self.file}:{self.index + 1}  {self.line[self.start:self.end]} -> {self.new}"

    def name(self):
        return f"{self.words()} @{self.start}"

    def text(self, whole):
        lines = whole.split("\n")
        lines[self.index] = self.line[:self.start] + self.new + self.line[self.end:]
        return "\n".join(lines)


def breaks_of(file):
    text = (ROOT / file).read_text()
    lines = text.split("\n")
    return [Break(file, index, lines[index], start, end, new)
            for index, code, starts in code_lines(text) for start, end, new in breaks_of_line(code, starts)]


def run(command, **more):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace", stdin=subprocess.DEVNULL, **more)


def copy_tree(copy):
    """Only what differs is written, so that only it is built again."""
    listed = run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT).stdout.split("\n")
    for name in filter(None, listed):
        source, target = ROOT / name, copy / name
        if source.is_file() and not (target.is_file() and source.read_bytes() == target.read_bytes()):
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
            target.chmod(source.stat().st_mode)


def parts_of(report):
    """The filters of the short tests and of the long ones, with the time limit of each; long ones alone if
    there are any."""
    times = {f"{suite['name']}.{test['name']}": float(test["time"].rstrip("s"))
             for suite in json.loads(report.read_text())["testsuites"] for test in suite["testsuite"]}
    long_ones = [name for name, time in times.items() if time > LONG]
    short_time = sum(time for time in times.values() if time <= LONG)
    parts = [("--gtest_filter=-" + ":".join(long_ones), 60 + TIMES_AS_LONG * short_time)]
    if long_ones:
        long_time = sum(times[name] for name in long_ones)
        parts.append(("--gtest_filter=" + ":".join(long_ones), 60 + TIMES_AS_LONG * long_time))
    return parts


def all_pass(running, limit):
    """Whether all of these processes end well within the limit, in seconds. Doesn't wait for the rest once one
    hasn't."""
    end = time.monotonic() + limit
    while time.monotonic() < end:
        ended = [each.poll() for each in running]
        if any(ended):
            return False
        if None not in ended:
            return True
        time.sleep(0.02)
    return False


def end_group(process):
    """Ends a process with all that it has started and left running."""
    with contextlib.suppress(ProcessLookupError):
        os.killpg(process.pid, signal.SIGKILL)
    process.wait()


class Build:
    def __init__(self):
        self.copy, self.folder = HOME / "tree", HOME / "build"
        self.copy.mkdir(parents=True, exist_ok=True)
        copy_tree(self.copy)
        if not (self.folder / "build.ninja").exists():
            linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"] if shutil.which("ld.lld") else []
            made = run(["cmake", "-S", self.copy, "-B", self.folder, "-G", "Ninja", *linker,
                        "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS"])
            if made.returncode:
                sys.exit(made.stdout[-2000:])
        rules = (self.folder / "build.ninja").read_text()
        self.targets = set(re.findall(r"^build (test_\w+): phony", rules, re.M))
        self.parts = {}  # options and time limits of the parts of a test program

    def programs_for(self, folder):
        names = [f"test_{name}" for name in [folder, *SEEN_BY.get(folder, "").split()]]
        return [name for name in names if name in self.targets]

    def is_built(self, target):
        return run(["cmake", "--build", self.folder, "--target", target]).returncode == 0

    def whole(self, folder):
        """What is wrong without any break; nothing when all is well. Finds out which tests take long."""
        for target in self.programs_for(folder):
            if not self.is_built(target):
                return "build"
            report = HOME / f"{target}.json"
            if not self.passes(target, f"--gtest_output=json:{report}"):
                return target
            self.parts[target] = parts_of(report)
            if not self.passes_in_parts(target):
                return target
        return None

    def broken_by(self, folder):
        """The test program that fails now, or "build"; nothing when all pass."""
        for target in self.programs_for(folder):
            if not self.is_built(target):
                return "build"
            if not self.passes_in_parts(target):
                return target
        return None

    def passes_in_parts(self, target):
        return all(self.passes(target, option, limit, PROCESSES.get(target, 1))
                   for option, limit in self.parts[target])

    def passes(self, target, option, limit=TIME_LIMIT, count=1):
        """In mounts and a folder for passing files of their own: what is killed leaves some behind."""
        program = next(path for path in self.folder.rglob(target) if path.is_file())
        apart = ["unshare", "-m"] if os.geteuid() == 0 else []
        def bound():
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
        running = []
        with tempfile.TemporaryDirectory(prefix="break", ignore_cleanup_errors=True) as scratch:
            os.chmod(scratch, 0o1777)  # some tests look at it as another user
            try:
                for i in range(count):
                    shard = {"GTEST_TOTAL_SHARDS": str(count), "GTEST_SHARD_INDEX": str(i), "TMPDIR": scratch}
                    running.append(subprocess.Popen(
                        [*apart, program, "--gtest_brief=1", "--gtest_fail_fast", option], cwd=self.folder,
                        stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                        env={**os.environ, **shard}, preexec_fn=bound, start_new_session=True))
                return all_pass(running, limit)
            finally:
                for each in running:
                    end_group(each)

    def try_break(self, each, folder):
        target = self.copy / each.file
        whole = (ROOT / each.file).read_text()
        target.write_text(each.text(whole))
        try:
            return self.broken_by(folder)
        finally:
            target.write_text(whole)


class Results:
    """What was found so far, by the break and the sources and tests that it was tried on."""

    def __init__(self):
        self.path = HOME / "results.json"
        self.found = json.loads(self.path.read_text()) if self.path.exists() else {}
        digest = hashlib.sha256()
        for path in sorted([*(ROOT / "src").rglob("*.*"), *(ROOT / "tests").rglob("*.*")]):
            if path.suffix in (".cpp", ".h"):
                digest.update(path.read_bytes())
        self.state = digest.hexdigest()[:16]

    def of(self, each):
        return self.found.get(f"{self.state} {each.name()}")

    def keep(self, each, result):
        self.found[f"{self.state} {each.name()}"] = result
        self.path.write_text(json.dumps(self.found, indent=0))


def equivalent_breaks():
    if not EQUIVALENT.exists():
        return set()
    lines = EQUIVALENT.read_text().split("\n")
    return {line.strip() for line in lines if line.strip() and not line.startswith("#")}


# Linked into the programs alone, which the end-to-end tests start.
PROGRAMS_ALONE = {"line_editor.cpp", "streams.cpp"}


def sources(given):
    path = ROOT / "src" / given
    files = [path] if path.is_file() else sorted(path.rglob("*.cpp"))
    return [file.relative_to(ROOT) for file in files
            if "windows" not in file.parts and not file.name.endswith("main.cpp")
            and not ("app" in file.parts and file.name in PROGRAMS_ALONE)]


def run_folder(build, results, given, count, seed):
    """Whether enough of the folder's breaks are noticed."""
    folder = pathlib.Path(given).parts[0]
    broken = build.whole(folder)
    if broken:
        print(f"{given}: {broken} fails without any break")
        return False
    known = equivalent_breaks()
    every = [each for file in sources(given) for each in breaks_of(file)]
    random.Random(seed).shuffle(every)
    noticed, survived = 0, 0
    for each in every:
        if noticed + survived >= count:
            break
        result = results.of(each) or build.try_break(each, folder) or "survived"
        results.keep(each, result)
        if result == "build":
            continue
        if result != "survived" or each.words() in known or each.name() in known:
            noticed += 1
        else:
            survived += 1
            print(f"survived {each.place()}\n    {each.line.strip()}", flush=True)
    print(f"{given}: {noticed} of {noticed + survived} breaks noticed, seed {seed}", flush=True)
    return noticed >= SHARE * (noticed + survived)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--count", type=int, default=100)
    parser.add_argument("--seed", type=int, default=17)
    parser.add_argument("folders", nargs="*", default=list(SEEN_BY))
    args = parser.parse_args()
    os.environ.update(CCACHE_DISABLE="1", QT_QPA_PLATFORM="offscreen", LANG="C.UTF-8")
    build, results = Build(), Results()
    passed = [run_folder(build, results, folder, args.count, args.seed) for folder in args.folders]
    print(f"{sum(passed)} passed, {len(passed) - sum(passed)} failed")
    sys.exit(not all(passed))


if __name__ == "__main__":
    main()
