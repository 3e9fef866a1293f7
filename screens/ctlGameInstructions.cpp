#include "screens/ctlGameInstructions.h"

#include "domain/CGame.h"
#include "platform/Files.h"
#include "platform/RichText.h"
#include "platform/RuntimeError.h"
#include "platform/Units.h"
#include "screens/Design.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/modMain.h"

#include <QScrollBar>
#include <QTextDocument>
#include <QTextEdit>

namespace
{
constexpr Twips DesignWidth{7605}, DesignHeight{5250};
constexpr Twips Margin{120}, Gap{45};
constexpr double NameFont = 14.25;
constexpr double PageMargin = 12; // [px]
const QString BoxLook =
    QStringLiteral("QTextEdit { background: white; color: black; border: 1px solid #9fb8b1; border-radius: 6px; }"
                   "QTextEdit:focus { border: 2px solid #102060; }");
const QString TimeMark = QStringLiteral("<x>");

enum Words : std::int16_t { Cancel = 2, Play = 2005, TimeAllowed = 3001, NoTimeLimit = 3002 };

void StyleText(QTextEdit *box)
{
    box->setReadOnly(true);
    box->setTabChangesFocus(true);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setFocusPolicy(Qt::StrongFocus); // the keys scroll it
}

// A game whose folder has gone has no path, and no instructions: a bare file name would be looked for wherever the
// program happened to be started.
QString InstructionsOf(const CGame &Game)
{
    if (Game.Path().isEmpty()) throw RuntimeError(QStringLiteral("The folder of the game is missing."));
    const QString translated =
        FindFile(Game.Path() + QStringLiteral("Instructions") + modMain::Language + QStringLiteral(".rtf"));
    return FileExists(translated) ? translated : FindFile(Game.Path() + QStringLiteral("Instructions.rtf"));
}
} // namespace

ctlGameInstructions::ctlGameInstructions(QWidget *Container) : Screen(Container)
{
    SetScaleMode(1);
    MakeControls();
    connect(butStartGame, &LarkButton::clicked, this, [this] {
        Beep();
        Q_EMIT StartGame();
    });
    connect(butCancelGame, &LarkButton::clicked, this, [this] {
        Beep();
        Q_EMIT CancelGame();
    });
    resize(ToPixels(DesignWidth).Value, ToPixels(DesignHeight).Value);
    Arrange();
}

void ctlGameInstructions::MakeControls()
{
    lblGameName = PutLabel<cTransPictureBox>(this, QStringLiteral("lblGameName"), FromTwips(150, 0, 4755, 375),
                                             QStringLiteral("Game Name"), NameFont, true, Qt::AlignHCenter);
    lblTimeAllowed =
        PutLabel<cTransPictureBox>(this, QStringLiteral("lblTimeAllowed"), FromTwips(120, 480, 4770, 315),
                                   QStringLiteral("Time allowed: xx seconds"), SmallFont, true, Qt::AlignHCenter);
    butStartGame =
        PutButton(this, QStringLiteral("butStartGame"), FromTwips(4395, 4830, 1800, 345), QStringLiteral("Start"));
    butCancelGame =
        PutButton(this, QStringLiteral("butCancelGame"), FromTwips(5460, 4830, 1800, 345), QStringLiteral("Cancel"));
}

void ctlGameInstructions::MakeBoxes()
{
    txtInstructions = Put<QTextEdit>(this, QStringLiteral("txtInstructions"), FromTwips(120, 900, 7185, 3660));
    txtInstructions->stackUnder(butStartGame); // and before it for who has the page read aloud
    SetTabPlace(lblTimeAllowed, txtInstructions);
    StyleText(txtInstructions);
    Arrange();
    txtInstructions->show();
}

void ctlGameInstructions::ShowInstructions(const std::shared_ptr<CGame> &Game)
{
    MakeTextBoxes();
    SkinUp();
    if (!Game) throw RuntimeError(QStringLiteral("There is no game."));
    lblGameName->SetCaption(Game->Name());
    txtInstructions->setAccessibleName(Game->Name());
    QString time = Word(Game->TimeLimit != 0 ? TimeAllowed : NoTimeLimit);
    if (Game->TimeLimit != 0) time.replace(TimeMark, QString::number(Game->TimeLimit));
    lblTimeAllowed->SetCaption(time);

    if (txtInstructions->styleSheet().isEmpty()) txtInstructions->setStyleSheet(BoxLook + Look::ScrollBars());
    auto text = RichText::Load(InstructionsOf(*Game), font());
    text->setDocumentMargin(PageMargin);
    text->setParent(txtInstructions);
    txtInstructions->setDocument(text.release()); // deletes the one before
    txtInstructions->moveCursor(QTextCursor::Start);
    txtInstructions->verticalScrollBar()->setValue(0);
    txtInstructions->horizontalScrollBar()->setValue(0);
}

void ctlGameInstructions::SkinUp()
{
    SetStrings();
    Skin(butStartGame);
    Skin(butCancelGame);
}

void ctlGameInstructions::SetStrings()
{
    butStartGame->SetCaption(Word(Play));
    butCancelGame->SetCaption(Word(Cancel));
}

void ctlGameInstructions::Arrange()
{
    const int margin = ToPixels(Margin).Value;
    const int gap = ToPixels(Gap).Value;
    Centre(lblGameName, width());
    Centre(lblTimeAllowed, width());
    butCancelGame->move(width() - butCancelGame->width() - margin, height() - butCancelGame->height() - gap);
    butStartGame->move(butCancelGame->x() - butStartGame->width() - gap, butCancelGame->y());
    if (txtInstructions == nullptr) return;
    const int top = txtInstructions->y();
    txtInstructions->setGeometry(margin, top, width() - margin - margin, butCancelGame->y() - top - gap);
}
