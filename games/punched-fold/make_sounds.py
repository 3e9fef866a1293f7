#!/usr/bin/env python3
"""Makes the sounds of Punched Fold anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import pathlib
import random
import sys

HOME = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HOME.parent))
from bells import RATE, ended, mixed, note, write

CHIME = ((1, 1.0, 1.0), (3, 0.22, 2.0), (4.2, 0.1, 3.0))
DULL = ((1, 1.0, 1.0), (1.5, 0.4, 1.4))


def paper(length, gain, decay):
    """A rustle: smoothed noise that dies away. The seed is fixed, so that the files come out the same each time."""
    chance = random.Random(8)
    samples, last = [], 0.0
    for i in range(int(RATE * length)):
        last = 0.55 * last + 0.45 * chance.uniform(-1, 1)
        t = i / RATE
        samples.append(gain * last * min(1.0, t / 0.01) * 2.718 ** (-decay * t))
    return ended(samples)


SOUNDS = {
    "right": mixed((0, paper(0.12, 0.35, 30)), (0.03, note(988, 0.25, 0.26, 14, CHIME)),
                   (0.09, note(1175, 0.32, 0.26, 12, CHIME))),
    "wrong": mixed((0, paper(0.22, 0.5, 14)), (0.02, note(233, 0.25, 0.4, 13, DULL)),
                   (0.1, note(196, 0.32, 0.4, 11, DULL))),
    "done": mixed((0, paper(0.15, 0.35, 24)), (0.03, note(784, 0.3, 0.24, 8, CHIME)),
                  (0.13, note(988, 0.3, 0.24, 8, CHIME)), (0.23, note(1175, 0.7, 0.26, 5, CHIME))),
}
for name, samples in SOUNDS.items():
    write(HOME / "sounds", name, samples)
