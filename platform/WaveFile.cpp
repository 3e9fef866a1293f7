#include "platform/WaveFile.h"

#include "platform/Files.h"
#include "platform/RuntimeError.h"

#include <QFileInfo>
#include <QtEndian>

#include <sndfile.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>

namespace
{
constexpr int LowestRate = 100;     // [frames/s] outside of these two no recording is made, but headers get damaged
constexpr int HighestRate = 384000; // [frames/s]
constexpr qsizetype ChunkHead = 8;  // [bytes] four letters and a size
constexpr qsizetype RiffHead = 12;  // [bytes] "RIFF", a size, "WAVE"

[[noreturn]] void Refuse(const QString &reason) { throw RuntimeError(QStringLiteral("Wave file: %1").arg(reason)); }

/// The first two chunks that matter. Only they are handed on: the library's readers of all the others, and its wish
/// to see the format first, do not concern us.
struct Chunks
{
    std::optional<QByteArrayView> format;
    std::optional<QByteArrayView> data;
};

Chunks FindChunks(QByteArrayView bytes)
{
    if (bytes.size() < RiffHead || !bytes.startsWith("RIFF") || bytes.sliced(8, 4) != "WAVE")
        Refuse(QStringLiteral("not a wave file"));
    Chunks found;
    for (qsizetype at = RiffHead; bytes.size() - at >= ChunkHead;) {
        const QByteArrayView name = bytes.sliced(at, 4);
        const qsizetype told = qFromLittleEndian<quint32>(bytes.data() + at + 4);
        const qsizetype size = std::min(told, bytes.size() - at - ChunkHead);
        if (name == "fmt " && !found.format) found.format = bytes.sliced(at + ChunkHead, size);
        if (name == "data" && !found.data) found.data = bytes.sliced(at + ChunkHead, size);
        at += ChunkHead + size + (size & 1);
    }
    return found;
}

void AppendHead(QByteArray &to, QByteArrayView name, qsizetype size)
{
    char told[4];
    qToLittleEndian(static_cast<quint32>(size), told);
    to.append(name).append(told, 4);
}

void AppendChunk(QByteArray &to, QByteArrayView name, QByteArrayView content)
{
    AppendHead(to, name, content.size());
    to.append(content);
    if (content.size() & 1) to.append('\0');
}

qsizetype SizeOfChunk(QByteArrayView content) { return ChunkHead + content.size() + (content.size() & 1); }

QByteArray PlainWave(const QByteArray &bytes)
{
    const Chunks chunks = FindChunks(bytes);
    if (!chunks.format || !chunks.data) Refuse(QStringLiteral("no sound in it"));
    const qsizetype size = RiffHead + SizeOfChunk(*chunks.format) + SizeOfChunk(*chunks.data);
    QByteArray plain;
    plain.reserve(size); // a sound of some length is copied once, not with each chunk
    AppendHead(plain, "RIFF", size - ChunkHead);
    plain.append("WAVE");
    AppendChunk(plain, "fmt ", *chunks.format);
    AppendChunk(plain, "data", *chunks.data);
    return plain;
}

/// Bytes in memory, as the library reads a file.
struct Source
{
    QByteArray bytes;
    sf_count_t at = 0;
    sf_count_t Left() const { return std::max<sf_count_t>(0, bytes.size() - at); }
};

sf_count_t LengthOf(void *user) { return static_cast<Source *>(user)->bytes.size(); }
sf_count_t PlaceOf(void *user) { return static_cast<Source *>(user)->at; }
sf_count_t WriteNothing(const void *, sf_count_t, void *) { return 0; }

sf_count_t SeekIn(sf_count_t offset, int whence, void *user)
{
    Source &source = *static_cast<Source *>(user);
    const sf_count_t base = whence == SEEK_CUR ? source.at : whence == SEEK_END ? source.bytes.size() : 0;
    if (offset < -base || offset > source.bytes.size() - base) return -1;
    return source.at = base + offset;
}

sf_count_t ReadFrom(void *target, sf_count_t count, void *user)
{
    Source &source = *static_cast<Source *>(user);
    const sf_count_t taken = std::clamp<sf_count_t>(count, 0, source.Left());
    if (taken > 0) std::memcpy(target, source.bytes.constData() + source.at, static_cast<std::size_t>(taken));
    source.at += taken;
    return taken;
}

struct CloseWave
{
    void operator()(SNDFILE *file) const { sf_close(file); }
};

void RequireOurFormat(const SF_INFO &info)
{
    const int container = info.format & SF_FORMAT_TYPEMASK;
    const int samples = info.format & SF_FORMAT_SUBMASK;
    if (container != SF_FORMAT_WAV && container != SF_FORMAT_WAVEX) Refuse(QStringLiteral("not a wave file"));
    if (samples != SF_FORMAT_PCM_U8 && samples != SF_FORMAT_PCM_16)
        Refuse(QStringLiteral("samples are not PCM of 8 or 16 bits"));
    if (info.channels < 1 || info.channels > 2) Refuse(QStringLiteral("neither mono nor stereo"));
    if (info.samplerate < LowestRate || info.samplerate > HighestRate)
        Refuse(QStringLiteral("no rate of a recording"));
    if (info.frames < 1) Refuse(QStringLiteral("no sound in it"));
    if (info.frames > MaxWaveBytes / 4) Refuse(QStringLiteral("too long"));
}

/// One channel becomes two, from the end, so that no sample is overwritten before it was copied.
void DoubleMono(std::vector<std::int16_t> &samples)
{
    const std::size_t frames = samples.size();
    samples.resize(frames * 2);
    for (std::size_t i = frames; i-- > 0;) samples[2 * i] = samples[2 * i + 1] = samples[i];
}
} // namespace

WaveSound ReadWave(const QByteArray &Bytes)
{
    if (Bytes.size() > MaxWaveBytes) Refuse(QStringLiteral("too long"));
    Source source{PlainWave(Bytes)};
    SF_VIRTUAL_IO access{LengthOf, SeekIn, ReadFrom, WriteNothing, PlaceOf};
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, CloseWave> file(sf_open_virtual(&access, SFM_READ, &info, &source));
    if (!file) Refuse(QString::fromUtf8(sf_strerror(nullptr)));
    RequireOurFormat(info);

    WaveSound sound;
    sound.Rate = info.samplerate;
    sound.Samples.resize(static_cast<std::size_t>(info.frames * info.channels));
    const sf_count_t read = sf_readf_short(file.get(), sound.Samples.data(), info.frames);
    if (read < 1) Refuse(QStringLiteral("no sound in it"));
    sound.Samples.resize(static_cast<std::size_t>(read * info.channels));
    if (info.channels == 1) DoubleMono(sound.Samples);
    return sound;
}

WaveSound ReadWaveFile(const QString &Path)
{
    const QFileInfo file(Path);
    // A pipe of that name would keep us waiting for ever.
    if (!file.isFile()) throw RuntimeError(QStringLiteral("%1: no such file").arg(Path));
    if (file.size() > MaxWaveBytes) throw RuntimeError(QStringLiteral("%1: too long for an effect").arg(Path));
    try {
        return ReadWave(ReadFile(Path));
    } catch (const RuntimeError &failure) {
        throw RuntimeError(QStringLiteral("%1: %2").arg(Path, failure.Description()));
    }
}
