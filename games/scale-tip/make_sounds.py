#!/usr/bin/env python3
"""Makes the sounds of Scale Tip anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

BRASS = ((1, 1.0, 1.0), (2.76, 0.45, 1.6), (5.4, 0.25, 2.6), (8.93, 0.1, 4.0))  # a struck bar: weights that touch


def bar(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, BRASS)


def thud(gain):
    return note(98, 0.25, gain, 18, ((1, 1.0, 1.0), (1.5, 0.4, 1.5)))


SOUNDS = {
    "right": mixed((0, thud(0.25)), (0.03, bar(932, 0.35, 0.2, 11)), (0.1, bar(1245, 0.4, 0.2, 10))),
    "wrong": mixed((0, thud(0.45)), (0.04, bar(247, 0.35, 0.3, 12)), (0.16, bar(208, 0.4, 0.3, 10))),
    "done": mixed((0, bar(622, 0.5, 0.22, 6)), (0.12, bar(932, 0.5, 0.22, 6)), (0.24, bar(1245, 0.8, 0.25, 4))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
