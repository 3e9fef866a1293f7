#!/usr/bin/env python3
"""Makes the sounds of Quiet Rule anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

FLUTE = ((1, 1.0, 1.0), (2, 0.12, 1.3), (3, 0.06, 1.6))  # soft: it sounds at every card
LOW = ((1, 1.0, 1.0), (2, 0.4, 1.2), (3, 0.2, 1.5))  # a larger pipe, whose overtones small speakers can give


def breath(pitch, length, gain, decay=8.0):
    return note(pitch, length, gain, decay, FLUTE)


SOUNDS = {
    "right": mixed((0, breath(698, 0.16, 0.28, 16)), (0.05, breath(932, 0.22, 0.26, 14))),
    "wrong": mixed((0, note(220, 0.3, 0.5, 11, LOW)), (0.1, note(185, 0.38, 0.5, 9, LOW))),
    "done": mixed((0, breath(698, 0.4, 0.26, 6)), (0.12, breath(880, 0.4, 0.26, 6)),
                  (0.24, breath(1047, 0.8, 0.28, 4))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
