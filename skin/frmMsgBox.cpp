#include "skin/frmMsgBox.h"

#include "sdk/CNoggleFramework.h"
#include "sdk/controls/Caption.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/Look.h"
#include "sdk/controls/TransLabel.h"
#include "shell/program/MainForm.h"
#include "shell/program/modMain.h"
#include "skin/ShellSound.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

namespace
{
constexpr std::int32_t OKCancel = 1;
constexpr std::int32_t YesNo = 4;
constexpr std::int32_t AskText = 32; // together with OKCancel only

enum Answers : std::int32_t { OK = 1, Cancel = 2, Yes = 6, No = 7 };
enum Words : std::int16_t { WordOK = 1, WordCancel = 2, WordYes = 3, WordNo = 4 };

// Measures of the dialog. [px]
constexpr int Margin = 28;
constexpr int Gap = 18;
constexpr int AnswerHeight = 40;
constexpr std::int32_t LargestAnswer = 16; // [points], what its line has room for
constexpr QSize ButtonSize(128, 34);
constexpr int LowestLabel = 56;
constexpr std::array Widths{420, 540, 660}; // the first in which the message stays short
constexpr int ShortMessage = 200;

using modMain::Word;

int HeightOf(const QString &text, const QFont &font, int width)
{
    QString lines = text;
    static const QRegularExpression lineBreak(QStringLiteral("\r*\n|\r")); // as the label breaks them
    lines.replace(lineBreak, QStringLiteral("\n"));
    const QRect area(0, 0, width, QWIDGETSIZE_MAX);
    const int flags = Qt::TextWordWrap | Qt::TextWrapAnywhere | Qt::AlignHCenter;
    // An empty last line counts: it is where a description would stand.
    const int height = QFontMetrics(font).boundingRect(area, flags, lines).height();
    return height + QFontMetrics(font).descent();
}

void MakeGroundShowThrough(QScrollArea &pane)
{
    pane.setFrameShape(QFrame::NoFrame);
    pane.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pane.verticalScrollBar()->setStyleSheet(Look::ScrollBars());
    pane.viewport()->setAutoFillBackground(false);
    QPalette palette = pane.palette();
    palette.setColor(QPalette::Window, Qt::transparent);
    pane.setPalette(palette);
}
} // namespace

frmMsgBox::frmMsgBox()
    : m_Pane(new QScrollArea(this)),
      Label(new TransLabel),
      txtAnswer(new QLineEdit(this)),
      cmd1(new LarkButton(this)),
      cmd2(new LarkButton(this))
{
    setObjectName(QStringLiteral("frmMsgBox"));
    Label->setObjectName(QStringLiteral("Label"));
    txtAnswer->setObjectName(QStringLiteral("txtAnswer"));
    cmd1->setObjectName(QStringLiteral("cmd1"));
    cmd2->setObjectName(QStringLiteral("cmd2"));
    MakeGroundShowThrough(*m_Pane);
    m_Pane->setFocusPolicy(Qt::NoFocus);
    m_Pane->setWidget(Label);
    Label->setAutoFillBackground(false);
    Label->SetWordWrap(true);
    DragBy(Label);
    for (LarkButton *button : {cmd1, cmd2}) button->SetFont(12, true);
    txtAnswer->setAlignment(Qt::AlignCenter);
    txtAnswer->setStyleSheet(QStringLiteral("QLineEdit { background: white; color: #12332b; padding: 2px 10px;"
                                            " border: 1px solid #8aa69b; border-radius: 8px; }"
                                            "QLineEdit:focus { border: 2px solid #c77700; }"));
    txtAnswer->installEventFilter(this);
    connect(cmd1, &LarkButton::clicked, this, &frmMsgBox::Cmd1);
    connect(cmd2, &LarkButton::clicked, this, &frmMsgBox::Cmd2);
}

frmMsgBox &frmMsgBox::Free()
{
    static std::vector<std::unique_ptr<frmMsgBox>> boxes;
    if (boxes.empty()) qAddPostRoutine([] { boxes.clear(); }); // no window outlives the application
    const auto free = std::find_if(boxes.begin(), boxes.end(), [](const auto &box) { return !box->m_InUse; });
    return free != boxes.end() ? **free : *boxes.emplace_back(std::make_unique<frmMsgBox>());
}

std::int32_t frmMsgBox::Ask(QWidget *Parent, const QString &Message, std::int32_t Options, QString *Answer,
                            std::int32_t FontSize)
{
    if (Parent == nullptr && modMain::Form != nullptr) Parent = modMain::Form->Window();
    frmMsgBox &box = Free();
    box.ShowMsgBox(Parent, Message, Options, FontSize);
    if (Answer != nullptr) *Answer = box.Answer();
    return box.ReturnCode();
}

void frmMsgBox::ShowMsgBox(QWidget *Parent, const QString &Message, std::int32_t Options, std::int32_t FontSize)
{
    const QScopedValueRollback<bool> inUse(m_InUse, true);
    m_Options = Options;
    SetButtons();
    Skin();
    SetMessage(Message, FontSize);
    Arrange();
    setWindowTitle(modMain::ProductTitle);
    txtAnswer->isHidden() ? setFocus() : FocusAnswer(); // not where the last showing left it
    ShowModal(Parent);
}

void frmMsgBox::SetButtons()
{
    const bool two = Has(OKCancel) || Has(YesNo);
    const bool asks = Has(OKCancel) && Has(AskText);
    if (asks) txtAnswer->clear();
    txtAnswer->setVisible(asks);
    cmd1->setVisible(two);
    cmd2->setVisible(true);
    if (Has(OKCancel)) {
        cmd1->SetCaption(Word(WordOK));
        cmd2->SetCaption(Word(WordCancel));
    } else if (Has(YesNo)) {
        cmd1->SetCaption(Word(WordYes));
        cmd2->SetCaption(Word(WordNo));
    } else {
        cmd2->SetCaption(Word(WordOK)); // a single OK is the right-hand button
    }
}

void frmMsgBox::Skin()
{
    cmd1->resize(ButtonSize); // the skin chooses its pictures by the width
    cmd2->resize(ButtonSize);
    if (!modMain::Framework) return;
    modMain::Framework->SkinButton(cmd1);
    modMain::Framework->SkinButton(cmd2);
    modMain::Framework->SkinPicbox(this);
}

void frmMsgBox::SetMessage(const QString &message, std::int32_t fontSize)
{
    Label->SetFont(std::max(fontSize, 1), false);
    Label->SetForeColour(Look::ReadableOn(picture()));
    Label->SetCaption(message);
    txtAnswer->setFont(Caption::DesignFont(txtAnswer->font(), std::clamp(fontSize, 1, LargestAnswer), false));
    txtAnswer->setAccessibleName(message);
}

// The dialog is as wide as its message needs to stay short, and as tall as it then is; a message taller than the
// screen allows is scrolled.
void frmMsgBox::Arrange()
{
    const QFont font = Label->font();
    const auto isShort = [&](int width) {
        return HeightOf(Label->Caption(), font, width - 2 * Margin) <= ShortMessage;
    };
    const auto found = std::find_if(Widths.begin(), Widths.end(), isShort);
    const int width = found != Widths.end() ? *found : Widths.back();
    const int inner = width - 2 * Margin;
    const int asks = txtAnswer->isHidden() ? 0 : AnswerHeight + Gap;
    const int room = screen()->availableGeometry().height() * 9 / 10 - 2 * Margin - Gap - ButtonSize.height() - asks;
    const int needed = std::max(HeightOf(Label->Caption(), font, inner), LowestLabel);
    const int shown = std::min(needed, std::max(room, LowestLabel));
    const bool scrolls = needed > shown;
    // The beginning of a message that is scrolled stands at the top.
    Label->SetAlignment(scrolls ? Qt::AlignHCenter | Qt::AlignTop : Qt::Alignment(Qt::AlignCenter));
    const int text = scrolls ? inner - m_Pane->verticalScrollBar()->sizeHint().width() - Gap : inner;

    m_Pane->setGeometry(Margin, Margin, inner, shown);
    m_Pane->setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    Label->resize(text, scrolls ? HeightOf(Label->Caption(), font, text) : shown);
    m_Pane->verticalScrollBar()->setValue(0);
    int top = Margin + shown + Gap;
    txtAnswer->setGeometry(Margin, top, inner, AnswerHeight);
    top += asks;
    const int right = width - Margin - ButtonSize.width();
    cmd1->move(right - Gap - ButtonSize.width(), top);
    cmd2->move(right, top);
    resize(width, top + ButtonSize.height() + Margin);
}

void frmMsgBox::FocusAnswer()
{
    if (!txtAnswer->isHidden()) txtAnswer->setFocus(Qt::ActiveWindowFocusReason);
}

void frmMsgBox::Cmd1()
{
    m_Answer = txtAnswer->text();
    if (!txtAnswer->isHidden() && m_Answer.isEmpty()) {
        PlayShellSound(QStringLiteral("lowbeep"));
        return;
    }
    PlayShellSound(QStringLiteral("highbeep"));
    if (Has(OKCancel))
        m_ReturnCode = OK;
    else if (Has(YesNo))
        m_ReturnCode = Yes;
    hide();
}

void frmMsgBox::Cmd2()
{
    PlayShellSound(QStringLiteral("highbeep"));
    if (Has(OKCancel))
        m_ReturnCode = Cancel;
    else
        m_ReturnCode = Has(YesNo) ? No : OK;
    hide();
}

void frmMsgBox::changeEvent(QEvent *event)
{
    LarkForm::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) FocusAnswer();
}

bool frmMsgBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == txtAnswer && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) return Cmd1(), true;
    }
    return LarkForm::eventFilter(watched, event);
}
