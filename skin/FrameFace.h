// What a window with an outline paints: the frame picture inside the outline, clear outside, in device pixels. Made
// once for a skin and a scale of the screen, so that painting is one copy.
#pragma once

#include <QImage>
#include <QRegion>

class Region;

/// The outline that a frame picture gives a window. Failure: passed on, in words, for a picture that is empty or that
/// has a finer outline than a window can take.
Region OutlineOf(const QImage &Frame);
/// An outline in device pixels. Its edges are rounded one by one, as the window system rounds those of the mask, so
/// neighbours stay neighbours at every scale.
QRegion InDevicePixels(const QRegion &Outline, double Scale);
/// Sharp is the same picture of twice the size where the skin has one, else empty or Frame itself; it is used at
/// scales above 1. No pixel of the key colour shows, however the picture is scaled.
QImage FaceOf(const Region &Outline, const QImage &Frame, const QImage &Sharp, double Scale);
