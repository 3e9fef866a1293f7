#!/usr/bin/env python3
"""Makes the sounds of Missing Operator anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

TONE = ((1, 1.0, 1.0), (4, 0.3, 3.0), (10, 0.08, 6.0))  # a bar of wood under a soft mallet
LOW = ((1, 1.0, 1.0), (2, 0.4, 1.2), (4, 0.3, 3.0))  # a long bar, whose octave small speakers can give


def tone(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, TONE)


SOUNDS = {
    "right": mixed((0, tone(880, 0.18, 0.34, 18)), (0.06, tone(1175, 0.26, 0.34, 16))),
    "wrong": mixed((0, note(220, 0.28, 0.45, 12, LOW)), (0.09, note(175, 0.32, 0.45, 11, LOW))),
    "done": mixed((0, tone(587, 0.25, 0.32, 12)), (0.08, tone(880, 0.25, 0.32, 12)), (0.16, tone(1175, 0.5, 0.36, 8))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
