// What the workout screen shows: its controls, tiles and rows.
#include "screens/Awards.h"
#include "screens/Design.h"
#include "screens/RowView.h"
#include "screens/ctlWorkOut.h"

#include "domain/CPlayer.h"
#include "domain/colCategory.h"
#include "platform/Clock.h"
#include "platform/Colour.h"
#include "platform/Dates.h"
#include "sdk/controls/Accessible.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/modMain.h"
#include "skin/ShellSound.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr QSize DesignSize(522, 322); // [px]
constexpr QRect FirstTile(4, 76, 200, 59), FirstRow(240, 76, 275, 59);
constexpr int Gap = 4;                                  // [px] between tiles
constexpr QPoint TileAwards(10, 30), RowAwards(65, 30); // [px]
constexpr int TickRight = 10, TickTop = 25;             // [px]
constexpr int StarRight = 25, StarTop = 5;              // [px]
constexpr std::int32_t Yellow = 65535, White = 0xFFFFFF, Blue = 0xFF0000;
constexpr QColor SelectedFrame(0xB8, 0x86, 0x0B), PlainFrame(0xC9, 0xD8, 0xD4);
constexpr double TitleFont = 18, DueFont = 12, NameFont = 10.5;

enum Words : std::int16_t {
    ToDo = 316,
    PlayWord = 2005,
    InstructionsWord = 2006,
    NoWorkout = 4001,
    WorkoutOf = 4002,
    NextDue = 4003,
    StillToDo = 4004,
    NotToday = 4005,
    PointsWord = 4006,
    LevelWord = 4007,
    StartWorkout = 4008,
    AllDoneMessage = 4009
};
} // namespace

ctlWorkOut::ctlWorkOut(QWidget *Container) : Screen(Container)
{
    MakeControls();
    connect(butNextWorkout, &LarkButton::clicked, this, [this] { NextWorkout(); });
    resize(DesignSize);
    Arrange();
}

void ctlWorkOut::MakeControls()
{
    lblWorkout = PutLabel<TransLabel>(this, QStringLiteral("lblWorkout"), {8, 2, 500, 33},
                                      QStringLiteral("Current Workout"), TitleFont, true, Qt::AlignHCenter);
    lblNextDue = PutLabel<TransLabel>(this, QStringLiteral("lblNextDue"), {12, 36, 470, 33},
                                      QStringLiteral("Next workout:"), DueFont, true, Qt::AlignHCenter);
    butNextWorkout =
        PutButton(this, QStringLiteral("butNextWorkout"), {182, 42, 120, 24}, QStringLiteral("Start Workout"));
    m_View = new RowView(this);
    lblMessage = PutLabel<cTransPictureBox>(this, QStringLiteral("lblMessage"), {17, 273, 478, 44},
                                            QStringLiteral("Well done - you have completed today's Brain Test. "),
                                            SmallFont, true, Qt::AlignHCenter);
    lblMessage->SetForeColour(ToColour(Blue));
    lblMessage->SetWordWrap(true);
    lblMessage->setAttribute(Qt::WA_TransparentForMouseEvents);
    TileAt(0).picCat->hide();
    RowAt(0).picGame->hide();
}

ctlWorkOut::Tile &ctlWorkOut::TileAt(std::size_t Index)
{
    if (Index < m_Tiles.size()) return m_Tiles[Index];
    QRect place = FirstTile.translated(0, static_cast<int>(Index) * (FirstTile.height() + Gap));
    if (Index > 0) place.moveLeft(m_Tiles[0].picCat->x());
    Tile tile{};
    tile.picCat = Put<PictureBox>(m_View->Sheet(), Element("picCat", Index), place);
    tile.picCat->setFocusPolicy(Qt::StrongFocus);
    tile.lblCat = PutLabel<cTransPictureBox>(tile.picCat, Element("lblCat", Index), {8, 0, 117, 27},
                                             QStringLiteral("Cat Name"), NameFont, true);
    tile.lblCatScore = PutLabel<cTransPictureBox>(tile.picCat, Element("lblCatScore", Index), {82, 0, 102, 27},
                                                  QStringLiteral("999"), NameFont, true, Qt::AlignRight);
    connect(tile.picCat, &PictureBox::Click, this, [this, Index] { SelectCategory(Index); });
    for (cTransPictureBox *label : {tile.lblCat, tile.lblCatScore})
        connect(label, &cTransPictureBox::Click, this, [this, Index] { SelectCategory(Index); });
    m_Tiles.push_back(tile);
    return m_Tiles.back();
}

ctlWorkOut::Row &ctlWorkOut::RowAt(std::size_t Index)
{
    if (Index < m_Rows.size()) return m_Rows[Index];
    QRect place = FirstRow.translated(0, static_cast<int>(Index) * (FirstRow.height() + Gap));
    if (Index > 0) place.moveLeft(m_Rows[0].picGame->x());
    Row row{};
    row.picGame = Put<PictureBox>(m_View->Sheet(), Element("picGame", Index), place);
    row.picGame->SetFrameColour(PlainFrame);
    row.lblGame = PutLabel<cTransPictureBox>(row.picGame, Element("lblGame", Index), {7, 2, 117, 27},
                                             QStringLiteral("Game Name"), NameFont, true);
    row.lblLevel = PutLabel<cTransPictureBox>(row.picGame, Element("lblLevel", Index), {5, 28, 60, 27},
                                              QStringLiteral("Level 1"), SmallFont, false);
    row.lblPoints = PutLabel<cTransPictureBox>(row.picGame, Element("lblPoints", Index), {116, 1, 124, 27},
                                               QStringLiteral("Score: 999"), SmallFont, false, Qt::AlignRight);
    row.butPlay = PutButton(row.picGame, Element("butPlay", Index), {147, 3, 120, 24}, QStringLiteral("Play"));
    row.butInstructions =
        PutButton(row.picGame, Element("butInstructions", Index), {147, 30, 120, 24}, QStringLiteral("Instructions"));
    connect(row.butPlay, &LarkButton::clicked, this, [this] { Play(); });
    connect(row.butInstructions, &LarkButton::clicked, this, [this] { ShowInstructions(); });
    if (Index > 0) {
        CopyButton(row.butPlay, m_Rows[0].butPlay);
        CopyButton(row.butInstructions, m_Rows[0].butInstructions);
    }
    m_Rows.push_back(row);
    return m_Rows.back();
}

// A row that is made later looks and reads like the first one.
void ctlWorkOut::CopyButton(LarkButton *Button, LarkButton *First)
{
    Button->SetCaption(First->Caption());
    Button->SetPictureUp(First->PictureUp());
    Button->SetPictureDown(First->PictureDown());
}

// What is beyond the list goes once the list stands: a tile that has the focus keeps it so. The first ones stay,
// whatever the list holds.
void ctlWorkOut::HideTilesFrom(std::size_t Index)
{
    for (std::size_t i = std::max<std::size_t>(1, Index); i < m_Tiles.size(); ++i) m_Tiles[i].picCat->hide();
}

void ctlWorkOut::HideRowsFrom(std::size_t Index)
{
    for (std::size_t i = std::max<std::size_t>(1, Index); i < m_Rows.size(); ++i) m_Rows[i].picGame->hide();
}

/// Answer: whether the category is done, which without a workout it is.
bool ctlWorkOut::ShowCategory(Tile &Tile, CCategory &Category)
{
    const bool selected = Category.Key == m_Category->Key;
    Tile.lblCat->SetCaption(Category.LocalName());
    Tile.lblCat->show();
    Tile.picCat->SetBackColour(ToColour(selected ? Yellow : White));
    Tile.picCat->SetFrameColour(selected ? SelectedFrame : PlainFrame);
    Accessible::TellSelected(Tile.picCat, selected);
    Tile.lblCatScore->hide();

    QPainter painter(&Tile.picCat->Surface());
    bool done = true;
    QString score;
    if (modMain::CurrentWorkout) {
        const auto result = modMain::CurrentWorkout->GamesPlayed().ByCat(Category.Key);
        done = result != nullptr;
        score = done ? QString::number(result->Points) : Word(ToDo);
        Tile.lblCatScore->SetCaption(score);
        Tile.lblCatScore->show();
        if (done) DrawTick(painter, Tile.picCat->width() - TickWidth() - TickRight, TickTop);
    }
    const std::int32_t awards = modMain::CurrentPlayer ? modMain::CurrentPlayer->Awards(Category) : 0;
    DrawAwards(painter, TileAwards.x(), TileAwards.y(), awards);
    painter.end();
    Tile.picCat->setAccessibleName(score.isEmpty() ? Category.LocalName()
                                                   : Category.LocalName() + QStringLiteral(", ") + score);
    Tile.picCat->Refresh();
    Tile.picCat->show();
    return done;
}

void ctlWorkOut::ShowWorkout(bool AllDone, bool PlayFanfare)
{
    lblMessage->hide();
    const auto show = [this](bool button, const QString &due) {
        butNextWorkout->setVisible(button);
        lblNextDue->setVisible(!button);
        if (!button) lblNextDue->SetCaption(due);
    };
    const CWorkout *workout = modMain::CurrentWorkout.get();
    if (workout == nullptr) {
        lblWorkout->SetCaption(Word(NoWorkout));
        return show(true, {});
    }
    lblWorkout->SetCaption(Word(WorkoutOf) + FormatDayMonthYear(workout->Timestamp));
    if (!AllDone) return show(false, Word(StillToDo));
    show(workout->Timestamp < Today(), Word(NextDue) + FormatDayMonthYear(workout->Timestamp + 1));
    lblMessage->show();
    if (PlayFanfare) PlayShellSound(QStringLiteral("fanfare"));
}

void ctlWorkOut::ShowGame(Row &Row, const CGame &Game, const CGamePlayed *Played, std::int32_t KeyToPlay)
{
    modMain::CurrentPlayerGame = modMain::CurrentPlayer->GameData().Item(Game.Key);
    const CPlayerGame &state = *modMain::CurrentPlayerGame;
    Row.picGame->Cls();
    Row.lblPoints->hide();
    Row.butInstructions->hide();
    Row.butPlay->hide();
    ShowOutcome(Row, Game, Played, KeyToPlay);
    Row.lblGame->SetCaption(Game.Name());
    Row.lblGame->show();
    Row.lblLevel->SetCaption(Word(LevelWord) + u' ' + QString::number(state.Level()));
    Row.lblLevel->show();
    QPainter painter(&Row.picGame->Surface());
    DrawAwards(painter, RowAwards.x(), RowAwards.y(), state.UnspentAwards);
    painter.end();
    Row.picGame->setAccessibleName(Game.Name());
    Row.picGame->Refresh();
    Row.picGame->show();
}

void ctlWorkOut::ShowOutcome(Row &Row, const CGame &Game, const CGamePlayed *Played, std::int32_t KeyToPlay)
{
    if (Played == nullptr && Game.Key == KeyToPlay) {
        Row.butPlay->show();
        Row.butInstructions->show();
        return;
    }
    if (!modMain::CurrentWorkout) return;
    const bool isPlayed = Played != nullptr && Played->Game == Game.Key;
    Row.lblPoints->SetCaption(isPlayed ? Word(PointsWord) + u' ' + QString::number(Played->Points) : Word(NotToday));
    Row.lblPoints->show();
    if (!isPlayed || Played->Award == 0) return;
    QPainter painter(&Row.picGame->Surface());
    DrawStar(painter, Row.picGame->width() - StarRight, StarTop);
}

void ctlWorkOut::SkinUp()
{
    SetStrings();
    CopyBackground();
    Skin(butNextWorkout);
    for (const Row &row : m_Rows) {
        Skin(row.butPlay);
        Skin(row.butInstructions);
    }
}

void ctlWorkOut::SetStrings()
{
    m_Rows[0].butPlay->SetCaption(Word(PlayWord));
    m_Rows[0].butInstructions->SetCaption(Word(InstructionsWord));
    butNextWorkout->SetCaption(Word(StartWorkout));
    lblMessage->SetCaption(Word(AllDoneMessage));
}

void ctlWorkOut::Arrange()
{
    const int middle = width() / 2;
    for (QWidget *control : {static_cast<QWidget *>(lblWorkout), static_cast<QWidget *>(lblNextDue),
                             static_cast<QWidget *>(butNextWorkout), static_cast<QWidget *>(lblMessage)})
        Centre(control, width());
    for (const Tile &tile : m_Tiles) SetLeft(tile.picCat, middle - tile.picCat->width() - 30);
    for (const Row &row : m_Rows) SetLeft(row.picGame, middle - 20);
    lblMessage->move(lblMessage->x(), height() - lblMessage->height() - 5);
    PlaceRows();
}

// Rows and message share the foot of the screen: rows that would run under the message are reached by scrolling.
void ctlWorkOut::PlaceRows()
{
    const int top = FirstTile.top() - Gap;
    const int bottom = lblMessage->isHidden() ? height() : lblMessage->y();
    m_View->SetWindow({0, top, width(), std::max(0, bottom - top)});
}

void ctlWorkOut::SetTabs()
{
    QList<QWidget *> order{butNextWorkout};
    for (const Tile &tile : m_Tiles) order << tile.picCat;
    for (const Row &row : m_Rows) order << row.butPlay << row.butInstructions;
    SetTabOrder(order);
}
