#!/usr/bin/env python3
"""Makes the sounds of Turn or Mirror anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import mixed, note, write

GLASS = ((1, 1.0, 1.0), (2.76, 0.4, 2.2), (5.4, 0.12, 4.0))  # a rod of glass: its partials are no harmonics
BLOCK = ((1, 1.0, 1.0), (2.4, 0.5, 1.6))  # a block of wood

SOUNDS = {
    "right": mixed((0, note(880, 0.22, 0.26, 14, GLASS)), (0.07, note(1109, 0.32, 0.26, 11, GLASS))),
    "wrong": mixed((0, note(208, 0.24, 0.42, 16, BLOCK)), (0.11, note(175, 0.3, 0.42, 14, BLOCK))),
    "done": mixed((0, note(880, 0.3, 0.22, 8, GLASS)), (0.1, note(1109, 0.3, 0.22, 8, GLASS)),
                  (0.2, note(1319, 0.7, 0.26, 5, GLASS))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
