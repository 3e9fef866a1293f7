"""What the sounds of our games are made of: notes, mixed, levelled and written as wave files.

A game's make_sounds.py uses it. Sounds of one purpose are equally loud in every game, so that nobody reaches for the
volume between two games: `write` brings each to the loudness of its purpose, whatever the gains of its notes add up to.
"""
import math
import struct
import wave

RATE = 22050

# How loud a sound is in its loudest tenth of a second. [dB, weighted as by loudness()] A mistake stands lowest in
# pitch, where small speakers are weak, and so gets a little more; a tone that is repeated or heard at every key less.
LOUDNESS = {"right": -17.0, "wrong": -15.5, "done": -14.8}
STEP = -17.0
KEY = -24.0


def ended(samples):
    """Faded along half a cosine over the last 30 ms: a tone that is cut while it sounds ends in a click."""
    fade = min(len(samples), int(RATE * 0.03))
    for i in range(fade):
        samples[-1 - i] *= 0.5 - 0.5 * math.cos(math.pi * i / fade)
    return samples


def note(pitch, length, gain=0.5, decay=9.0, partials=((1, 1.0, 1.0), (2, 0.25, 1.0))):
    """A tone that dies away: [Hz], [s]. A partial is its number, its loudness, and how much sooner it is gone."""
    samples = []
    for i in range(int(RATE * length)):
        t = i / RATE
        tone = sum(loud * math.sin(2 * math.pi * pitch * n * t) * math.exp(-decay * sooner * t)
                   for n, loud, sooner in partials)
        samples.append(gain * tone * min(1.0, t / 0.005))
    return ended(samples)


def mixed(*parts):
    """Parts as (start in seconds, samples), added up."""
    total = [0.0] * max(int(RATE * start) + len(samples) for start, samples in parts)
    for start, samples in parts:
        for i, sample in enumerate(samples, int(RATE * start)):
            total[i] += sample
    return total


def filtered(samples, b, a):
    """Through a filter of second order whose a[0] is 1."""
    out, x1, x2, y1, y2 = [], 0.0, 0.0, 0.0, 0.0
    for x in samples:
        y = b[0] * x + b[1] * x1 + b[2] * x2 - a[1] * y1 - a[2] * y2
        x2, x1, y2, y1 = x1, x, y1, y
        out.append(y)
    return out


def loudness(samples):
    """Of the loudest tenth of a second. [dB] Weighted as broadcasters do (ITU-R BS.1770): above 1.7 kHz 4 dB more,
    below 40 Hz less and less."""
    k, q = math.tan(math.pi * 1682.0 / RATE), 0.7072
    high = 10 ** (4.0 / 20)
    middle, whole = high ** 0.5, 1 + k / q + k * k
    weighted = filtered(samples, [(high + middle * k / q + k * k) / whole, 2 * (k * k - high) / whole,
                                  (high - middle * k / q + k * k) / whole],
                        [1.0, 2 * (k * k - 1) / whole, (1 - k / q + k * k) / whole])
    k, q = math.tan(math.pi * 38.1 / RATE), 0.5
    whole = 1 + k / q + k * k
    weighted = filtered(weighted, [1.0, -2.0, 1.0], [1.0, 2 * (k * k - 1) / whole, (1 - k / q + k * k) / whole])
    window = min(len(weighted), RATE // 10)
    energy = [0.0]
    for sample in weighted:
        energy.append(energy[-1] + sample * sample)
    loudest = max(energy[i + window] - energy[i] for i in range(0, len(weighted) - window + 1, RATE // 200))
    return 10 * math.log10(loudest / window)


def write(folder, name, samples, loud=None):
    """Writes the sound as loud as its name asks, or as `loud` says. [dB]"""
    scale = 10 ** (((LOUDNESS[name] if loud is None else loud) - loudness(samples)) / 20)
    if scale * max(map(abs, samples)) > 0.7:
        raise ValueError(f"{name}: too sharp an attack to be this loud")
    folder.mkdir(exist_ok=True)
    with wave.open(str(folder / (name + ".wav")), "wb") as file:
        file.setnchannels(1)
        file.setsampwidth(2)
        file.setframerate(RATE)
        file.writeframes(b"".join(struct.pack("<h", round(32767 * scale * s)) for s in samples))
