// The menus that save what a screen shows: by mouse and by keys, through the real file dialog.
#include "ScreenTest.h"
#include "platform/Clock.h"
#include "platform/LarkChart.h"
#include "screens/ctlGameList.h"
#include "screens/ctlUserInfo.h"
#include "skin/ctlButtonPanel.h"
#include "tests/support/ReadOnlyFolder.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>

namespace
{
QString S(const char *text) { return QString::fromUtf8(text); }

class Saving : public ScreenTest
{
protected:
    Saving() { SetToday(2026, 3, 5); }
    ~Saving() override { QLocale::setDefault(QLocale::c()); }

    void ShowTable()
    {
        GivenGame(S("Arrows"), S("Attention"), S("timelimit=60\r\nlevels=8"));
        Start();
        auto *list = new ctlGameList(m_Area.get());
        Open(list);
        list->SkinUp();
        list->LoadCatList();
    }
    void Practised(const QString &player, std::int32_t score, std::int32_t time)
    {
        const auto ann = GivenPlayer(player);
        ann->GamesPlayed().Add(ann->Key, Game(S("Arrows"))->Key, score, time, score, 3, 1, 0);
    }
    void ChooseArrows()
    {
        At<ctlButtonPanel>(S("cCatList"))->SetSelection(1);
        At<ctlButtonPanel>(S("cGameList"))->SetSelection(1);
    }
    ctlUserInfo &ShowChart()
    {
        StartWithSixGames();
        GivenPlayer(S("Ann"));
        auto *info = new ctlUserInfo(m_Area.get());
        Open(info);
        return *info;
    }
    void PastWorkout(double day, const QString &game, std::int32_t points)
    {
        const auto workout = GivenWorkout(day);
        Finish(game, points);
        workout->Complete();
    }

    static QMenu *Menu() { return qobject_cast<QMenu *>(QApplication::activePopupWidget()); }
    /// The captions of the open menu, those that can't be chosen in brackets.
    static QString Offered()
    {
        QStringList offered;
        for (const QAction *row : Menu() == nullptr ? QList<QAction *>() : Menu()->actions())
            offered << (row->isEnabled() ? row->text() : u'[' + row->text() + u']');
        return offered.join(S(", "));
    }
    static void RightClick(QWidget *control)
    {
        const QPoint middle = control->rect().center();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, middle, control->mapToGlobal(middle));
        QApplication::sendEvent(control, &asked);
    }
    /// Chooses the row of the open menu with keys; the file dialog is answered by that path, or cancelled.
    void Choose(int row, const QString &path)
    {
        // A look of its own each time: a timer that repeats does not come while its own handler runs a dialog.
        QObject person;
        bool answered = false;
        std::function<void()> look = [&] {
            QTimer::singleShot(10, &person, look);
            answered = Answer(path) || answered;
        };
        look();
        QMenu *menu = Menu();
        ASSERT_NE(menu, nullptr);
        for (int i = 0; i < row; ++i) QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        EXPECT_TRUE(answered);
        m_Area->activateWindow(); // as a desktop does once a dialog has gone
        QApplication::processEvents();
    }
    bool Answer(const QString &path)
    {
        if (auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            return question->button(QMessageBox::Yes)->click(), true;
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr) return false;
        auto *name = dialog->findChild<QLineEdit *>();
        if (m_Proposed.isEmpty()) m_Proposed = name->text();
        if (path.isEmpty()) return QTest::keyClick(dialog, Qt::Key_Escape), true;
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
        return true;
    }
    QString Path(const char *name) const { return m_Store.Folder().Path() + QLatin1String(name); }
    static QByteArray Contents(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

    QString m_Proposed; // by the dialog
};
} // namespace

TEST_F(Saving, TheTableIsSavedAsItStandsWithIsoDatesAndAHeader)
{
    QLocale::setDefault(QLocale(QLocale::German)); // must not matter
    ShowTable();
    Practised(S("Smith, \"Jo\" & <b>"), 90, 65);
    Practised(S("Ελένη"), 80, 3661);
    modMain::Players->Remove(1);
    Practised(S("花子"), 70, 0);
    ChooseArrows();
    RightClick(At(S("lblScore(1)")));
    EXPECT_EQ(Offered(), S("Save table as CSV"));
    Choose(1, Path("best.csv"));
    EXPECT_EQ(Contents(Path("best.csv")), QByteArray("Player,Score,Time,Date\r\n"
                                                     "-,90,00:01:05,2026-03-05\r\n"
                                                     "Ελένη,80,01:01:01,2026-03-05\r\n"
                                                     "花子,70,00:00:00,2026-03-05\r\n"));
    EXPECT_TRUE(m_Framework->Boxes.empty());
    EXPECT_EQ(m_Proposed, S("Best results - Arrows - Level 1.csv"));
}

TEST_F(Saving, ATableWithoutResultsHasNothingToSave)
{
    ShowTable();
    RightClick(At(S("tblBestTimes")));
    EXPECT_EQ(Offered(), S("[Save table as CSV]"));
    Menu()->close();
}

TEST_F(Saving, TheMenuOfTheTableIsNowhereElseOnTheScreen)
{
    ShowTable();
    RightClick(At(S("lblTitle")));
    EXPECT_EQ(Menu(), nullptr);
    RightClick(At(S("cCatList")));
    EXPECT_EQ(Menu(), nullptr);
}

TEST_F(Saving, TheTableIsReachedByKeysAndItsMenuByTwoOfThem)
{
    ShowTable();
    Practised(S("Ann"), 90, 65);
    ChooseArrows();
    QWidget *table = At(S("tblBestTimes"));
    At(S("cmdInstructions"))->setFocus();
    QTest::keyClick(At(S("cmdInstructions")), Qt::Key_Tab);
    ASSERT_TRUE(table->hasFocus());
    EXPECT_TRUE(table->findChild<QWidget *>(S("FocusMark"))->isVisible());
    QTest::keyClick(table, Qt::Key_Menu);
    EXPECT_EQ(Offered(), S("Save table as CSV"));
    Menu()->close();
    QTest::keyClick(table, Qt::Key_F10);
    EXPECT_EQ(Menu(), nullptr);
    QTest::keyClick(table, Qt::Key_F10, Qt::ShiftModifier);
    Choose(1, Path("best.csv"));
    EXPECT_TRUE(Contents(Path("best.csv")).endsWith("Ann,90,00:01:05,2026-03-05\r\n"));
    EXPECT_TRUE(table->hasFocus()) << "and goes on from there";
}

TEST_F(Saving, ADialogThatIsCancelledWritesNothing)
{
    ShowTable();
    Practised(S("Ann"), 90, 65);
    ChooseArrows();
    const auto before = QDir(m_Store.Folder().Path()).entryList(QDir::Files);
    RightClick(At(S("lblName(0)")));
    Choose(1, {});
    EXPECT_EQ(QDir(m_Store.Folder().Path()).entryList(QDir::Files), before);
    EXPECT_TRUE(m_Framework->Boxes.empty());
}

TEST_F(Saving, AFileThatIsThereIsReplacedOnlyWhenAgreed)
{
    ShowTable();
    Practised(S("Ann"), 90, 65);
    ChooseArrows();
    m_Store.Folder().Write(S("best.csv"),
                           "old and much longer than what comes, so that a rest of it would be seen\n"
                           "old and much longer than what comes, so that a rest of it would be seen\n");
    RightClick(At(S("lblName(0)")));
    Choose(1, Path("best.csv"));
    EXPECT_EQ(Contents(Path("best.csv")), QByteArray("Player,Score,Time,Date\r\nAnn,90,00:01:05,2026-03-05\r\n"));
}

TEST_F(Saving, AFailingWriteIsToldAndLeavesWhatWasThere)
{
    ShowTable();
    Practised(S("Ann"), 90, 65);
    ChooseArrows();
    m_Store.Folder().Write(S("out/best.csv"), "old");
    {
        const ReadOnlyFolder closed(Path("out"));
        RightClick(At(S("lblName(0)")));
        Choose(1, Path("out/best.csv"));
    }
    EXPECT_EQ(Contents(Path("out/best.csv")), QByteArray("old"));
    EXPECT_EQ(QDir(Path("out")).entryList(QDir::Files), QStringList(S("best.csv"))) << "nothing half-written";
    const ShownBox box = m_Framework->TakeLast();
    EXPECT_EQ(box.FirstLine(), S("Error saving file."));
    EXPECT_TRUE(box.Message.contains(S("best.csv"))) << box.Message.toStdString();

    RightClick(At(S("lblName(0)")));
    Choose(1, Path("nowhere/best.csv"));
    EXPECT_EQ(m_Framework->TakeLast().FirstLine(), S("Error saving file."));
    EXPECT_FALSE(QDir(Path("nowhere")).exists());
}

TEST_F(Saving, TheChartOffersItsPictureAndItsValues)
{
    ctlUserInfo &info = ShowChart();
    PastWorkout(ToDayCount({QDate(2026, 3, 1), QTime(0, 0)}), S("Arrows"), 100);
    PastWorkout(ToDayCount({QDate(2026, 3, 2), QTime(0, 0)}), S("Corners"), 80);
    info.ShowDetails(2);
    LarkChart &chart = *At<LarkChart>(S("LarkChart1"));
    RightClick(&chart);
    EXPECT_EQ(Offered(), S("Save picture, Save values as CSV"));
    Choose(2, Path("values.csv"));
    EXPECT_EQ(Contents(Path("values.csv")), QByteArray("Date,Attention,Logic,Memory\r\n"
                                                       "2026-03-01,100,,\r\n"
                                                       "2026-03-02,,80,\r\n"));
    EXPECT_EQ(m_Proposed, S("Progress of Ann.csv"));
    RightClick(&chart);
    Choose(1, Path("chart.png"));
    const QImage picture(Path("chart.png"));
    EXPECT_EQ(picture.size(), chart.size() * 2);
    QImage shown = chart.grab().toImage();
    EXPECT_EQ(picture.pixelColor(0, 0), shown.pixelColor(0, 0));
    EXPECT_TRUE(m_Framework->Boxes.empty());
}

TEST_F(Saving, TheChartsMenuOpensByKeysAndAnEmptyChartHasNoValues)
{
    ShowChart().ShowDetails(2);
    LarkChart &chart = *At<LarkChart>(S("LarkChart1"));
    QTest::keyClick(m_Area.get(), Qt::Key_Tab);
    ASSERT_TRUE(chart.hasFocus());
    QTest::keyClick(&chart, Qt::Key_Menu);
    EXPECT_EQ(Offered(), S("Save picture, [Save values as CSV]"));
    Choose(1, Path("chart.png"));
    EXPECT_FALSE(QImage(Path("chart.png")).isNull());
}

TEST_F(Saving, ANameThatNoFileSystemTakesIsWrittenOtherwise)
{
    ctlUserInfo &info = ShowChart();
    modMain::CurrentPlayer->Name = S("../A:n/n\\<b>\n?");
    info.ShowDetails(2);
    RightClick(At(S("LarkChart1")));
    Choose(1, {});
    EXPECT_EQ(m_Proposed, S("Progress of .._A_n_n__b___.png"));
}

TEST_F(Saving, TheFirstFaceHasNoMenu)
{
    ctlUserInfo &info = ShowChart();
    info.ShowDetails(1);
    RightClick(At(S("lblWorkout")));
    EXPECT_EQ(Menu(), nullptr);
}
