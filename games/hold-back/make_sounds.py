#!/usr/bin/env python3
"""Makes the sounds of Hold Back anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import KEY, LOUDNESS, mixed, note, write

BLOCK = ((1, 1.0, 1.0), (2.7, 0.5, 2.2), (5.1, 0.25, 4.0))  # a block of hard wood: its partials are no octaves
GLASS = ((1, 1.0, 1.0), (3, 0.3, 1.6))


def block(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, BLOCK)


SOUNDS = {
    "tap": mixed((0, block(620, 0.12, 0.28, 42))),
    "held": mixed((0, note(988, 0.35, 0.2, 10, GLASS)), (0.05, note(1319, 0.35, 0.16, 10, GLASS))),
    "wrong": mixed((0, block(175, 0.32, 0.45, 11)), (0.1, block(139, 0.38, 0.45, 10))),
    "done": mixed((0, note(659, 0.4, 0.24, 8, GLASS)), (0.1, note(988, 0.4, 0.24, 8, GLASS)),
                  (0.2, note(1319, 0.7, 0.26, 5, GLASS))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples, {"tap": KEY, "held": LOUDNESS["right"]}.get(name))
