#!/usr/bin/env python3
"""Makes the sounds of the game anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import math
import pathlib
import struct
import wave

RATE = 22050
FOLDER = pathlib.Path(__file__).parent / "sounds"


def note(pitch, length, gain=0.5, decay=9.0, colour=0.25):
    """A soft bell: two partials that die away, five milliseconds to come in and thirty to go, so that nothing clicks."""
    samples = []
    for i in range(int(RATE * length)):
        t = i / RATE
        edge = min(1.0, t / 0.005, (length - t) / 0.03)
        tone = math.sin(2 * math.pi * pitch * t) + colour * math.sin(4 * math.pi * pitch * t)
        samples.append(gain * tone * edge * math.exp(-decay * t))
    return samples


def mixed(*parts):
    """Parts as (start in seconds, samples), added up."""
    length = max(int(RATE * start) + len(samples) for start, samples in parts)
    total = [0.0] * length
    for start, samples in parts:
        for i, sample in enumerate(samples, int(RATE * start)):
            total[i] += sample
    return total


def write(name, samples):
    FOLDER.mkdir(exist_ok=True)
    with wave.open(str(FOLDER / (name + ".wav")), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(b"".join(struct.pack("<h", round(32767 * max(-1.0, min(1.0, s)))) for s in samples))


write("right", mixed((0, note(784, 0.18, 0.25, 16)), (0.06, note(1175, 0.24, 0.25, 14))))
write("wrong", mixed((0, note(233, 0.30, 0.31, 10, 0.5)), (0.09, note(185, 0.32, 0.31, 9, 0.5))))
