// A game as one drawing that scales: most games need no more than this class and their rules.
//
// It answers the verbs, lays down the skin's background, and draws in units of a design size that is fitted into
// whatever place the game has. Its clock stands still while the game is hidden, and so do its animations.
#pragma once

#include "sdk/CGameArea.h"
#include "sdk/author/ShownClock.h"

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRectF>
#include <QTimer>

#include <algorithm>
#include <cstdint>

class GameCanvas : public CGameArea
{
public:
    GameCanvas(QSizeF DesignSize, QWidget *Container);

    void SetNoggleFrameWork(CNoggleFramework *Framework) final { m_Framework = Framework; }
    QVariant Message(const QString &Cmd, QVariant &Info1, QVariant &Info2) final;

    /// A font of that height in design units.
    static QFont Font(double Size, QFont::Weight Weight = QFont::Normal);
    /// One line in the box, smaller where it does not fit.
    static void WriteLine(QPainter &Painter, const QRectF &Box, int Alignment, const QString &Text, double Size,
                          QFont::Weight Weight = QFont::Normal);

protected:
    // What a game fills in. Keys and presses come only while the session runs and the game is seen.
    virtual void Started(int Level) = 0;
    virtual void Paint(QPainter &Painter) = 0; // in design units, over the background
    virtual int Points() const = 0;
    virtual void KeyPressed(int) {}    // a virtual-key number
    virtual void Pressed(QPointF) {}   // left button, in design units
    virtual void PointedAt(QPointF) {} // the pointer moved, also without a button
    virtual void Released() {}
    virtual void Ticked() {} // before each picture of an animation
    virtual void TimeWasUp() {}

    // What it may use.
    /// From "start" to "unload".
    CNoggleFramework &Framework() const { return *m_Framework; }
    QString Word(const char *Name) const;
    /// Where the board of a start comes from: another one each time, or the number that the settings file gives under
    /// "seed" in "config", so that an author can play one board again and again.
    std::uint32_t Seed() const;
    /// A time of the game's own, from "start" on in so many percent as the settings file gives under "pace" in
    /// "config", from 1 to 1000. So a player who needs longer gets it, and an author need not wait. [ms]
    int Paced(int Time) const { return std::max(1, qRound(Time * m_Pace)); }
    /// A line of words on the left, level and points on the right.
    void WriteFoot(QPainter &Painter, const QRectF &Box, const QString &Line, int Level) const;
    void Progress(int Percent) const;
    void Play(const char *Sound) const;
    /// What goes with the mark of a round: the sound "right" or "wrong", or "done" with the last one of a set.
    void PlayMark(bool Right, bool Last) const { Play(Last ? "done" : Right ? "right" : "wrong"); }
    /// Ends the session. Return at once and touch nothing: this game has been taken away.
    void EndGame();
    bool Running() const { return m_Running; }
    /// Draws anew, about 60 times a second, for so long as the game is seen. [ms]
    void Animate(int Duration);
    /// The same until further notice, when it is called before each picture, in Ticked.
    void AnimateOn() { Animate(250); }
    /// [ms] that the game has been seen
    qint64 Now() const { return m_Clock.Elapsed(); }
    /// From 0 to 1 between a moment and a duration later.
    double Phase(qint64 Since, int Duration) const;
    /// Whether the background is dark.
    bool Dark() const { return m_Dark; }
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    double Pace() const;
    void LookAtBackground();
    void Tick();
    double Scale() const;
    QPointF Origin() const;
    QPointF ToDesign(QPointF place) const { return (place - Origin()) / Scale(); }

    QSizeF m_Design;
    CNoggleFramework *m_Framework = nullptr;
    ShownClock m_Clock;
    QTimer m_Frames{this};
    qint64 m_AnimateUntil = 0;
    double m_Pace = 1;
    bool m_Running = false;
    bool m_Dark = false;
};
