// Wave files: PCM of 8 or 16 bits, mono or stereo, at any rate. Everything else is a wrong format.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

/// A recording as the sound device takes it. Mono is doubled, so that full volume means the same for both.
struct WaveSound
{
    int Rate = 0;                      // [frames/s]
    std::vector<std::int16_t> Samples; // left and right in turn
    std::size_t Frames() const { return Samples.size() / 2; }
};

/// The largest file that is read, and the most that its samples may take in memory: six minutes at 44100 Hz.
constexpr qint64 MaxWaveBytes = 64LL * 1024 * 1024; // [bytes]

/// Chunks may stand in any order; unknown ones are skipped. A file that breaks off gives what there is of it.
/// Failure: passed on, when there is no sound in the bytes, too much of it, or one in another format.
WaveSound ReadWave(const QByteArray &Bytes);

/// The same from a file, found as it is named. Failure: passed on, naming the file.
WaveSound ReadWaveFile(const QString &Path);
