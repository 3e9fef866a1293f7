// The main window's face: outline, layout, background, skin change, keys, minimising.
#include "shell/frmNoggle.h"

#include "platform/Colour.h"
#include "platform/Convert.h"
#include "platform/Picture.h"
#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "platform/Units.h"
#include "platform/VirtualKeys.h"

#include "services/modWheel.h"

#include "shell/program/modMain.h"

#include "sdk/CSkinPic.h"
#include "sdk/controls/PictureBox.h"
#include "sdk/controls/WindowDrag.h"
#include "sdk/controls/cTransPictureBox.h"

#include "skin/CSkin.h"
#include "skin/FrameFace.h"
#include "skin/ctlButtonPanel.h"

#include "screens/PlayerName.h"
#include "screens/ctlGameInstructions.h"
#include "screens/ctlGameList.h"
#include "screens/ctlGamePlaySummary.h"
#include "screens/ctlPlayerlist.h"
#include "screens/ctlUserInfo.h"
#include "screens/ctlWorkOut.h"

#include "shell/GameHost.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>

namespace
{
constexpr int GapAboveStrip = 3; // [px]
constexpr int StripHeight = 30;  // [px] of a piece of the frame that is painted at once

const CSkin &PresentSkin()
{
    if (!modMain::CurrentSkin)
        throw RuntimeError(QStringLiteral("There is no skin that can be used on this screen."));
    return *modMain::CurrentSkin;
}

// Lies over all controls and clears what is beyond the window's outline; no control under it feels that it is there.
class Outside final : public QWidget
{
public:
    static inline const QString Name = QStringLiteral("Outside");
    explicit Outside(QWidget &window) : QWidget(&window)
    {
        setObjectName(Name);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        for (const QRect &rect : event->region() - window()->mask()) painter.fillRect(rect, Qt::transparent);
    }
};

int Position(CSkin &Skin, const QString &Key)
{
    return ToInt32(LeadingNumber(Skin.Param(QStringLiteral("Position"), Key)));
}
} // namespace

void frmNoggle::Layout()
{
    const CSkin &skin = PresentSkin();
    const QRect area(skin.GameAreaLeft, skin.GameAreaTop, skin.GameAreaWidth, skin.GameAreaHeight);
    if (isMinimized()) TogglePause(true);
    ctlButtonPanel1->move(skin.MenuLeft, skin.MenuTop);
    picLogo->move(skin.LogoLeft, skin.LogoTop);
    picPrint->setGeometry(area);

    PlayerName1->setGeometry(0, 0, area.width(), PlayerName1->height());
    const int strip = PlayerName1->height();
    const QRect below(0, strip, area.width(), area.height() - strip);
    ctlUserInfo1->setGeometry(below);
    ctlGameInstructions1->setGeometry(0, 0, area.width(), area.height());
    ctlPlayerlist1->setGeometry(0, 0, area.width(), area.height());
    ctlGameList1->setGeometry(below);
    ctlWorkOut1->setGeometry(below);
    ctlWorkOut1->SkinUp();
    if (m_GameBackground.deviceIndependentSize() != QSizeF(area.size()) && !area.isEmpty())
        m_GameBackground = PartOf(m_GameBackground, QRect(QPoint(0, 0), area.size()));
    PlaceGame(area.width(), area.height());
    ClipControls();
}

// Where the mask of a window cuts its input only, what a skin places beyond the outline would be seen all the same.
void frmNoggle::ClipControls()
{
    auto *outside = findChild<QWidget *>(Outside::Name, Qt::FindDirectChildrenOnly);
    if (outside == nullptr) outside = new Outside(*this);
    bool reachesOut = false;
    for (const QWidget *control : findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (control != outside && !control->isWindow() && !control->isHidden())
            reachesOut |= !QRegion(control->geometry() & rect()).subtracted(mask()).isEmpty();
    outside->setGeometry(rect());
    outside->raise();
    outside->setVisible(reachesOut);
}

void frmNoggle::PlaceGame(int Width, int Height)
{
    const int top = Height - ctlGamePlaySummary1->height();
    ctlGamePlaySummary1->setGeometry(0, top, Width, ctlGamePlaySummary1->height());
    if (!m_GameControl) return;
    const int gameHeight = top - GapAboveStrip;
    m_GameControl->Move(0, 0, Width, gameHeight);
    if (picPause->PictureFile().isNull()) picPause->SetPictureFile(OwnPicture(QStringLiteral("pause")));
    picPause->SizeToPicture();
    picPause->move((Width - picPause->width()) / 2, (gameHeight - picPause->height()) / 2);
    picPause->raise();
}

// All or nothing: a frame that can't be used leaves picture and outline as they were.
void frmNoggle::TakeOutline(const QImage &Frame, const QImage &Sharp)
{
    Region region = OutlineOf(Frame);
    region.OffsetHeader(0, size(), size()); // the window has no border
    region.ApplyRgn(*this);
    m_Region = std::move(region);
    m_FramePicture = Frame;
    m_SharpFrame = Sharp;
    m_Face = QImage();
}

// Made anew where the window has come to a screen of another scale.
const QImage &frmNoggle::Face()
{
    if (m_Face.isNull() || m_Face.devicePixelRatio() != devicePixelRatioF())
        m_Face = FaceOf(m_Region, m_FramePicture, m_SharpFrame, devicePixelRatioF());
    return m_Face;
}

void frmNoggle::SetSkin(const std::shared_ptr<CSkin> &Skin)
{
    if (!Skin) throw RuntimeError(QStringLiteral("There is no skin that can be used on this screen."));
    const std::shared_ptr<CSkinPic> frame = Skin->Frame();
    TakeOutline(frame->picture(), Skin->SharpFrame());
    resize(ToPixels(Twips{frame->Width()}).Value, ToPixels(Twips{frame->Height()}).Value);
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    move(screen.x() + (screen.width() - width()) / 2, screen.y() + (screen.height() - height()) / 2);
    Layout();
    update();
    QCoreApplication::processEvents();

    PaintGameBackground();
    m_GameBackground = picPrint->Surface(); // shared until either is drawn on
    ctlButtonPanel1->SetSkin();
    ctlGameInstructions1->SkinUp();
    ctlGameList1->SkinUp();
    ctlPlayerlist1->SkinUp();
    ctlUserInfo1->SkinUp();
    PlayerName1->SkinUp();
    ctlWorkOut1->SkinUp();
    lblTime->SetForeColour(ToColour(Skin->DialogTextColour));
    picMinimize->move(Position(*Skin, QStringLiteral("MinimizeLeft")),
                      Position(*Skin, QStringLiteral("MinimizeTop")));
    picClose->move(picMinimize->x() + picMinimize->width(), picMinimize->y());
    ClipControls();
    update();
    SendGameMessage(QStringLiteral("changeskin"), 0, 0);
}

void frmNoggle::PaintGameBackground()
{
    if (modMain::WhiteBackground) {
        picPrint->SetBackColour(Qt::white);
        picPrint->Cls();
    } else {
        picPrint->SetBackColour(Qt::white); // for what no frame lies under
        QPainter painter(&picPrint->Surface());
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(-picPrint->pos(), m_FramePicture);
        if (devicePixelRatioF() != 1) painter.drawImage(-picPrint->pos(), Face()); // unscaled they are alike
    }
    update();
    picPrint->Refresh();
}

void frmNoggle::MouseWheel(std::int32_t, std::int32_t, std::int32_t, std::int32_t) {}

void frmNoggle::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (modMain::CurrentSkin) Layout();
}

void frmNoggle::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    // Minimising brings no resize here; the layout runs all the same, since it is what pauses a game. Restoring
    // brings the same event and does nothing.
    if (event->type() == QEvent::WindowStateChange && isMinimized() && modMain::CurrentSkin) Layout();
    if (event->type() == QEvent::ActivationChange)
        isActiveWindow() ? modWheel::HookWheel(this) : modWheel::UnhookWheel();
}

void frmNoggle::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Clear outside of the outline as well as masked: where masks cut input only, the corners stay clear.
    if (devicePixelRatioF() != 1) return painter.drawImage(0, 0, Face());
    painter.setClipRegion(m_Region.Rgn());
    // In strips: what is larger and clipped the painter shares out among threads, which take longer to wake than
    // this.
    for (int top = 0; top < height(); top += StripHeight)
        painter.drawImage(QPoint(0, top), m_FramePicture, QRect(0, top, width(), StripHeight));
}

void frmNoggle::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) BeginWindowDrag(*this, *event);
}

void frmNoggle::PressKey(QWidget *Receiver, const QKeyEvent &Event)
{
    if (Receiver->window() != this) return;
    if (Event.key() == Qt::Key_Escape) showMinimized();
    SendGameMessage(QStringLiteral("keypress"), QVariant::fromValue<short>(VirtualKeyOf(Event)), 0);
}

void frmNoggle::OpenLogoLink()
{
    if (!m_LogoTag.isEmpty()) OpenWithDesktop(QStringLiteral("http://") + m_LogoTag);
}
