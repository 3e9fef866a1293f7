// The first frame of a GIF, read by giflib: it tells a file that ends in its middle from a whole one, which Qt's
// reader does not. The codes are turned into pixels here: the library takes more than twice as long for the large
// pictures of a skin, which are read while a start is waited for.
#pragma once

#include <QByteArray>
#include <QImage>

struct GifFrame
{
    bool IsWhole = false; // has data for every pixel; what follows the frame is not looked at
    QImage Picture;       // RGB32, the transparent entry a colour like others; empty where the frame is not whole, is
                          // smaller than the picture, larger than 8192 x 8192, or uses colours that it does not name
};

/// Bytes of anything; the frame is not whole when they are no GIF.
GifFrame FirstFrame(const QByteArray &Bytes);
