// Tally Rush as the player sees it: the row of the set at the top, the task on a card, the number pad beside it.
//
// Digits count only as the verb "keypress", which comes whoever has the focus, and as clicks on the pad, which are
// turned into the same keys: nothing counts twice.
#pragma once

#include "TallyPad.h"
#include "TallyRules.h"
#include "sdk/author/Countdown.h"
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <memory>
#include <vector>

class TallyArea final : public GameCanvas
{
public:
    explicit TallyArea(QWidget *Container);

protected:
    void Started(int Level) override;
    void Paint(QPainter &Painter) override;
    int Points() const override { return m_Rules ? m_Rules->Points() : 0; }
    void KeyPressed(int Key) override;
    void Pressed(QPointF Place) override;
    void PointedAt(QPointF Place) override;
    void Released() override;
    void Ticked() override;
    void TimeWasUp() override;

private:
    void Digit(int digit);
    void Answer();
    void Tell();
    bool ShowsMistake() const { return m_Mistake.Runs(); }

    void PaintCard(QPainter &painter) const;
    void PaintTask(QPainter &painter) const;
    void PaintMistake(QPainter &painter) const;
    void PaintTimeUp(QPainter &painter) const;
    const GameColours &Colours() const { return GameColours::For(Dark()); }

    std::unique_ptr<TallyRules> m_Rules;
    TallyPad m_Pad;
    std::optional<int> m_Down;
    std::optional<int> m_Over;
    QString m_Typed;
    std::vector<bool> m_Marks; // right or wrong, of the tasks done
    TallyTask m_Last;          // the task answered last
    QString m_LastTyped;
    qint64 m_MarkedAt = -1; // [ms] on the game's clock; -1 for never
    Countdown m_Mistake;    // while the right result is shown
    bool m_TimeUp = false;
};
