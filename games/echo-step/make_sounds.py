#!/usr/bin/env python3
"""Makes the sounds of Echo Step anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import STEP, mixed, note, write

WATER = ((1, 1.0, 1.0), (2, 0.25, 1.5), (3, 0.3, 5.0))  # a drop: a short bright start, then nearly a pure tone
DEEP = ((1, 1.0, 1.0), (2, 0.45, 1.2), (3, 0.2, 2.0))  # what small speakers leave of a deep drop is its octave
# Higher from the left to the right, and from the lower row to the upper one; five tones to the octave.
PLACES = [587.3, 659.3, 784.0, 392.0, 440.0, 523.3, 261.6, 293.7, 329.6]


def drop(pitch, length, gain, decay):
    return note(pitch, length, gain, decay, WATER)


SOUNDS = {
    "right": mixed((0, drop(1047, 0.25, 0.25, 14)), (0.07, drop(1568, 0.3, 0.22, 13))),
    "wrong": mixed((0, note(220, 0.35, 0.45, 9, DEEP)), (0.1, note(185, 0.4, 0.45, 8, DEEP))),
    "done": mixed((0, drop(784, 0.4, 0.26, 7)), (0.1, drop(1047, 0.4, 0.26, 7)), (0.2, drop(1568, 0.7, 0.26, 5))),
}
for place, pitch in enumerate(PLACES):
    # and its echo
    SOUNDS[f"step{place}"] = mixed((0, drop(pitch, 0.4, 0.34, 11)), (0.16, drop(pitch, 0.4, 0.1, 11)))
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples, STEP if name.startswith("step") else None)
