#include "sdk/controls/LarkForm.h"

#include "sdk/controls/TransLabel.h"
#include "sdk/controls/WindowDrag.h"

#include <QApplication>
#include <QBitmap>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>

#include <algorithm>

namespace
{
constexpr int Corner = 14;      // [px] radius
constexpr double EdgeWidth = 2; // [px]
const QColor PlainFace(0xf4, 0xf8, 0xf6);
const QColor PlainEdge(0x2a, 0x5a, 0x50);

QColor LastColour(const QImage &picture) { return picture.pixelColor(picture.width() - 1, picture.height() - 1); }

// A dark line of the picture's own hue; a light one around a dark picture.
QColor EdgeOf(const QImage &picture)
{
    if (picture.isNull()) return PlainEdge;
    constexpr int Saturation = 130, Dark = 92, Light = 200;
    const QColor ground = LastColour(picture);
    const int saturation = ground.hsvSaturation() == 0 ? 0 : Saturation;
    return QColor::fromHsv(std::max(ground.hsvHue(), 0), saturation, qGray(ground.rgb()) > 127 ? Dark : Light);
}

QPainterPath Outline(const QRectF &area)
{
    QPainterPath path;
    path.addRoundedRect(area, Corner, Corner);
    return path;
}

// The window to stand over: the dialog that is open already, else the window asked for.
QWidget *OwnerOf(QWidget *asked)
{
    QWidget *const modal = QApplication::activeModalWidget();
    QWidget *const owner = modal != nullptr ? modal : asked;
    return owner != nullptr ? owner->window() : nullptr;
}
} // namespace

LarkForm::LarkForm() : QDialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowModality(Qt::ApplicationModal);
}

void LarkForm::Setpicture(const QImage &Picture)
{
    m_Picture = Picture;
    update();
}

void LarkForm::ShowModal(QWidget *Owner)
{
    QWidget *const owner = OwnerOf(Owner);
    if (owner != nullptr && owner->isMinimized()) owner->showNormal();
    const bool isThere = owner != nullptr && owner->isVisible();
    // The desktop is told whose dialog this is; it is no child, so that it does not go with its owner.
    winId();
    windowHandle()->setTransientParent(isThere ? owner->windowHandle() : nullptr);
    PlaceOver(isThere ? owner : nullptr);
    // A window manager puts a dialog on top and gives the keys back afterwards. Without one, a dialog that is shown
    // again comes back beneath every window made since.
    show();
    raise();
    exec();
    if (isThere && owner->isVisible()) owner->activateWindow();
}

void LarkForm::PlaceOver(const QWidget *Owner)
{
    const QRect room = (Owner != nullptr ? Owner->screen() : QApplication::primaryScreen())->availableGeometry();
    QRect place = rect();
    place.moveCenter(Owner != nullptr ? Owner->geometry().center() : room.center());
    const int left = std::max(std::min(place.left(), room.right() + 1 - place.width()), room.left());
    const int top = std::max(std::min(place.top(), room.bottom() + 1 - place.height()), room.top());
    move(left, top);
}

void LarkForm::DragBy(TransLabel *Label) { Label->setAttribute(Qt::WA_TransparentForMouseEvents); }

void LarkForm::closeEvent(QCloseEvent *event) { event->ignore(); }

// No key of the dialog's own: a dialog would close on Escape and press a button of its choice on Return.
void LarkForm::keyPressEvent(QKeyEvent *event) { event->accept(); }

void LarkForm::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) BeginWindowDrag(*this, *event);
}

void LarkForm::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setClipPath(Outline(QRectF(rect())));
    painter.fillRect(rect(), m_Picture.isNull() ? PlainFace : LastColour(m_Picture));
    if (!m_Picture.isNull()) painter.drawImage(0, 0, m_Picture);
    painter.setClipping(false);
    painter.setPen(QPen(EdgeOf(m_Picture), EdgeWidth));
    painter.drawPath(Outline(QRectF(rect()).adjusted(EdgeWidth / 2, EdgeWidth / 2, -EdgeWidth / 2, -EdgeWidth / 2)));
}

void LarkForm::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    // Drawn rather than made from the path's polygon, whose right and lower edges are rounded off by a pixel.
    QBitmap mask(size());
    mask.fill(Qt::color0);
    QPainter painter(&mask);
    painter.setPen(Qt::color1);
    painter.setBrush(Qt::color1);
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), Corner, Corner);
    painter.end();
    setMask(mask);
}
