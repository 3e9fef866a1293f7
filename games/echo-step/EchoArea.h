// Echo Step as the player sees it: steps go over the stones at their beat, and what was wrong with one of them is
// told before the next. Each of these passes in time that is seen, which stands still while the game is hidden.
#pragma once

#include "EchoPad.h"
#include "EchoPond.h"
#include "EchoRules.h"
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"
#include "sdk/author/SeenTime.h"

#include <memory>
#include <optional>

class EchoArea final : public GameCanvas
{
public:
    explicit EchoArea(QWidget *Container);

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
    enum class Part { LeadIn, Step, Told, TimeUp };

    void Begin(Part part);
    void Answer(EchoRules::Trait trait);
    void Close();
    QString Line() const;
    QString Verdict() const;
    QString InWords() const;
    QString Distance() const;
    const EchoRules::Step &Present() const { return m_Rules->Steps()[static_cast<std::size_t>(m_Rules->Index())]; }
    QString LetterOf(const EchoRules::Step &step) const;
    QRectF ButtonBox(EchoRules::Trait trait) const;
    std::optional<EchoRules::Trait> ButtonAt(QPointF place) const;

    void PaintPond(QPainter &painter) const;
    void PaintDistance(QPainter &painter) const;
    void PaintButton(QPainter &painter, EchoRules::Trait trait) const;
    const GameColours &Colours() const { return GameColours::For(Dark()); }

    EchoPond m_Pond;
    std::unique_ptr<EchoRules> m_Rules;
    Part m_Part = Part::LeadIn;
    SeenTime m_Time;
    qint64 m_MarkedAt = -1;                 // [ms] when the last round was marked
    std::optional<EchoRules::Trait> m_Over; // the button under the pointer
};
