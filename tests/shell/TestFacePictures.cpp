// Both delivered skins in every mode, and their dialogs, beside the pictures that were looked at and kept in
// "pictures/".
//
// Kept are pictures of half the size. Machines draw letters a little differently, so blocks of 8 x 8 pixels are
// compared by their mean colour: no block may be further off than a word that is missing or has moved would make it,
// and all blocks together hardly at all.
//
// With other hinting, none, or without smoothing the worst block was 30 off and the mean 2; a word of the menu is 32
// and more.
//
// To look at the present ones: NOGGLE_KEEP_PICTURES=folder test_face_pictures; those in "full" have their full size.
// To keep them, each small one is made smaller still by convert IN +dither -colors 96 -strip png8:OUT
#include "tests/shell/support/FaceTest.h"

#include "sdk/CNoggleFramework.h"
#include "shell/frmScore.h"
#include "shell/program/modMain.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QTimer>

#include <array>
#include <cmath>

namespace
{
constexpr int Block = 8;             // [px] of the kept picture
constexpr double WorstBlock = 31;    // of 255, a channel's mean
constexpr double WorstPicture = 3;   // of 255, the mean of all blocks
const QColor Desk(0x70, 0x78, 0x80); // behind the window

using Channels = std::array<double, 3>;

Channels MeanOf(const QImage &picture, const QRect &block)
{
    Channels sum{};
    for (int y = block.top(); y <= block.bottom(); ++y)
        for (int x = block.left(); x <= block.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            sum[0] += qRed(pixel), sum[1] += qGreen(pixel), sum[2] += qBlue(pixel);
        }
    for (double &channel : sum) channel /= block.width() * block.height();
    return sum;
}

struct Difference
{
    double Worst = 0;
    QPoint At; // [px] of the window
    double Mean = 0;
};

Difference Compare(const QImage &now, const QImage &kept)
{
    Difference difference;
    double sum = 0;
    int count = 0;
    for (int y = 0; y < kept.height(); y += Block)
        for (int x = 0; x < kept.width(); x += Block, ++count) {
            const QRect block = QRect(x, y, Block, Block) & kept.rect();
            const Channels one = MeanOf(now, block), other = MeanOf(kept, block);
            double worst = 0;
            for (std::size_t i = 0; i < one.size(); ++i) worst = std::max(worst, std::abs(one[i] - other[i]));
            sum += worst;
            if (worst > difference.Worst) difference = {worst, block.topLeft() * 2, 0};
        }
    difference.Mean = sum / count;
    return difference;
}

class FacePictures : public FaceTest, public testing::WithParamInterface<const char *>
{
protected:
    FacePictures()
    {
        Program.GivenDelivered(QStringLiteral("skins/") + Skin());
        for (const char *game : {"lantern-row", "tally-rush"}) Program.GivenDelivered(QLatin1String(game));
    }

    QString Skin() const { return QLatin1String(GetParam()); }

    /// The pointer lies beside all controls, and what lit up under it is out again.
    void Rest()
    {
        QTest::mouseMove(Window().windowHandle(), QPoint(Window().width() / 2, 2));
        RunningProgram::Turn(600);
    }

    /// What is shown, on a desk.
    static QImage OnDesk(const QImage &shown)
    {
        QImage picture(shown.size(), QImage::Format_RGB32);
        picture.fill(Desk);
        picture.setDevicePixelRatio(shown.devicePixelRatio());
        QPainter(&picture).drawImage(0, 0, shown);
        picture.setDevicePixelRatio(1);
        return picture;
    }

    static QImage Dialog(QWidget &dialog)
    {
        const double scale = dialog.devicePixelRatioF();
        QImage shown((QSizeF(dialog.size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
        shown.setDevicePixelRatio(scale);
        shown.fill(Qt::transparent);
        dialog.render(&shown);
        return shown;
    }

    /// Runs the story in the next dialog of that name.
    static void InNext(const QString &name, const std::function<void(QWidget &)> &story)
    {
        QTimer::singleShot(5, [name, story] {
            QWidget *const dialog = QApplication::activeModalWidget();
            const bool isThere = dialog != nullptr && dialog->objectName() == name && dialog->isActiveWindow();
            isThere ? story(*dialog) : InNext(name, story);
        });
    }

    /// A game whose clock stands still, so that its numbers are the same each time.
    void Play()
    {
        Window().PlayGame(LookingGame(), 1);
        Program.Find<QTimer>("tmrShowTime")->stop();
    }

    void Look(const QString &mode)
    {
        Rest();
        Look(mode, Shown());
    }

    void Look(const QString &mode, const QImage &shown)
    {
        const QImage whole = OnDesk(shown);
        const QImage now = whole.scaled(whole.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QString name = Skin() + u'-' + mode + QStringLiteral(".png");
        const QString folder = qEnvironmentVariable("NOGGLE_KEEP_PICTURES");
        if (!folder.isEmpty() && QDir().mkpath(folder + QStringLiteral("/full"))) {
            now.save(folder + u'/' + name);
            whole.save(folder + QStringLiteral("/full/") + name);
        }
        const QImage kept = QImage(QStringLiteral(NOGGLE_FACE_PICTURES "/") + name).convertToFormat(now.format());
        ASSERT_EQ(kept.size(), now.size()) << qPrintable(name);
        const Difference difference = Compare(now, kept);
        RecordProperty(mode.toStdString(), QString::number(difference.Worst).toStdString());
        EXPECT_LT(difference.Worst, WorstBlock)
            << qPrintable(name) << " at " << difference.At.x() << "," << difference.At.y();
        EXPECT_LT(difference.Mean, WorstPicture) << qPrintable(name);
    }
};
} // namespace

TEST_P(FacePictures, LookAsTheyWereKeptInEveryMode)
{
    StartWith(Skin());
    Program.NewPlayer(QStringLiteral("Ann"));
    Program.ClickMenu(QStringLiteral("change player"));
    ASSERT_EQ(Window().Mode(), 0);
    Look(QStringLiteral("0-players"));
    Program.ClickPlayer(QStringLiteral("Ann"));
    ASSERT_EQ(Window().Mode(), 2);
    Look(QStringLiteral("2-practice"));
    Program.ClickMenu(QStringLiteral("progress"));
    ASSERT_EQ(Window().Mode(), 1);
    Look(QStringLiteral("1-progress"));
    Program.ClickMenu(QStringLiteral("exercise"));
    ASSERT_EQ(Window().Mode(), 6);
    Look(QStringLiteral("6-workout"));
    Play();
    ASSERT_EQ(Window().Mode(), 3);
    Look(QStringLiteral("3-workout-game"));
    Program.ClickMenu(QStringLiteral("pause"));
    ASSERT_EQ(Window().Mode(), 5);
    Look(QStringLiteral("5-paused"));
    Program.ClickMenu(QStringLiteral("continue"));
    Program.AnswerNextBox("cmd1");
    Program.ClickMenu(QStringLiteral("abandon"));
    Program.ClickMenu(QStringLiteral("practice"));
    Play();
    ASSERT_EQ(Window().Mode(), 4);
    Look(QStringLiteral("4-practice-game"));
}

TEST_P(FacePictures, ShowTheDialogsAsTheyWereKept)
{
    StartWith(Skin());
    Program.AnswerNextBox("cmd1", QStringLiteral("Ann"), [this] {
        Look(QStringLiteral("dialog-question"), Dialog(*QApplication::activeModalWidget()));
    });
    Program.Click(Program.Find("ctlPlayerlist1")->findChild<QWidget *>(QStringLiteral("butPlayer(0)")));
    Rest();
    Program.AnswerNextBox(
        "cmd2", {}, [this] { Look(QStringLiteral("dialog-error"), Dialog(*QApplication::activeModalWidget())); });
    modMain::Framework->ShowError(QStringLiteral("Error saving the result."), QStringLiteral("The disk is full."));
    InNext(QStringLiteral("frmOptions"), [this](QWidget &dialog) {
        Look(QStringLiteral("dialog-options"), Dialog(dialog));
        Program.Click(dialog.findChild<QWidget *>(QStringLiteral("cmdCancel")));
    });
    Program.ClickMenu(QStringLiteral("options"));
    for (const bool star : {true, false}) {
        Program.CloseNextScore([this, star] {
            Look(star ? QStringLiteral("dialog-score-star") : QStringLiteral("dialog-score"),
                 Dialog(*QApplication::activeModalWidget()));
        });
        frmScore().ShowScore(&Window(), 80, 45, 60, 2, 50, star ? 190 : 90, star);
    }
}

INSTANTIATE_TEST_SUITE_P(Skins, FacePictures, testing::Values("Meadow", "Night"),
                         [](const auto &skin) { return std::string(skin.param); });
