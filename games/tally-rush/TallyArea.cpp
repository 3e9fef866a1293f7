#include "TallyArea.h"

#include "sdk/author/Cards.h"
#include "sdk/author/Marks.h"

#include <QFontMetricsF>
#include <QPainter>

namespace
{
constexpr QSizeF Design{620, 420};
constexpr QRectF SetRow{20, 16, 580, 26};
constexpr QRectF Card{20, 58, 340, 300};
constexpr QRectF Pad{380, 58, 220, 300};
constexpr QRectF Foot{20, 372, 580, 34};

constexpr int MistakeTime = 1400; // [ms] for which the right result is shown
constexpr int MarkTime = 450;     // [ms] for which a new mark grows and fades
constexpr int NumberBlockZero = 96;

QPen Line(const QColor &colour, double width) { return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin}; }
} // namespace

TallyArea::TallyArea(QWidget *Container) : GameCanvas(Design, Container), m_Pad(Pad) {}

void TallyArea::Started(int Level)
{
    m_Rules = std::make_unique<TallyRules>(Level, Seed());
    m_Typed.clear();
    m_Marks.clear();
    m_MarkedAt = -1;
    m_Mistake.Stop();
    m_TimeUp = false;
    Tell();
}

// The task as a screen reader has it.
void TallyArea::Tell() { setAccessibleName(m_Rules->Task().Text + QStringLiteral(" = ") + m_Typed); }

void TallyArea::KeyPressed(int Key)
{
    if (!m_Rules || ShowsMistake()) return;
    if (Key >= TallyPad::Zero && Key <= TallyPad::Zero + 9) Digit(Key - TallyPad::Zero);
    if (Key >= NumberBlockZero && Key <= NumberBlockZero + 9) Digit(Key - NumberBlockZero);
    if (Key == TallyPad::Backspace) m_Typed.chop(1);
    if (Key == TallyPad::Delete) m_Typed.clear();
    Tell();
    update();
    if (Key == TallyPad::Enter && !m_Typed.isEmpty()) Answer();
}

void TallyArea::Digit(int digit)
{
    if (m_Typed == u"0") m_Typed.clear();
    if (m_Typed.size() < TallyRules::LongestAnswer) m_Typed += QString::number(digit);
}

void TallyArea::Answer()
{
    m_Last = m_Rules->Task();
    m_LastTyped = m_Typed;
    const bool right = m_Rules->Answer(m_Typed.toInt());
    m_Marks.push_back(right);
    m_Typed.clear();
    m_MarkedAt = Now();
    if (!right) m_Mistake.Start(Now(), Paced(MistakeTime));
    Animate(right ? MarkTime : Paced(MistakeTime));
    Tell();
    Progress(m_Rules->Progress());
    PlayMark(right, m_Rules->Over());
    update();
    if (m_Rules->Over()) EndGame();
}

void TallyArea::Pressed(QPointF Place)
{
    m_Down = m_Pad.KeyAt(Place);
    update();
    if (m_Down) KeyPressed(*m_Down);
}

void TallyArea::PointedAt(QPointF Place)
{
    const auto over = m_Pad.KeyAt(Place);
    if (over == m_Over) return;
    m_Over = over;
    setCursor(over ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void TallyArea::Released()
{
    m_Down.reset();
    update();
}

void TallyArea::Ticked()
{
    if (m_Mistake.IsOver(Now())) m_Mistake.Stop();
}

void TallyArea::TimeWasUp() { m_TimeUp = true; }

void TallyArea::Paint(QPainter &Painter)
{
    if (!m_Rules) return;
    Marks::DrawSet(Painter, SetRow, m_Rules->Tasks(), m_Marks, 1.3 - 0.3 * Phase(m_MarkedAt, MarkTime), Running(),
                   Colours());
    PaintCard(Painter);
    m_Pad.Draw(Painter, Colours(), m_Down, m_Over, !ShowsMistake() && Running());
    WriteFoot(Painter, Foot, m_TimeUp ? QString() : Word("Hint"), m_Rules->Level());
}

void TallyArea::PaintCard(QPainter &painter) const
{
    Cards::Draw(painter, Card, Colours().ground, Line(Colours().edge, 1.5), 20);
    if (m_TimeUp)
        PaintTimeUp(painter);
    else if (ShowsMistake())
        PaintMistake(painter);
    else
        PaintTask(painter);
}

void TallyArea::PaintTask(QPainter &painter) const
{
    painter.setPen(Colours().text);
    WriteLine(painter, {Card.left() + 16, Card.top() + 34, Card.width() - 32, 90}, Qt::AlignCenter,
              m_Rules->Task().Text, 66, QFont::Bold);

    // the field: "=", and what has been typed on a line of its own
    const QRectF field(Card.left() + 90, Card.top() + 152, Card.width() - 130, 96);
    painter.setPen(Colours().faint);
    WriteLine(painter, {Card.left() + 24, field.top(), 56, field.height()}, Qt::AlignCenter, QStringLiteral("="), 60,
              QFont::Medium);
    painter.setBrush(Colours().well);
    painter.setPen(Line(Colours().accent, 3));
    painter.drawRoundedRect(field, 14, 14);
    painter.setPen(Colours().text);
    WriteLine(painter, field.adjusted(10, 0, -10, 0), Qt::AlignCenter, m_Typed, 66, QFont::Bold);
    if (m_Typed.isEmpty()) { // where the digits will stand
        painter.setPen(Line(Colours().faint, 4));
        painter.drawLine(QPointF(field.center().x(), field.top() + 22),
                         QPointF(field.center().x(), field.bottom() - 22));
    }

    const double phase = m_MarkedAt < 0 ? 1 : Phase(m_MarkedAt, MarkTime);
    if (phase >= 1 || m_Marks.empty() || !m_Marks.back()) return;
    painter.save(); // the tick of the answer before: in the corner, and gone as soon as it has been seen
    painter.setOpacity(1 - phase * phase);
    Marks::DrawRight(painter, {Card.right() - 27, Card.top() + 27}, 34 + 8 * phase);
    painter.restore();
}

// Both lines, so that the eye can compare: what was typed, struck out, and what it should have been.
void TallyArea::PaintMistake(QPainter &painter) const
{
    const QString equals = QStringLiteral(" = ");
    const QRectF upper(Card.left() + 76, Card.top() + 62, Card.width() - 96, 60);
    const QString mistake = m_Last.Text + equals + m_LastTyped;
    painter.setPen(Colours().faint);
    WriteLine(painter, upper, Qt::AlignCenter, mistake, 36, QFont::Medium);
    const double half = QFontMetricsF(painter.font()).horizontalAdvance(mistake) / 2 + 4;
    painter.setPen(Line(Marks::WrongColour, 3));
    painter.drawLine(upper.center() - QPointF(half, 0), upper.center() + QPointF(half, 0));
    Marks::DrawWrong(painter, {Card.left() + 44, upper.center().y()}, 38);

    const QRectF lower(Card.left() + 76, Card.top() + 150, Card.width() - 96, 84);
    painter.setPen(Colours().text);
    WriteLine(painter, lower, Qt::AlignCenter, m_Last.Text + equals + QString::number(m_Last.Result), 46,
              QFont::Bold);
    Marks::DrawRight(painter, {Card.left() + 44, lower.center().y()}, 38);

    m_Mistake.Draw(painter, {Card.left() + 76, Card.bottom() - 40, Card.width() - 116, 6}, Now(),
                   Colours()); // how long it stays
}

void TallyArea::PaintTimeUp(QPainter &painter) const
{
    painter.setPen(Colours().text);
    WriteLine(painter, {Card.left() + 20, Card.top() + 70, Card.width() - 40, 60}, Qt::AlignCenter, Word("TimeUp"),
              44, QFont::Bold);
    painter.setPen(Colours().faint);
    WriteLine(painter, {Card.left() + 20, Card.top() + 150, Card.width() - 40, 50}, Qt::AlignCenter,
              QStringLiteral("%1 %2").arg(m_Rules->Right()).arg(Word("Right")), 32, QFont::Medium);
}
