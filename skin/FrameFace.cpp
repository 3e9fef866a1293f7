#include "skin/FrameFace.h"

#include "platform/RuntimeError.h"
#include "skin/Region.h"

#include <QPainter>

#include <algorithm>
#include <vector>

namespace
{
QRgb *RowOf(QImage &picture, int row) { return reinterpret_cast<QRgb *>(picture.scanLine(row)); }

// Clear pixels beside a run take its colours: a scaled picture mixes neighbours, and the key colour must not be one.
void GrowInto(QImage &picture, int row, const Region::Run &run, const QRgb *colours)
{
    if (row < 0 || row >= picture.height()) return;
    QRgb *pixel = RowOf(picture, row);
    for (int x = std::max(run.Start - 1, 0); x <= std::min(run.End, picture.width() - 1); ++x)
        if (qAlpha(pixel[x]) == 0) pixel[x] = colours[std::clamp(x, run.Start, run.End - 1)];
}

const QRgb *ColoursOf(const QImage &plain, const Region::Run &run)
{
    return reinterpret_cast<const QRgb *>(plain.constScanLine(run.Row));
}

// The picture where the outline is, and clear elsewhere.
QImage CutOut(const Region &outline, const QImage &plain)
{
    QImage inside(plain.size(), QImage::Format_ARGB32_Premultiplied);
    inside.fill(Qt::transparent);
    for (const Region::Run &run : outline.Runs()) {
        const QRgb *const colours = ColoursOf(plain, run);
        std::copy(colours + run.Start, colours + run.End, RowOf(inside, run.Row) + run.Start);
    }
    return inside;
}

// The same with its colours grown by one pixel all around.
QImage Inside(const Region &outline, const QImage &plain)
{
    QImage inside = CutOut(outline, plain);
    for (const Region::Run &run : outline.Runs())
        for (const int row : {run.Row, run.Row - 1, run.Row + 1}) GrowInto(inside, row, run, ColoursOf(plain, run));
    return inside;
}

// A sharper picture has an edge of its own; its key colour is found as the frame's is, at the bottom left.
QImage WithoutKey(const QImage &sharp)
{
    QImage keyed = sharp.convertToFormat(QImage::Format_ARGB32);
    const QRgb key = keyed.pixel(0, keyed.height() - 1);
    for (int y = 0; y < keyed.height(); ++y) {
        QRgb *pixel = RowOf(keyed, y);
        std::replace(pixel, pixel + keyed.width(), key, QRgb{0});
    }
    return keyed.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}
} // namespace

Region OutlineOf(const QImage &Frame)
{
    if (Frame.isNull()) throw RuntimeError(QStringLiteral("The skin has no frame picture."));
    Region outline;
    std::int32_t key = Region::UseCorner;
    outline.ScanPicture(Frame, key);
    outline.Check();
    return outline;
}

QRegion InDevicePixels(const QRegion &Outline, double Scale)
{
    if (Scale == 1) return Outline;
    std::vector<QRect> rects;
    rects.reserve(static_cast<std::size_t>(Outline.rectCount()));
    const auto edge = [Scale](int at) { return qRound(at * Scale); };
    for (const QRect &rect : Outline) {
        const QPoint end(edge(rect.right() + 1) - 1, edge(rect.bottom() + 1) - 1);
        rects.emplace_back(QPoint(edge(rect.left()), edge(rect.top())), end);
    }
    QRegion scaled;
    if (Scale < 1) { // where rectangles may vanish, which is nothing for a sorted list
        for (const QRect &rect : rects) scaled += rect;
        return scaled;
    }
    scaled.setRects(rects.data(), static_cast<int>(rects.size()));
    return scaled;
}

QImage FaceOf(const Region &Outline, const QImage &Frame, const QImage &Sharp, double Scale)
{
    if (Frame.isNull()) return {};
    const QImage plain = Frame.convertToFormat(QImage::Format_RGB32);
    if (Scale == 1) return CutOut(Outline, plain); // nothing is mixed
    const QSize size = (QSizeF(Frame.size()) * Scale).toSize();
    QImage face(size, QImage::Format_ARGB32_Premultiplied);
    face.fill(Qt::transparent);
    QPainter painter(&face);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setClipRegion(InDevicePixels(Outline.Rgn(), Scale));
    const QRectF place(QPointF(0, 0), QSizeF(Frame.size()) * Scale);
    painter.drawImage(place, Inside(Outline, plain));
    const bool isSharper = Scale > 1 && Sharp.width() > Frame.width();
    if (isSharper) painter.drawImage(place, WithoutKey(Sharp), Sharp.rect());
    painter.end();
    face.setDevicePixelRatio(Scale);
    return face;
}
