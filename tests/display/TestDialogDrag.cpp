// Every borderless dialog is dragged by its face and by its title, with a window manager and without one, and is used
// afterwards where it has come to.
#include "tests/display/DisplayTest.h"

#include "sdk/controls/LarkButton.h"
#include "sdk/controls/LarkForm.h"

#include "shell/program/modMain.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

namespace
{
constexpr QPoint By(46, 32);

class DialogDrag : public DisplayTest
{
protected:
    /// Where the window manager has put it: it may move a window after it shows and has the keys.
    static QPoint PlaceOf(const QWidget &form)
    {
        constexpr int enough = 10; // looks that find it in the same place
        QPoint place = form.pos();
        for (int same = 0; same < enough; ++same) {
            QTest::qWait(20);
            if (form.pos() == place) continue;
            place = form.pos();
            same = 0;
        }
        return place;
    }
    /// Drags the dialog that comes next from a place on it, and presses its button then. Answer: how far it went.
    void DragNext(const char *dialog, QPoint from, const char *button)
    {
        QTimer::singleShot(20, &Window(), [=, this] {
            auto *const form = qobject_cast<LarkForm *>(QApplication::activeModalWidget());
            if (form == nullptr || form->objectName() != QLatin1String(dialog) || !HasKeys(form))
                return DragNext(dialog, from, button);
            const QPoint home = PlaceOf(*form);
            Drag(form->mapToGlobal(from), By);
            RunningProgram::Until([&] { return form->pos() != home; });
            m_Went = form->pos() - home;
            Click(form->findChild<LarkButton *>(QLatin1String(button)));
            RunningProgram::Until([&] { return !form->isVisible(); });
            m_IsClosed = !form->isVisible();
        });
    }
    void ExpectDragged() const
    {
        EXPECT_EQ(m_Went.x(), By.x());
        EXPECT_EQ(m_Went.y(), By.y());
        EXPECT_TRUE(m_IsClosed) << "by its button, where that stands now";
    }
    void OpenUpload(QPoint from)
    {
        Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nOnline=1\r\n");
        StartWithAnn();
        DragNext("frmUpload", from, "butOK");
        Program.Click("butUpload");
        ExpectDragged();
    }

private:
    QPoint m_Went;
    bool m_IsClosed = false;
};
} // namespace

TEST_F(DialogDrag, TheUploadByItsTitle) { OpenUpload({80, 44}); }

TEST_F(DialogDrag, TheUploadByItsFace) { OpenUpload({16, 320}); }

TEST_F(DialogDrag, TheOptions)
{
    Start();
    DragNext("frmOptions", {80, 44}, "cmdCancel");
    Program.ClickMenu(QStringLiteral("options"));
    ExpectDragged();
}

TEST_F(DialogDrag, AMessageByItsWords)
{
    StartWithAnn();
    DragNext("frmMsgBox", {100, 50}, "cmd2");
    Window().close();
    ExpectDragged();
    EXPECT_TRUE(Window().isVisible()) << "the answer was no";
}

TEST_F(DialogDrag, AFieldOfADialogIsNoPlaceToDragItBy)
{
    Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nOnline=1\r\nEmail=ann@example.org\r\n");
    StartWithAnn();
    QPoint went(-1, -1);
    QTimer::singleShot(20, &Window(), [&] {
        auto *const form = QApplication::activeModalWidget();
        ASSERT_TRUE(RunningProgram::Until([&] { return HasKeys(form); }));
        const QPoint home = form->pos();
        Drag(MiddleOf(form->findChild<QLineEdit *>(QStringLiteral("txtEmail"))), By);
        went = form->pos() - home;
        Click(form->findChild<LarkButton *>(QStringLiteral("butOK")));
    });
    Program.Click("butUpload");
    EXPECT_EQ(went, QPoint());
}
