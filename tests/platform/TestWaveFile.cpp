#include "platform/RuntimeError.h"
#include "platform/WaveFile.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WaveBytes.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <random>
#include <sys/stat.h>

namespace
{
const QByteArray Data = WaveChunk("data", SampleBytes({1, 2, 3}));
const std::vector<std::int16_t> Doubled{1, 1, 2, 2, 3, 3};

QByteArray ExtensibleFormat(int subformat)
{
    const QByteArray guidTail = QByteArray::fromHex("000000001000800000aa00389b71");
    return WaveChunk("fmt ", LittleEndian(0xFFFE, 2) + LittleEndian(1, 2) + LittleEndian(44100, 4) +
                                 LittleEndian(88200, 4) + LittleEndian(2, 2) + LittleEndian(16, 2) +
                                 LittleEndian(22, 2) + LittleEndian(16, 2) + LittleEndian(4, 4) +
                                 LittleEndian(static_cast<quint32>(subformat), 2) + guidTail);
}
} // namespace

TEST(WaveFile, ReadsMonoAsTwoEqualSides)
{
    const WaveSound sound = ReadWave(WaveBytes({1, -2, 32767, -32768}, {.Rate = 11025}));
    EXPECT_EQ(sound.Rate, 11025);
    EXPECT_EQ(sound.Samples, (std::vector<std::int16_t>{1, 1, -2, -2, 32767, 32767, -32768, -32768}));
}

TEST(WaveFile, ReadsStereoAsItStands)
{
    const std::vector<std::int16_t> samples{1, 2, 3, 4};
    EXPECT_EQ(ReadWave(WaveBytes(samples, {.Channels = 2})).Samples, samples);
}

TEST(WaveFile, EightBitsHaveTheirZeroInTheMiddle)
{
    const QByteArray wave = RiffBytes(FormatChunk({.Bits = 8}) + WaveChunk("data", QByteArray("\x80\x00\xFF", 3)));
    EXPECT_EQ(ReadWave(wave).Samples, (std::vector<std::int16_t>{0, 0, -32768, -32768, 32512, 32512}));
}

TEST(WaveFile, ChunksMayStandInAnyOrderAndUnknownOnesAreSkipped)
{
    const QByteArray odd = WaveChunk("LIST", "abc"); // an odd size is padded to an even one
    EXPECT_EQ(ReadWave(RiffBytes(Data + FormatChunk())).Samples, Doubled);
    EXPECT_EQ(ReadWave(RiffBytes(odd + FormatChunk() + odd + Data + odd)).Samples, Doubled);
    EXPECT_EQ(ReadWave(RiffBytes(Data + odd + FormatChunk())).Samples, Doubled);
}

TEST(WaveFile, OfTwoEqualChunksTheFirstCounts)
{
    const QByteArray second = WaveChunk("data", SampleBytes({9, 9}));
    EXPECT_EQ(ReadWave(RiffBytes(FormatChunk() + Data + second + FormatChunk({.Bits = 8}))).Samples, Doubled);
}

TEST(WaveFile, ReadsTheExtensibleFormOfPcmOnly)
{
    EXPECT_EQ(ReadWave(RiffBytes(ExtensibleFormat(1) + Data)).Samples, Doubled);
    EXPECT_THROW(ReadWave(RiffBytes(ExtensibleFormat(3) + Data)), RuntimeError);
}

TEST(WaveFile, AFileThatBreaksOffGivesWhatIsThere)
{
    EXPECT_EQ(ReadWave(WaveBytes({1, 2, 3, 4}).chopped(2)).Samples, Doubled);
    EXPECT_EQ(ReadWave(WaveBytes({1, 2, 3, 4}).chopped(1)).Samples, Doubled);
}

TEST(WaveFile, EverythingElseIsAWrongFormat)
{
    struct Case
    {
        const char *what;
        QByteArray bytes;
    };
    const QByteArray good = WaveBytes({1, 2, 3});
    for (const Case &c : {
             Case{"nothing", {}},
             {"a head alone", good.left(12)},
             {"no data", RiffBytes(FormatChunk())},
             {"no format", RiffBytes(Data)},
             {"empty data", RiffBytes(FormatChunk() + WaveChunk("data", {}))},
             {"text", QByteArray("This is a letter and not a sound at all, though a long one.")},
             {"big-endian", QByteArray(good).replace(0, 4, "RIFX")},
             {"another container", QByteArray(good).replace(8, 4, "AVI ")},
             {"24 bits", RiffBytes(FormatChunk({.Bits = 24}) + Data)},
             {"32 bits", RiffBytes(FormatChunk({.Bits = 32}) + WaveChunk("data", QByteArray(16, 'x')))},
             {"floating point",
              RiffBytes(FormatChunk({.Bits = 32, .Format = 3}) + WaveChunk("data", QByteArray(16, 'x')))},
             {"A-law", RiffBytes(FormatChunk({.Bits = 8, .Format = 6}) + Data)},
             {"ADPCM", RiffBytes(FormatChunk({.Bits = 4, .Format = 2}) + Data)},
             {"no channel", RiffBytes(FormatChunk({.Channels = 0}) + Data)},
             {"three channels", RiffBytes(FormatChunk({.Channels = 3}) + Data)},
             {"rate 0", RiffBytes(FormatChunk({.Rate = 0}) + Data)},
             {"rate 99", RiffBytes(FormatChunk({.Rate = 99}) + Data)},
             {"rate beyond all", RiffBytes(FormatChunk({.Rate = 384001}) + Data)},
             {"a negative rate", RiffBytes(FormatChunk({.Rate = -44100}) + Data)},
             {"a format cut short", RiffBytes(WaveChunk("fmt ", QByteArray("\1\0\1\0", 4)) + Data)},
         })
        EXPECT_THROW(ReadWave(c.bytes), RuntimeError) << c.what;
}

TEST(WaveFile, RatesFromLowestToHighestAreRead)
{
    for (const int rate : {100, 8000, 11025, 22050, 44100, 48000, 96000, 384000})
        EXPECT_EQ(ReadWave(WaveBytes({1, 2}, {.Rate = rate})).Rate, rate);
}

TEST(WaveFile, TooMuchSoundIsRefusedBeforeItTakesMemory)
{
    // Mono of 8 bits takes four times as much when it is loaded.
    const QByteArray many =
        RiffBytes(FormatChunk({.Bits = 8}) + WaveChunk("data", QByteArray(MaxWaveBytes / 4 + 1, 'x')));
    EXPECT_THROW(ReadWave(many), RuntimeError);
}

TEST(WaveFile, AHugeFileIsRefusedByItsSize)
{
    const TestFolder folder;
    const QString path = folder.Write(QStringLiteral("huge.wav"), RampWave());
    ASSERT_TRUE(QFile::resize(path, MaxWaveBytes + 1));
    EXPECT_THROW(ReadWaveFile(path), RuntimeError);
}

TEST(WaveFile, WhatIsNoFileFailsAtOnceAndSaysItsName)
{
    const TestFolder folder;
    QDir().mkpath(folder.Path() + QStringLiteral("folder.wav"));
    ASSERT_EQ(mkfifo(qPrintable(folder.Path() + QStringLiteral("pipe.wav")), 0600), 0);
    for (const char *name : {"missing.wav", "folder.wav", "pipe.wav"}) {
        try {
            ReadWaveFile(folder.Path() + QString::fromLatin1(name));
            FAIL() << name;
        } catch (const RuntimeError &failure) {
            EXPECT_TRUE(failure.Description().contains(QString::fromLatin1(name))) << failure.what();
        }
    }
}

TEST(WaveFile, DamagedHeadersNeverCrash)
{
    std::mt19937 random(20261121);
    const QByteArray good[] = {RampWave(50), RiffBytes(ExtensibleFormat(1) + Data),
                               RiffBytes(WaveChunk("LIST", "abc") + FormatChunk({.Channels = 2, .Bits = 8}) + Data)};
    int read = 0;
    int refused = 0;
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes = good[round % 3];
        const auto changes = 1 + random() % 6;
        for (auto i = changes; i > 0; --i)
            bytes[static_cast<qsizetype>(random() % 72) % bytes.size()] = static_cast<char>(random());
        if (random() % 4 == 0) bytes.truncate(static_cast<qsizetype>(random() % 200));
        try {
            const WaveSound sound = ReadWave(bytes);
            ASSERT_GT(sound.Frames(), 0U);
            ASSERT_LE(sound.Frames(), static_cast<std::size_t>(bytes.size()));
            ++read;
        } catch (const RuntimeError &) {
            ++refused;
        }
    }
    EXPECT_GT(read, 100);
    EXPECT_GT(refused, 100);
}
