#include "platform/PicBox.h"

#include <QPainter>

#include <algorithm>

void PicBox::SetSize(int Width, int Height, double Scale)
{
    m_Width = std::max(Width, 1);
    m_Height = std::max(Height, 1);
    QImage image((QSizeF(m_Width, m_Height) * Scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(Scale);
    image.fill(BackColour);
    QPainter(&image).drawImage(0, 0, m_Image);
    m_Image = image;
}

void PicBox::SetPicture(const QImage &Picture)
{
    m_Picture = Picture;
    if (Picture.isNull()) return;
    m_Image = Picture.convertToFormat(QImage::Format_RGB32);
    const QSize size = m_Image.deviceIndependentSize().toSize();
    m_Width = size.width();
    m_Height = size.height();
}

void PicBox::Cls() { m_Image.fill(BackColour); }
