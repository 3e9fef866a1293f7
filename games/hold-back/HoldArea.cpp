#include "HoldArea.h"

#include "HoldShapes.h"
#include "sdk/author/Cards.h"
#include "sdk/author/Countdown.h"
#include "sdk/author/Marks.h"

#include <QPainter>

#include <algorithm>

namespace
{
constexpr QSizeF Design{620, 420};
constexpr QRectF SetRow{20, 12, 580, 32};
constexpr QRectF StopCard{20, 56, 150, 158};
constexpr QRectF OthersCard{20, 228, 150, 134};
constexpr QRectF Stage{186, 56, 414, 222};
constexpr QRectF Button{186, 292, 414, 70};
constexpr QRectF Foot{20, 374, 580, 34};

constexpr int IntroTime = 2800; // [ms]
constexpr int ToldTime = 1200;  // [ms]
constexpr int PressTime = 160;  // [ms] that the button stays down
constexpr int MarkTime = 420;   // [ms]
constexpr double Arrival = 0.1; // of a shape's time, in which it grows
constexpr double Leaving = 0.84;
constexpr double Corner = 20;
constexpr int LongestRow = 40; // of marks
constexpr int Enter = 13;
constexpr int Space = 32;

QPen Stroke(const QColor &colour, double width)
{
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QColor Mixed(const QColor &from, const QColor &to, double share)
{
    const auto part = [share](int one, int other) { return qRound(one + share * (other - one)); };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

// Eight corners, as the sign on the road has them.
QPolygonF StopSign(QPointF centre, double half)
{
    const double cut = half * 0.414;
    QPolygonF sign;
    for (const QPointF &corner : {QPointF(-cut, -half), QPointF(cut, -half), QPointF(half, -cut), QPointF(half, cut),
                                  QPointF(cut, half), QPointF(-cut, half), QPointF(-half, cut), QPointF(-half, -cut)})
        sign << centre + corner;
    return sign;
}
} // namespace

HoldArea::HoldArea(QWidget *Container) : GameCanvas(Design, Container) {}

void HoldArea::Started(int Level)
{
    m_Rules = std::make_unique<HoldRules>(Level, Seed());
    m_PressedAt = m_HeldAt = -1;
    Begin(Part::Intro);
}

void HoldArea::Begin(Part part)
{
    m_Part = part;
    if (part == Part::Intro) {
        m_Time.Start(Now(), Paced(IntroTime));
        setAccessibleName(Word("Stop") + QStringLiteral(": ") + InWords(m_Rules->StopKind()));
        setAccessibleDescription(Word("Hint"));
    } else if (part == Part::Shown) {
        m_Time.Start(Now(), Paced(m_Rules->Beat()));
        m_Present = m_Rules->Present();
        m_PressedAt = -1;
        // its number stands first, so that a shape that comes twice is told twice
        setAccessibleName(QStringLiteral("%1: %2").arg(m_Rules->Index() + 1).arg(InWords(m_Present.Kind)));
    } else {
        m_Time.Start(Now(), Paced(ToldTime));
        setAccessibleDescription(Line());
    }
    AnimateOn();
    update();
}

void HoldArea::Ticked()
{
    if (!m_Rules || !Running()) return;
    AnimateOn();
    m_Time.Pass(Now());
    if (!m_Time.IsOver()) return;
    if (m_Part == Part::Shown)
        Close();
    else
        Begin(Part::Shown);
}

// Who comes back from a pause gets the whole time of the shape that was in view.
void HoldArea::showEvent(QShowEvent *event)
{
    GameCanvas::showEvent(event);
    if (m_Rules && m_Part == Part::Shown && !m_Rules->IsPressed()) m_Time.Start(Now(), m_Time.Duration());
}

void HoldArea::KeyPressed(int Key)
{
    if (Key == Enter || Key == Space) Answer();
}

void HoldArea::Pressed(QPointF Place)
{
    if (Stage.contains(Place) || Button.contains(Place)) Answer();
}

void HoldArea::PointedAt(QPointF Place)
{
    const bool isOver = Button.contains(Place) || Stage.contains(Place);
    if (isOver == m_IsOver) return;
    m_IsOver = isOver;
    setCursor(isOver ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void HoldArea::Answer()
{
    if (!m_Rules || m_Part != Part::Shown || !m_Rules->Press()) return;
    m_PressedAt = Now();
    update();
    if (m_Rules->IsStop()) return Close();
    Play("tap");
    setAccessibleDescription(Word("Right"));
}

// The round counts before anything is told of it.
void HoldArea::Close()
{
    m_WasStop = m_Rules->IsStop();
    const bool right = m_Rules->IsRight();
    m_Rules->Close();
    const bool over = m_Rules->Set().Over();
    Progress(m_Rules->Set().Progress());
    if (right && m_WasStop) {
        m_HeldAt = Now();
        setAccessibleDescription(Word("Right"));
    }
    if (over || !right || m_WasStop) Play(over ? "done" : right ? "held" : "wrong");
    if (!right)
        Begin(Part::Told);
    else if (!over)
        Begin(Part::Shown);
    if (over) EndGame();
}

void HoldArea::TimeWasUp()
{
    m_Part = Part::TimeUp;
    setAccessibleDescription(Word("TimeUp"));
}

QString HoldArea::Line() const
{
    if (m_Part == Part::TimeUp) return Word("TimeUp");
    if (m_Part == Part::Told) return Word(m_WasStop ? "Slip" : "Missed");
    return Word("Hint");
}

QString HoldArea::InWords(int kind) const
{
    QStringList words;
    for (const char *word : HoldShapes::Words(m_Rules->Shapes(), kind)) words += Word(word);
    return words.join(QStringLiteral(", "));
}

double HoldArea::Presence() const
{
    const double phase = m_Time.Phase();
    if (m_Part != Part::Shown || m_Rules->Set().Over()) return 1;
    return phase < Arrival ? phase / Arrival : phase > Leaving ? (1 - phase) / (1 - Leaving) : 1;
}

void HoldArea::Paint(QPainter &Painter)
{
    if (!m_Rules) return;
    PaintSet(Painter);
    PaintStop(Painter);
    PaintOthers(Painter);
    PaintStage(Painter);
    PaintButton(Painter);
    WriteFoot(Painter, Foot, m_Part == Part::TimeUp ? QString() : Word("Hint"), m_Rules->Level());
}

// In two rows where one would make the marks too small to tell them apart.
void HoldArea::PaintSet(QPainter &painter) const
{
    const Rounds &set = m_Rules->Set();
    const int rows = set.Count() > LongestRow ? 2 : 1;
    const int longest = (set.Count() + rows - 1) / rows;
    for (int row = 0; row < rows; ++row) {
        const int first = row * longest;
        const int count = std::min(longest, set.Count() - first);
        const int done = std::clamp(set.Done() - first, 0, count);
        const auto begin = set.Marks().begin() + std::min(first, set.Done());
        const bool hasNewest = m_Part == Part::Told && first + done == set.Done();
        const bool hasPresent = Running() && set.Done() >= first && set.Done() < first + count;
        const QRectF box(SetRow.left(), SetRow.top() + row * SetRow.height() / rows, SetRow.width(),
                         SetRow.height() / rows);
        Marks::DrawSet(painter, box, count, {begin, begin + done}, hasNewest ? 1.4 - 0.4 * m_Time.Phase() : 1.0,
                       hasPresent, Colours());
    }
}

void HoldArea::PaintShape(QPainter &painter, QPointF centre, double size, int kind, const QColor &colour) const
{
    HoldShapes::Draw(painter, centre, size, m_Rules->Shapes(), kind, colour, Colours().ground);
}

// Stays in its corner: nobody has to keep the stop shape in mind.
void HoldArea::PaintStop(QPainter &painter) const
{
    Cards::Draw(painter, StopCard, Colours().ground, Stroke(Marks::WrongColour, 2.5), Corner);
    const QPointF centre(StopCard.center().x(), StopCard.top() + 66);
    painter.setBrush(Colours().well);
    painter.setPen(Stroke(Marks::WrongColour, 5));
    painter.drawPolygon(StopSign(centre, 53));
    PaintShape(painter, centre, 58, m_Rules->StopKind(), Colours().text);
    painter.setPen(Colours().text);
    WriteLine(painter, {StopCard.left() + 8, StopCard.bottom() - 36, StopCard.width() - 16, 28}, Qt::AlignCenter,
              Word("Stop"), 18, QFont::Bold);
    const double held = m_HeldAt < 0 ? 1 : Phase(m_HeldAt, MarkTime);
    if (held >= 1) return;
    painter.save();
    painter.setOpacity(1 - held * held);
    Marks::DrawRight(painter, {StopCard.right() - 24, StopCard.top() + 26}, 34 + 8 * held);
    painter.restore();
}

void HoldArea::PaintOthers(QPainter &painter) const
{
    Cards::Draw(painter, OthersCard, Colours().ground, Stroke(Colours().edge, 1.5), Corner);
    const int others = HoldRules::Kinds(m_Rules->Shapes()) - 1;
    const int columns = others > 4 ? 4 : 3;
    const int rows = (others + columns - 1) / columns;
    const double size = rows > 1 ? 22 : 30;
    const double pitch = (OthersCard.width() - 20) / columns;
    for (int kind = 0, at = 0; kind <= others; ++kind) {
        if (kind == m_Rules->StopKind()) continue;
        const int row = at / columns;
        const int inRow = std::min(columns, others - row * columns);
        const QPointF centre(OthersCard.center().x() + (at % columns - (inRow - 1) / 2.0) * pitch,
                             OthersCard.top() + 48 + (row - (rows - 1) / 2.0) * 34);
        PaintShape(painter, centre, size, kind, Colours().faint);
        ++at;
    }
    painter.setPen(Colours().text);
    WriteLine(painter, {OthersCard.left() + 8, OthersCard.bottom() - 38, OthersCard.width() - 16, 28},
              Qt::AlignCenter, Word("Press"), 18, QFont::Bold);
}

void HoldArea::PaintStage(QPainter &painter) const
{
    const bool told = m_Part == Part::Told;
    Cards::Draw(painter, Stage, Colours().ground, Stroke(told ? Marks::WrongColour : Colours().edge, told ? 3 : 1.5),
                Corner);
    if (m_Part == Part::TimeUp) {
        painter.setPen(Colours().text);
        WriteLine(painter, Stage, Qt::AlignCenter, Word("TimeUp"), 44, QFont::Bold);
        return;
    }
    if (m_Part != Part::Shown) return PaintVerdict(painter);
    const double presence = Presence();
    const bool pressed = m_PressedAt >= 0;
    // mixed rather than see-through: an outline over its own fill would show
    PaintShape(painter, Stage.center(), (pressed ? 136 : 150) * (0.85 + 0.15 * presence), m_Present.Kind,
               Mixed(Colours().ground, HoldShapes::Tint(m_Present.Tint, Dark()), presence));
    if (!pressed) return;
    painter.save();
    painter.setOpacity(presence);
    Marks::DrawRight(painter, {Stage.right() - 32, Stage.top() + 32}, 40);
    painter.restore();
}

// A shape and a sentence: what to hold back for, or what would have been right.
void HoldArea::PaintVerdict(QPainter &painter) const
{
    const QPointF centre(Stage.center().x(), Stage.top() + 82);
    const bool isIntro = m_Part == Part::Intro;
    const bool isStop = isIntro || m_WasStop;
    if (isStop) {
        painter.setBrush(Colours().well);
        painter.setPen(Stroke(Marks::WrongColour, 6));
        painter.drawPolygon(StopSign(centre, 68));
    }
    PaintShape(painter, centre, isStop ? 78 : 106, isIntro ? m_Rules->StopKind() : m_Present.Kind,
               isIntro ? Colours().text : HoldShapes::Tint(m_Present.Tint, Dark()));
    if (!isIntro) Marks::DrawWrong(painter, {Stage.right() - 34, Stage.top() + 34}, 42);
    painter.setPen(Colours().text);
    WriteLine(painter, {Stage.left() + 20, Stage.bottom() - 54, Stage.width() - 40, 32}, Qt::AlignCenter,
              Word(isIntro  ? "Intro"
                   : isStop ? "Slip"
                            : "Missed"),
              23, QFont::Bold);
    Countdown::DrawBar(painter, {Stage.left() + 60, Stage.bottom() - 18, Stage.width() - 120, 6}, 1 - m_Time.Phase(),
                       Colours());
}

void HoldArea::PaintButton(QPainter &painter) const
{
    const bool isDown = m_PressedAt >= 0 && Phase(m_PressedAt, PressTime) < 1;
    const bool isLive = m_Part == Part::Shown && Running();
    const bool wanted = m_Part == Part::Told && !m_WasStop; // this is where the press was missing
    const QRectF face = isDown ? Button.translated(0, 3) : Button;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, isDown ? 12 : 34));
    painter.drawRoundedRect(Button.translated(0, 5), Corner, Corner);
    QColor ground = isLive || wanted ? Colours().accent : Colours().key;
    if (isLive && (m_IsOver || isDown)) ground = isDown ? ground.darker(112) : ground.lighter(108);
    painter.setBrush(ground);
    painter.setPen(Stroke(wanted   ? Colours().text
                          : isLive ? ground.darker(125)
                                   : Colours().keyEdge,
                          wanted ? 3.5 : 2));
    painter.drawRoundedRect(face, Corner, Corner);

    const QColor ink = isLive || wanted ? Colours().accentText : Colours().faint;
    painter.setPen(ink);
    WriteLine(painter, face.adjusted(20, 8, -20, -24), Qt::AlignCenter, Word("Press"), 25, QFont::Bold);
    // the space bar, as it lies before the player
    const QPointF middle(face.center().x(), face.bottom() - 19);
    painter.setPen(Stroke(ink, 2.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{middle + QPointF(-46, -4), middle + QPointF(-46, 5), middle + QPointF(46, 5),
                                   middle + QPointF(46, -4)});
}
