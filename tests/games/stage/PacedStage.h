// A game that goes by a beat of its own, on the stage: with a known board, at a pace that does not keep a test
// waiting, and looked at between any two events, so that a player sees each thing it shows however busy the machine
// is.
#pragma once

#include "tests/games/stage/Stage.h"

#include <QPointF>

class PacedStage : public Stage
{
public:
    /// Plays a copy of the delivered game, in so many percent of its usual times.
    PacedStage(const QString &ClassName, const QString &Delivered, std::uint32_t Seed, int Percent);

    QString Name() const { return Game->Control()->accessibleName(); }
    QString Told() const { return Game->Control()->accessibleDescription(); }
    QString Word(const char *Name) const { return Framework->LangString(QLatin1String(Name)); }
    /// The number that the name begins with, which counts what was shown; 0 for another name.
    int Number() const { return Name().section(u':', 0, 0).toInt(); }
    /// How often a sound was played; any sound for an empty name.
    int Sounds(const char *Name) const
    {
        return Framework->Count(QStringLiteral("playsound ") + QLatin1String(Name));
    }
    bool IsOver() const { return Framework->Count(QStringLiteral("gameover")) > 0; }
    /// A place of the design, 620 by 420, as it lies in the game now.
    QPoint At(QPointF Place) const;

    /// Acts once for each number, until that is so; false if that does not come in a minute.
    bool PlayUntil(const std::function<void()> &Act, const std::function<bool()> &IsSo);
    /// The same without an act.
    bool Sees(const std::function<bool()> &IsSo);
    /// A light background and English words, or a dark one and German words.
    void GiveLook(bool Dark);
    /// Unloads the game inside "gameover", as the shell does, after that.
    void UnloadAtTheEnd(const std::function<void()> &First);
};
