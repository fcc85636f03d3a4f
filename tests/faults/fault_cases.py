"""What the fault tests share: a world with its tracer, and a run that is compared with the one without a fault."""

import errno
import os
import pathlib
import re
import shutil
import tempfile
import time
import unittest

import filesystems
import tracer
from verdict import Verdict
from world import World

# A fault that leaves something behind: the start that must clear it.
NEXT_START = ["get txtAmt"]
NOTE = re.compile(r"^home/\.local/state/velmora/moving-\d+-\d+$")
MONTH = 31 * 24 * 3600


class FaultCase(unittest.TestCase):
    """A test with `self.world`; `target` is the filesystem that files are moved to."""

    def begin(self, make, target=filesystems.Tmpfs):
        built = os.environ.get("VELMORA_CONSOLE")
        if not built:
            self.skipTest("VELMORA_CONSOLE names no program")
        folder = pathlib.Path(tempfile.mkdtemp(prefix="velmora-faults-"))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        try:
            self.tracer = tracer.Tracer(folder)
            self.world = World(built, folder, target)
        except (tracer.Unavailable, filesystems.Unavailable) as why:
            self.skipTest(str(why))
        self.addCleanup(self.world.close)
        self.scenario = make(self.world)
        self.world.reset()
        before = self.world.trees()
        self.tracer.run(self.command(), self.scenario.first_lines(), self.world.environment())
        between = self.world.trees()
        self.base = self.run_anew()
        self.verdict = Verdict(self.scenario, self.base, before, between, self.world.trees())
        self.assertEqual(list(self.verdict.complaints(self.base, self.world.trees())), [], self.base.output)

    def command(self):
        return [str(self.world.program), "--keep-running", *self.scenario.options]

    def run_anew(self, **fault):
        """Runs the scenario from the beginning."""
        self.world.reset()
        return self.tracer.run(self.command(), self.scenario.lines(), self.world.environment(),
                               begin=self.scenario.begin, **fault)

    def left_after_a_start(self):
        """What neither the run nor the next start has cleared."""
        if not self.leftovers():
            return []
        self.start_again()
        left = self.leftovers()
        notes = [path for path in left if NOTE.search(path)]
        # A note whose copy can't be found may be of a drive that isn't there now: it stays for a month.
        if left and left == notes:
            for path in notes:
                os.utime(self.world.folder / path, (time.time() - MONTH,) * 2)
            self.start_again()
        return self.leftovers()

    def leftovers(self):
        return list(self.verdict.leftovers(self.world.trees()))

    def start_again(self):
        self.tracer.run(self.command(), NEXT_START, self.world.environment())


class Sweep(FaultCase):
    """Lets calls fail in turn; `counts` has how many calls each test's scenario makes, and how many failed."""

    counts = {}

    def sweep(self, make, target=filesystems.Tmpfs, chosen=list, enough=None):
        """Each of the chosen calls fails with each error that suits it, until `enough` calls have failed.

        How many calls a run makes varies a little with the time that it takes: a few are missed."""
        self.begin(make, target)
        self.assertGreater(self.base.counted, 0)
        wrong = []
        reached = failed = missed = 0
        for call in chosen(list(filter(self.is_programs, self.base.calls))):
            if reached == enough:
                break
            before = failed
            for error in tracer.ERRORS[call.name]:
                run = self.run_anew(what="fail", number=call.number, error=error)
                if not run.calls:
                    missed += 1  # this run made fewer calls
                    continue
                failed += 1
                wrong += [f"{errno.errorcode[error]} at {call}: {what}" for what in self.after_failure(run, error)]
            reached += failed > before
        if enough is None:
            self.assertLessEqual(missed, failed // 10)
        else:
            self.assertEqual(reached, enough)
        self.counts[self.id().split(".")[-1]] = (self.base.counted, failed)
        self.assertEqual(wrong, [], "\n".join(wrong))

    @staticmethod
    def is_programs(_):
        """Whether a call is one of the program itself."""
        return True

    def after_failure(self, run, error):
        if not all(map(self.is_programs, run.calls)):
            return
        yield from self.verdict.complaints(run, self.world.trees())
        yield from self.verdict.wrongly_told(run, error)
        for path in self.left_after_a_start():
            yield "left: " + path
