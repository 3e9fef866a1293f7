// The screen of the daily workout: the categories on the left, the games of the selected one on the right. It shows
// which categories are done and with what points, offers one game to play in the selected category, and decides when
// the next workout may start.
//
// A listing writes: a game that the player has no state in gets one by being shown.
#pragma once

#include "screens/Screen.h"

#include <memory>
#include <vector>

class CCategory;
class CGame;
class CGamePlayed;
class CPlayerGame;
class PictureBox;
class RowView;
class TransLabel;
class cTransPictureBox;

class ctlWorkOut final : public Screen
{
    Q_OBJECT

public:
    explicit ctlWorkOut(QWidget *Container);

    /// Rebuilds the whole screen. PlayFanfare: whether a workout that is done is celebrated. Failure: passed on.
    void ListCats(bool PlayFanfare);
    /// Rebuilds the rows of the selected category. Failure: passed on.
    void ListGames();
    void SkinUp();
    void SetStrings();

protected:
    void Arrange() override;

private:
    struct Tile
    {
        PictureBox *picCat;
        cTransPictureBox *lblCat;
        cTransPictureBox *lblCatScore;
    };
    struct Row
    {
        PictureBox *picGame;
        cTransPictureBox *lblGame;
        cTransPictureBox *lblLevel;
        cTransPictureBox *lblPoints;
        LarkButton *butPlay;
        LarkButton *butInstructions;
    };

    void MakeControls();
    Tile &TileAt(std::size_t Index);
    Row &RowAt(std::size_t Index);
    void CopyButton(LarkButton *Button, LarkButton *First);
    void PlaceRows();
    void SetTabs();

    void ListCatsNow(bool PlayFanfare);
    void ListGamesNow();
    void HideTilesFrom(std::size_t Index);
    void HideRowsFrom(std::size_t Index);
    bool ShowCategory(Tile &Tile, CCategory &Category);
    void ShowWorkout(bool AllDone, bool PlayFanfare);
    void ShowGame(Row &Row, const CGame &Game, const CGamePlayed *Played, std::int32_t KeyToPlay);
    void ShowOutcome(Row &Row, const CGame &Game, const CGamePlayed *Played, std::int32_t KeyToPlay);
    void SelectCategory(std::size_t Index);
    void NextWorkout();
    std::shared_ptr<CPlayerGame> TakeNextGame();
    void Play();
    void ShowInstructions();

    TransLabel *lblWorkout = nullptr;
    TransLabel *lblNextDue = nullptr;
    LarkButton *butNextWorkout = nullptr;
    cTransPictureBox *lblMessage = nullptr;
    RowView *m_View = nullptr;
    std::vector<Tile> m_Tiles;
    std::vector<Row> m_Rows;

    std::shared_ptr<CCategory> m_Category; // the selected one; empty until the first listing
    std::shared_ptr<CGame> m_NextGame;     // what may be played now in it, or empty
    bool m_InTileClick = false;
};
