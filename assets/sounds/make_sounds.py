#!/usr/bin/env python3
"""Makes the shell's sounds: make_sounds.py [FOLDER], by default the folder of this script.

Each sound is computed from nothing but sines, so every run writes the same bytes. The files are kept in the tree beside
the script; change a sound here, run it, and keep both. Levels: a sound's loudest 50 ms lie between -21 and -13 dB
RMS. The hum is lower, since it runs under a whole game; the heart is higher, since its tones are so low that the ear
takes them for faint. The shell takes 10 dB off these two again.
"""
import math
import os
import struct
import sys
import wave

RATE = 44100  # frames a second
TAU = 2.0 * math.pi

# Notes in equal temperament, by their distance from A4 in half tones.
NOTES = {"G4": -2, "C5": 3, "E5": 7, "G5": 10, "C6": 15, "E6": 19, "G6": 22}


def pitch(note):
    return 440.0 * 2.0 ** (NOTES[note] / 12.0)


def frames(seconds):
    return int(round(seconds * RATE))


def silence(seconds):
    return [0.0] * frames(seconds)


def rise(time, length):
    """From 0 to 1 along half a cosine: no edge at either end, so no click."""
    return 1.0 if time >= length else 0.5 - 0.5 * math.cos(math.pi * max(time, 0.0) / length)


def add_note(track, at, length, partials, attack, fade):
    """Adds one note: partials are (frequency, level, decay in seconds to 1/e); the end is faded to nothing."""
    first = frames(at)
    for i in range(min(frames(length), len(track) - first)):
        time = i / RATE
        level = rise(time, attack) * rise(length - time, fade)
        track[first + i] += level * sum(
            strength * math.exp(-time / decay) * math.sin(TAU * frequency * time)
            for frequency, strength, decay in partials)


def click(frequency, length, decay):
    """A short drop of sound, as wood gives: a tone, a little of its octave, a quick end."""
    track = silence(length)
    add_note(track, 0.0, length, [(frequency, 1.0, decay), (2 * frequency, 0.22, decay / 2)], 0.004, 0.012)
    return [track]


def bell(frequency, level, decay):
    """Partials of a small bell; the high ones die first."""
    shape = ((0.5, 0.12, 1.2), (1.0, 1.0, 1.0), (2.0, 0.42, 0.6), (3.01, 0.18, 0.35), (4.17, 0.10, 0.2), (5.43, 0.06, 0.12))
    return [(frequency * ratio, level * strength, decay * share) for ratio, strength, share in shape]


def horn(frequency, level, decay):
    """A round brass tone: harmonics that fall with their number, the high ones shorter; two that beat slowly."""
    tone = [(frequency * n, level * 0.8 ** (n - 1) / n, decay / n ** 0.5) for n in range(1, 8)]
    return tone + [(frequency * 1.003, level * 0.35, decay)]


def room(track, tail=0.0):
    """Two channels with a few early echoes, other ones left than right."""
    def side(echoes):
        wet = list(track)
        for delay, level in echoes:
            offset = frames(delay)
            for i in range(offset, len(wet)):
                wet[i] += level * track[i - offset]
        last = frames(tail)
        for i in range(last):
            wet[len(wet) - 1 - i] *= rise(i / RATE, tail)
        return wet
    return [side(((0.019, 0.20), (0.043, 0.13), (0.071, 0.09))), side(((0.027, 0.20), (0.037, 0.13), (0.083, 0.09)))]


def start():
    """A friendly good morning: three rising notes that ring on."""
    track = silence(1.5)
    for at, note, level in ((0.0, "C5", 0.9), (0.16, "G5", 0.85), (0.32, "E6", 0.8)):
        add_note(track, at, 1.4 - at, bell(pitch(note), level, 0.38), 0.012, 0.3)
    return room(track, 0.1)


def ding():
    track = silence(1.2)
    add_note(track, 0.0, 1.1, bell(pitch("G6") / 2 ** 0.5, 1.0, 0.32), 0.003, 0.3)
    return room(track, 0.1)


def fanfare():
    """Up the chord in quick notes, a step back, and the whole chord to end with."""
    track = silence(2.0)
    for at, length, note in ((0.0, 0.15, "G4"), (0.13, 0.15, "C5"), (0.26, 0.15, "E5"),
                             (0.39, 0.26, "G5"), (0.63, 0.15, "E5")):
        add_note(track, at, length, horn(pitch(note), 0.8, 0.5), 0.018, 0.04)
    for note, level in (("C5", 0.5), ("E5", 0.45), ("G5", 0.5), ("C6", 0.6)):
        add_note(track, 0.77, 1.15, horn(pitch(note), level, 0.75), 0.02, 0.5)
    return room(track, 0.06)


def loop(length, partials):
    """Sines that all come round a whole number of times, so that the end runs into the beginning.
    A partial is (cycles in the loop, level, phase, cycles of its swell, depth of the swell)."""
    count = frames(length)
    return [sum(level * (1.0 - depth + depth * math.sin(TAU * (swell * i / count + phase)))
                * math.sin(TAU * (cycles * i / count + phase))
                for cycles, level, phase, swell, depth in partials) for i in range(count)]


def hum():
    """A warm low drone. Neighbours a third of a hertz apart beat slowly, so that it seems to breathe."""
    per_hertz = 6  # the loop lasts 6 seconds: cycles in the loop for one hertz
    return [loop(6.0, [(55 * per_hertz, 0.45, 0.0, 1, 0.15), (110 * per_hertz, 1.0, 0.1, 1, 0.1),
                       (110 * per_hertz + 2, 0.5, side, 1, 0.1), (165 * per_hertz, 0.30, 0.7, 2, 0.25),
                       (220 * per_hertz - 1, 0.22, side + 0.2, 1, 0.25), (330 * per_hertz + 1, 0.07, 0.5, 3, 0.3)])
            for side in (0.35, 0.6)]


def heart():
    """A slow heartbeat, two soft thumps and a long rest: the rest is where the loop comes round."""
    track = silence(1.3)
    for at, level, low in ((0.05, 1.0, 62.0), (0.36, 0.7, 70.0)):
        add_note(track, at, 0.34, [(low, level, 0.085), (2 * low, 0.45 * level, 0.05), (3 * low, 0.12 * level, 0.03)],
                 0.022, 0.15)
    return [track]


# Name, what makes it, highest sample (1.0 is full scale).
SOUNDS = (
    ("start", start, 0.42),
    ("highbeep", lambda: click(1174.7, 0.055, 0.014), 0.34),
    ("lowbeep", lambda: click(440.0, 0.058, 0.022), 0.42),
    ("shortbeep", lambda: click(784.0, 0.036, 0.010), 0.36),
    ("ding", ding, 0.38),
    ("fanfare", fanfare, 0.55),
    ("hum", hum, 0.14),
    ("heart", heart, 0.50),
)


def write(path, channels, highest):
    scale = highest * 32767.0 / max(max(abs(sample) for sample in channel) for channel in channels)
    whole = [int(round(sample * scale)) for together in zip(*channels) for sample in together]
    with wave.open(path, "wb") as file:
        file.setnchannels(len(channels))
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(struct.pack("<%dh" % len(whole), *whole))


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    for name, make, highest in SOUNDS:
        write(os.path.join(folder, name + ".wav"), make(), highest)


if __name__ == "__main__":
    main()
