#include "skin/ctlButtonPanel.h"

#include "platform/Colour.h"
#include "platform/PicBox.h"
#include "platform/Picture.h"
#include "platform/RuntimeError.h"
#include "platform/Step.h"
#include "platform/Units.h"
#include "sdk/controls/Caption.h"
#include "sdk/controls/Look.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"
#include "skin/DrawCaption.h"
#include "skin/PanelSurface.h"

#include <QApplication>
#include <QPainter>
#include <QPointer>

#include <utility>

namespace
{
constexpr Twips DesignWidth{2610};
constexpr Twips DesignHeight{315};
constexpr double DesignPoints = 10;
constexpr int TimerInterval = 250; // [ms] of both timers
constexpr int CaptionLeft = 5;     // [px]
enum Slots { Background = 1, Highlight = 2, Chosen = 3 };

// Where the keyboard stands: drawn over the hovered row, never in the way of the mouse.
class FocusMark : public QWidget
{
public:
    explicit FocusMark(QWidget *panel) : QWidget(panel)
    {
        setObjectName(QStringLiteral("FocusMark"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        hide();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        Look::DrawFocus(painter, rect().adjusted(-2, -2, 2, 2), 4); // at the very edge, clear of the text
    }
};
} // namespace

ctlButtonPanel::ctlButtonPanel(QWidget *Container)
    : QWidget(Container),
      m_ButtonHeight(ToPixels(DesignHeight).Value),
      picPanel(new PanelSurface(this)),
      m_Background(std::make_unique<PicBox>()),
      m_FocusMark(new FocusMark(this))
{
    m_Font = Caption::DesignFont(font(), DesignPoints, false);
    WatchForTab();
    setFocusPolicy(Qt::StrongFocus); // a press leaves a box in which a name is being written
    picPanel->setObjectName(QStringLiteral("picPanel"));
    const auto name = [this](QTimer &timer, const QString &called) {
        timer.setParent(this);
        timer.setObjectName(called);
        timer.setInterval(TimerInterval);
    };
    name(tmrMouse, QStringLiteral("tmrMouse"));
    name(tmrClick, QStringLiteral("tmrClick"));
    connect(&tmrMouse, &QTimer::timeout, this, &ctlButtonPanel::MouseTick);
    connect(&tmrClick, &QTimer::timeout, this, [this] {
        ClearSelected();
        tmrClick.stop();
    });
    resize(ToPixels(DesignWidth).Value, m_ButtonHeight);
}

ctlButtonPanel::~ctlButtonPanel() = default;

void ctlButtonPanel::SetFontName(const QString &Name)
{
    m_FontName = Name;
    m_Font.setFamilies({Name, font().family()});
}

double ctlButtonPanel::FontSize() const
{
    return m_Font.pixelSize() * DesignPoints / Caption::DesignFont(m_Font, DesignPoints, false).pixelSize();
}

void ctlButtonPanel::SetFontSize(double Points) { m_Font = Caption::DesignFont(m_Font, Points, m_Font.bold()); }

std::int32_t ctlButtonPanel::BackColor() const { return FromColour(m_Background->BackColour); }

void ctlButtonPanel::SetButtonHeight(int Height) { m_ButtonHeight = std::max(Height, 1); }

void ctlButtonPanel::SetAppearance(int Appearance)
{
    m_Appearance = Appearance;
    FitHeight();
}

void ctlButtonPanel::SetBorderStyle(int BorderStyle)
{
    m_BorderStyle = BorderStyle;
    FitHeight();
}

int ctlButtonPanel::Border() const
{
    if (m_BorderStyle == 0) return 0;
    return m_Appearance == 0 ? 1 : 2;
}

ctlButtonPanel::Button *ctlButtonPanel::At(std::int32_t row)
{
    const bool isThere = row >= 1 && row <= static_cast<std::int32_t>(m_Buttons.size());
    return isThere ? &m_Buttons[static_cast<std::size_t>(row) - 1] : nullptr;
}

// The surfaces may be in the middle of a handler of their own, so they go when it has returned.
void ctlButtonPanel::Clear()
{
    for (const Button &button : std::exchange(m_Buttons, {})) {
        for (PanelSurface *surface : {button.Normal, button.Hover, button.Selected}) {
            surface->Moved = surface->Left = nullptr;
            surface->Pressed = nullptr;
            surface->hide();
            surface->deleteLater();
        }
    }
}

void ctlButtonPanel::ClearButtons()
{
    m_Captions.clear();
    m_Keys.clear();
}

void ctlButtonPanel::Add(const QString &Caption, const QString &Key)
{
    m_Captions.append(Caption);
    m_Keys.append(Key);
}

void ctlButtonPanel::SetSkin(ctlButtonPanel *)
{
    UpdateButtons();
    picPanel->update();
}

void ctlButtonPanel::FitHeight()
{
    const int height = Count() > 0 ? 2 * Border() + m_ButtonHeight * Count() : this->height();
    m_BuiltFor = QSize(width(), height); // first, so that the resize that comes of it builds nothing
    resize(m_BuiltFor);
    picPanel->setGeometry(rect().adjusted(Border(), Border(), -Border(), -Border()));
}

void ctlButtonPanel::UpdateButtons(ctlButtonPanel *)
{
    Clear();
    if (Count() == 0) return;
    if (!m_HoverGround.isValid()) {
        m_HoverGround = ToColour(HoverColour);
        m_SelectGround = ToColour(SelectColour);
    }
    FitHeight();
    Step([&] { PaintBackground(); });
    ++m_Refills;
    for (std::int32_t row = 1; row <= Count(); ++row) MakeButton(row);
    if (m_HoverByKey && hasFocus()) HoverByKey(std::min(std::exchange(m_Hover, 0), Count()));
    const QPointer<ctlButtonPanel> self = this;
    QCoreApplication::processEvents();
    // The pointer may rest on a new row without having moved, or on one that counts as hovered from before: a press
    // on it would be lost.
    if (self) CheckPointer();
}

// Where a list is longer than the picture, its ground goes on in the colour in which the picture ends.
void ctlButtonPanel::PaintBackground()
{
    const QImage picture = modMain::CurrentSkin ? modMain::CurrentSkin->ButtonBackground() : QImage();
    m_Background->BackColour =
        picture.isNull() ? QColor(Qt::white) : picture.pixelColor(picture.width() - 1, picture.height() - 1);
    m_Background->SetSize(picPanel->width(), picPanel->height(), devicePixelRatioF());
    m_Background->Cls();
    if (modMain::CurrentSkin) modMain::CurrentSkin->PaintPic(*m_Background, Background, true, false);
    picPanel->SetImage(m_Background->Image());
}

void ctlButtonPanel::MakeButton(std::int32_t row)
{
    const auto made = [this](bool isShown, const char *name) {
        auto *surface = new PanelSurface(picPanel);
        surface->setObjectName(QLatin1String(name) + QString::number(m_Buttons.size() + 1));
        surface->setVisible(isShown);
        return surface;
    };
    const Button button{made(true, "picNormal"), made(false, "picHover"), made(false, "picSelected")};
    m_Buttons.push_back(button);
    button.Normal->Tag = m_Keys[row - 1];
    button.Normal->setMouseTracking(true);
    button.Normal->Moved = [this, row] { ShowHover(row); };
    button.Normal->Pressed = [this, row](bool isSecond) {
        if (IsMeant(isSecond)) PressBesideKeys(row);
    };
    button.Hover->Pressed = [this, row](bool isSecond) {
        if (IsMeant(isSecond)) Press(row);
    };
    button.Selected->Pressed = [this](bool isSecond) { IsMeant(isSecond); };
    button.Hover->Left = [this] { LeaveHover(); };
    for (PanelSurface *surface : {button.Normal, button.Hover, button.Selected}) {
        surface->setGeometry(0, m_ButtonHeight * (row - 1), picPanel->width(), m_ButtonHeight);
        surface->setAccessibleName(m_Captions[row - 1]);
    }
    PaintButton(button, row);
}

void ctlButtonPanel::PaintButton(const Button &button, std::int32_t row)
{
    Step([&] { button.Normal->SetImage(PartOf(m_Background->Image(), button.Normal->geometry())); });
    Step([&] { button.Hover->SetImage(Painted(button.Hover->width(), Highlight, m_HoverGround)); });
    Step([&] { button.Selected->SetImage(Painted(button.Selected->width(), Chosen, m_SelectGround)); });
    for (PanelSurface *surface : {button.Normal, button.Hover, button.Selected}) {
        QImage image = surface->Image();
        modMain::DrawCaption(m_Font, image, m_Captions[row - 1], CaptionLeft, 0, true);
        surface->SetImage(image);
    }
}

// A surface of a button: the top right of its skin picture, the same piece on every row.
QImage ctlButtonPanel::Painted(int width, int slot, const QColor &ground) const
{
    PicBox surface;
    surface.BackColour = ground;
    surface.SetSize(width, m_ButtonHeight, devicePixelRatioF()); // what is written on it is sharp too
    surface.Cls();
    if (modMain::CurrentSkin) modMain::CurrentSkin->PaintPic(surface, slot, true, false);
    return surface.Image();
}

void ctlButtonPanel::resizeEvent(QResizeEvent *)
{
    if (size() == m_BuiltFor) return;
    FitHeight();
    UpdateButtons();
}

void ctlButtonPanel::paintEvent(QPaintEvent *)
{
    if (Border() == 0) return;
    QPainter painter(this);
    painter.setPen(QColor(0x6b, 0x7c, 0x77));
    for (int line = 0; line < Border(); ++line) painter.drawRect(rect().adjusted(line, line, -line - 1, -line - 1));
}
