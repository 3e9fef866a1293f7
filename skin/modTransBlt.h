// A picture drawn with one colour of it left transparent.
#pragma once

#include <QImage>

#include <cstdint>

class QPainter;

/// Copies a part of the source onto the destination; pixels of the colour TransColour (0x00BBGGRR) leave what is
/// there. What the source does not have, or the destination has no room for, is left out.
void TransBlt(QImage &DestDC, std::int32_t DestX, std::int32_t DestY, std::int32_t Width, std::int32_t Height,
              const QImage &SrcDC, std::int32_t SrcX, std::int32_t SrcY, std::int32_t TransColour);
/// The same through a painter, at whatever scale it draws.
void TransBlt(QPainter &DestDC, std::int32_t DestX, std::int32_t DestY, std::int32_t Width, std::int32_t Height,
              const QImage &SrcDC, std::int32_t SrcX, std::int32_t SrcY, std::int32_t TransColour);
/// The colour of a picture's own top left pixel, which callers pass as the key. 0 for an empty picture.
std::int32_t KeyColour(const QImage &Picture);
