#!/usr/bin/env python3
"""Makes dist/sound/alert.WAV, the program's own alert sound: two bell tones, 0.9 seconds.

  make_alert_sound.py FILE
"""

import math
import struct
import sys
import wave

RATE = 22050
LENGTH = 0.9
# Hertz, and the second at which the tone is struck.
TONES = ((880.0, 0.0), (1174.66, 0.18))
# A bell's partials: multiple of the tone, loudness, and how fast it decays.
PARTIALS = ((1.0, 0.6, 5.0), (2.0, 0.25, 8.0), (2.98, 0.1, 12.0))
LOUDNESS = 0.45


def sample(second):
    value = 0.0
    for hertz, struck in TONES:
        since = second - struck
        if since < 0:
            continue
        attack = min(1.0, since / 0.004)
        for multiple, loudness, decay in PARTIALS:
            value += (loudness * attack * math.exp(-decay * since)
                      * math.sin(2 * math.pi * hertz * multiple * since))
    fade = min(1.0, (LENGTH - second) / 0.05)
    return value * fade * LOUDNESS


def main():
    values = [round(32767 * max(-1.0, min(1.0, sample(i / RATE))))
              for i in range(int(RATE * LENGTH))]
    with wave.open(sys.argv[1], "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(struct.pack(f"<{len(values)}h", *values))


main()
