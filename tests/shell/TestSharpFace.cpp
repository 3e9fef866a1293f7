// The window on screens of higher scales: outline, pictures and background line up in device pixels, and sharper
// pictures are taken where a skin has them. Run at several scales; at 1 nothing of it is to be seen.
#include "tests/shell/support/FaceTest.h"

#include "shell/program/modMain.h"

#include "sdk/CSkinPic.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/PictureBox.h"

#include "skin/CSkin.h"
#include "skin/FrameFace.h"
#include "skin/PanelSurface.h"

#include <QPainter>

#include <cmath>

namespace
{
constexpr QRgb Magenta = 0xffff00ff;
constexpr QRgb Blue = 0xff2040c0;
constexpr QRgb Green = 0xff20a040;
constexpr QSize FrameSize(700, 500);

// A lens: its edge has every slope.
bool IsInLens(double x, double y, const QSize &size)
{
    const double across = (x + 0.5) * 2 / size.width() - 1;
    const double down = (y + 0.5) * 2 / size.height() - 1;
    return across * across + down * down < 0.95;
}

class SharpFace : public FaceTest
{
protected:
    static QByteArray Lens(const QSize &size, QRgb colour)
    {
        return GifBytes(size, {Magenta, colour}, [size](int x, int y) { return IsInLens(x, y, size) ? 1 : 0; });
    }
    double Scale() const { return Window().devicePixelRatioF(); }
    bool IsHigh() const { return Scale() > 1; }
    static bool IsNearKey(QRgb pixel)
    {
        return qAlpha(pixel) > 0 && qRed(pixel) > qGreen(pixel) + 40 && qBlue(pixel) > qGreen(pixel) + 40 &&
               qRed(pixel) > 100;
    }
    // What is not clear in the window's own face, controls left out.
    QImage Face() const
    {
        for (QWidget *child : Window().findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) child->hide();
        return Shown();
    }
};
} // namespace

TEST_F(SharpFace, ShowsExactlyTheOutlineInDevicePixels)
{
    GivenSkin(QStringLiteral("Lens"), {{QStringLiteral("Frame.gif"), Lens(FrameSize, Blue)}});
    StartWith(QStringLiteral("Lens"));
    const QImage face = Face();
    const QRegion outline = InDevicePixels(Window().mask(), Scale());
    QImage expected(face.size(), QImage::Format_RGB32);
    expected.fill(Qt::black);
    QPainter painter(&expected);
    painter.setClipRegion(outline);
    painter.fillRect(expected.rect(), QColor(Blue));
    painter.end();
    int wrong = 0;
    for (int y = 0; y < face.height(); ++y)
        for (int x = 0; x < face.width(); ++x)
            if (qAlpha(face.pixel(x, y)) == 0 ? expected.pixel(x, y) != 0xff000000
                                              : face.pixel(x, y) != expected.pixel(x, y))
                ++wrong;
    EXPECT_EQ(wrong, 0) << "pixels in which outline and picture disagree";
}

TEST_F(SharpFace, TheOutlineInDevicePixelsHasNoGaps)
{
    for (const double scale : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0}) {
        QRegion steps;
        for (int row = 0; row < 50; ++row) steps += QRect(row, row, 100, 1);
        const QRegion scaled = InDevicePixels(steps, scale);
        for (int row = scaled.boundingRect().top(); row <= scaled.boundingRect().bottom(); ++row)
            EXPECT_EQ((scaled & QRect(0, row, 1000, 1)).rectCount(), 1) << "row " << row << " at " << scale;
        EXPECT_EQ(scaled.boundingRect(), QRect(0, 0, qRound(149 * scale), qRound(50 * scale)));
    }
    const QRegion twoRows = QRegion(0, 0, 10, 1) + QRect(2, 1, 10, 1);
    EXPECT_EQ(InDevicePixels(twoRows, 0.5), QRegion(0, 0, 5, 1)) << "a row may vanish below 1";
}

TEST_F(SharpFace, NoKeyColourComesInAtTheEdge)
{
    for (const QString &name : {QStringLiteral("Meadow"), QStringLiteral("Night")})
        Program.GivenDelivered(QStringLiteral("skins/") + name);
    GivenSkin(QStringLiteral("Lens"), {{QStringLiteral("Frame.gif"), Lens(FrameSize, Blue)},
                                       {QStringLiteral("Frame@2x.gif"), Lens(FrameSize * 2, Green)}});
    StartWith(QStringLiteral("Lens"));
    for (const QString &name : {QStringLiteral("Lens"), QStringLiteral("Meadow"), QStringLiteral("Night")}) {
        ChangeTo(name);
        const QImage face = Face();
        int near = 0;
        for (int y = 0; y < face.height(); ++y)
            for (int x = 0; x < face.width(); ++x) near += IsNearKey(face.pixel(x, y)) ? 1 : 0;
        EXPECT_EQ(near, 0) << qPrintable(name);
    }
}

TEST_F(SharpFace, TheWindowIsAsLargeAsTheFrameAndScreensLieOnTheirPieceOfIt)
{
    // Columns of two colours show each shift.
    const auto stripes = [](int x, int y) { return y > 490 ? 0 : 1 + x / 20 % 2; };
    GivenSkin(QStringLiteral("Stripes"),
              {{QStringLiteral("Frame.gif"), GifBytes(FrameSize, {Magenta, Blue, Green}, stripes)}});
    StartWith(QStringLiteral("Stripes"));
    EXPECT_EQ(Window().size(), FrameSize);
    const QImage ground = Window().GameBackground();
    EXPECT_EQ(ground.deviceIndependentSize().toSize(), Program.Find("picPrint")->size());
    EXPECT_EQ(ground.devicePixelRatio(), Scale());
    for (QWidget *screen : Program.Find("picPrint")->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        screen->hide();
    const QImage withGround = Shown();
    Program.Find("picPrint")->hide();
    const QImage without = Shown();
    double difference = 0;
    for (int y = 0; y < without.height(); ++y)
        for (int x = 0; x < without.width(); ++x)
            difference += std::abs(qBlue(without.pixel(x, y)) - qBlue(withGround.pixel(x, y)));
    // Where a control begins within a device pixel, its ground is off by a part of that one.
    const double most = Scale() == std::floor(Scale()) ? 1 : 4;
    EXPECT_LT(difference / (without.width() * without.height()), most) << "[of 255] in the mean";
}

TEST_F(SharpFace, NoPixelBetweenTwoRowsOfTheMenuIsLeftOut)
{
    GivenSkin(QStringLiteral("Green"), {{QStringLiteral("ButtonBackground.gif"), GifBytes({200, 300}, Green)}});
    StartWith(QStringLiteral("Green"));
    RunningProgram::Turn(0);
    const QImage shown = Shown();
    const QWidget *menu = Program.Find("ctlButtonPanel1");
    const QPoint top = (QPointF(menu->mapTo(&Window(), QPoint(menu->width() - 10, 0))) * Scale()).toPoint();
    for (int y = 1; y < int(menu->height() * Scale()) - 1; ++y)
        EXPECT_EQ(shown.pixel(top.x(), top.y() + y), Green) << "at " << y << " of " << menu->height() * Scale();
}

// At fractional scales a row may end within a device pixel: its picture has one more or one less then.
TEST_F(SharpFace, CaptionsOfTheMenuAreWrittenInDevicePixelsRatherThanEnlarged)
{
    StartWith(QStringLiteral("Plain"));
    int fine = 0; // blocks that an enlarged pixel would fill with one colour
    for (const PanelSurface *surface : Program.Find("ctlButtonPanel1")->findChildren<PanelSurface *>()) {
        const QImage &image = surface->Image();
        if (surface->isHidden() || surface->objectName() == u"picPanel") continue;
        EXPECT_EQ(image.devicePixelRatio(), Scale());
        EXPECT_NEAR(image.width(), surface->width() * Scale(), 1);
        EXPECT_NEAR(image.height(), surface->height() * Scale(), 1);
        for (int y = 0; y + 1 < image.height(); y += 2)
            for (int x = 0; x + 1 < image.width(); x += 2)
                fine += image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1);
    }
    EXPECT_GT(fine, 100);
}

TEST_F(SharpFace, TheFrameOfABoxIsSeenOnEachSideWhereverItStands)
{
    StartWith(QStringLiteral("Plain"));
    const auto isSeen = [](const QImage &shown, const QRectF &side) {
        bool seen = false;
        const QRect area = side.toAlignedRect() & shown.rect();
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x) seen |= qBlue(shown.pixel(x, y)) < 160;
        return seen;
    };
    for (int step = 0; step < 8; ++step) {
        QWidget host;
        host.resize(120, 120);
        PictureBox box(&host);
        box.setGeometry(20 + step, 30 + 3 * step, 41 + step, 33);
        box.SetFrameColour(Qt::red);
        QImage shown(host.size() * Scale(), QImage::Format_RGB32);
        shown.setDevicePixelRatio(Scale());
        shown.fill(Qt::white);
        host.render(&shown, {}, {}, QWidget::DrawChildren);
        const QRectF place = box.geometry();
        const QPointF middle = place.center();
        for (const QRectF &side :
             {QRectF(place.left(), middle.y(), 1, 1), QRectF(place.right() - 1, middle.y(), 1, 1),
              QRectF(middle.x(), place.top(), 1, 1), QRectF(middle.x(), place.bottom() - 1, 1, 1)})
            EXPECT_TRUE(isSeen(shown, QRectF(side.topLeft() * Scale(), side.size() * Scale())))
                << "step " << step << " at " << side.x() << "," << side.y();
    }
}

TEST_F(SharpFace, TakesSharperPicturesWhereASkinHasThemAndTheScreenCanUseThem)
{
    GivenSkin(QStringLiteral("Sharp"), {{QStringLiteral("VeryWideButton.gif"), GifBytes({120, 24}, Blue)},
                                        {QStringLiteral("VeryWideButton@2x.gif"), GifBytes({240, 48}, Green)},
                                        {QStringLiteral("ButtonBackground.gif"), GifBytes({180, 160}, Blue)},
                                        {QStringLiteral("buttonbackground@2X.GIF"), GifBytes({360, 320}, Green)},
                                        {QStringLiteral("Frame.gif"), Lens(FrameSize, Blue)},
                                        {QStringLiteral("Frame@2x.gif"), Lens(FrameSize * 2, Green)},
                                        {QStringLiteral("Extra.gif"), GifBytes({30, 20}, Blue)},
                                        {QStringLiteral("Extra@2x.gif"), GifBytes({60, 40}, Green)}});
    StartWith(QStringLiteral("Sharp"));
    const QRgb expected = IsHigh() ? Green : Blue;
    CSkin &skin = *modMain::CurrentSkin;
    EXPECT_EQ(skin.VeryWideButton().pixel(0, 0), expected);
    EXPECT_EQ(skin.VeryWideButton().deviceIndependentSize(), QSizeF(120, 24))
        << "it counts as large as the plain one";
    EXPECT_EQ(skin.Pic(QStringLiteral("Extra")).pixel(0, 0), expected);
    EXPECT_EQ(skin.Pic(QStringLiteral("Extra")).deviceIndependentSize(), QSizeF(30, 20));
    EXPECT_EQ(Frame().pixel(350, 250), Blue) << "the outline is the plain frame's";
    EXPECT_EQ(skin.Frame()->Width(), FrameSize.width() * 15);
    const QImage shown = Shown();
    const QPoint menu = Program.Find("ctlButtonPanel1")->mapTo(&Window(), QPoint(170, 3));
    EXPECT_EQ(shown.pixel((QPointF(menu) * Scale()).toPoint()), expected) << "the panel's ground";
    EXPECT_EQ(Face().pixel((QPointF(350, 250) * Scale()).toPoint()), expected);
}

TEST_F(SharpFace, ASharperPictureOfAnotherSizeOrADamagedOneCountsAsNone)
{
    const QByteArray whole = GifBytes({240, 48}, Green);
    GivenSkin(QStringLiteral("Wrong"), {{QStringLiteral("VeryWideButton.gif"), GifBytes({120, 24}, Blue)},
                                        {QStringLiteral("VeryWideButton@2x.gif"), GifBytes({241, 48}, Green)},
                                        {QStringLiteral("WideButton.gif"), GifBytes({120, 24}, Blue)},
                                        {QStringLiteral("WideButton@2x.gif"), whole.left(whole.size() / 2)},
                                        {QStringLiteral("ButtonBackground@2x.gif"), "hello"},
                                        {QStringLiteral("Frame@2x.gif"), "hello"}});
    StartWith(QStringLiteral("Wrong"));
    CSkin &skin = *modMain::CurrentSkin;
    EXPECT_EQ(skin.VeryWideButton().pixel(0, 0), Blue);
    EXPECT_EQ(skin.WideButton().pixel(0, 0), Blue);
    EXPECT_TRUE(skin.SharpFrame().isNull());
}
