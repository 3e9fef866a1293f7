#include "EchoPond.h"

#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <map>

namespace
{
constexpr int Columns = 3;
constexpr double Corner = 24;
constexpr double Shore = 14;    // between the pond's edge and its stones
constexpr double Across = 0.74; // of its cell that a stone is wide, and high
constexpr double Down = 0.72;
constexpr int Waves = 3;

struct Nature
{
    QColor waterAbove, waterBelow, shade, stone, stoneEdge, light;
};

const Nature &NatureBy(bool dark)
{
    static const Nature day{QColor(0xd9, 0xee, 0xf4), QColor(0xae, 0xd6, 0xe4), QColor(0x3c, 0x7a, 0x92, 70),
                            QColor(0xf3, 0xee, 0xe2), QColor(0x8d, 0x86, 0x74), QColor(0xff, 0xff, 0xff, 190)};
    static const Nature night{QColor(0x1b, 0x3a, 0x4a), QColor(0x11, 0x27, 0x34), QColor(0x05, 0x10, 0x18, 130),
                              QColor(0x4a, 0x5a, 0x62), QColor(0x8b, 0x9c, 0xa4), QColor(0xff, 0xff, 0xff, 40)};
    return dark ? night : day;
}

// Each stone has a shape of its own: rounder here, flatter there.
QPainterPath Outline(const QRectF &box, int place)
{
    const double lean = (place % 3 - 1) * 0.05 * box.width();
    const double rise = (place * 2 % 5 - 2) * 0.025 * box.height();
    const QPointF middle = box.center();
    QPainterPath path(QPointF(middle.x() + lean, box.top()));
    const double wide = box.width() * 0.28;
    const double high = box.height() * 0.3;
    path.cubicTo(middle.x() + lean + wide, box.top(), box.right(), middle.y() + rise - high, box.right(),
                 middle.y() + rise);
    path.cubicTo(box.right(), middle.y() + rise + high, middle.x() - lean + wide, box.bottom(), middle.x() - lean,
                 box.bottom());
    path.cubicTo(middle.x() - lean - wide, box.bottom(), box.left(), middle.y() - rise + high, box.left(),
                 middle.y() - rise);
    path.cubicTo(box.left(), middle.y() - rise - high, middle.x() + lean - wide, box.top(), middle.x() + lean,
                 box.top());
    return path;
}
} // namespace

QRectF EchoPond::Stone(int Place) const
{
    const QRectF inner = m_Place.adjusted(Shore, Shore, -Shore, -Shore);
    const double width = inner.width() / Columns;
    const double height = inner.height() / Columns;
    const int column = Place % Columns;
    const int row = Place / Columns;
    const QPointF centre(inner.left() + (column + 0.5) * width, inner.top() + (row + 0.5) * height);
    const QSizeF size(width * Across, height * Down);
    return {centre - QPointF(size.width() / 2, size.height() / 2), size};
}

void EchoPond::Draw(QPainter &Painter, bool Dark, const QColor &Edge, double EdgeWidth) const
{
    const Nature &nature = NatureBy(Dark);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(0, 0, 0, 30));
    Painter.drawRoundedRect(m_Place.translated(0, 4), Corner, Corner);
    QLinearGradient water(m_Place.topLeft(), m_Place.bottomLeft());
    water.setColorAt(0, nature.waterAbove);
    water.setColorAt(1, nature.waterBelow);
    Painter.setBrush(water);
    Painter.setPen({Edge, EdgeWidth});
    Painter.drawRoundedRect(m_Place, Corner, Corner);
    for (int place = 0; place < Columns * Columns; ++place) {
        const QRectF box = Stone(place);
        Painter.setPen(Qt::NoPen);
        Painter.setBrush(nature.shade);
        Painter.drawPath(Outline(box.translated(0, 6), place));
        Painter.setBrush(nature.stone);
        Painter.setPen({nature.stoneEdge, 1.6});
        Painter.drawPath(Outline(box, place));
        Painter.setPen({nature.light, 3, Qt::SolidLine, Qt::RoundCap});
        Painter.setBrush(Qt::NoBrush);
        const QRectF gleam = box.adjusted(9, 8, -9, -8);
        Painter.drawArc(gleam, 105 * 16, 50 * 16);
    }
}

void EchoPond::DrawStep(QPainter &Painter, int Place, const QString &Letter, double Glow, double Spread,
                        const GameColours &Colours) const
{
    const QRectF box = Stone(Place);
    Painter.save();
    QPainterPath pond;
    pond.addRoundedRect(m_Place, Corner, Corner);
    Painter.setClipPath(pond);
    Painter.setBrush(Qt::NoBrush);
    for (int wave = 0; wave < Waves; ++wave) {
        const double far = Spread * 1.3 - wave * 0.22;
        if (far <= 0 || far >= 1) continue;
        Painter.setOpacity((1 - far) * 0.8);
        Painter.setPen({Colours.accent, 3});
        const double out = far * box.width() * 0.42;
        Painter.drawPath(Outline(box.adjusted(-out, -out * 0.8, out, out * 0.8), Place));
    }
    Painter.restore();
    Painter.save();
    Painter.setOpacity(Glow);
    Painter.setBrush(Colours.accent);
    Painter.setPen({Colours.accentText, 3});
    Painter.drawPath(Outline(box, Place));
    Painter.setPen(Colours.accentText);
    if (Letter.isEmpty()) { // a footprint's worth of rings, so that it is not told by colour alone
        Painter.setBrush(Qt::NoBrush);
        Painter.setPen({Colours.accentText, 3});
        Painter.drawEllipse(box.center(), box.width() * 0.2, box.height() * 0.2);
        Painter.setBrush(Colours.accentText);
        Painter.drawEllipse(box.center(), 4, 4);
    } else {
        GameCanvas::WriteLine(Painter, box, Qt::AlignCenter, Letter, 46, QFont::Bold);
    }
    Painter.restore();
}

void EchoPond::DrawTrail(QPainter &Painter, const std::vector<int> &Places, const GameColours &Colours) const
{
    std::map<int, std::vector<int>> ago; // of each place, the oldest first
    const int last = static_cast<int>(Places.size()) - 1;
    for (int i = 0; i < last; ++i) ago[Places[static_cast<std::size_t>(i)]].push_back(last - i);
    Painter.save();
    for (const auto &[place, steps] : ago) {
        const QRectF box = Stone(place);
        double x = box.left() + 4;
        for (const int step : steps) {
            const bool compared = step == last;
            const double radius = compared ? 17 : 12;
            const QPointF centre(x + radius, box.top() + 4);
            Painter.setBrush(compared ? Colours.text : Colours.ground);
            Painter.setPen({compared ? Colours.ground : Colours.faint, compared ? 2.5 : 1.5});
            Painter.drawEllipse(centre, radius, radius);
            Painter.setPen(compared ? Colours.ground : Colours.faint);
            GameCanvas::WriteLine(Painter, QRectF(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius)),
                                  Qt::AlignCenter, QString::number(step), compared ? 21 : 15, QFont::Bold);
            x += 2 * radius + 3;
        }
    }
    Painter.restore();
}
