#include "EchoArea.h"

#include "sdk/author/Marks.h"

#include <QPainter>

#include <algorithm>
#include <string>

namespace
{
constexpr QSizeF Design{620, 420};
constexpr QRectF SetRow{20, 14, 580, 26};
constexpr QRectF Pond{20, 52, 366, 312};
constexpr QRectF DistanceCard{404, 52, 196, 110};
constexpr QRectF Buttons{404, 178, 196, 184};
constexpr QRectF Foot{20, 374, 580, 34};
constexpr double Gap = 10; // between two buttons

constexpr int LeadIn = 1500;     // [ms] before the first step
constexpr int ToldTime = 1800;   // [ms]
constexpr int MarkTime = 450;    // [ms]
constexpr double Arrival = 0.05; // of a step's time
constexpr double Leaving = 0.55;
constexpr double Gone = 0.65;
constexpr int Columns = 3;
constexpr int Enter = 13;
constexpr int Space = 32;
constexpr int Left = 37;
constexpr int Right = 39;
constexpr std::array Both{EchoRules::Place, EchoRules::Letter};
} // namespace

EchoArea::EchoArea(QWidget *Container) : GameCanvas(Design, Container), m_Pond(Pond) {}

void EchoArea::Started(int Level)
{
    m_Rules = std::make_unique<EchoRules>(Level, Seed());
    m_MarkedAt = -1;
    Begin(Part::LeadIn);
}

void EchoArea::Begin(Part part)
{
    m_Part = part;
    if (part == Part::LeadIn) {
        m_Time.Start(Now(), Paced(LeadIn));
        setAccessibleName(Line());
        setAccessibleDescription({});
    } else if (part == Part::Step) {
        m_Time.Start(Now(), Paced(m_Rules->Beat()));
        setAccessibleName(InWords());
        Play(("step" + std::to_string(Present()[EchoRules::Place])).c_str());
    } else {
        m_Time.Start(Now(), Paced(ToldTime));
        setAccessibleDescription(Verdict());
    }
    AnimateOn();
    update();
}

void EchoArea::Ticked()
{
    if (!m_Rules || !Running()) return;
    AnimateOn();
    m_Time.Pass(Now());
    if (!m_Time.IsOver()) return;
    if (m_Part == Part::Step) return Close();
    if (m_Part == Part::Told) m_Rules->Next();
    Begin(Part::Step);
}

// Who comes back from a pause sees the step once more, for its whole time.
void EchoArea::showEvent(QShowEvent *event)
{
    GameCanvas::showEvent(event);
    if (m_Rules && m_Part == Part::Step) m_Time.Start(Now(), m_Time.Duration());
}

void EchoArea::KeyPressed(int Key)
{
    if (!m_Rules) return;
    const bool isOnly = !m_Rules->HasLetters();
    if (Key == Left || (isOnly && (Key == Enter || Key == Space))) Answer(EchoRules::Place);
    if (Key == Right && !isOnly) Answer(EchoRules::Letter);
}

void EchoArea::Pressed(QPointF Place)
{
    if (const auto trait = ButtonAt(Place)) Answer(*trait);
}

void EchoArea::PointedAt(QPointF Place)
{
    const auto over = ButtonAt(Place);
    if (over == m_Over) return;
    m_Over = over;
    setCursor(over ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

// Marked at once; what was right is told when the step is over, since its other trait may still be pressed.
void EchoArea::Answer(EchoRules::Trait trait)
{
    if (m_Part != Part::Step || !m_Rules->Press(trait)) return;
    const bool right = m_Rules->IsEcho(trait);
    Play(right ? "right" : "wrong");
    setAccessibleDescription(Word(right ? "Right" : "Wrong"));
    update();
}

// The round counts before anything is told of it.
void EchoArea::Close()
{
    const bool right = m_Rules->IsRight();
    const bool missed = std::ranges::any_of(
        Both, [this](EchoRules::Trait trait) { return m_Rules->IsEcho(trait) && !m_Rules->IsPressed(trait); });
    m_Rules->Close();
    const bool over = m_Rules->Set().Over();
    if (m_Rules->IsJudged()) {
        m_MarkedAt = Now();
        Progress(m_Rules->Set().Progress());
    }
    if (over || missed) Play(over ? "done" : "wrong");
    if (!right) {
        Begin(Part::Told);
    } else if (!over) {
        m_Rules->Next();
        Begin(Part::Step);
    }
    if (over) EndGame();
}

void EchoArea::TimeWasUp()
{
    m_Part = Part::TimeUp;
    setAccessibleDescription(Word("TimeUp"));
}

QString EchoArea::Distance() const
{
    return m_Rules->Back() == 1 ? Word("OneAgo") : Word("StepsAgo").arg(m_Rules->Back());
}

QString EchoArea::Line() const
{
    if (m_Part == Part::TimeUp) return Word("TimeUp");
    if (m_Part == Part::Told) return Verdict();
    if (!m_Rules->IsJudged()) return Word("Keep");
    return Word(m_Rules->HasLetters() ? "HintBoth" : "Hint").arg(Distance());
}

QString EchoArea::Verdict() const
{
    QStringList told;
    if (!m_Rules->IsRight(EchoRules::Place))
        told += Word(m_Rules->IsEcho(EchoRules::Place) ? "PlaceSame" : "PlaceOther");
    if (!m_Rules->IsRight(EchoRules::Letter))
        told += Word(m_Rules->IsEcho(EchoRules::Letter) ? "LetterSame" : "LetterOther");
    return told.join(QStringLiteral(". "));
}

// Its number stands first, so that a step to the same place is told, too.
QString EchoArea::InWords() const
{
    const int place = Present()[EchoRules::Place];
    const QString step = QStringLiteral("%1: %2 %3, %4 %5")
                             .arg(m_Rules->Index() + 1)
                             .arg(Word("Row"))
                             .arg(place / Columns + 1)
                             .arg(Word("Column"))
                             .arg(place % Columns + 1);
    return m_Rules->HasLetters() ? step + QStringLiteral(", ") + LetterOf(Present()) : step;
}

QString EchoArea::LetterOf(const EchoRules::Step &step) const
{
    if (!m_Rules->HasLetters()) return {};
    return QChar::fromLatin1(EchoRules::Letters.at(static_cast<std::size_t>(step[EchoRules::Letter])));
}

QRectF EchoArea::ButtonBox(EchoRules::Trait trait) const
{
    if (!m_Rules->HasLetters()) return trait == EchoRules::Place ? Buttons : QRectF();
    const double width = (Buttons.width() - Gap) / 2;
    const double left = Buttons.left() + (trait == EchoRules::Place ? 0 : width + Gap);
    return {left, Buttons.top(), width, Buttons.height()};
}

std::optional<EchoRules::Trait> EchoArea::ButtonAt(QPointF place) const
{
    if (!m_Rules) return {};
    for (const EchoRules::Trait trait : Both)
        if (ButtonBox(trait).contains(place)) return trait;
    return {};
}

void EchoArea::Paint(QPainter &Painter)
{
    if (!m_Rules) return;
    const double growth = m_MarkedAt < 0 ? 1 : 1.35 - 0.35 * Phase(m_MarkedAt, MarkTime);
    Marks::DrawSet(Painter, SetRow, m_Rules->Set().Count(), m_Rules->Set().Marks(), growth, Running(), Colours());
    PaintPond(Painter);
    PaintDistance(Painter);
    PaintButton(Painter, EchoRules::Place);
    if (m_Rules->HasLetters()) PaintButton(Painter, EchoRules::Letter);
    WriteFoot(Painter, Foot, Line(), m_Rules->Level());
}

void EchoArea::PaintPond(QPainter &painter) const
{
    const bool told = m_Part == Part::Told;
    m_Pond.Draw(painter, Dark(), told ? Marks::WrongColour : Colours().edge, told ? 4 : 1.5);
    const int place = Present()[EchoRules::Place];
    if (told) {
        m_Pond.DrawStep(painter, place, LetterOf(Present()), 1, 0, Colours());
        std::vector<int> trail;
        for (int i = m_Rules->Index() - m_Rules->Back(); i <= m_Rules->Index(); ++i)
            trail.push_back(m_Rules->Steps()[static_cast<std::size_t>(i)][EchoRules::Place]);
        m_Pond.DrawTrail(painter, trail, Colours());
        const QRectF stone = m_Pond.Stone(place);
        Marks::DrawWrong(painter, {stone.right() - 8, stone.bottom() - 8}, 32);
    } else if (m_Part == Part::Step) {
        const double phase = m_Time.Phase();
        const double glow = phase < Arrival   ? phase / Arrival
                            : phase > Leaving ? std::max(0.0, (Gone - phase) / (Gone - Leaving))
                                              : 1.0;
        if (phase < Gone) m_Pond.DrawStep(painter, place, LetterOf(Present()), glow, phase / Gone, Colours());
    }
}

void EchoArea::PaintDistance(QPainter &painter) const
{
    std::vector<QString> letters;
    if (m_Part == Part::Told && m_Rules->HasLetters()) {
        for (int i = m_Rules->Index() - m_Rules->Back(); i <= m_Rules->Index(); ++i)
            letters.push_back(LetterOf(m_Rules->Steps()[static_cast<std::size_t>(i)]));
    }
    EchoPad::DrawDistance(painter, DistanceCard, m_Rules->Back(), letters, Distance(), Colours());
}

void EchoArea::PaintButton(QPainter &painter, EchoRules::Trait trait) const
{
    const bool isOnly = !m_Rules->HasLetters();
    const bool told = m_Part == Part::Told;
    const bool pressed = m_Rules->IsPressed(trait);
    EchoPad::Button button;
    button.Box = ButtonBox(trait);
    button.Caption = Word(isOnly ? "Same" : trait == EchoRules::Place ? "Place" : "Letter");
    button.Trait = trait;
    button.IsOnly = isOnly;
    button.IsLive = m_Part == Part::Step && m_Rules->IsJudged() && Running();
    button.IsOver = m_Over == trait;
    button.IsDown = pressed && (told || m_Part == Part::Step);
    button.IsWanted = told && m_Rules->IsEcho(trait) && !pressed;
    if (button.IsDown) button.Mark = m_Rules->IsEcho(trait);
    if (button.IsWanted) button.Mark = false;
    EchoPad::DrawButton(painter, button, Colours());
}
