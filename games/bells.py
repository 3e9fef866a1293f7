"""What the sounds of our games are made of: notes, mixed and written as wave files. A game's make_sounds.py uses it."""
import math
import struct
import wave

RATE = 22050


def note(pitch, length, gain=0.5, decay=9.0, partials=((1, 1.0, 1.0), (2, 0.25, 1.0))):
    """A tone that dies away: [Hz], [s]. A partial is its number, its loudness, and how much sooner it is gone."""
    samples = []
    for i in range(int(RATE * length)):
        t = i / RATE
        tone = sum(loud * math.sin(2 * math.pi * pitch * n * t) * math.exp(-decay * sooner * t)
                   for n, loud, sooner in partials)
        samples.append(gain * tone * min(1.0, t / 0.005))
    return samples


def mixed(*parts):
    """Parts as (start in seconds, samples), added up, the last ten milliseconds faded to silence."""
    total = [0.0] * max(int(RATE * start) + len(samples) for start, samples in parts)
    for start, samples in parts:
        for i, sample in enumerate(samples, int(RATE * start)):
            total[i] += sample
    fade = int(RATE * 0.01)
    for i in range(fade):
        total[-1 - i] *= i / fade
    return total


def write(folder, name, samples):
    folder.mkdir(exist_ok=True)
    with wave.open(str(folder / (name + ".wav")), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(b"".join(struct.pack("<h", round(32767 * max(-1.0, min(1.0, s)))) for s in samples))
