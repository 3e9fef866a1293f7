// The pictures of one skin: which file each comes from, when it is loaded, and how a panel's is painted.
#include "platform/PicBox.h"
#include "platform/RuntimeError.h"
#include "sdk/CSkinPic.h"
#include "skin/CLoadedSkinPic.h"
#include "tests/skin/CSkinTest.h"

TEST_F(Skin, AMissingPanelPictureFailsTheLoadAnyOtherDoesNot)
{
    for (const char *name : {"ButtonBackground.gif", "ButtonHighlight.gif", "ButtonSelected.gif"}) {
        GivenSkin(Blue);
        Remove(name);
        CSkin skin;
        EXPECT_THROW(skin.SetName(Blue), RuntimeError) << name;
    }
    EXPECT_NO_THROW(Loaded());
}

TEST_F(Skin, AMissingPictureFailsOnceAndIsEmptyFromThenOn)
{
    CSkin &skin = Loaded();
    EXPECT_THROW(skin.WideButton(), RuntimeError);
    EXPECT_TRUE(skin.WideButton().isNull());
    EXPECT_THROW(skin.Frame(), RuntimeError);
    EXPECT_TRUE(skin.Frame()->picture().isNull());
    Write("WideButton.gif", Gif(3, 3));
    EXPECT_TRUE(skin.WideButton().isNull()) << "a picture is that of the first read";
}

TEST_F(Skin, EachPictureComesFromItsFile)
{
    using Read = QImage (CSkin::*)();
    const std::pair<const char *, Read> pictures[] = {{"ButtonSelected", &CSkin::ButtonSelected},
                                                      {"ButtonHighlight", &CSkin::ButtonHighlight},
                                                      {"ButtonBackground", &CSkin::ButtonBackground},
                                                      {"BackgroundPicture", &CSkin::BackgroundPicture},
                                                      {"DialogPicture", &CSkin::DialogPicture},
                                                      {"DigitButton", &CSkin::DigitButton},
                                                      {"DigitButtonPressed", &CSkin::DigitButtonPressed},
                                                      {"WideButton", &CSkin::WideButton},
                                                      {"WideButtonPressed", &CSkin::WideButtonPressed},
                                                      {"VeryWideButton", &CSkin::VeryWideButton},
                                                      {"VeryWideButtonPressed", &CSkin::VeryWideButtonPressed},
                                                      {"PuzzleBackground", &CSkin::PuzzleBackground},
                                                      {"PuzzleBackgroundGiven", &CSkin::PuzzleBackgroundGiven}};
    GivenSkin(Blue);
    int width = 10;
    for (const auto &[name, read] : pictures) Write((QByteArray(name) + ".gif").constData(), Gif(width++, 5));
    CSkin skin;
    skin.SetName(Blue);
    width = 10;
    for (const auto &[name, read] : pictures) EXPECT_EQ((skin.*read)().width(), width++) << name;
}

TEST_F(Skin, APictureOfAnotherLetterCaseIsFound)
{
    GivenSkin(Blue);
    Write("WIDEBUTTON.GIF", Gif(7, 7));
    CSkin skin;
    skin.SetName(QStringLiteral("blue"));
    EXPECT_EQ(skin.WideButton().width(), 7);
}

TEST_F(Skin, ANamedPictureThatIsMissingIsEmptyForGood)
{
    CSkin &skin = Loaded();
    EXPECT_TRUE(skin.Pic(QStringLiteral("Button300")).isNull());
    Write("Button300.gif", Gif(30, 5));
    EXPECT_TRUE(skin.Pic(QStringLiteral("button300")).isNull());
    Write("Other.gif", Gif(31, 5));
    EXPECT_EQ(skin.Pic(QStringLiteral("Other")).width(), 31);
}

TEST_F(Skin, DigitButtonGraphicIsAPathAndLoadsNothing)
{
    const CSkin &skin = Loaded();
    EXPECT_EQ(skin.DigitButtonGraphic(7), skin.SkinPath() + QStringLiteral("DigitButton7.gif"));
    EXPECT_EQ(skin.SkinPath(), m_Folder.Path() + QStringLiteral("skins/Blue/"));
}

TEST_F(Skin, PaintPicTakesThePieceAtTheChosenCorner)
{
    // A background of two halves: the panel is anchored top right.
    GivenSkin(Blue);
    Write("ButtonBackground.gif", Gif(4, 4, 0xffff0000));
    CSkin skin;
    skin.SetName(Blue);
    PicBox target;
    target.BackColour = Qt::green;
    target.SetSize(6, 6);
    const auto at = [&](int x, int y) { return target.Image().pixelColor(x, y); };
    skin.PaintPic(target, 1, true, false);
    EXPECT_EQ(at(5, 0), QColor(Qt::red));
    EXPECT_EQ(at(2, 3), QColor(Qt::red));
    EXPECT_EQ(at(1, 0), QColor(Qt::green)) << "narrower than the target: the back colour stays";
    EXPECT_EQ(at(5, 4), QColor(Qt::green));
    skin.PaintPic(target, 1, false, true);
    EXPECT_EQ(at(0, 5), QColor(Qt::red));
    EXPECT_EQ(at(5, 5), QColor(Qt::green));
    skin.PaintPic(target, 4, true, false);
    EXPECT_EQ(at(0, 0), QColor(Qt::green));
    EXPECT_THROW(skin.PaintPic(target, 0, true, false), RuntimeError);
    EXPECT_THROW(skin.PaintPic(target, 6, true, false), RuntimeError);
}

TEST_F(Skin, PaintPicTakesEachOfTheFourCornersUnstretched)
{
    // Eight columns and six rows: red and green at the top, blue and white at the bottom, halved in the middle.
    const QList<QRgb> colours{0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffffff};
    GivenSkin(Blue);
    Write("ButtonBackground.gif",
          GifBytes({8, 6}, colours, [](int x, int y) { return (y < 3 ? 0 : 2) + (x < 4 ? 0 : 1); }));
    CSkin skin;
    skin.SetName(Blue);
    PicBox target;
    target.SetSize(5, 4);
    const struct
    {
        bool FromTop, FromLeft;
        int Column, Row; // of the target, where the halves meet
    } corners[] = {{true, true, 4, 3}, {true, false, 1, 3}, {false, true, 4, 1}, {false, false, 1, 1}};
    for (const auto &corner : corners) {
        skin.PaintPic(target, 1, corner.FromTop, corner.FromLeft);
        for (int y = 0; y < 4; ++y)
            for (int x = 0; x < 5; ++x)
                EXPECT_EQ(target.Image().pixel(x, y), colours[(y < corner.Row ? 0 : 2) + (x < corner.Column ? 0 : 1)])
                    << corner.FromTop << corner.FromLeft << " at " << x << "," << y;
    }
}

TEST_F(Skin, TheTransparentColourOfAPanelPictureIsPaintedLikeAnyOther)
{
    QByteArray gif = Gif(4, 4, 0xffff0000);
    gif.insert(gif.indexOf(','), QByteArray("!\xF9\4\1\0\0\0\0", 8)); // entry 0 is transparent
    GivenSkin(Blue);
    for (const char *name : {"ButtonBackground.gif", "ButtonHighlight.gif", "ButtonSelected.gif"}) Write(name, gif);
    CSkin skin;
    skin.SetName(Blue);
    PicBox target;
    target.SetSize(4, 4);
    target.BackColour = Qt::green;
    for (int slot = 1; slot <= 3; ++slot) {
        target.Image().fill(Qt::cyan); // what was there before
        skin.PaintPic(target, slot, true, false);
        for (int x = 0; x < 4; ++x) EXPECT_EQ(target.Image().pixel(x, x), 0xffff0000) << slot;
    }
}

TEST_F(Skin, PanelSlotsAreBackgroundHighlightSelected)
{
    GivenSkin(Blue);
    Write("ButtonBackground.gif", Gif(4, 4, 0xffff0000));
    Write("ButtonHighlight.gif", Gif(4, 4, 0xff00ff00));
    Write("ButtonSelected.gif", Gif(4, 4, 0xff0000ff));
    CSkin skin;
    skin.SetName(Blue);
    PicBox target;
    const QColor colours[] = {Qt::red, Qt::green, Qt::blue};
    for (int slot = 1; slot <= 3; ++slot) {
        skin.PaintPic(target, slot, true, false);
        EXPECT_EQ(target.Image().pixelColor(0, 0), colours[slot - 1]);
    }
}

TEST_F(Skin, DigitsAreOutOfBoundsUntilTheyAreLoaded)
{
    GivenSkin(Blue, "[Graphics]\r\nMax=2\r\n");
    Write("Digit1.gif", Gif(5, 5));
    Write("Digit2.gif", Gif(6, 6));
    DigitSkin skin;
    skin.SetName(Blue);
    EXPECT_THROW(skin.DigitPic(1), RuntimeError);
    skin.LoadDigitPics();
    EXPECT_EQ(skin.DigitPic(2)->Width(), 6);
    EXPECT_THROW(skin.DigitPic(3), RuntimeError);
}

TEST_F(Skin, APictureObjectIsLoadedOnceAndMeasuresInTwips)
{
    const QString one = m_Folder.Write(QStringLiteral("one.gif"), Gif(10, 4));
    const QString two = m_Folder.Write(QStringLiteral("two.gif"), Gif(20, 20));
    CLoadedSkinPic picture;
    EXPECT_EQ(picture.Width(), 0);
    EXPECT_TRUE(picture.Load(one).isNull()) << "the result is left empty";
    picture.Load(two);
    EXPECT_EQ(picture.Width(), 150);
    EXPECT_EQ(picture.Height(), 60);
    EXPECT_EQ(picture.picture().size(), QSize(10, 4));
}
