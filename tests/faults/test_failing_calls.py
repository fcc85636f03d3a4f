"""Each call of the system fails once, with each error that suits it, in each scenario."""

import filesystems
import scenarios
from fault_cases import Sweep
from verdict import plain


def tearDownModule():
    for name, (calls, failed) in Sweep.counts.items():
        print(f"{name}: {calls} calls, failed {failed} times")
    print(f"calls that failed in all: {sum(failed for _, failed in Sweep.counts.values())}")


def one_of_each(calls):
    """The first of all calls that differ in figures only."""
    kinds = {(call.process, call.name, plain(call.file), plain(call.path)): call for call in reversed(calls)}
    return sorted(kinds.values())


# Each class is a part that ./test runs for itself.
class FailingChecks(Sweep):
    def test_check_with_events_and_actions(self):
        self.sweep(scenarios.check)

    def test_check_that_recycles_and_saves(self):
        self.sweep(scenarios.recycling)

    def test_check_that_moves_and_runs(self):
        self.sweep(scenarios.running)


class FailingOperations(Sweep):
    def test_move(self):
        self.sweep(scenarios.move)

    def test_move_to_another_drive(self):
        self.sweep(scenarios.move_over)

    def test_move_to_a_drive_without_unnamed_files(self):
        self.sweep(scenarios.move_over, filesystems.WithoutUnnamedFiles)

    def test_delete(self):
        self.sweep(scenarios.delete)

    def test_delete_all(self):
        self.sweep(scenarios.delete_all)

    def test_recycle_all(self):
        self.sweep(scenarios.recycle_all)


class FailingRest(Sweep):
    def test_start(self):
        self.sweep(scenarios.start)

    def test_first_start(self):
        self.sweep(scenarios.first_start)

    def test_mail(self):
        self.sweep(scenarios.mail)

    def test_save(self):
        self.sweep(scenarios.save)

    def test_log(self):
        self.sweep(scenarios.log)

    def test_inspection(self):
        # The list of processes looks at each process of the machine in the same way: one of each kind is enough.
        self.sweep(scenarios.inspection, chosen=one_of_each)
