#!/usr/bin/env python3
"""Makes the sounds of Odd Stone anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

STONE = ((1, 1.0, 1.0), (1.58, 0.6, 1.3), (2.24, 0.35, 1.8), (2.92, 0.2, 2.4))  # short and dull: a pebble on a pebble


def click(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, STONE)


SOUNDS = {
    "right": mixed((0, click(880, 0.14, 0.28, 32)), (0.07, click(1175, 0.2, 0.3, 24))),
    "wrong": mixed((0, click(262, 0.2, 0.45, 22)), (0.12, click(220, 0.3, 0.45, 16))),
    "done": mixed((0, click(784, 0.2, 0.26, 22)), (0.09, click(988, 0.2, 0.26, 22)), (0.18, click(1175, 0.25, 0.28, 18)),
                  (0.3, click(1568, 0.5, 0.28, 10))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
