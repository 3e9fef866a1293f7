// Double clicks, as people do them who are used to icons: the second press comes when the first has changed the
// screen, and must not choose what happens to lie there now.
#include "tests/shell/support/FlowTest.h"

#include "skin/PanelSurface.h"

#include <QCursor>
#include <QWindow>

class DoubleClicks : public FlowTest
{
protected:
    QWidget *Row(const char *kind, const QString &key) const
    {
        const QWidget *const panel = Program.Find("ctlButtonPanel1");
        for (const PanelSurface *row : panel->findChildren<PanelSurface *>())
            if (row->objectName().startsWith(u"picNormal") && row->Tag == key && !row->isHidden())
                for (PanelSurface *surface : panel->findChildren<PanelSurface *>())
                    if (surface->objectName() == QLatin1String(kind) + row->objectName().mid(9) &&
                        surface->geometry() == row->geometry() && surface->accessibleName() == row->accessibleName())
                        return surface;
        return nullptr;
    }
    QPoint Middle(const QString &key) const
    {
        const QWidget *const row = Row("picNormal", key);
        return row->mapTo(&Program.Window(), row->rect().center());
    }
    QWindow *Window() const { return Program.Window().windowHandle(); }
    void Light(const QString &key, QPoint place)
    {
        QCursor::setPos(Program.Window().mapToGlobal(place)); // for the panel's own look at where the pointer rests
        QTest::mouseMove(Window(), place);
        EXPECT_TRUE(Program.Until([&] {
            const QWidget *const hover = Row("picHover", key);
            return hover != nullptr && hover->isVisible();
        })) << Plain(key);
    }
    /// A press and its release that the desktop takes for the second click of a double one.
    void ClickAgain(QPoint place) const
    {
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        QTest::mouseClick(Window(), Qt::LeftButton, {}, place);
    }
};

TEST_F(DoubleClicks, OnPausePausesOnceThoughContinueLightsUpUnderTheSecond)
{
    StartWithAnn();
    StartWorkoutGame();
    const QString pause = QStringLiteral("pause");
    const QPoint place = Middle(pause);
    Program.ClickMenu(pause);
    ASSERT_EQ(Mode(), 5);
    Light(QStringLiteral("continue"), place + QPoint(1, 0));
    ClickAgain(place + QPoint(1, 0));
    EXPECT_EQ(Mode(), 5) << "nobody chose to continue";
    QTest::mouseClick(Window(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Mode(), 3) << "a click of its own counts";
}

TEST_F(DoubleClicks, OnContinueContinuesOnce)
{
    StartWithAnn();
    StartPracticeGame();
    Program.ClickMenu(QStringLiteral("pause"));
    const QPoint place = Middle(QStringLiteral("continue"));
    Light(QStringLiteral("continue"), place);
    QTest::mouseClick(Window(), Qt::LeftButton, {}, place);
    ASSERT_EQ(Mode(), 4);
    Light(QStringLiteral("pause"), place + QPoint(1, 0));
    ClickAgain(place + QPoint(1, 0));
    EXPECT_EQ(Mode(), 4);
}

TEST_F(DoubleClicks, WhoseFirstPressMetARowThatWasNotLitChooseWithTheSecond)
{
    StartWithAnn();
    const QPoint place = Middle(QStringLiteral("exercise"));
    QTest::mouseMove(Window(), QPoint(1, 1));
    EXPECT_FALSE(Row("picHover", QStringLiteral("exercise"))->isVisible());
    QTest::mousePress(Row("picNormal", QStringLiteral("exercise")), Qt::LeftButton);
    Light(QStringLiteral("exercise"), place);
    ClickAgain(place);
    EXPECT_EQ(Mode(), 6);
}

TEST_F(DoubleClicks, OnThePlayersNameOpenOneScreenAndStartNothing)
{
    StartWithAnn();
    for (const QString &player : {QStringLiteral("Bea"), QStringLiteral("Cal"), QStringLiteral("Dan"),
                                  QStringLiteral("Eva"), QStringLiteral("Fay"), QStringLiteral("Gus")}) {
        Program.ClickMenu(QStringLiteral("change player"));
        Program.NewPlayer(player);
    }
    const qsizetype boxes = Program.Boxes.size();
    for (const QString &player :
         {QStringLiteral("Ann"), QStringLiteral("Bea"), QStringLiteral("Cal"), QStringLiteral("Dan"),
          QStringLiteral("Eva"), QStringLiteral("Fay"), QStringLiteral("Gus")}) {
        SCOPED_TRACE(player.toStdString());
        Program.ClickMenu(QStringLiteral("change player"));
        Program.ClickPlayer(player);
        ASSERT_EQ(Mode(), 2);
        ClickAgain(Program.LastClick);
        EXPECT_EQ(Mode(), 2);
        EXPECT_EQ(Program.Boxes.size(), boxes);
    }
}
