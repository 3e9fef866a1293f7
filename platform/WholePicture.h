// Whether the bytes of a GIF or JPEG hold the whole first picture. The usual readers answer "read" for a file that
// ends in its middle, and leave the rest black or grey.
#pragma once

#include <QByteArray>

/// True for a GIF whose first frame has data for every pixel, for a JPEG that reaches its end mark, and for whatever
/// is neither. What follows the first frame is not looked at.
bool IsWholePicture(const QByteArray &Bytes);
