// The practice screen: any game at any level, outside the workout. Three panels choose category, game and level;
// below them stand the five best results of that choice over all players.
#pragma once

#include "screens/Screen.h"

#include <QList>
#include <QStringList>

#include <array>
#include <functional>
#include <memory>

class BestTable;
class CCategory;
class CGame;
class CGamePlayed;
class QPoint;
class RowView;
class TransLabel;
class cTransPictureBox;
class ctlButtonPanel;

class ctlGameList final : public Screen
{
    Q_OBJECT

public:
    explicit ctlGameList(QWidget *Container);

    /// Fills the categories, once in the life of the screen; what was chosen stays chosen after that.
    void LoadCatList();
    void LoadGameList();
    void LoadLevels();
    /// Refills the table. Failure: passed on.
    void ShowBestTimes();
    void SkinUp();
    void SetStrings();

    /// Opens an address in the desktop's browser; tests set their own.
    std::function<void(const QString &)> OpenAddress;

protected:
    void Arrange() override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    static constexpr std::size_t TableRows = 5;
    struct Panel
    {
        RowView *View;
        ctlButtonPanel *Buttons;
    };
    struct Line
    {
        cTransPictureBox *lblPos;
        cTransPictureBox *lblName;
        cTransPictureBox *lblScore;
        cTransPictureBox *lblTimeTaken;
        cTransPictureBox *lblDate;
    };

    void MakePanels();
    void MakeButtons();
    void MakeTable();
    void MakeLinks();
    void OfferToSave(const QPoint &At);
    Panel PutPanel(const QString &Name, const QRect &Place);
    void PlacePanel(const Panel &Panel, int Left, int Bottom);
    void ShowLevels(bool Visible);
    void ShowResult(const Line &Line, const CGamePlayed &Result);
    void ChooseCategory(const QString &Key);
    void ChooseGame(const QString &Key);
    void ChooseLevel(const QString &Key);
    void Upload();
    void OpenLink();

    TransLabel *lblTitle = nullptr;
    cTransPictureBox *lblCat = nullptr;
    cTransPictureBox *lblGame = nullptr;
    cTransPictureBox *lblLevel = nullptr;
    Panel cCatList{};
    Panel cGameList{};
    Panel cLevels{};
    LarkButton *cmdPlay = nullptr;
    LarkButton *cmdInstructions = nullptr;
    LarkButton *butUpload = nullptr;
    TransLabel *lblBestTime = nullptr;
    cTransPictureBox *lblNameTitle = nullptr;
    cTransPictureBox *lblScoreTitle = nullptr;
    cTransPictureBox *lblTimeTitle = nullptr;
    cTransPictureBox *lblDateTitle = nullptr;
    std::array<Line, TableRows> m_Table{};
    BestTable *m_BestTable = nullptr;
    QList<QStringList> m_Results; // what the table shows, as it is saved
    TransLabel *lblURL = nullptr;
    TransLabel *lblNewGames = nullptr;

    std::shared_ptr<CCategory> m_Category; // empty at first
    std::shared_ptr<CGame> m_Game;         // empty at first and after each change of category
    std::int32_t m_LevelCount = 1;
    std::int32_t m_Level = 0;
    bool m_Uploading = false;
};
