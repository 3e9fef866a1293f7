#include "screens/ctlGameList.h"

#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colGamePlayed.h"
#include "domain/colPlayer.h"
#include "domain/upload/frmUpload.h"
#include "platform/Convert.h"
#include "platform/Csv.h"
#include "platform/Dates.h"
#include "screens/BestTable.h"
#include "screens/RowView.h"
#include "screens/SaveFile.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/modMain.h"
#include "skin/ctlButtonPanel.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

#include <algorithm>

namespace
{
constexpr std::int16_t LevelWord = 9;
constexpr std::int32_t PracticeMode = 3;
// A settings file that asks for a million levels would fill the machine with buttons.
constexpr std::int32_t MostLevels = 999;
const QString Nothing = QStringLiteral("-");

// Hours too, or a spreadsheet would take minutes for them.
QString ClockTime(std::int32_t seconds)
{
    const QChar zero(u'0');
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600, 2, 10, zero)
        .arg(seconds / 60 % 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

bool Presses(const QKeyEvent &Key)
{
    const bool isKey = Key.key() == Qt::Key_Space || Key.key() == Qt::Key_Return || Key.key() == Qt::Key_Enter;
    return isKey && !Key.isAutoRepeat();
}

std::int32_t LevelsOf(const CGame &Game)
{
    const double told = LeadingNumber(Game.GetSetting(QStringLiteral("config"), QStringLiteral("levels")));
    return ToInt32(std::clamp(told, 1.0, static_cast<double>(MostLevels)));
}
} // namespace

void ctlGameList::LoadCatList()
{
    if (cCatList.Buttons->Count() > 0) return;
    cCatList.Buttons->ClearButtons();
    for (const auto &category : *modMain::Categories)
        cCatList.Buttons->Add(category->LocalName(), QString::number(category->Key));
    cCatList.Buttons->UpdateButtons();
    cCatList.View->Fit();
    LoadGameList();
    SkinUp();
}

void ctlGameList::LoadGameList()
{
    if (!m_Category) {
        cGameList.Buttons->hide();
        lblGame->hide();
        ShowLevels(false);
        return ShowBestTimes();
    }
    cGameList.Buttons->ClearButtons();
    for (const auto &game : *modMain::Games)
        if (game->Category == m_Category->Key) cGameList.Buttons->Add(game->Name(), QString::number(game->Key));
    cGameList.Buttons->UpdateButtons();
    cGameList.Buttons->show();
    cGameList.View->Fit();
    cGameList.View->ToTop();
    lblGame->show();
    LoadLevels();
}

void ctlGameList::LoadLevels()
{
    if (!m_Game) return ShowLevels(false);
    cLevels.Buttons->ClearButtons();
    const QString word = Word(LevelWord) + u' ';
    for (std::int32_t i = 1; i <= m_LevelCount; ++i)
        cLevels.Buttons->Add(word + QString::number(i), QString::number(i));
    cLevels.Buttons->UpdateButtons();
    cLevels.Buttons->SetSelection(1); // raises the click on the first level
    m_Level = 1;
    ShowLevels(true);
    cLevels.View->Fit();
    cLevels.View->ToTop();
}

void ctlGameList::ShowLevels(bool Visible)
{
    cLevels.Buttons->setVisible(Visible);
    lblLevel->setVisible(Visible);
    cmdPlay->setVisible(Visible);
    cmdInstructions->setVisible(Visible);
    if (!Visible) cLevels.View->Fit();
}

void ctlGameList::ChooseCategory(const QString &Key)
{
    m_Category = modMain::Categories->Item(QStringLiteral("K") + Key);
    m_Game.reset();
    LoadGameList();
    ShowBestTimes();
}

void ctlGameList::ChooseGame(const QString &Key)
{
    m_Game = modMain::Games->Item(WholeNumber(Key));
    m_LevelCount = LevelsOf(*m_Game);
    LoadLevels();
}

void ctlGameList::ChooseLevel(const QString &Key)
{
    m_Level = ToInt32(LeadingNumber(Key));
    ShowBestTimes();
}

void ctlGameList::Upload()
{
    // A dialog that was closed in mid-run is still busy with its last result; another one would send that again.
    if (m_Uploading) return;
    const QScopedValueRollback<bool> uploading(m_Uploading, true);
    frmUpload().ShowModal(this);
}

void ctlGameList::ShowBestTimes()
{
    // No more than can be shown: where tens of thousands were played, reading all of them takes longer than a frame.
    const auto most = static_cast<std::int32_t>(TableRows);
    const auto best = m_Game ? m_Game->BestTimes(m_Level, PracticeMode, most) : nullptr;
    m_Results.clear();
    QStringList told;
    for (std::size_t i = 0; i < TableRows; ++i) {
        const Line &line = m_Table[i];
        const std::array cells{line.lblName, line.lblScore, line.lblTimeTaken, line.lblDate};
        for (cTransPictureBox *cell : cells) cell->SetCaption(Nothing);
        const auto position = static_cast<std::int32_t>(i) + 1;
        if (!best || best->Count() < position) continue;
        ShowResult(line, *best->Item(position));
        QStringList row{line.lblPos->Caption()};
        for (const cTransPictureBox *cell : cells) row << cell->Caption();
        told << row.join(u' ');
    }
    m_BestTable->SetRows(told);
}

// The results of a player who is gone stay, and so does their place; only the name is unknown.
void ctlGameList::ShowResult(const Line &Line, const CGamePlayed &Result)
{
    const auto player = modMain::Players->Find(Result.Player);
    if (player) Line.lblName->SetCaption(player->Name);
    Line.lblScore->SetCaption(QString::number(Result.Score) + u'%');
    Line.lblTimeTaken->SetCaption(modMain::FormatTime(Result.Time, false));
    Line.lblDate->SetCaption(FormatShortDate(Result.Timestamp));
    m_Results << QStringList{player ? player->Name : Nothing, QString::number(Result.Score), ClockTime(Result.Time),
                             IsoDate(Result.Timestamp)};
}

void ctlGameList::OfferToSave(const QPoint &At)
{
    Savable table{QStringLiteral("Save table as CSV"),
                  lblBestTime->Caption(),
                  QStringLiteral("csv"),
                  QStringLiteral("CSV table"),
                  {}};
    if (m_Game) table.Name += QStringLiteral(" - %1 - %2 %3").arg(m_Game->Name(), Word(LevelWord)).arg(m_Level);
    QList<QStringList> rows{
        {lblNameTitle->Caption(), lblScoreTitle->Caption(), lblTimeTitle->Caption(), lblDateTitle->Caption()}};
    rows << m_Results;
    if (!m_Results.isEmpty()) table.Bytes = [rows] { return ToCsv(rows); };
    ShowSaveMenu(this, At, {table});
}

void ctlGameList::contextMenuEvent(QContextMenuEvent *event)
{
    const QRect table = m_BestTable->geometry();
    if (event->reason() == QContextMenuEvent::Mouse ? table.contains(event->pos()) : m_BestTable->hasFocus())
        OfferToSave(event->reason() == QContextMenuEvent::Mouse ? event->pos() : table.center());
    else
        event->ignore();
}

void ctlGameList::keyPressEvent(QKeyEvent *event)
{
    if (lblURL->hasFocus() && Presses(*event)) return OpenLink();
    if (!m_BestTable->hasFocus() || !AsksForMenu(*event)) return Screen::keyPressEvent(event);
    OfferToSave(m_BestTable->geometry().center());
}
