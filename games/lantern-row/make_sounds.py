#!/usr/bin/env python3
"""Makes the sounds of Lantern Row anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import STEP, mixed, note, write

SCALE = [392.0, 440.0, 523.3, 587.3, 659.3, 784.0, 880.0]  # five tones to the octave: any order sounds well
WOOD = ((1, 1.0, 1.0), (2, 0.35, 1.8), (4, 0.12, 3.5))  # a plucked string of soft wood


def string(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, WOOD)


SOUNDS = {
    "right": mixed((0, string(1047, 0.3, 0.25, 10)), (0.08, string(1319, 0.4, 0.25, 9))),
    "wrong": mixed((0, string(196, 0.4, 0.45, 8)), (0.1, string(165, 0.45, 0.45, 7))),
    "done": mixed((0, string(784, 0.4, 0.25, 7)), (0.1, string(1047, 0.4, 0.25, 7)), (0.2, string(1319, 0.7, 0.28, 5))),
}
for step, pitch in enumerate(SCALE):
    SOUNDS[f"note{step}"] = mixed((0, string(pitch, 0.45, 0.4, 8)))
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples, STEP if name.startswith("note") else None)
