#include "sdk/controls/PictureBox.h"

#include "sdk/controls/Accessible.h"
#include "sdk/controls/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace
{
constexpr double FocusRadius = 3; // [px]

bool Presses(const QKeyEvent &Key)
{
    return Key.key() == Qt::Key_Space || Key.key() == Qt::Key_Return || Key.key() == Qt::Key_Enter;
}
} // namespace

PictureBox::PictureBox(QWidget *Container) : QWidget(Container)
{
    Accessible::TellRoles();
    Look::KeysAreUsed();
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PictureBox::SetPictureFile(const QImage &Picture)
{
    m_PictureFile = Picture;
    Cls();
}

void PictureBox::SetBackColour(const QColor &Colour)
{
    m_BackColour = Colour;
    Cls();
}

void PictureBox::SetFrameColour(const QColor &Colour)
{
    m_FrameColour = Colour;
    update();
}

// Kept at the control's size: what was drawn before a resize stays at the top left.
QImage &PictureBox::Surface()
{
    const double scale = devicePixelRatioF();
    const QSize wanted = (QSizeF(size().expandedTo({1, 1})) * scale).toSize();
    if (m_Surface.size() == wanted) return m_Surface;
    const QImage before = m_Surface;
    // A picture that covers all is shared until something is drawn over it.
    const bool isCovered = m_PictureFile.size() == wanted && m_PictureFile.devicePixelRatio() == scale &&
                           m_PictureFile.format() == QImage::Format_RGB32;
    m_Surface = isCovered ? m_PictureFile : QImage(wanted, QImage::Format_RGB32);
    m_Surface.setDevicePixelRatio(scale);
    if (!isCovered) DrawGround();
    if (!before.isNull()) QPainter(&m_Surface).drawImage(0, 0, before);
    return m_Surface;
}

void PictureBox::DrawGround()
{
    m_Surface.fill(m_BackColour);
    if (m_PictureFile.isNull()) return;
    QPainter painter(&m_Surface);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(0, 0, m_PictureFile);
}

// The ground is drawn when somebody looks or draws: most surfaces are cleared several times before that.
void PictureBox::Cls()
{
    m_Surface = QImage();
    update();
}

void PictureBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QImage &surface = Surface();
    // At fractional scales of the screen the control may end within a device pixel, which the surface leaves out.
    if (devicePixelRatioF() != std::floor(devicePixelRatioF()))
        painter.fillRect(rect().adjusted(0, 0, 1, 1), surface.pixelColor(surface.width() - 1, surface.height() - 1));
    painter.drawImage(0, 0, surface);
    if (m_FrameColour.isValid()) {
        painter.setRenderHint(
            QPainter::Antialiasing); // or a side that lies between device pixels is not drawn at all
        painter.setPen(m_FrameColour);
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    }
    // One that the focus is only kept on is no control, and gets no mark.
    if (hasFocus() && focusPolicy() != Qt::NoFocus && Look::KeysAreUsed())
        Look::DrawFocus(painter, rect(), FocusRadius);
}

void PictureBox::resizeEvent(QResizeEvent *)
{
    if (!m_Surface.isNull()) Surface();
}

void PictureBox::mousePressEvent(QMouseEvent *event) { event->setAccepted(event->button() == Qt::LeftButton); }

void PictureBox::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Q_EMIT Click();
}

void PictureBox::keyPressEvent(QKeyEvent *event)
{
    update();
    if (!Presses(*event) || event->isAutoRepeat()) return QWidget::keyPressEvent(event);
    Q_EMIT Click();
}

void PictureBox::focusInEvent(QFocusEvent *) { update(); }

void PictureBox::focusOutEvent(QFocusEvent *) { update(); }
