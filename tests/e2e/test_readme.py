"""The transcript in the README is what the program prints, except for its figures."""

import pathlib
import re
import subprocess
import os

from cases import ConsoleCase

README = pathlib.Path(__file__).parents[2] / "README.md"
PROMPT = "> "


def transcript():
    """Commands and everything printed, out of the README's block that begins with the greeting."""
    block = re.search(r"```\n(Velmora console\..*?)```", README.read_text("utf-8"), re.S).group(1)
    lines = block.splitlines()
    commands = [line.removeprefix(PROMPT) for line in lines if line.startswith(PROMPT)]
    return commands, [line for line in lines if not line.startswith(PROMPT)]


def masked(lines):
    """Without figures, and without the drives that only some machines have."""
    shown = [line for line in lines if not re.match(r"([2-9]|\d\d) \[", line)]
    return [re.sub(r"\d[\d,]*", "0", line) for line in shown]


class Readme(ConsoleCase):
    def setUp(self):
        super().setUp()
        self.console.close()

    def test_the_transcript_is_what_the_program_prints(self):
        commands, printed = transcript()
        output = subprocess.run([os.environ["VELMORA_CONSOLE"]], input="\n".join(commands) + "\n",
                              capture_output=True, text=True, timeout=120, check=True).stdout
        self.assertEqual(masked(output.splitlines()), masked(printed))
