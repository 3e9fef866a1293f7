// A game of rounds of one kind: an item is shown, one of several places is chosen, the answer is told for a while,
// and the next item comes. The game fills in its rules and its drawing.
//
// The row of the set stands at the top, the foot at the bottom with a line of words, the level and the points; the
// game draws on the Table between them. No key and no click counts while an answer is told.
#pragma once

#include "sdk/author/Choices.h"
#include "sdk/author/Countdown.h"
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"
#include "sdk/author/Rounds.h"

#include <cstdint>

class ChoiceCanvas : public GameCanvas
{
public:
    /// For how long a right and a wrong answer are told. [ms]
    ChoiceCanvas(int RightTime, int WrongTime, QWidget *Container);

protected:
    static constexpr QSizeF Design{620, 420};
    static constexpr QRectF SetRow{20, 14, 580, 26};
    static constexpr QRectF Table{20, 50, 580, 316};
    static constexpr QRectF Foot{20, 374, 580, 34};

    // What a game fills in.
    virtual void Begin(int Level, std::uint32_t Seed) = 0;
    virtual int Level() const = 0;
    virtual const Rounds &Set() const = 0;
    virtual std::vector<QRectF> Places() const = 0; // of the present item's choices
    virtual bool Judge(int Choice) = 0;             // adds the round to the set; the item stays until Next
    virtual void Next() = 0;                        // the next item; not called after the last one
    virtual void PaintTable(QPainter &Painter) = 0;
    /// What the ring of the keyboard must not hide, numbers for instance.
    virtual void PaintOverRing(QPainter &) {}
    /// The item as a screen reader has it.
    virtual QString ItemInWords() const = 0;
    /// The line at the foot; the word "Hint" unless told otherwise.
    virtual QString Line() const { return Word("Hint"); }
    /// What a virtual-key number chooses, or empty; as Choices tells unless told otherwise.
    virtual std::optional<int> ChoiceOf(int Key) { return m_Choices.Key(Key); }
    /// The item is on the screen from now on.
    virtual void ItemShown() {}

    // What it may use.
    const GameColours &Colours() const { return GameColours::For(Dark()); }
    const Choices &Offered() const { return m_Choices; }
    /// The choice made, while the answer is told, and whether it was right.
    std::optional<int> Chosen() const { return m_Chosen; }
    bool WasRight() const { return Set().Done() > 0 && Set().Marks().back(); }
    /// From 0 to 1 through the time for which the answer is told.
    double Telling() const;
    bool TimeIsUp() const { return m_TimeUp; }
    /// [ms] since the item was shown
    qint64 Thought() const { return Now() - m_ShownAt; }

    void Started(int Level) final;
    void Paint(QPainter &Painter) final;
    int Points() const final { return m_Begun ? Set().Points() : 0; }
    void KeyPressed(int Key) final;
    void Pressed(QPointF Place) final;
    void PointedAt(QPointF Place) final;
    void Ticked() override;
    void TimeWasUp() override;

private:
    void Show();
    void Choose(int choice);

    int m_RightTime;
    int m_WrongTime;
    Choices m_Choices;
    Countdown m_Telling;
    std::optional<int> m_Chosen;
    qint64 m_ShownAt = 0;
    bool m_Begun = false;
    bool m_TimeUp = false;
};
