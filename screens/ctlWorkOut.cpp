#include "screens/ctlWorkOut.h"

#include "domain/CPlayer.h"
#include "domain/Store.h"
#include "domain/colCategory.h"
#include "platform/Clock.h"
#include "screens/Design.h"
#include "sdk/controls/LarkButton.h"
#include "shell/program/MainForm.h"
#include "shell/program/modMain.h"

#include <QScopedValueRollback>

namespace
{
const QString Unnamed = QStringLiteral("zzz"); // the category of games that name none: never shown here
const QString SavingStates = QStringLiteral("Error saving PlayerGame info.");
constexpr std::int32_t WorkoutMode = 1;
} // namespace

void ctlWorkOut::ListCats(bool PlayFanfare)
{
    modMain::OneCommit(SavingStates, [&] { ListCatsNow(PlayFanfare); });
}

void ctlWorkOut::ListGames()
{
    modMain::OneCommit(SavingStates, [&] { ListGamesNow(); });
}

void ctlWorkOut::ListCatsNow(bool PlayFanfare)
{
    modMain::CurrentWorkout = modMain::CurrentPlayer ? modMain::CurrentPlayer->Workouts().Current() : nullptr;
    bool allDone = true;
    std::size_t n = 0;
    for (const auto &category : *modMain::Categories) {
        if (category->Name == Unnamed) continue;
        if (!m_Category) m_Category = category;
        if (!ShowCategory(TileAt(n), *category)) allDone = false;
        ++n;
    }
    HideTilesFrom(n);
    ShowWorkout(allDone, PlayFanfare);
    ListGamesNow();
}

void ctlWorkOut::ListGamesNow()
{
    const auto &workout = modMain::CurrentWorkout;
    m_NextGame = workout && m_Category ? modMain::CurrentPlayer->NextGameToPlay(m_Category->Key) : nullptr;
    const std::int32_t keyToPlay = m_NextGame ? m_NextGame->Key : 0;
    const auto played = workout && m_Category ? workout->GamesPlayed().ByCat(m_Category->Key) : nullptr;
    std::size_t n = 0;
    if (m_Category && modMain::CurrentPlayer)
        for (const auto &game : m_Category->Games()) ShowGame(RowAt(n++), *game, played.get(), keyToPlay);
    HideRowsFrom(n);
    PlaceRows();
    SetTabs();
}

void ctlWorkOut::NextWorkout()
{
    Beep();
    if (!modMain::CurrentPlayer) return;
    if (modMain::CurrentWorkout) modMain::CurrentWorkout->Complete();
    modMain::CurrentWorkout = modMain::CurrentPlayer->Workouts().Add();
    CWorkout &workout = *modMain::CurrentWorkout;
    workout.Mode = WorkoutMode;
    workout.Player = modMain::CurrentPlayer->Key;
    workout.Status = 0;
    workout.Timestamp = Today();
    workout.Save();
    ListCats(false);
}

// The position counts every category, "zzz" too: tiles and positions agree because it sorts last.
void ctlWorkOut::SelectCategory(std::size_t Index)
{
    if (m_InTileClick) return;
    const QScopedValueRollback<bool> inClick(m_InTileClick, true);
    Beep();
    m_Category = modMain::Categories->Item(static_cast<std::int32_t>(Index) + 1);
    ListCats(false);
}

// The buttons stand on the row of m_NextGame alone, but for a row that a category without games left standing: there
// is nothing to play then.
std::shared_ptr<CPlayerGame> ctlWorkOut::TakeNextGame()
{
    Beep();
    if (!m_NextGame || modMain::Form == nullptr) return nullptr;
    modMain::CurrentPlayerGame = modMain::CurrentPlayer->GameData().Item(m_NextGame->Key);
    return modMain::CurrentPlayerGame;
}

void ctlWorkOut::Play()
{
    if (const auto state = TakeNextGame()) modMain::Form->PlayGame(m_NextGame, state->Level());
}

void ctlWorkOut::ShowInstructions()
{
    if (const auto state = TakeNextGame()) modMain::Form->Instructions(m_NextGame, state->Level());
}
