#include "sdk/author/ChoiceCanvas.h"

#include "sdk/author/Marks.h"

#include <QPainter>

namespace
{
constexpr double NewestGrowth = 0.3; // by which a new mark is larger than one at rest
} // namespace

ChoiceCanvas::ChoiceCanvas(int RightTime, int WrongTime, QWidget *Container)
    : GameCanvas(Design, Container), m_RightTime(RightTime), m_WrongTime(WrongTime)
{}

void ChoiceCanvas::Started(int Level)
{
    m_TimeUp = false;
    Begin(Level, Seed());
    m_Begun = true;
    Show();
}

void ChoiceCanvas::Show()
{
    m_Chosen.reset();
    m_Telling.Stop();
    m_Choices.SetPlaces(Places());
    m_ShownAt = Now();
    setAccessibleName(ItemInWords());
    setAccessibleDescription(Line());
    ItemShown();
    update();
}

double ChoiceCanvas::Telling() const { return m_Chosen ? 1 - m_Telling.Left(Now()) : 0; }

void ChoiceCanvas::KeyPressed(int Key)
{
    if (!m_Begun || m_Chosen) return;
    const auto choice = ChoiceOf(Key);
    update();
    if (choice) Choose(*choice);
}

void ChoiceCanvas::Pressed(QPointF Place)
{
    if (!m_Begun || m_Chosen) return;
    m_Choices.HideRing();
    if (const auto choice = m_Choices.At(Place)) Choose(*choice);
}

void ChoiceCanvas::PointedAt(QPointF Place)
{
    if (!m_Choices.PointAt(Place)) return;
    setCursor(m_Choices.Over() && Running() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void ChoiceCanvas::Choose(int choice)
{
    const bool right = Judge(choice);
    const int time = Paced(right ? m_RightTime : m_WrongTime);
    m_Chosen = choice;
    m_Telling.Start(Now(), time);
    Animate(time);
    setAccessibleDescription(Word(right ? "Right" : "Wrong"));
    Progress(Set().Progress());
    PlayMark(right, Set().Over());
    update();
    if (Set().Over()) EndGame();
}

void ChoiceCanvas::Ticked()
{
    if (!m_Chosen || !Running() || !m_Telling.IsOver(Now())) return;
    Next();
    Show();
}

void ChoiceCanvas::TimeWasUp()
{
    m_TimeUp = true;
    setAccessibleDescription(Word("TimeUp"));
}

void ChoiceCanvas::Paint(QPainter &Painter)
{
    if (!m_Begun) return;
    Marks::DrawSet(Painter, SetRow, Set().Count(), Set().Marks(), 1 + NewestGrowth * (m_Chosen ? 1 - Telling() : 0),
                   Running(), Colours());
    PaintTable(Painter);
    m_Choices.DrawRing(Painter, Colours());
    PaintOverRing(Painter);
    WriteFoot(Painter, Foot, m_TimeUp ? Word("TimeUp") : Line(), Level());
}
