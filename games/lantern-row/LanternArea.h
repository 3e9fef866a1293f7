// Lantern Row as the player sees it. A round is watched, then played, then told; the lanterns and what is told pass
// in time that is seen, which stands still while the game is hidden.
#pragma once

#include "LanternRules.h"
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"
#include "sdk/author/SeenTime.h"

#include <memory>
#include <optional>

class LanternArea final : public GameCanvas
{
public:
    explicit LanternArea(QWidget *Container);

protected:
    void Started(int Level) override;
    void Paint(QPainter &Painter) override;
    int Points() const override { return m_Rules ? m_Rules->Points() : 0; }
    void KeyPressed(int Key) override;
    void Pressed(QPointF Place) override;
    void PointedAt(QPointF Place) override;
    void Ticked() override;
    void TimeWasUp() override;

private:
    enum class Part { Watch, Play, Told, TimeUp };

    void Begin(Part part);
    void Choose(int lantern);
    void MoveRing(int columns, int rows);
    void Light(int lantern);
    QString Line() const;
    QRectF PlaceOf(int lantern) const;
    std::optional<int> LanternAt(QPointF place) const;
    /// How brightly a lantern burns, from 0 to 1.
    double Glow(int lantern) const;

    void PaintCords(QPainter &painter) const;
    void PaintLantern(QPainter &painter, int lantern) const;
    void PaintBody(QPainter &painter, double half, bool isUnderPointer, double glow) const;
    void PaintOrder(QPainter &painter) const;
    const GameColours &Colours() const { return GameColours::For(Dark()); }

    std::unique_ptr<LanternRules> m_Rules;
    Part m_Part = Part::Watch;
    qint64 m_Since = 0;      // [ms] when the part began
    SeenTime m_Time;         // to the next lantern while watching, and of what is told
    std::size_t m_Shown = 0; // lanterns lit so far while watching
    int m_Lit = -1;          // the one lit last, by the game or the player
    qint64 m_LitAt = -1;     // [ms]
    int m_Ring = 0;          // where the keyboard is
    bool m_RingSeen = false; // shown once the keyboard is used
    std::optional<int> m_Over;
    std::vector<bool> m_Marks;
};
