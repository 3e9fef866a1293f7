#include "skin/ctlRoundRect.h"

#include "platform/Colour.h"

#include <QPainter>

#include <limits>

namespace
{
constexpr std::int32_t ButtonFace = std::numeric_limits<std::int32_t>::min() + 0xF; // 0x8000000F
constexpr double Corner = 20;                                                       // [px] width and height

QColor ColourOf(std::int32_t value, const QPalette &palette)
{
    return value < 0 ? palette.color(QPalette::Button) : ToColour(value);
}
} // namespace

ctlRoundRect::ctlRoundRect(QWidget *Container) : QWidget(Container), Font(font()), m_BackColor(ButtonFace) {}

void ctlRoundRect::SetBackColor(std::int32_t Colour)
{
    m_BackColor = Colour;
    update();
}

void ctlRoundRect::SetForeColor(std::int32_t Colour)
{
    m_ForeColor = Colour;
    update();
}

void ctlRoundRect::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), ColourOf(m_BackColor, palette()));
    painter.setPen(ColourOf(m_ForeColor, palette()));
    painter.drawRoundedRect(rect().adjusted(0, 0, -1, -1), Corner / 2, Corner / 2);
}
