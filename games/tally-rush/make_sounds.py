#!/usr/bin/env python3
"""Makes the sounds of Tally Rush anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

DULL = ((1, 1.0, 1.0), (2, 0.5, 1.0))
SOUNDS = {
    "right": mixed((0, note(784, 0.18, 0.3, 16)), (0.06, note(1175, 0.24, 0.3, 14))),
    "wrong": mixed((0, note(233, 0.30, 0.4, 10, DULL)), (0.09, note(185, 0.32, 0.4, 9, DULL))),
    "done": mixed((0, note(659, 0.3, 0.28)), (0.09, note(784, 0.3, 0.28)), (0.18, note(1047, 0.55, 0.32, 6))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
