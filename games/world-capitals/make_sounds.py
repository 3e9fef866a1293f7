#!/usr/bin/env python3
"""Makes the sounds of World Capitals anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

TONE = ((1, 1.0, 1.0), (3, 0.2, 2.2), (5, 0.08, 4.0))  # a clarinet that is blown short: odd partials alone
LOW = ((1, 1.0, 1.0), (3, 0.35, 1.4), (5, 0.12, 2.5))  # its deep end, where they are stronger


def tone(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, TONE)


SOUNDS = {
    "right": mixed((0, tone(698, 0.22, 0.3, 13)), (0.07, tone(1047, 0.34, 0.28, 11))),
    "wrong": mixed((0, note(262, 0.3, 0.36, 10, LOW)), (0.1, note(208, 0.38, 0.36, 9, LOW))),
    "done": mixed((0, tone(698, 0.3, 0.28, 9)), (0.09, tone(880, 0.3, 0.26, 9)), (0.18, tone(1397, 0.6, 0.28, 6))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
