// The plain kind of GIF, read fast: skins are made of large ones, and the usual reader takes more time for those of a
// start than all else that a start does.
#pragma once

#include <QByteArray>
#include <QImage>

/// The first frame of a GIF that is no more than rows of pixels from the top left to the bottom right of the whole
/// picture, every one of them there; the transparent entry is a colour like others. RGB32. Empty for any other GIF,
/// be it interlaced, smaller than its screen, cut short or broken, and for what is none: the usual reader's.
QImage PlainGif(const QByteArray &Bytes);
