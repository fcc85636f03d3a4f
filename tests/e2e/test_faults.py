"""Some of the calls of the system that tests/faults lets fail, in the scenarios where most is at stake."""

import os
import random
import sys

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), os.pardir, "faults"))

import scenarios  # noqa: E402
from fault_cases import Sweep  # noqa: E402

CALLS = 3
# Of so many, the first that a run comes to: it may make fewer calls than another.
CHOSEN = 12
SEED = 5


def some(calls):
    return random.Random(SEED).sample(calls, min(CHOSEN, len(calls)))


class SomeFailingCalls(Sweep):
    @staticmethod
    def is_programs(call):
        """The sanitizers look at memory through pipes of their own."""
        return call.name != "pipe2" and not call.file.startswith("pipe:")

    def test_check(self):
        self.sweep(scenarios.recycling, chosen=some, enough=CALLS)

    def test_save(self):
        self.sweep(scenarios.save, chosen=some, enough=CALLS)

    def test_move_to_another_drive(self):
        self.sweep(scenarios.move_over, chosen=some, enough=CALLS)
