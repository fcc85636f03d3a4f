"""The program is killed at every call of its start, of saving, moving, deleting, recycling and logging, and at random moments."""

import os
import random
import signal
import subprocess
import time

import filesystems
import scenarios
from fault_cases import FaultCase
from verdict import plain

# Of one scenario, at random moments; with those at each call they are more than a thousand.
RANDOM_KILLS = int(os.environ.get("VELMORA_KILLS", "60"))
SEED = 17

counts = {}


def tearDownModule():
    for name, (exact, at_random) in counts.items():
        print(f"{name}: killed {exact} times at a call, {at_random} times at a random moment")
    print(f"kills in all: {sum(map(sum, counts.values()))}")


class KillSweep(FaultCase):
    def sweep(self, make, target=filesystems.Tmpfs):
        self.begin(make, target)
        self.log_without_kill = self.world.log.read_bytes() if self.world.log.exists() else b""
        self.wrong = []
        exact = 0
        for number in range(1, self.base.counted + 1):
            for what in ("kill", "kill-all"):
                run = self.run_anew(what=what, number=number)
                if not run.calls:
                    continue  # it had fewer calls this time
                self.assertEqual(run.status, 128 + signal.SIGKILL)
                exact += 1
                self.look(f"{what} at {run.calls[0]}")
        at_random = self.kill_at_random()
        counts[self.id().split(".")[-1]] = (exact, at_random)
        self.assertEqual(self.wrong, [], "\n".join(self.wrong))

    def kill_at_random(self):
        """How many kills came while the program lived."""
        dice = random.Random(SEED)
        start = time.monotonic()
        self.alone().wait()
        life = time.monotonic() - start
        hits = tries = 0
        while hits < RANDOM_KILLS and tries < 4 * RANDOM_KILLS:
            tries += 1
            program = self.alone()
            time.sleep(dice.uniform(0, life))
            hits += program.poll() is None
            program.kill()
            program.wait()
            self.wait_for_writer()
            self.look(f"a random kill ({tries})")
        return hits

    def alone(self):
        """The program without its tracer, after its input is written."""
        self.world.reset()
        program = subprocess.Popen(self.command(), stdin=subprocess.PIPE, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, env=self.world.environment())
        program.stdin.write(("\n".join(self.scenario.lines()) + "\n").encode())
        program.stdin.close()
        return program

    def wait_for_writer(self):
        """The process that writes the settings outlives the program; it holds the lock."""
        subprocess.run(["flock", "--shared", str(self.world.settings), "true"], check=True)

    def look(self, when):
        """Everything is whole, at once and behind the next start."""
        now = self.world.trees()
        wrong = [*self.verdict.whole(now, is_on_the_way=True), *self.log_is_cut(now)]
        wrong += [f"left: {path}" for path in self.left_after_a_start()]
        self.wrong += [f"{when}: {what}" for what in wrong]

    def log_is_cut(self, now):
        """All lines but the last are those of a run that wasn't killed."""
        content = now["program"].get("log.dat", ("", 0, b""))[2]
        lines = [plain(line.decode()) for line in content.split(b"\r\n")]
        usual = [plain(line.decode()) for line in self.log_without_kill.split(b"\r\n")]
        if lines[:-1] != usual[:len(lines) - 1] and self.scenario.name != "log":
            yield f"the log is not whole: {content}"


# Each class is a part that ./test runs for itself.
class KilledStarts(KillSweep):
    def test_start(self):
        self.sweep(scenarios.start)

    def test_first_start(self):
        self.sweep(scenarios.first_start)


class KilledSteps(KillSweep):
    def test_save(self):
        self.sweep(scenarios.save)

    def test_log(self):
        self.sweep(scenarios.log)

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

    def test_check_that_recycles_and_saves(self):
        self.sweep(scenarios.recycling)
