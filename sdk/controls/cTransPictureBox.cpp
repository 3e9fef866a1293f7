#include "sdk/controls/cTransPictureBox.h"

#include "sdk/controls/Look.h"

#include <QPainter>

cTransPictureBox::cTransPictureBox(QWidget *Container) : TransLabel(Container) {}

void cTransPictureBox::SetPictureFile(const QImage &Picture)
{
    m_PictureFile = Picture;
    m_Keyed = Look::WithoutKeyColour(Picture);
    update();
}

void cTransPictureBox::SizeToPicture()
{
    if (!m_PictureFile.isNull()) resize(m_PictureFile.deviceIndependentSize().toSize());
}

void cTransPictureBox::paintEvent(QPaintEvent *event)
{
    if (!m_Keyed.isNull()) {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(0, 0, m_Keyed);
    }
    TransLabel::paintEvent(event);
}
