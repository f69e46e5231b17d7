#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the alert's chime: a glass bell, two strokes a fifth apart. The same bytes every time.

usage: tools/make-chime.py [FILE]     default: alert/linux/sounds/Glass.wav
"""

import array
import math
import pathlib
import sys
import wave

RATE = 48_000
SECONDS = 1.3
PEAK = 0.5  # of full scale: heard across a room, startling nobody
ATTACK_SECONDS = 0.004
RELEASE_SECONDS = 0.06

# The partials of a struck glass: multiple of the tone, loudness, seconds until it has faded to 1/e.
PARTIALS = [(1.0, 1.0, 0.38), (2.32, 0.42, 0.20), (4.25, 0.20, 0.11), (6.63, 0.09, 0.06)]
# The strokes: when (seconds), tone (hertz), loudness.
STROKES = [(0.0, 1046.5, 0.8), (0.14, 1568.0, 1.0)]


def stroke(time: float, tone: float) -> float:
    """The sound of one stroke `time` seconds after it."""
    if time < 0:
        return 0.0
    attack = min(1.0, time / ATTACK_SECONDS)
    return attack * sum(
        loudness * math.exp(-time / fading) * math.sin(2 * math.pi * multiple * tone * time)
        for multiple, loudness, fading in PARTIALS
    )


def samples() -> array.array:
    count = round(RATE * SECONDS)
    sound = [sum(loudness * stroke(n / RATE - at, tone) for at, tone, loudness in STROKES) for n in range(count)]
    release = RATE * RELEASE_SECONDS
    sound = [value * min(1.0, (count - n) / release) for n, value in enumerate(sound)]
    loudest = max(abs(value) for value in sound)
    scaled = array.array("h", (round(value / loudest * PEAK * 32767) for value in sound))
    if sys.byteorder == "big":
        scaled.byteswap()
    return scaled


def main() -> None:
    here = pathlib.Path(__file__).resolve().parent.parent
    target = sys.argv[1] if len(sys.argv) > 1 else str(here / "alert/linux/sounds/Glass.wav")
    with wave.open(target, "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(samples().tobytes())


if __name__ == "__main__":
    main()
