// Pictures of resource modules: icons, cursors and bitmaps, and what damaged ones are told as.
#include "ResourceTest.h"
#include "platform/Files.h"
#include "services/ResourcePicture.h"

#include <QColor>

namespace
{
class Pictures : public CResourceTest, public testing::WithParamInterface<const char *>
{
protected:
    Pictures() { Open(GetParam()); }
    QImage m_Picture;
    std::intptr_t m_Handle = 0;
};
INSTANTIATE_TEST_SUITE_P(CResource, Pictures, testing::Values("all64.dll", "all32.dll", "other.dll"));
} // namespace

TEST_P(Pictures, OfAnIconTheOneOf32PixelsIsTaken)
{
    ASSERT_TRUE(m_Resources.DLL_LoadIcon(21, m_Picture, m_Handle));
    EXPECT_NE(m_Handle, 0);
    EXPECT_EQ(m_Picture.size(), QSize(32, 32));
    EXPECT_EQ(m_Picture.pixelColor(16, 16), QColor(Qt::green));
}

TEST_P(Pictures, ACursorIsDrawn)
{
    ASSERT_TRUE(m_Resources.DLL_LoadCursor(22, m_Picture, m_Handle));
    EXPECT_EQ(m_Picture.size(), QSize(32, 32));
    EXPECT_EQ(m_Picture.pixelColor(16, 16), QColor(Qt::blue));
}

TEST_P(Pictures, ABitmapIsDrawnTheRightWayUp)
{
    ASSERT_TRUE(m_Resources.DLL_LoadBitmap(23, m_Picture, m_Handle));
    ASSERT_EQ(m_Picture.size(), QSize(2, 2));
    EXPECT_EQ(m_Picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(m_Picture.pixelColor(1, 0), QColor(Qt::white));
    EXPECT_EQ(m_Picture.pixelColor(0, 1), QColor(Qt::blue));
    EXPECT_EQ(m_Picture.pixelColor(1, 1), QColor(Qt::green));
}

TEST_P(Pictures, ABitmapWithAPaletteShowsItsColours)
{
    ASSERT_TRUE(m_Resources.DLL_LoadBitmap(24, m_Picture, m_Handle));
    ASSERT_EQ(m_Picture.size(), QSize(2, 1));
    EXPECT_EQ(m_Picture.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(m_Picture.pixelColor(1, 0), QColor(Qt::black));
}

TEST_P(Pictures, WithTheFlagOnlyTheHandleIsGiven)
{
    EXPECT_TRUE(m_Resources.DLL_LoadIcon(21, m_Picture, m_Handle, true));
    EXPECT_NE(m_Handle, 0);
    EXPECT_TRUE(m_Picture.isNull());
    EXPECT_TRUE(m_Resources.DLL_LoadBitmap(23, m_Picture, m_Handle, true));
    EXPECT_TRUE(m_Picture.isNull());
}

TEST_P(Pictures, WhatIsNotThereIsFalseWithoutAFailure)
{
    m_Handle = 7;
    EXPECT_FALSE(m_Resources.DLL_LoadIcon(99, m_Picture, m_Handle));
    EXPECT_EQ(m_Handle, 0);
    EXPECT_FALSE(m_Resources.DLL_LoadCursor(21, m_Picture, m_Handle)) << "an icon is no cursor";
    EXPECT_FALSE(m_Resources.DLL_LoadBitmap(-23, m_Picture, m_Handle));
    m_Resources.CloseLibrary();
    EXPECT_FALSE(m_Resources.DLL_LoadBitmap(23, m_Picture, m_Handle));
}

TEST(ResourcePicture, EveryFailureHasItsSentence)
{
    const QStringList sentences{
        QStringLiteral("Invalid bitmap handle"),
        QStringLiteral("Invalid picture type specified."),
        QStringLiteral("Invalid metafile dimentions specified."),
        QStringLiteral("The object does not support the interface specified in riid."),
        QStringLiteral("The address in pPictDesc or ppvObj is not valid. For example, it may be NULL."),
        QStringLiteral("One or more arguments are invalid."),
        QStringLiteral("Ran out of memory."),
        QStringLiteral("Catastrophic Failure."),
        QStringLiteral("Unknown Error."),
    };
    for (int i = 0; i < sentences.size(); ++i) EXPECT_EQ(TextOf(static_cast<PictureFailure>(i)), sentences[i]);
}

TEST(ResourcePicture, ADamagedBitmapIsAnInvalidHandle)
{
    const QString sentence = QStringLiteral("Invalid bitmap handle");
    const QByteArray sound = ReadFile(Modules + QStringLiteral("two.bmp")).sliced(14);
    for (qsizetype length = 0; length < sound.size(); ++length)
        EXPECT_EQ(FailureOf([&] { BitmapFromResource(sound.first(length)); }).Description, sentence) << length;
    EXPECT_EQ(FailureOf([&] { BitmapFromResource(QByteArray(1000, '\xff')); }).Description, sentence);
}

TEST(ResourcePicture, ABitmapOfHugeSidesAsksForNoMemory)
{
    QByteArray bitmap = ReadFile(Modules + QStringLiteral("two.bmp")).sliced(14);
    bitmap.replace(4, 4, "\xff\xff\xff\x7f");
    EXPECT_EQ(FailureOf([&] { BitmapFromResource(bitmap); }).Description, QStringLiteral("Ran out of memory."));
}

TEST(ResourcePicture, ADamagedIconIsAnInvalidArgument)
{
    const QString sentence = QStringLiteral("One or more arguments are invalid.");
    const QByteArray file = ReadFile(Modules + QStringLiteral("three.ico"));
    const QByteArray group = file.first(6) + file.sliced(6, 12) + QByteArray("\1\0", 2);
    const QByteArray image = file.sliced(6 + 3 * 16, 16 * 16 * 4 + 40 + 4 * 16);
    const auto draw = [&](const QByteArray &from, const QByteArray &picture) {
        return IconFromGroup(from, IconKind::Icon,
                             [&](std::uint32_t) { return std::optional(QByteArrayView(picture)); });
    };
    EXPECT_EQ(draw(group, image).size(), QSize(16, 16)) << "the sound one";
    for (qsizetype length = 0; length < image.size(); length += 7)
        EXPECT_EQ(FailureOf([&] { draw(group, image.first(length)); }).Description, sentence) << length;
    for (qsizetype length = 0; length < group.size(); ++length)
        EXPECT_EQ(FailureOf([&] { draw(group.first(length), image); }).Description, sentence) << length;
    const auto nothing = [](std::uint32_t) { return std::optional<QByteArrayView>(); };
    EXPECT_EQ(FailureOf([&] { IconFromGroup(group, IconKind::Icon, nothing); }).Description, sentence);
}
