// A stretch of the game's own time that runs out, told by a bar that gets shorter. It stands still while the game is
// hidden, since the game's clock does.
#pragma once

#include <QtGlobal>

class QPainter;
class QRectF;
struct GameColours;

class Countdown
{
public:
    /// From that moment on the game's clock, for so long. [ms]
    void Start(qint64 Now, int Duration)
    {
        m_Since = Now;
        m_Duration = Duration;
    }
    void Stop() { m_Duration = 0; }
    bool Runs() const { return m_Duration > 0; }
    bool IsOver(qint64 Now) const { return Runs() && Now - m_Since >= m_Duration; }
    /// What is left, from 1 to 0; 0 when it does not run.
    double Left(qint64 Now) const;
    /// Nothing when it does not run.
    void Draw(QPainter &Painter, const QRectF &Bar, qint64 Now, const GameColours &Colours) const;
    /// The bar alone, for what is left of any other time, from 1 to 0.
    static void DrawBar(QPainter &Painter, const QRectF &Bar, double Left, const GameColours &Colours);

private:
    qint64 m_Since = 0;
    int m_Duration = 0;
};
