// Wave files for tests, whose samples tell where they stand: sample i of a ramp is (i + 1) x 16, so what is rendered
// says which frame is heard.
#pragma once

#include <QByteArray>

#include <cmath>
#include <cstdint>
#include <vector>

struct WaveOptions
{
    int Rate = 44100;
    int Channels = 1;
    int Bits = 16;
    int Format = 1; // PCM
};

inline QByteArray LittleEndian(quint32 number, int bytes)
{
    QByteArray out;
    for (int i = 0; i < bytes; ++i) out.append(static_cast<char>(number >> (8 * i)));
    return out;
}

inline QByteArray WaveChunk(const char *name, const QByteArray &content)
{
    QByteArray out = QByteArray(name, 4) + LittleEndian(static_cast<quint32>(content.size()), 4) + content;
    return content.size() % 2 != 0 ? out + '\0' : out;
}

inline QByteArray FormatChunk(const WaveOptions &options = {})
{
    const int align = options.Channels * options.Bits / 8;
    return WaveChunk("fmt ", LittleEndian(options.Format, 2) + LittleEndian(options.Channels, 2) +
                                 LittleEndian(options.Rate, 4) + LittleEndian(options.Rate * align, 4) +
                                 LittleEndian(align, 2) + LittleEndian(options.Bits, 2));
}

inline QByteArray RiffBytes(const QByteArray &chunks)
{
    return "RIFF" + LittleEndian(static_cast<quint32>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

inline QByteArray SampleBytes(const std::vector<std::int16_t> &samples)
{
    QByteArray data;
    for (const std::int16_t sample : samples) data += LittleEndian(static_cast<quint16>(sample), 2);
    return data;
}

inline QByteArray WaveBytes(const std::vector<std::int16_t> &samples, const WaveOptions &options = {})
{
    return RiffBytes(FormatChunk(options) + WaveChunk("data", SampleBytes(samples)));
}

inline std::vector<std::int16_t> Ramp(int frames)
{
    std::vector<std::int16_t> samples;
    for (int i = 1; i <= frames; ++i) samples.push_back(static_cast<std::int16_t>(i * 16));
    return samples;
}

inline QByteArray RampWave(int frames = 1000) { return WaveBytes(Ramp(frames)); }

/// The same value all along: what is rendered is its level.
inline QByteArray SteadyWave(std::int16_t value, int frames = 4096)
{
    return WaveBytes(std::vector<std::int16_t>(static_cast<std::size_t>(frames), value));
}
