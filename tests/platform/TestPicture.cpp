#include "platform/Files.h"
#include "platform/GifFrame.h"
#include "platform/JpegPicture.h"
#include "platform/Picture.h"
#include "platform/RuntimeError.h"

#include "tests/support/TestFolder.h"

#include <QBuffer>
#include <QDirIterator>
#include <QImageReader>

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <vector>

namespace
{
QByteArray Word(int value)
{
    return QByteArray(1, static_cast<char>(value & 0xFF)) + static_cast<char>(value >> 8 & 0xFF);
}

// Three-bit codes, the table cleared after every second pixel so that they stay so wide.
QByteArray Data(const QByteArray &pixels)
{
    QByteArray codes;
    for (qsizetype i = 0; i < pixels.size(); ++i) {
        if (i % 2 == 0) codes += '\4';
        codes += pixels[i];
    }
    codes += '\5';
    QByteArray bytes((codes.size() * 3 + 7) / 8, '\0');
    for (qsizetype bit = 0; bit < codes.size() * 3; ++bit) {
        if ((codes[bit / 3] >> bit % 3 & 1) != 0) bytes[bit / 8] = static_cast<char>(bytes[bit / 8] | 1 << bit % 8);
    }
    return bytes;
}

const QByteArray Palette("\xFF\x00\xFF\x00\x00\xFF\x10\x20\x30\xFF\xFF\xFF", 12); // magenta, blue, dark, white

// Entry 0 is the transparent one. Up to 255 bytes of data.
QByteArray Gif(int width, int height, const QByteArray &pixels)
{
    const QByteArray data = Data(pixels);
    return "GIF89a" + Word(width) + Word(height) + QByteArray("\xF1\0\0", 3) + Palette +
           QByteArray("!\xF9\4\1\0\0\0\0", 8) + ',' + Word(0) + Word(0) + Word(width) + Word(height) +
           QByteArray("\0\2", 2) + static_cast<char>(data.size()) + data + QByteArray("\0;", 2);
}

const QByteArray Pixels("\0\1\2\3\1\0", 6);
QByteArray SmallGif() { return Gif(3, 2, Pixels); }

QByteArray Saved(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, format, 90)) qFatal("no writer for %s", format);
    return bytes;
}

// Stripes in some colours.
QByteArray Saved(QSize size, const char *format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(qRgb(40, 90, 160));
    for (int y = 0; y < size.height(); y += 3) image.setPixel(y % size.width(), y, qRgb(y % 256, 200, 7));
    return Saved(image, format);
}

int TakeBytes(GifFileType *gif, const GifByteType *bytes, int count)
{
    static_cast<QByteArray *>(gif->UserData)->append(reinterpret_cast<const char *>(bytes), count);
    return count;
}

// Written by the library, with strings as long as they get, in two to the Bits colours that are greys.
QByteArray Packed(QSize size, int bits, const std::function<int(int x, int y)> &numberAt)
{
    QByteArray bytes;
    GifFileType *const gif = EGifOpen(&bytes, TakeBytes, nullptr);
    ColorMapObject *const map = GifMakeMapObject(1 << bits, nullptr);
    for (int i = 0; i < 1 << bits; ++i)
        map->Colors[i] = {static_cast<GifByteType>(i), static_cast<GifByteType>(i), static_cast<GifByteType>(i)};
    EGifPutScreenDesc(gif, size.width(), size.height(), bits, 0, map);
    EGifPutImageDesc(gif, 0, 0, size.width(), size.height(), false, nullptr);
    std::vector<GifPixelType> row(static_cast<std::size_t>(size.width()));
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            row[static_cast<std::size_t>(x)] = static_cast<GifPixelType>(numberAt(x, y));
        EGifPutLine(gif, row.data(), size.width());
    }
    EGifCloseFile(gif, nullptr);
    GifFreeMapObject(map);
    return bytes;
}

QByteArray SmallJpeg() { return Saved(QSize(40, 30), "JPG"); }

QImage Read(const QByteArray &bytes) { return PictureFromData(bytes, QStringLiteral("a.gif")); }

QImage ReadUsually(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer, "gif").read().convertToFormat(QImage::Format_RGB32);
}

bool Fails(const QByteArray &bytes)
{
    try {
        Read(bytes);
        return false;
    } catch (const RuntimeError &error) {
        EXPECT_TRUE(error.Description().contains(u"a.gif")) << error.what();
        return true;
    }
}
} // namespace

TEST(Picture, TheTransparentEntryKeepsItsColour)
{
    const QImage picture = Read(SmallGif());
    EXPECT_EQ(picture.format(), QImage::Format_RGB32);
    ASSERT_EQ(picture.size(), QSize(3, 2));
    EXPECT_EQ(picture.pixel(0, 0), qRgb(255, 0, 255));
    EXPECT_EQ(picture.pixel(1, 0), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(2, 0), qRgb(0x10, 0x20, 0x30));
    EXPECT_EQ(picture.pixel(0, 1), qRgb(255, 255, 255));
    EXPECT_EQ(picture.pixel(2, 1), qRgb(255, 0, 255));
}

TEST(Picture, AGifCutAnywhereInItsPictureFails)
{
    const QByteArray whole = SmallGif();
    const qsizetype pictureEnd = whole.size() - 2; // then the end of the blocks, and the trailer
    for (qsizetype size = 0; size < pictureEnd; ++size) EXPECT_TRUE(Fails(whole.left(size))) << size;
}

TEST(Picture, WhatFollowsTheFirstFrameOfAGifDoesNotMatter)
{
    const QImage picture = Read(SmallGif());
    EXPECT_EQ(Read(SmallGif() + "\r\nthe end"), picture);
    EXPECT_EQ(Read(SmallGif().chopped(1)), picture) << "no trailer";
}

// One colour gives the longest strings, noise fills the table of strings again and again.
TEST(Picture, AGifOfAnyPatternIsReadAsItWasWritten)
{
    std::mt19937 chance(7);
    const QList<std::function<int(int, int)>> patterns{
        [](int, int) { return 1; },
        [](int x, int y) { return x / 7 + y; },
        [&](int, int) { return static_cast<int>(chance()); },
        [&](int x, int) { return x % 50 < 40 ? 0 : static_cast<int>(chance()); },
    };
    for (const int bits : {1, 2, 4, 8})
        for (const QSize size : {QSize(1, 1), QSize(2, 1), QSize(301, 203)})
            for (const auto &pattern : patterns) {
                QImage written(size, QImage::Format_RGB32);
                const QByteArray gif = Packed(size, bits, [&](int x, int y) {
                    const int number = pattern(x, y) & ((1 << bits) - 1);
                    written.setPixel(x, y, qRgb(number, number, number));
                    return number;
                });
                EXPECT_EQ(FirstFrame(gif).Picture, written)
                    << bits << " bits, pattern " << &pattern - patterns.data() << ", " << size.width() << " wide";
            }
}

TEST(Picture, ACodeThatStandsForNothingYetIsADamage)
{
    QByteArray gif = Gif(3, 2, Pixels);
    const qsizetype data = gif.size() - 2 - Data(Pixels).size();
    gif[data] = static_cast<char>((gif[data] & ~0x38) | 6 << 3); // the first pixel: a string of nothing
    EXPECT_TRUE(Fails(gif));
    gif[data] = static_cast<char>((gif[data] & ~0x38) | 5 << 3); // the end
    EXPECT_TRUE(Fails(gif));
}

// Whatever is in the data: all pixels are there, or it is a failure.
TEST(Picture, AGifWithAnyByteChangedIsReadOrFails)
{
    std::mt19937 chance(11);
    const QByteArray whole =
        Packed({64, 48}, 4, [&](int x, int) { return x % 9 < 6 ? 3 : static_cast<int>(chance() % 16); });
    int read = 0;
    for (qsizetype at = 13 + 48; at < whole.size(); ++at) {
        QByteArray changed = whole;
        changed[at] = static_cast<char>(chance());
        const GifFrame frame = FirstFrame(changed);
        EXPECT_TRUE(frame.IsWhole || frame.Picture.isNull()) << at;
        if (frame.IsWhole) ++read;
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, whole.size());
}

TEST(Picture, AGifWithTooFewPixelsFails)
{
    EXPECT_TRUE(Fails(Gif(3, 3, Pixels)));
    EXPECT_TRUE(Fails(Gif(65535, 65535, Pixels)));
}

// Those of the skins are large, of many colours, and interlaced or not.
TEST(Picture, APlainGifIsReadAsTheUsualReaderReadsIt)
{
    int compared = 0;
    QDirIterator files(QStringLiteral(NOGGLE_SKINS), {QStringLiteral("*.gif")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QByteArray bytes = ReadFile(files.next());
        EXPECT_EQ(FirstFrame(bytes).Picture, ReadUsually(bytes)) << qPrintable(files.fileName());
        ++compared;
    }
    EXPECT_GT(compared, 20);
    EXPECT_EQ(FirstFrame(SmallGif()).Picture, ReadUsually(SmallGif()));
}

TEST(Picture, RowsOfAnInterlacedGifStandInTheirOrder)
{
    QByteArray gif = Gif(1, 9, QByteArray("\1\1\2\3\3\0\2\0\2", 9)); // rows 0, 8, 4, 2, 6, 1, 3, 5, 7
    gif[gif.indexOf(',') + 9] = '\x40';
    const QImage picture = Read(gif);
    EXPECT_EQ(picture, ReadUsually(gif));
    EXPECT_EQ(picture.pixel(0, 8), qRgb(0, 0, 255));
    EXPECT_EQ(picture.pixel(0, 4), qRgb(0x10, 0x20, 0x30));
    EXPECT_EQ(picture.pixel(0, 1), qRgb(255, 0, 255));
}

TEST(Picture, AFrameWithColoursOfItsOwnIsReadInThem)
{
    QByteArray gif = SmallGif();
    const qsizetype flags = gif.indexOf(',') + 9;
    gif[flags] = '\x81';
    gif.insert(flags + 1, QByteArray("\1\2\3\4\5\6\7\x8\x9\xA\xB\xC", 12));
    EXPECT_EQ(Read(gif).pixel(1, 0), qRgb(4, 5, 6));
    EXPECT_EQ(Read(gif), ReadUsually(gif));
}

TEST(Picture, AFrameThatIsSmallerThanThePictureIsReadUsually)
{
    QByteArray gif = SmallGif();
    gif[6] = '\5';
    EXPECT_TRUE(FirstFrame(gif).Picture.isNull());
    EXPECT_EQ(Read(gif), ReadUsually(gif));
    EXPECT_EQ(Read(gif).size(), QSize(5, 2));
}

TEST(Picture, AJpegIsRead)
{
    const QImage picture = Read(SmallJpeg());
    EXPECT_EQ(picture.format(), QImage::Format_RGB32);
    EXPECT_EQ(picture.size(), QSize(40, 30));
}

// In colours, in greys, and with colours of half the resolution.
TEST(Picture, AJpegIsReadAsTheUsualReaderReadsIt)
{
    const auto compare = [](const QByteArray &bytes, const char *what) {
        const QImage picture = JpegPicture(bytes);
        EXPECT_EQ(picture.format(), QImage::Format_RGB32) << what;
        EXPECT_EQ(picture, QImage::fromData(bytes, "JPG").convertToFormat(QImage::Format_RGB32)) << what;
    };
    for (const char *name : {"splash", "logo"})
        compare(ReadFile(QStringLiteral(NOGGLE_PICTURES "/%1.jpg").arg(QLatin1String(name))), name);
    QImage drawn(61, 47, QImage::Format_RGB32);
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) drawn.setPixel(x, y, qRgb(4 * x, 5 * y, x * y % 256));
    compare(Saved(drawn, "JPG"), "half");
    compare(Saved(drawn.convertToFormat(QImage::Format_Grayscale8), "JPG"), "grey");
}

TEST(Picture, WhatIsNoJpegIsLeftToTheOtherReaders)
{
    for (const QByteArray &bytes : {QByteArray(), QByteArray("\xFF\xD8"), SmallGif(), Saved(QSize(4, 4), "PNG")})
        EXPECT_TRUE(JpegPicture(bytes).isNull()) << bytes.left(4).toHex().toStdString();
}

TEST(Picture, AJpegCutAnywhereFails)
{
    const QByteArray whole = SmallJpeg();
    for (qsizetype size = 0; size < whole.size() - 1; size += 7) EXPECT_TRUE(Fails(whole.left(size))) << size;
    EXPECT_TRUE(Fails(whole.chopped(1)));
}

TEST(Picture, JunkFails)
{
    for (const QByteArray &junk : {QByteArray(), QByteArray("junk"), QByteArray("GIF89a"), QByteArray("\xFF\xD8"),
                                   QByteArray("\xFF\xD8\xFF\xE0\0\0", 6), QByteArray(10'000, '\0')})
        EXPECT_TRUE(Fails(junk)) << junk.toHex().left(20).toStdString();
}

TEST(Picture, ASideBeyond8192Fails)
{
    EXPECT_FALSE(Fails(Saved(QSize(8192, 1), "PNG")));
    EXPECT_TRUE(Fails(Saved(QSize(8193, 1), "PNG")));
    EXPECT_TRUE(Fails(Saved(QSize(1, 8193), "PNG")));
}

TEST(Picture, ALargePictureIsNoReasonToFail)
{
    EXPECT_EQ(Read(Saved(QSize(8192, 4200), "PNG")).size(), QSize(8192, 4200)) << "137 MB of pixels";
}

TEST(Picture, AFileIsFoundWithoutRegardToCaseAndAMissingOneIsNamed)
{
    const TestFolder folder;
    folder.Write(QStringLiteral("Frame.GIF"), SmallGif());
    EXPECT_EQ(LoadPicture(folder.Path() + QStringLiteral("frame.gif")).size(), QSize(3, 2));
    try {
        LoadPicture(folder.Path() + QStringLiteral("none.gif"));
        ADD_FAILURE();
    } catch (const RuntimeError &error) {
        EXPECT_TRUE(error.Description().contains(u"none.gif"));
    }
}

TEST(PictureAhead, IsTakenOnceAndReadAnewAfterwards)
{
    const TestFolder folder;
    const QString path = folder.Path() + QStringLiteral("frame.gif");
    folder.Write(QStringLiteral("frame.gif"), SmallGif());
    ReadPicturesAhead({path});
    EXPECT_EQ(LoadPicture(path).size(), QSize(3, 2));
    folder.Write(QStringLiteral("frame.gif"), Saved(QSize(7, 5), "PNG"));
    EXPECT_EQ(LoadPicture(path).size(), QSize(7, 5));
}

TEST(PictureAhead, TellsItsFailureWhenThePictureIsAskedFor)
{
    const TestFolder folder;
    const QString path = folder.Path() + QStringLiteral("none.gif");
    ReadPicturesAhead({path, folder.Path() + QStringLiteral("neither.gif")});
    try {
        LoadPicture(path);
        ADD_FAILURE();
    } catch (const RuntimeError &error) {
        EXPECT_TRUE(error.Description().contains(u"none.gif"));
    }
}

TEST(PictureAhead, AnotherStartForgetsWhatNobodyTook)
{
    const TestFolder folder;
    const QString path = folder.Path() + QStringLiteral("frame.gif");
    folder.Write(QStringLiteral("frame.gif"), SmallGif());
    ReadPicturesAhead({path});
    ReadPicturesAhead({});
    folder.Write(QStringLiteral("frame.gif"), Saved(QSize(7, 5), "PNG"));
    EXPECT_EQ(LoadPicture(path).size(), QSize(7, 5));
}
