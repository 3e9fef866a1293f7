// Outlines and keyed drawing, on pictures written as rows of text.
#include "platform/Colour.h"
#include "platform/RuntimeError.h"
#include "skin/Region.h"
#include "skin/modTransBlt.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMap>
#include <QWidget>

namespace
{
using testing::ElementsAre;
using Rows = std::vector<std::string>;

// '.' is the key colour in most pictures; its three channels differ, so that none can be mistaken for another.
const QMap<char, QRgb> Colours{{'.', qRgb(10, 20, 30)}, {'#', qRgb(200, 100, 50)},  {'r', qRgb(255, 0, 0)},
                               {'b', qRgb(0, 0, 255)},  {'w', qRgb(255, 255, 255)}, {'k', qRgb(0, 0, 0)}};

QImage Picture(const Rows &rows)
{
    QImage picture(int(rows.front().size()), int(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, Colours[rows[std::size_t(y)][std::size_t(x)]]);
    return picture;
}

Rows Text(const QImage &picture)
{
    Rows rows;
    for (int y = 0; y < picture.height(); ++y) {
        std::string row;
        for (int x = 0; x < picture.width(); ++x) row += Colours.key(picture.pixel(x, y), '?');
        rows.push_back(row);
    }
    return rows;
}

Rows Text(const QRegion &region, int width, int height)
{
    Rows rows(std::size_t(height), std::string(std::size_t(width), '.'));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            if (region.contains(QPoint(x, y))) rows[std::size_t(y)][std::size_t(x)] = '#';
    return rows;
}

Region Scanned(const Rows &rows, std::int32_t key = Region::UseCorner)
{
    Region region;
    region.ScanPicture(Picture(rows), key);
    return region;
}

Rows Outline(const Rows &rows) { return Text(Scanned(rows).Rgn(), int(rows.front().size()), int(rows.size())); }
} // namespace

TEST(Region, RightmostColumnStaysOut)
{
    EXPECT_EQ(Outline({"....", //
                       ".##.", //
                       ".###", //
                       "...."}),
              (Rows{"....", //
                    ".##.", //
                    ".##.", //
                    "...."}));
}

TEST(Region, ARunThatAKeyPixelStopsHasItsLastPixel)
{
    EXPECT_THAT(Scanned({".##.##.", "......."}).Runs(), ElementsAre(Region::Run{0, 1, 3}, Region::Run{0, 4, 6}));
}

TEST(Region, TheKeyIsTheBottomLeftPixelNotTheTopLeftOne)
{
    EXPECT_EQ(Outline({"##..", //
                       "#...", //
                       "...."}),
              (Rows{"##..", //
                    "#...", //
                    "...."}));
}

TEST(Region, RowsAreNotMirrored)
{
    EXPECT_THAT(Scanned({"###.", "....", "...."}).Runs(), ElementsAre(Region::Run{0, 0, 3}));
    EXPECT_THAT(Scanned({"....", "....", ".##."}).Runs(), ElementsAre(Region::Run{2, 1, 3}));
}

TEST(Region, APictureOfOneKeyColourIsEmpty)
{
    EXPECT_TRUE(Scanned({"....", "...."}).Rgn().isEmpty());
    EXPECT_TRUE(Scanned({"....", "...."}).Runs().empty());
}

TEST(Region, APictureWithoutTheKeyIsOneRunARowAndOnePixelNarrower)
{
    const std::int32_t absent = ColourBytes(1, 2, 3);
    EXPECT_THAT(Scanned({"####", "####"}, absent).Runs(), ElementsAre(Region::Run{0, 0, 3}, Region::Run{1, 0, 3}));
}

TEST(Region, ARowThatEndsInKeyColourAddsNothingAtItsEnd)
{
    EXPECT_THAT(Scanned({"#...", "...."}).Runs(), ElementsAre(Region::Run{0, 0, 1}));
}

TEST(Region, OneComesBackAsTheCornersColourWithRedAndBlueExchanged)
{
    std::int32_t key = Region::UseCorner;
    Region region;
    region.ScanPicture(Picture({"##", "r#"}), key);
    EXPECT_EQ(key, FromColour(QColor(0, 0, 255)));
}

TEST(Region, AKeyOfOnesOwnIsGivenWithRedAndBlueExchanged)
{
    EXPECT_THAT(Scanned({"rb#.", "...."}, FromColour(QColor(0, 0, 255))).Runs(), // blue asked for, red left out
                ElementsAre(Region::Run{0, 1, 3}, Region::Run{1, 0, 3}));
}

TEST(Region, AnEmptyPictureAndOneOfASinglePixelAreEmpty)
{
    std::int32_t key = Region::UseCorner;
    Region region;
    region.ScanPicture(QImage(), key);
    EXPECT_TRUE(region.Rgn().isEmpty());
    EXPECT_EQ(key, Region::UseCorner);
    EXPECT_TRUE(Scanned({"#"}).Rgn().isEmpty());
}

TEST(Region, ATransparentPixelCountsWithItsColour)
{
    QImage picture = Picture({"##.", "..."}).convertToFormat(QImage::Format_ARGB32);
    picture.setPixel(1, 0, qRgba(200, 100, 50, 0));
    std::int32_t key = Region::UseCorner;
    Region region;
    region.ScanPicture(picture, key);
    EXPECT_THAT(region.Runs(), ElementsAre(Region::Run{0, 0, 2}));
    picture.setPixel(0, 1, Colours['.'] & RGB_MASK); // the corner itself, in the colour that others have opaque
    key = Region::UseCorner;
    region.ScanPicture(picture, key);
    EXPECT_THAT(region.Runs(), ElementsAre(Region::Run{0, 0, 2}));
}

TEST(Region, TheOutlineIsExactlyItsRuns)
{
    const Rows rows{".#.#.#..", ".#.#.#..", "..###...", ".#.#.#..", "#######.", "#######.", "........"};
    const Region region = Scanned(rows);
    EXPECT_EQ(Text(region.Rgn(), 8, 7), rows);
    EXPECT_EQ(region.Rgn().rectCount(), 3 + 1 + 3 + 1); // rows that are alike share their rectangles
}

// Long rows are looked at in pieces; no run may end or begin at the edge of one.
TEST(Region, AKeyPixelIsFoundWhereverItStandsInALongRow)
{
    for (const int width : {2, 8, 9, 72, 73, 137, 200}) {
        for (int at = 0; at < width; ++at) {
            std::string face(std::size_t(width), '#'), gap(std::size_t(width), '.');
            face[std::size_t(at)] = '.';
            gap[std::size_t(at)] = '#';
            std::vector<Region::Run> expected;
            if (at > 0) expected.push_back({0, 0, std::min(at, width - 1)});
            if (at + 1 < width - 1) expected.push_back({0, at + 1, width - 1});
            if (at < width - 1) expected.push_back({1, at, at + 1});
            EXPECT_EQ(Scanned({face, gap, std::string(std::size_t(width), '.')}).Runs(), expected)
                << width << " wide, at " << at;
        }
    }
}

TEST(Region, AKeyThatIsNoColourCutsNothing)
{
    for (const std::int32_t key : {-1, 0x01000000, 0x7FFFFFFF})
        EXPECT_THAT(Scanned({"kw#.", "wwww"}, key).Runs(), ElementsAre(Region::Run{0, 0, 3}, Region::Run{1, 0, 3}));
}

TEST(Region, AFormWithoutABorderHasNoOffset)
{
    Region region = Scanned({".#..", "...."});
    const QRegion before = region.Rgn();
    region.OffsetHeader(0, {100, 100}, {90, 80});
    EXPECT_EQ(region.Rgn(), before);
}

TEST(Region, AFormWithABorderMovesTheOutlineByItsSideAndItsTitle)
{
    Region region = Scanned({".#..", "...."});
    region.OffsetHeader(2, {106, 130}, {100, 101});
    EXPECT_EQ(region.Rgn().boundingRect().topLeft(), QPoint(1 + 3, 130 - 101 - 3));
}

TEST(Region, ABorderOfHalfAPixelGoesToTheEvenSide)
{
    for (const auto &[border, side] : {std::pair(5, 2), std::pair(7, 4)}) {
        Region region = Scanned({".#..", "...."});
        region.OffsetHeader(1, {100 + border, 120}, {100, 100});
        EXPECT_EQ(region.Rgn().boundingRect().topLeft(), QPoint(1 + side, 20 - side)) << border;
    }
}

TEST(Region, AWindowIsCutAndTheRegionStays)
{
    QWidget window;
    window.resize(8, 8);
    const Region region = Scanned({".##.", "...."});
    region.ApplyRgn(window);
    EXPECT_EQ(window.mask(), region.Rgn());
    Scanned({"....", "...."}).ApplyRgn(window);
    EXPECT_FALSE(window.mask().isEmpty()) << "an empty mask would show the whole window";
    EXPECT_FALSE(window.mask().intersects(window.rect()));
}

TEST(Region, AnOutlineTooFineForWindowsIsRefusedInWords)
{
    QImage picture(520, 260, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) picture.setPixel(x, y, Colours[(x + y) % 2 != 0 ? '#' : '.']);
    std::int32_t key = Region::UseCorner;
    Region region;
    region.ScanPicture(picture, key);
    QWidget window;
    EXPECT_THROW(region.ApplyRgn(window), RuntimeError);
    EXPECT_TRUE(window.mask().isEmpty());
}

// Each second pixel of a row, moved by one in each second row: no two rectangles become one.
TEST(Region, AnOutlineOf25000RectanglesIsTakenAndOneMoreIsNot)
{
    constexpr int perRow = 250, rows = 100;
    const std::string even = "#.", odd = ".#";
    Rows picture;
    for (int row = 0; row < rows; ++row) {
        std::string line;
        for (int pair = 0; pair < perRow; ++pair) line += row % 2 == 0 ? even : odd;
        picture.push_back(line + "..");
    }
    QWidget window;
    const Region largest = Scanned(picture);
    ASSERT_EQ(largest.Rgn().rectCount(), Region::MostRectangles);
    largest.ApplyRgn(window);
    EXPECT_EQ(window.mask(), largest.Rgn());
    picture.insert(picture.begin(), "." + std::string(std::string::size_type{2} * perRow, '#') + ".");
    const Region larger = Scanned(picture);
    ASSERT_EQ(larger.Rgn().rectCount(), Region::MostRectangles + 1);
    EXPECT_THROW(larger.ApplyRgn(window), RuntimeError);
    EXPECT_EQ(window.mask(), largest.Rgn()) << "the window keeps its own";
}

TEST(Region, AnotherPictureLeavesNothingOfTheFormerOne)
{
    Region region;
    for (const Rows &rows : {Rows{"####", "...."}, Rows{"..", ".#", ".."}, Rows{".#.", "..."}}) {
        std::int32_t key = Region::UseCorner;
        region.ScanPicture(Picture(rows), key);
        EXPECT_EQ(region.Runs(), Scanned(rows).Runs());
        EXPECT_EQ(region.Rgn(), Scanned(rows).Rgn());
    }
}

TEST(DIBSection, RowsStandBottomUpInBlueGreenRedPaddedToFourBytes)
{
    cDIBSection section;
    section.CreateFromPicture(Picture({"rb#", "w.k"}));
    EXPECT_EQ(section.Width(), 3);
    EXPECT_EQ(section.Height(), 2);
    EXPECT_EQ(section.BytesPerScanLine(), 12);
    EXPECT_EQ(section.BitmapInfo().biSizeImage, 24U);
    EXPECT_EQ(section.BitmapInfo().biSize, 40U);
    EXPECT_EQ(section.BitmapInfo().biHeight, 2) << "positive: bottom up";
    EXPECT_EQ(section.BitmapInfo().biPlanes, 1);
    EXPECT_EQ(section.BitmapInfo().biBitCount, 24);
    EXPECT_EQ(section.BitmapInfo().biCompression, 0U);
    const std::uint8_t *bits = section.DIBSectionBitsPtr();
    EXPECT_EQ(std::vector<int>(bits, bits + 9), (std::vector<int>{255, 255, 255, 30, 20, 10, 0, 0, 0}));
    EXPECT_EQ(std::vector<int>(bits + 12, bits + 18), (std::vector<int>{0, 0, 255, 255, 0, 0}));
}

TEST(DIBSection, ItsPixelsAreThoseOfThePictureFromTheBottomUntilItIsWrittenInto)
{
    cDIBSection section;
    section.CreateFromPicture(Picture({"rb#", "w.k"}));
    EXPECT_EQ(section.PixelsOf(0)[1] & RGB_MASK, Colours['.'] & RGB_MASK);
    EXPECT_EQ(section.PixelsOf(1)[0] & RGB_MASK, Colours['r'] & RGB_MASK);
    EXPECT_EQ(section.PixelsOf(2), nullptr);
    EXPECT_EQ(section.PixelsOf(-1), nullptr);
    section.LoadPictureBlt(Picture({"k"}));
    EXPECT_EQ(section.PixelsOf(0), nullptr);
    const std::uint8_t *bits = section.DIBSectionBitsPtr();
    EXPECT_EQ(std::vector<int>(bits, bits + 3), (std::vector<int>{255, 255, 255})) << "what was there stays";
    EXPECT_EQ(std::vector<int>(bits + 12, bits + 15), (std::vector<int>{0, 0, 0}));
    section.ClearUp();
    EXPECT_EQ(section.DIBSectionBitsPtr(), nullptr);
    EXPECT_EQ(section.BitmapInfo().biSizeImage, 0U);
}

TEST(DIBSection, AnEmptySizeLeavesItEmpty)
{
    cDIBSection section;
    ASSERT_TRUE(section.Create(4, 4));
    for (const QSize size : {QSize(0, 4), QSize(4, 0), QSize(-1, 4), QSize(2000000000, 2000000000)})
        EXPECT_FALSE(section.Create(size.width(), size.height()));
    EXPECT_EQ(section.DIBSectionBitsPtr(), nullptr);
    EXPECT_EQ(section.Width(), 0);
}

TEST(DIBSection, APartGoesToTheTopLeftAndTheRestStays)
{
    cDIBSection section;
    section.Create(2, 2);
    section.LoadPictureBlt(Picture({"kkk", "kkw"}), 2, 1, 5, 5);
    const std::uint8_t *top = section.DIBSectionBitsPtr() + section.BytesPerScanLine();
    EXPECT_EQ(std::vector<int>(top, top + 6), (std::vector<int>{255, 255, 255, 0, 0, 0}));
}

TEST(DIBSection, ARasterOperationTellsWhatBecomesOfSourceAndDestination)
{
    constexpr int source = 0x0F, destination = 0x33;
    QImage one(1, 1, QImage::Format_RGB32);
    const struct
    {
        std::uint32_t Operation;
        int Result;
    } table[] = {
        {0x00CC0020, source},                         // copy
        {0x008800C6, source & destination},           // and
        {0x00EE0086, source | destination},           // paint
        {0x00660046, source ^ destination},           // invert
        {0x00330008, ~source & 0xFF},                 // copy of the inverse
        {0x00BB0226, (~source & 0xFF) | destination}, // merge with the inverse
        {0x00440328, source & ~destination & 0xFF},   // erase
        {0x001100A6, ~(source | destination) & 0xFF}, // inverse erase
        {0x00550009, ~destination & 0xFF},            // inverse of what is there
        {0x00000042, 0},
        {0x00FF0062, 0xFF}, // black, white
    };
    for (const auto &row : table) {
        cDIBSection section;
        one.setPixel(0, 0, qRgb(destination, destination, destination));
        section.CreateFromPicture(one);
        one.setPixel(0, 0, qRgb(source, source, source));
        section.LoadPictureBlt(one, 0, 0, -1, -1, row.Operation);
        const std::uint8_t *bits = section.DIBSectionBitsPtr();
        EXPECT_EQ(std::vector<int>(bits, bits + 3), std::vector<int>(3, row.Result)) << std::hex << row.Operation;
    }
}

TEST(TransBlt, PixelsOfTheKeyLeaveWhatIsThere)
{
    QImage ground = Picture({"wwww", "wwww", "wwww"});
    const QImage source = Picture({".#.", "#r#"});
    TransBlt(ground, 1, 1, 3, 2, source, 0, 0, KeyColour(source));
    EXPECT_EQ(Text(ground), (Rows{"wwww", "ww#w", "w#r#"}));
}

TEST(TransBlt, TheKeyIsTheTopLeftPixelOfThePicture)
{
    EXPECT_EQ(KeyColour(Picture({"r.", "b."})), FromColour(QColor(255, 0, 0)));
    EXPECT_EQ(KeyColour(QImage()), 0);
}

TEST(TransBlt, APartOfTheSourceIsTaken)
{
    QImage ground = Picture({"ww", "ww"});
    TransBlt(ground, 0, 0, 2, 1, Picture({"...", ".b#"}), 1, 1, KeyColour(Picture({"."})));
    EXPECT_EQ(Text(ground), (Rows{"b#", "ww"}));
}

TEST(TransBlt, WhatLiesOutsideEitherPictureIsLeftOut)
{
    QImage ground = Picture({"ww", "ww"});
    TransBlt(ground, -1, -1, 9, 9, Picture({"rr", "rb"}), 0, 0, KeyColour(Picture({"."})));
    EXPECT_EQ(Text(ground), (Rows{"bw", "ww"}));
    TransBlt(ground, 2147483647, 0, 2147483647, 2147483647, Picture({"r"}), 2147483647, 0, 0);
    EXPECT_EQ(Text(ground), (Rows{"bw", "ww"}));
}

TEST(TransBlt, ColoursComeOutExactlyOnEveryGround)
{
    for (const char ground : {'k', 'w', 'r', '#'}) {
        QImage picture = Picture({std::string(4, ground)});
        TransBlt(picture, 0, 0, 4, 1, Picture({".#br"}), 0, 0, FromColour(QColor::fromRgb(Colours['.'])));
        EXPECT_EQ(Text(picture), (Rows{std::string(1, ground) + "#br"}));
    }
}
