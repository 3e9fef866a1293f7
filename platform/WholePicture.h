// Whether the bytes of a JPEG hold the whole picture. Qt's reader answers "read" for a file that ends in its middle,
// and leaves the rest grey.
#pragma once

#include <QByteArray>

/// True for a JPEG that reaches its end mark, and for whatever is none.
bool IsWholePicture(const QByteArray &Bytes);
