// Hold Back as the player sees it: the stop shape is shown, then the shapes come at their beat, and a mistake is told
// before the next one. Each of these passes in time that is seen, which stands still while the game is hidden.
#pragma once

#include "HoldRules.h"
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"
#include "sdk/author/SeenTime.h"

#include <memory>

class HoldArea final : public GameCanvas
{
public:
    explicit HoldArea(QWidget *Container);

protected:
    void Started(int Level) override;
    void Paint(QPainter &Painter) override;
    int Points() const override { return m_Rules ? m_Rules->Set().Points() : 0; }
    void KeyPressed(int Key) override;
    void Pressed(QPointF Place) override;
    void PointedAt(QPointF Place) override;
    void Ticked() override;
    void TimeWasUp() override;
    void showEvent(QShowEvent *event) override;

private:
    enum class Part { Intro, Shown, Told, TimeUp };

    void Begin(Part part);
    void Answer();
    void Close();
    QString Line() const;
    QString InWords(int kind) const;
    /// How large and how clear the present shape is, from 0 to 1.
    double Presence() const;

    void PaintSet(QPainter &painter) const;
    void PaintStop(QPainter &painter) const;
    void PaintOthers(QPainter &painter) const;
    void PaintStage(QPainter &painter) const;
    void PaintVerdict(QPainter &painter) const;
    void PaintButton(QPainter &painter) const;
    void PaintShape(QPainter &painter, QPointF centre, double size, int kind, const QColor &colour) const;
    const GameColours &Colours() const { return GameColours::For(Dark()); }

    std::unique_ptr<HoldRules> m_Rules;
    Part m_Part = Part::Intro;
    SeenTime m_Time;
    HoldRules::Item m_Present{}; // the shape in view, also when it has been closed
    bool m_WasStop = false;      // of the shape that is told
    bool m_IsOver = false;       // the pointer is where a click presses
    qint64 m_PressedAt = -1;     // [ms]
    qint64 m_HeldAt = -1;        // [ms]
};
