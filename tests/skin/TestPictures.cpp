// The pictures that the program brings itself.
#include "platform/Picture.h"

#include <gtest/gtest.h>

namespace
{
QImage Picture(const QString &name) { return LoadPicture(QStringLiteral(":/pictures/") + name); }
} // namespace

TEST(Pictures, AwardsAreTwentyByTwenty)
{
    for (const char *name : {"star.gif", "medal.gif", "trophy.gif", "crown.gif"})
        EXPECT_EQ(Picture(QLatin1String(name)).size(), QSize(20, 20)) << name;
}

TEST(Pictures, TheTickIsThirtyByThirtyOne) { EXPECT_EQ(Picture(QStringLiteral("tick.gif")).size(), QSize(30, 31)); }

TEST(Pictures, KeyedPicturesHaveTheirKeyInAllCornersOrNearThem)
{
    for (const char *name : {"star.gif", "medal.gif", "trophy.gif", "crown.gif", "tick.gif"}) {
        const QImage picture = Picture(QLatin1String(name));
        EXPECT_EQ(picture.pixel(0, 0), picture.pixel(picture.width() - 1, 0)) << name;
        EXPECT_EQ(picture.pixel(0, 0), picture.pixel(0, picture.height() - 1)) << name;
        EXPECT_NE(picture.pixel(0, 0), picture.pixel(picture.width() / 2, picture.height() / 2)) << name;
    }
}

TEST(Pictures, SoftEdgedPicturesAreClearInTheirCorner)
{
    for (const char *name : {"minimize.png", "close.png", "pause.png"}) {
        const QImage picture(QStringLiteral(":/pictures/") + QLatin1String(name));
        ASSERT_FALSE(picture.isNull()) << name;
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0) << name;
    }
}
