// A JPEG, read by TurboJPEG: it writes whole pixels, and it is in the program. Qt's reader is a plug-in, for the
// first of which the toolkit looks through all of them.
#pragma once

#include <QByteArray>
#include <QImage>

/// RGB32. Bytes of anything; the picture is empty where they are no JPEG, are damaged from the start, are larger than
/// 8192 x 8192, or have colours for printing.
QImage JpegPicture(const QByteArray &Bytes);
