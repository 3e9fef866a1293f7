#include "screens/PlayerName.h"

#include "domain/CPlayer.h"
#include "platform/Units.h"
#include "screens/Design.h"
#include "sdk/CNoggleFramework.h"
#include "sdk/controls/Caption.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/cTransPictureBox.h"
#include "shell/program/modMain.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPen>

#include <algorithm>

namespace
{
constexpr Twips DesignWidth{7500}, DesignHeight{660};
constexpr Twips FrameLeft{3}, FrameNarrower{8};
constexpr Twips StripNarrower{60};
constexpr Twips ButtonGap{30};
constexpr double FrameRadius = 4; // [px] no more, or the corners of the strip would cover it
constexpr double TitleFont = 15.75, NameFont = 16;
constexpr int NameRaised = 8;    // [px], so that the name stands on one line with its title
constexpr int SmallestName = 12; // [px], what can still be read at arm's length
constexpr int NameMargin = 4;    // [px], what the box keeps free on each side of its text
constexpr int NameEdge = 2;      // [px], where the box begins its text
constexpr std::int32_t YesAndNo = 4, Yes = 6, QuestionFont = 16;

enum Words : std::int16_t { Title = 501, Edit = 502, Delete = 503, Save = 504, ReallyDelete = 505 };

// The frame behind the details: one line with round corners, white inside like the strip that lies on it.
class Frame final : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0x8f, 0xb3, 0xa8), 1));
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), FrameRadius, FrameRadius);
    }
};

// A locked name that is too long even at its smallest ends in dots, as captions do, not in half a letter.
class NameBox final : public QLineEdit
{
public:
    using QLineEdit::QLineEdit;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        const QRect place = rect().marginsRemoved(textMargins()).adjusted(NameEdge, 0, -NameEdge, 0);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
        if (!isReadOnly() || hasSelectedText() || shown == text()) return QLineEdit::paintEvent(event);
        QPainter painter(this);
        painter.fillRect(rect(), palette().base());
        painter.setPen(palette().text().color());
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    }
};

void StyleName(QLineEdit *box)
{
    QPalette colours = box->palette();
    colours.setColor(QPalette::Base, Qt::white);
    colours.setColor(QPalette::Text, Qt::black);
    box->setPalette(colours);
    box->setFont(Caption::DesignFont(box->font(), NameFont, true));
    box->setTextMargins(0, 0, 0, NameRaised);
    box->setReadOnly(true);
    box->setFrame(false);
}

// A locked name is written smaller until all of it can be seen; one that is being edited has its full size.
void FitName(QLineEdit *box)
{
    QFont font = Caption::DesignFont(box->font(), NameFont, true);
    const int smallest = SmallestName;
    const int room = box->width() - 2 * NameMargin;
    if (box->isReadOnly())
        while (font.pixelSize() > smallest && QFontMetrics(font).horizontalAdvance(box->text()) > room)
            font.setPixelSize(font.pixelSize() - 1);
    box->setFont(font);
    box->setToolTip(font.pixelSize() <= smallest ? box->text() : QString());
    box->home(false);
}
} // namespace

PlayerName::PlayerName(QWidget *Container) : Screen(Container)
{
    SetScaleMode(1);
    MakeControls();
    connect(cmdUpdate, &LarkButton::clicked, this, [this] { EditOrSave(); });
    connect(cmdDelete, &LarkButton::clicked, this, [this] { AskToDelete(); });
    resize(ToPixels(DesignWidth).Value, ToPixels(DesignHeight).Value);
    Arrange();
}

void PlayerName::MakeControls()
{
    shpDetails = Put<Frame>(this, QStringLiteral("shpDetails"), {});
    picDetails = Put<PictureBox>(this, QStringLiteral("picDetails"), FromTwips(345, 45, 6990, 570));
    lblTitle = PutLabel<cTransPictureBox>(picDetails, QStringLiteral("lblTitle"), FromTwips(0, 0, 1695, 525),
                                          QStringLiteral("Player:"), TitleFont, true, Qt::AlignRight);
    cmdUpdate =
        PutButton(picDetails, QStringLiteral("cmdUpdate"), FromTwips(4080, 120, 1800, 345), QStringLiteral("Edit"));
    cmdDelete =
        PutButton(picDetails, QStringLiteral("cmdDelete"), FromTwips(5145, 120, 1800, 345), QStringLiteral("Delete"));
}

void PlayerName::MakeBoxes()
{
    txtName = Put<NameBox>(picDetails, QStringLiteral("txtName"), FromTwips(1770, 75, 2355, 495));
    txtName->stackUnder(cmdUpdate); // which covers its last pixels
    SetTabPlace(lblTitle, txtName);
    StyleName(txtName);
    txtName->setText(QStringLiteral("Name"));
    txtName->setAccessibleName(Word(Title));
    txtName->installEventFilter(this);
    txtName->show();
}

void PlayerName::ShowDetails()
{
    if (!modMain::CurrentPlayer) return;
    MakeTextBoxes();
    txtName->setText(modMain::CurrentPlayer->Name);
    FitName(txtName);
}

void PlayerName::SkinUp()
{
    SetStrings();
    CopyBackground();
    Skin(cmdUpdate);
    Skin(cmdDelete);
}

void PlayerName::SetStrings()
{
    lblTitle->SetCaption(Word(Title));
    if (txtName != nullptr) txtName->setAccessibleName(Word(Title));
    cmdUpdate->SetCaption(Word(Edit));
    cmdDelete->SetCaption(Word(Delete));
}

void PlayerName::Arrange()
{
    const int wide = width();
    shpDetails->setGeometry(ToPixels(FrameLeft).Value, 0, wide - std::max(1, ToPixels(FrameNarrower).Value),
                            height());
    picDetails->resize(wide - ToPixels(StripNarrower).Value, picDetails->height());
    Centre(picDetails, wide);
    SetLeft(cmdDelete, picDetails->width() - cmdDelete->width());
    SetLeft(cmdUpdate, cmdDelete->x() - cmdUpdate->width() - ToPixels(ButtonGap).Value);
}

bool PlayerName::IsEditing() const { return !txtName->isReadOnly(); }

void PlayerName::EditOrSave()
{
    Beep();
    if (IsEditing())
        SaveName();
    else
        StartEditing();
}

void PlayerName::StartEditing()
{
    txtName->setReadOnly(false);
    txtName->setFrame(true);
    FitName(txtName);
    txtName->selectAll();
    txtName->setFocus();
    cmdUpdate->SetCaption(Word(Save));
}

// The text is taken as it stands: an empty name, or one that another player has, is a name.
void PlayerName::SaveName()
{
    txtName->setReadOnly(true);
    txtName->setFrame(false);
    txtName->deselect();
    FitName(txtName);
    cmdUpdate->SetCaption(Word(Edit));
    if (!modMain::CurrentPlayer) return;
    modMain::CurrentPlayer->Name = txtName->text();
    modMain::CurrentPlayer->Save();
}

bool PlayerName::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            cmdUpdate->click();
            cmdUpdate->setFocus();
            return true;
        }
    }
    if (event->type() == QEvent::FocusOut) NameLosesFocus(*static_cast<QFocusEvent *>(event));
    return Screen::eventFilter(watched, event);
}

// Leaving the box saves; its own button saves by itself. A window that goes to the back, and a menu or a dialog over
// it, take the focus for a while and give it back: nobody has left the box then.
void PlayerName::NameLosesFocus(const QFocusEvent &event)
{
    const bool comesBack = event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
    if (comesBack || QApplication::focusWidget() == cmdUpdate) return;
    SaveName();
}

void PlayerName::AskToDelete()
{
    Beep();
    const std::int32_t answer =
        modMain::Framework->MsgBox(Word(ReallyDelete), YesAndNo, nullptr, nullptr, QuestionFont);
    if (answer == Yes) Q_EMIT DeletePlayer();
}
