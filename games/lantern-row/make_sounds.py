#!/usr/bin/env python3
"""Makes the sounds of Lantern Row anew: make_sounds.py, nothing else needed. The files it writes are committed."""
import math
import pathlib
import struct
import wave

RATE = 22050
FOLDER = pathlib.Path(__file__).parent / "sounds"
SCALE = [392.0, 440.0, 523.3, 587.3, 659.3, 784.0, 880.0]  # five tones to the octave: any order sounds well


def note(pitch, length, gain, decay):
    """A plucked string of soft wood: three partials, the higher ones gone sooner."""
    partials = ((1, 1.0, 1.0), (2, 0.35, 1.8), (4, 0.12, 3.5))
    samples = []
    for i in range(int(RATE * length)):
        t = i / RATE
        tone = sum(g * math.sin(2 * math.pi * pitch * n * t) * math.exp(-decay * d * t) for n, g, d in partials)
        samples.append(gain * tone * min(1.0, t / 0.004))
    fade = int(RATE * 0.01)
    for i in range(fade):
        samples[-1 - i] *= i / fade
    return samples


def mixed(*parts):
    """Parts as (start in seconds, samples), added up."""
    total = [0.0] * max(int(RATE * start) + len(samples) for start, samples in parts)
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


for step, pitch in enumerate(SCALE):
    write(f"note{step}", note(pitch, 0.45, 0.4, 8))
write("right", mixed((0, note(1047, 0.3, 0.25, 10)), (0.08, note(1319, 0.4, 0.25, 9))))
write("wrong", mixed((0, note(196, 0.4, 0.45, 8)), (0.1, note(165, 0.45, 0.45, 7))))
write("done", mixed((0, note(784, 0.4, 0.25, 7)), (0.1, note(1047, 0.4, 0.25, 7)), (0.2, note(1319, 0.7, 0.28, 5))))
