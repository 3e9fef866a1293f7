#!/usr/bin/env python3
"""Makes the sounds of Ninth Tile anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

STONE = ((1, 1.0, 1.0), (2.76, 0.5, 2.2), (5.4, 0.22, 4.0))  # a struck bar: its overtones are no whole multiples


def bar(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, STONE)


SOUNDS = {
    "right": mixed((0, bar(587, 0.25, 0.3, 14)), (0.09, bar(880, 0.45, 0.3, 9))),
    "wrong": mixed((0, bar(208, 0.3, 0.45, 12)), (0.12, bar(175, 0.4, 0.45, 9))),
    "done": mixed((0, bar(587, 0.3, 0.26, 9)), (0.1, bar(740, 0.3, 0.26, 9)), (0.2, bar(880, 0.3, 0.26, 9)),
                  (0.3, bar(1175, 0.8, 0.28, 5))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
