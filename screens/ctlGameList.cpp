#include "screens/ctlGameList.h"

#include "domain/colCategory.h"
#include "domain/colGame.h"
#include "domain/colGamePlayed.h"
#include "domain/colPlayer.h"
#include "domain/upload/frmUpload.h"
#include "platform/Convert.h"
#include "platform/Dates.h"
#include "screens/RowView.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/MainForm.h"
#include "shell/program/modMain.h"
#include "skin/ctlButtonPanel.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace
{
constexpr std::int16_t LevelWord = 9;
constexpr std::int32_t PracticeMode = 3;
// A settings file that asks for a million levels would fill the machine with buttons.
constexpr std::int32_t MostLevels = 999;
const QString Nothing = QStringLiteral("-");

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
    const auto best = m_Game ? m_Game->BestTimes(m_Level, PracticeMode) : nullptr;
    for (std::size_t i = 0; i < TableRows; ++i) {
        const Line &line = m_Table[i];
        for (cTransPictureBox *cell : {line.lblName, line.lblScore, line.lblTimeTaken, line.lblDate})
            cell->SetCaption(Nothing);
        const auto position = static_cast<std::int32_t>(i) + 1;
        if (!best || best->Count() < position) continue;
        const CGamePlayed &result = *best->Item(position);
        // The results of a player who is gone stay, and so does their place; only the name is unknown.
        if (const auto player = modMain::Players->Find(result.Player)) line.lblName->SetCaption(player->Name);
        line.lblScore->SetCaption(QString::number(result.Score) + u'%');
        line.lblTimeTaken->SetCaption(modMain::FormatTime(result.Time, false));
        line.lblDate->SetCaption(FormatShortDate(result.Timestamp));
    }
}
