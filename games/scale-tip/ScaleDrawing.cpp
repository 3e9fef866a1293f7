#include "ScaleDrawing.h"

#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>

namespace
{
constexpr QPointF Pivot{310, 336};
constexpr double Arm = 146; // from the pivot to the post of a plate
constexpr double Post = 30; // height of a post
constexpr double Tip = 17;  // by which a plate goes down
constexpr double PlateWidth = 216;
constexpr double Globe = 111; // radius, the glass included

const QColor Brass(0xf6, 0xb4, 0x3c);
const QColor BrassLight(0xff, 0xdc, 0x8c);
const QColor BrassDark(0xb0, 0x74, 0x12);
const QColor BrassText(0x3a, 0x22, 0x00);

QColor Iron(bool dark) { return dark ? QColor(0x5d, 0x78, 0x87) : QColor(0x2c, 0x5a, 0x4d); }
QColor DotColour(bool dark) { return dark ? QColor(0x9a, 0xd8, 0xff) : QColor(0x1d, 0x55, 0x8c); }

QPen Line(const QColor &colour, double width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }

QPointF ArmEnd(int side, double tilt)
{
    const double down = Tip * (side == 0 ? -tilt : tilt);
    const double across = std::sqrt(Arm * Arm - down * down);
    return Pivot + QPointF(side == 0 ? -across : across, down);
}

void DrawPlate(QPainter &painter, int side, double tilt, bool dark)
{
    const QPointF top = ScaleDrawing::Plate(side, tilt);
    painter.setPen(Line(Iron(dark), 7));
    painter.drawLine(top + QPointF(0, 6), ArmEnd(side, tilt));
    QPainterPath plate(top + QPointF(-PlateWidth / 2, 0));
    plate.lineTo(top + QPointF(PlateWidth / 2, 0));
    plate.quadTo(top + QPointF(PlateWidth / 2 - 8, 13), top + QPointF(PlateWidth / 2 - 40, 13));
    plate.lineTo(top + QPointF(-PlateWidth / 2 + 40, 13));
    plate.quadTo(top + QPointF(-PlateWidth / 2 + 8, 13), top + QPointF(-PlateWidth / 2, 0));
    QLinearGradient shine(top, top + QPointF(0, 13));
    shine.setColorAt(0, BrassLight);
    shine.setColorAt(0.5, Brass);
    shine.setColorAt(1, BrassDark);
    painter.setPen(Line(BrassDark, 1.2));
    painter.setBrush(shine);
    painter.drawPath(plate);
}

void WriteFraction(QPainter &painter, const QRectF &box, const ScaleSide &side)
{
    constexpr double Size = 52;
    const QPointF middle = box.center();
    GameCanvas::WriteLine(painter, QRectF(box.left(), middle.y() - 66, box.width(), 62), Qt::AlignCenter,
                          QString::number(side.First), Size, QFont::Bold);
    GameCanvas::WriteLine(painter, QRectF(box.left(), middle.y() + 5, box.width(), 62), Qt::AlignCenter,
                          QString::number(side.Second), Size, QFont::Bold);
    painter.setPen(Line(BrassText, 5));
    painter.drawLine(middle - QPointF(38, 0), middle + QPointF(38, 0));
}

// The outline of a weight that stands on the painter's origin: knob, neck and body.
QPainterPath WeightOutline(double height)
{
    constexpr double Foot = 100, Shoulder = 88, Round = 14;
    QPainterPath body;
    body.moveTo(-Foot, -Round);
    body.lineTo(-Shoulder, -height + Round);
    body.quadTo(-Shoulder + 2, -height, -Shoulder + Round + 2, -height);
    body.lineTo(Shoulder - Round - 2, -height);
    body.quadTo(Shoulder - 2, -height, Shoulder, -height + Round);
    body.lineTo(Foot, -Round);
    body.quadTo(Foot, 0, Foot - Round, 0);
    body.lineTo(-Foot + Round, 0);
    body.quadTo(-Foot, 0, -Foot, -Round);
    QPainterPath neck, knob;
    neck.addRect(QRectF(-14, -height - 18, 28, 24));
    knob.addRoundedRect(QRectF(-36, -height - 34, 72, 22), 11, 11);
    return body.united(neck).united(knob);
}
} // namespace

QPointF ScaleDrawing::Plate(int Side, double Tilt) { return ArmEnd(Side, Tilt) - QPointF(0, Post + 6); }

void ScaleDrawing::DrawBalance(QPainter &Painter, double Tilt, const GameColours &Colours, bool Dark)
{
    Painter.save();
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(QColor(0, 0, 0, Dark ? 70 : 28));
    Painter.drawEllipse(QPointF(Pivot.x(), 364), 92, 4);
    Painter.setBrush(Iron(Dark));
    QPainterPath stand(Pivot + QPointF(-10, -6));
    stand.lineTo(Pivot + QPointF(10, -6));
    stand.quadTo(Pivot + QPointF(16, 18), Pivot + QPointF(70, 28));
    stand.lineTo(Pivot + QPointF(-70, 28));
    stand.quadTo(Pivot + QPointF(-16, 18), Pivot + QPointF(-10, -6));
    Painter.drawPath(stand);
    for (const int side : {0, 1}) DrawPlate(Painter, side, Tilt, Dark);
    Painter.setPen(Line(Iron(Dark), 9));
    Painter.drawLine(ArmEnd(0, Tilt), ArmEnd(1, Tilt));
    Painter.setPen(Line(Colours.ground, 2));
    Painter.setBrush(Brass);
    for (const QPointF &bolt : {ArmEnd(0, Tilt), Pivot, ArmEnd(1, Tilt)}) Painter.drawEllipse(bolt, 8, 8);
    Painter.restore();
}

void ScaleDrawing::DrawGlobe(QPainter &Painter, QPointF Foot, const std::vector<ScaleDot> &Dots, bool Over,
                             const GameColours &Colours, bool Dark)
{
    Painter.save();
    Painter.translate(Foot - QPointF(0, Globe));
    QRadialGradient glass(QPointF(-36, -46), Globe * 1.7);
    glass.setColorAt(0, Colours.ground);
    glass.setColorAt(1, Dark ? Colours.well : QColor(0xd9, 0xea, 0xf4));
    Painter.setPen(Line(Over ? Brass : Colours.faint, Over ? 4 : 2));
    Painter.setBrush(glass);
    Painter.drawEllipse(QPointF(), Globe - 2, Globe - 2);
    Painter.setPen(Qt::NoPen);
    Painter.setBrush(DotColour(Dark));
    for (const ScaleDot &dot : Dots) Painter.drawEllipse(dot.Place, dot.Radius, dot.Radius);
    Painter.setBrush(Qt::NoBrush);
    Painter.setPen(Line(QColor(255, 255, 255, Dark ? 60 : 200), 4));
    Painter.drawArc(QRectF(-Globe + 9, -Globe + 9, 2 * Globe - 18, 2 * Globe - 18), 115 * 16, 40 * 16);
    Painter.restore();
}

void ScaleDrawing::DrawWeight(QPainter &Painter, QPointF Foot, ScaleKind Kind, const ScaleSide &Side, bool Over,
                              const GameColours &Colours, bool Dark)
{
    constexpr double Body = 150;
    Painter.save();
    Painter.translate(Foot);
    QLinearGradient brass(-100, 0, 100, 0);
    brass.setColorAt(0, Brass);
    brass.setColorAt(0.3, BrassLight);
    brass.setColorAt(1, Brass);
    Painter.setPen(Line(Over ? Colours.text : Dark ? BrassLight : BrassDark, Over ? 4 : 2));
    Painter.setBrush(brass);
    Painter.drawPath(WeightOutline(Body));
    Painter.setPen(BrassText);
    const QRectF label(-84, -Body, 168, Body);
    if (Kind == ScaleKind::Fraction)
        WriteFraction(Painter, label, Side);
    else
        GameCanvas::WriteLine(Painter, label, Qt::AlignCenter,
                              QStringLiteral("%1 + %2").arg(Side.First).arg(Side.Second), 50, QFont::Bold);
    Painter.restore();
}

void ScaleDrawing::DrawArrowKey(QPainter &Painter, QPointF Centre, int Side, const GameColours &Colours)
{
    Painter.save();
    Painter.translate(Centre);
    Painter.setBrush(Colours.key);
    Painter.setPen(Line(Colours.keyEdge, 1.4));
    Painter.drawRoundedRect(QRectF(-14, -14, 28, 28), 6, 6);
    const double way = Side == 0 ? -1 : 1;
    Painter.setPen(Line(Colours.keyText, 2.6));
    Painter.drawLine(QPointF(-6 * way, 0), QPointF(6 * way, 0));
    Painter.drawPolyline(QPolygonF{{1 * way, -5}, {6 * way, 0}, {1 * way, 5}});
    Painter.restore();
}

void ScaleDrawing::DrawLabel(QPainter &Painter, QPointF Centre, const QString &Text, const GameColours &Colours)
{
    const QRectF label(Centre - QPointF(52, 21), QSizeF(104, 42));
    Painter.save();
    Painter.setPen(Line(Colours.keyEdge, 1.5));
    Painter.setBrush(Colours.ground);
    Painter.drawRoundedRect(label, 21, 21);
    Painter.setPen(Colours.text);
    GameCanvas::WriteLine(Painter, label.adjusted(8, 0, -8, 0), Qt::AlignCenter, Text, 28, QFont::Bold);
    Painter.restore();
}
