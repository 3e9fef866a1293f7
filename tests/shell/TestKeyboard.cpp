// Who has the keyboard when screens change and games come and go.
#include "tests/shell/support/RunningProgram.h"

#include "domain/colGame.h"

#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace
{
bool MenuHasTheKeyboard(const RunningProgram &program)
{
    const auto *const menu = program.Find("ctlButtonPanel1");
    const QWidget *const focused = QApplication::focusWidget();
    return focused == menu || (focused != nullptr && menu->isAncestorOf(focused));
}

/// A player at a game of the practice screen.
void Practise(RunningProgram &program)
{
    ASSERT_TRUE(program.Start());
    program.NewPlayer(QStringLiteral("Ann"));
    bool result = false;
    modMain::Form->StartGame(modMain::Games->Item(1), 1, result);
    ASSERT_TRUE(result);
}
} // namespace

TEST(Keyboard, DoesNotGoToTheMenuWhenAScreenGoes)
{
    RunningProgram program;
    ASSERT_TRUE(program.Start());
    program.NewPlayer(QStringLiteral("Ann")); // by a button that has the focus and goes
    EXPECT_EQ(program.Window().Mode(), 2);
    EXPECT_FALSE(MenuHasTheKeyboard(program));
}

TEST(Keyboard, AnEnterForTheGameDoesNotPauseIt)
{
    RunningProgram program({QStringLiteral("tally-rush")});
    Practise(program);
    program.ClickMenu(QStringLiteral("pause"));
    EXPECT_EQ(program.Window().Mode(), 5);
    EXPECT_FALSE(MenuHasTheKeyboard(program));
    program.Turn(300); // the rows light up again
    program.ClickMenu(QStringLiteral("continue"));
    EXPECT_EQ(program.Window().Mode(), 4);
    program.PressKey(Qt::Key_1);
    program.PressKey(Qt::Key_Return);
    EXPECT_EQ(program.Window().Mode(), 4);
    EXPECT_FALSE(MenuHasTheKeyboard(program));
}

TEST(Keyboard, AGameKeepsItWhenTheMenuIsPressed)
{
    RunningProgram program({QStringLiteral("tally-rush")});
    Practise(program);
    QWidget *const before = QApplication::focusWidget();
    program.AnswerNextBox("cmd2");
    program.ClickMenu(QStringLiteral("abandon")); // and not, after all
    EXPECT_EQ(program.Window().Mode(), 4);
    EXPECT_TRUE(program.Until([&] { return QApplication::focusWidget() == before; }));
}
