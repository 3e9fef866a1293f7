#include "LanternArea.h"

#include "sdk/author/Marks.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <string>

namespace
{
constexpr QSizeF Design{620, 420};
constexpr QRectF SetRow{20, 14, 580, 26};
constexpr QRectF Garden{30, 52, 560, 312};
constexpr QRectF Foot{20, 374, 580, 34};

constexpr int LeadIn = 800;     // [ms] before the first lantern
constexpr int Beat = 750;       // [ms] from one lantern to the next
constexpr int LitTime = 520;    // [ms]
constexpr int PressTime = 350;  // [ms]
constexpr int RightTime = 900;  // [ms] for which the end of a round is told
constexpr int WrongTime = 2200; // [ms]
constexpr int MarkTime = 450;   // [ms]
constexpr int Enter = 13;
constexpr int Space = 32;

constexpr double Widening = 1.22; // a lantern is wider than it is high

const QColor Flame(0xff, 0xf3, 0xb0);
const QColor Paper(0xff, 0xc1, 0x45);

// Around the painter's origin.
void PaintLight(QPainter &painter, double reach, double glow)
{
    QRadialGradient light(QPointF(), reach);
    light.setColorAt(0, QColor(0xff, 0xc8, 0x4a, static_cast<int>(190 * glow)));
    light.setColorAt(1, QColor(0xff, 0xc8, 0x4a, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QPointF(), reach, reach);
}

void PaintFlame(QPainter &painter, double half, double glow)
{
    painter.setOpacity(glow);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Flame);
    painter.drawEllipse(QPointF(0, half * 0.08), half * 0.24, half * 0.42);
    painter.setOpacity(1);
}
} // namespace

LanternArea::LanternArea(QWidget *Container) : GameCanvas(Design, Container) {}

void LanternArea::Started(int Level)
{
    m_Rules = std::make_unique<LanternRules>(Level, Seed());
    m_Marks.clear();
    m_Ring = m_Rules->Columns() * (m_Rules->Rows() / 2) + m_Rules->Columns() / 2;
    m_RingSeen = false;
    Begin(Part::Watch);
}

void LanternArea::Begin(Part part)
{
    m_Part = part;
    m_Since = Now();
    if (part == Part::Watch) {
        m_Shown = 0;
        m_Lit = -1;
        setAccessibleDescription({}); // so that the first lantern is told, also where it was the last one before
        m_Time.Start(Now(), Paced(LeadIn));
    }
    if (part == Part::Told) m_Time.Start(Now(), Paced(m_Marks.back() ? RightTime : WrongTime));
    if (part != Part::Play) AnimateOn();
    setAccessibleName(Line());
    update();
}

void LanternArea::Light(int lantern)
{
    m_Lit = lantern;
    m_LitAt = Now();
    // column and row, for those who hear and don't see
    setAccessibleDescription(
        QStringLiteral("%1, %2").arg(lantern % m_Rules->Columns() + 1).arg(lantern / m_Rules->Columns() + 1));
    const int step = lantern % m_Rules->Columns() + m_Rules->Rows() - 1 - lantern / m_Rules->Columns();
    Play(("note" + std::to_string(step)).c_str()); // higher to the right and upwards
}

// Everything that happens by itself.
void LanternArea::Ticked()
{
    if (!Running() || (m_Part != Part::Watch && m_Part != Part::Told)) return;
    AnimateOn();
    m_Time.Pass(Now());
    if (!m_Time.IsOver()) return;
    if (m_Part == Part::Told) {
        m_Rules->Next();
        Begin(Part::Watch);
    } else if (m_Shown == m_Rules->Sequence().size()) {
        Begin(Part::Play);
    } else {
        Light(m_Rules->Sequence()[m_Shown++]);
        m_Time.Start(Now(), Paced(Beat));
    }
}

void LanternArea::KeyPressed(int Key)
{
    if (Key == 37) MoveRing(-1, 0);
    if (Key == 38) MoveRing(0, -1);
    if (Key == 39) MoveRing(1, 0);
    if (Key == 40) MoveRing(0, 1);
    if (Key == Enter || Key == Space) {
        m_RingSeen = true;
        Choose(m_Ring);
    }
}

// The ring may be moved while watching, too: one may wait where the first lantern was.
void LanternArea::MoveRing(int columns, int rows)
{
    const int column = std::clamp(m_Ring % m_Rules->Columns() + columns, 0, m_Rules->Columns() - 1);
    const int row = std::clamp(m_Ring / m_Rules->Columns() + rows, 0, m_Rules->Rows() - 1);
    m_Ring = row * m_Rules->Columns() + column;
    m_RingSeen = true;
    update();
}

void LanternArea::Pressed(QPointF Place)
{
    m_RingSeen = false;
    if (const auto lantern = LanternAt(Place)) Choose(*lantern);
}

void LanternArea::PointedAt(QPointF Place)
{
    const auto over = m_Rules ? LanternAt(Place) : std::nullopt;
    if (over == m_Over) return;
    m_Over = over;
    setCursor(over ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void LanternArea::Choose(int lantern)
{
    if (m_Part != Part::Play) return;
    const LanternRules::Press press = m_Rules->Judge(lantern);
    Light(lantern);
    Animate(PressTime);
    update();
    if (press == LanternRules::Press::Right) return;

    const bool right = press == LanternRules::Press::Complete;
    m_Marks.push_back(right);
    PlayMark(right, m_Rules->Over());
    Progress(m_Rules->Progress());
    Begin(Part::Told);
    if (m_Rules->Over()) EndGame();
}

void LanternArea::TimeWasUp() { m_Part = Part::TimeUp; }

QString LanternArea::Line() const
{
    switch (m_Part) {
    case Part::Watch:
        return Word("Watch");
    case Part::Play:
        return Word(m_Rules->Backward() ? "Backward" : "Same");
    case Part::Told:
        return Word(m_Marks.back() ? "Right" : "Wrong");
    case Part::TimeUp:
        return Word("TimeUp");
    }
    return {};
}

QRectF LanternArea::PlaceOf(int lantern) const
{
    const double width = Garden.width() / m_Rules->Columns();
    const double height = Garden.height() / m_Rules->Rows();
    const int column = lantern % m_Rules->Columns();
    const int row = lantern / m_Rules->Columns();
    return {Garden.left() + column * width, Garden.top() + row * height, width, height};
}

std::optional<int> LanternArea::LanternAt(QPointF place) const
{
    for (int lantern = 0; lantern < m_Rules->Lanterns(); ++lantern) {
        if (PlaceOf(lantern).contains(place)) return lantern;
    }
    return {};
}

double LanternArea::Glow(int lantern) const
{
    if (lantern != m_Lit || m_LitAt < 0) return 0;
    const int time = m_Part == Part::Watch ? Paced(LitTime) : PressTime;
    const double phase = Phase(m_LitAt, time);
    return phase < 0.12 ? phase / 0.12 : phase > 0.7 ? (1 - phase) / 0.3 : 1.0;
}

void LanternArea::Paint(QPainter &Painter)
{
    if (!m_Rules) return;
    Marks::DrawSet(Painter, SetRow, m_Rules->Rounds(), m_Marks,
                   m_Part == Part::Told ? 1.3 - 0.3 * Phase(m_Since, MarkTime) : 1.0, Running(), Colours());
    PaintCords(Painter);
    for (int lantern = 0; lantern < m_Rules->Lanterns(); ++lantern) PaintLantern(Painter, lantern);
    if (m_Part == Part::Told) PaintOrder(Painter);
    WriteFoot(Painter, Foot, Line(), m_Rules->Level());
}

// The cords they hang on, a little slack between two lanterns.
void LanternArea::PaintCords(QPainter &painter) const
{
    painter.setPen({Colours().edge, 2});
    painter.setBrush(Qt::NoBrush);
    for (int row = 0; row < m_Rules->Rows(); ++row) {
        const QRectF first = PlaceOf(row * m_Rules->Columns());
        const double height = first.center().y() - first.height() * 0.36;
        QPainterPath cord(QPointF(Garden.left() - 10, height - 4));
        for (int column = 0; column < m_Rules->Columns(); ++column) {
            const double middle = first.left() + (column + 0.5) * first.width();
            cord.quadTo({middle - first.width() / 2, height + 8}, {middle, height});
        }
        cord.quadTo({Garden.right() - first.width() / 4, height + 8}, {Garden.right() + 10, height - 4});
        painter.drawPath(cord);
    }
}

void LanternArea::PaintLantern(QPainter &painter, int lantern) const
{
    const QRectF place = PlaceOf(lantern);
    const double size = std::min(place.width() * 0.62, place.height() * 0.84);
    const double half = size / 2;
    const double glow = Glow(lantern);
    painter.save();
    painter.translate(place.center());
    if (glow > 0) PaintLight(painter, size, glow);
    PaintBody(painter, half, m_Part == Part::Play && m_Over == lantern, glow);
    if (glow > 0) PaintFlame(painter, half, glow);
    if (m_RingSeen && lantern == m_Ring && Running()) {
        const double wide = half * Widening;
        painter.setBrush(Qt::NoBrush);
        painter.setPen({Colours().text, 3.5});
        painter.drawRoundedRect(QRectF(-wide - 8, -half - 5, 2 * wide + 16, size + 10), 16, 16);
    }
    painter.restore();
}

// A paper lantern: two caps and a round body with ribs, around the painter's origin.
void LanternArea::PaintBody(QPainter &painter, double half, bool isUnderPointer, double glow) const
{
    const double wide = half * Widening;
    const QRectF body(-wide, -half * 0.8, 2 * wide, half * 1.6);
    const QRectF cap(-half * 0.45, -half, half * 0.9, half * 2);
    painter.setPen({Colours().faint, 2});
    painter.setBrush(Colours().faint);
    painter.drawRoundedRect(cap, 4, 4);

    QColor paper = Colours().well;
    if (isUnderPointer && glow <= 0) paper = Dark() ? paper.lighter(150) : paper.darker(106);
    painter.setBrush(paper);
    painter.drawEllipse(body);
    if (glow > 0) {
        painter.setOpacity(glow);
        painter.setBrush(Paper);
        painter.drawEllipse(body);
        painter.setOpacity(1);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen({glow > 0 ? Paper.darker(150) : Colours().keyEdge, 1.6});
    painter.drawEllipse(QRectF(-wide * 0.62, body.top(), wide * 1.24, body.height()));
    painter.drawEllipse(QRectF(-wide * 0.22, body.top(), wide * 0.44, body.height()));
}

// The numbers of the order to press; after a mistake this is the moment to learn from it.
void LanternArea::PaintOrder(QPainter &painter) const
{
    for (int lantern = 0; lantern < m_Rules->Lanterns(); ++lantern) {
        const int order = m_Rules->PlaceOf(lantern);
        if (order == 0) continue;
        const QPointF centre = PlaceOf(lantern).center();
        const bool pressed = order <= m_Rules->Pressed();
        painter.setPen({Colours().accentText, 2});
        painter.setBrush(Colours().accent);
        painter.drawEllipse(centre, 20, 20);
        painter.setPen(Colours().accentText);
        WriteLine(painter, QRectF(centre - QPointF(18, 18), QSizeF(36, 36)), Qt::AlignCenter, QString::number(order),
                  26, QFont::Bold);
        if (pressed) Marks::DrawRight(painter, centre + QPointF(20, -20), 22);
    }
    if (!m_Marks.back() && m_Lit >= 0) Marks::DrawWrong(painter, PlaceOf(m_Lit).center() + QPointF(24, -24), 30);
}
