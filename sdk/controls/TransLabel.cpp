#include "sdk/controls/TransLabel.h"

#include "sdk/controls/Accessible.h"
#include "sdk/controls/Caption.h"

#include <QMouseEvent>
#include <QPainter>

TransLabel::TransLabel(QWidget *Container) : QWidget(Container), m_ForeColour(Qt::black)
{
    Accessible::TellRoles();
    setAttribute(Qt::WA_NoSystemBackground);
}

void TransLabel::SetCaption(const QString &Caption)
{
    if (Caption == m_Caption) return;
    m_Caption = Caption;
    setAccessibleName(Caption);
    update();
}

void TransLabel::SetForeColour(const QColor &Colour)
{
    m_ForeColour = Colour;
    update();
}

void TransLabel::SetAlignment(Qt::Alignment Alignment)
{
    m_Alignment = Alignment;
    update();
}

void TransLabel::SetWordWrap(bool WordWrap)
{
    m_WordWrap = WordWrap;
    update();
}

void TransLabel::SetFont(double Points, bool Bold) { setFont(Caption::DesignFont(font(), Points, Bold)); }

void TransLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    Caption::Draw(painter, rect(), m_Caption, m_ForeColour, m_Alignment, m_WordWrap);
}

void TransLabel::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) Q_EMIT Pressed();
}

void TransLabel::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Q_EMIT Click();
}
