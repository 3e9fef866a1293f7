// The pond of Echo Step: nine stones in the water, the step that lights one of them, and the trail of the last steps.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <vector>

class QPainter;
struct GameColours;

class EchoPond
{
public:
    explicit EchoPond(const QRectF &Place) : m_Place(Place) {}

    QRectF Stone(int Place) const;

    /// Water and stones; after a mistake the edge tells so.
    void Draw(QPainter &Painter, bool Dark, const QColor &Edge, double EdgeWidth) const;
    /// The step on its stone: Glow from 0 to 1 is how clear it is, Spread from 0 to 1 how far its waves have gone.
    void DrawStep(QPainter &Painter, int Place, const QString &Letter, double Glow, double Spread,
                  const GameColours &Colours) const;
    /// The places of the last steps, the newest one last, each with how many steps ago it was; the first one of them,
    /// which is the one to compare to, stands out.
    void DrawTrail(QPainter &Painter, const std::vector<int> &Places, const GameColours &Colours) const;

private:
    QRectF m_Place;
};
