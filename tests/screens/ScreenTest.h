// A game area with a real store, real words, and a main window that notes what it is asked for.
#pragma once

#include "domain/CPlayer.h"
#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colPlayer.h"
#include "shell/program/MainForm.h"
#include "shell/program/modMain.h"
#include "tests/support/RecordingFramework.h"
#include "tests/support/TestStore.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <QTest>
#include <QWidget>

class LarkButton;
class TransLabel;

/// Notes "PlayGame Arrows 2" and the like.
class NotingForm final : public MainForm
{
public:
    void Instructions(const std::shared_ptr<CGame> &Game, std::int32_t Level) override;
    void PlayGame(const std::shared_ptr<CGame> &Game, std::int32_t Level) override;
    void StartGame(const std::shared_ptr<CGame> &Game, std::int32_t Level, bool &Result) override;
    void SetSkin(const std::shared_ptr<CSkin> &) override {}
    QImage GameBackground() const override { return Background; }
    QWidget *Window() override { return nullptr; }

    QString TakeCalls();
    QImage Background;

private:
    void Note(const char *what, const std::shared_ptr<CGame> &game, std::int32_t level);
    QStringList m_Calls;
};

class ScreenTest : public testing::Test
{
protected:
    ScreenTest();
    ~ScreenTest() override;

    void GivenGame(const QString &Name, const QString &Category, const QString &More = {});
    /// Loads players, categories and games, as the start of the program does.
    void Start();
    /// Three categories with two games each, and no player.
    void StartWithSixGames();
    std::shared_ptr<CPlayer> GivenPlayer(const QString &Name);
    static std::shared_ptr<CGame> Game(const QString &Name);
    static std::shared_ptr<CCategory> Category(const QString &Name);
    /// A workout of the current player, begun on that day count.
    static std::shared_ptr<CWorkout> GivenWorkout(double Day);
    /// A result in the open workout.
    static void Finish(const QString &GameName, std::int32_t Points, std::int32_t Award = 0);
    static void SetToday(int Year, int Month, int Day);

    /// Puts a screen into the game area, in its full size, and shows it.
    void Open(QWidget *Screen);
    /// A control by its name; the test ends when there is none.
    template <typename Control = QWidget>
    Control *At(const QString &Name)
    {
        auto *control = m_Area->findChild<Control *>(Name);
        if (control == nullptr) qFatal("no control %s", qPrintable(Name));
        return control;
    }
    QString Text(const QString &Name);
    bool Shown(const QString &Name) { return !At(Name)->isHidden(); }
    /// Where a control stands on its screen.
    QRect Place(const QString &Name);
    void Click(const QString &Name);
    /// The names of the shown ones among the elements of control arrays and others.
    QString ShownOf(const QStringList &Names);
    /// Writes a picture of the game area for the eye.
    void Photograph(const QString &Name);
    /// Effects asked for since the last call.
    int TakeSounds();
    /// Whether that effect, and no other, was asked for since the last call.
    bool TakeOnly(const char *Sound);
    static QString Word(std::int16_t ID);
    /// From now on the words are German: none of them stands in the program itself.
    static void SpeakGerman();

    TestStore m_Store;
    NotingForm m_Form;
    std::shared_ptr<RecordingFramework> m_Framework;
    std::unique_ptr<QWidget> m_Area;
    QWidget *m_Screen = nullptr;
};
