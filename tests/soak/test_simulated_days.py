"""Thirty simulated days, in the program that VELMORA_SOAK names."""

import os
import subprocess
import unittest


class SimulatedDays(unittest.TestCase):
    def test_hold_no_more_than_the_first_two(self):
        program = os.environ.get("VELMORA_SOAK")
        if not program:
            self.skipTest("VELMORA_SOAK names no program")
        done = subprocess.run([program], capture_output=True, text=True, check=False)
        print(done.stdout)
        self.assertEqual(done.returncode, 0, done.stderr)
