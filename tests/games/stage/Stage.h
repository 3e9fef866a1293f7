// A real game, loaded from its folder into a window of its own, and played as a person would.
#pragma once

#include "shell/GameHost.h"
#include "tests/games/stage/PlayedFramework.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <initializer_list>

/// The delivered game's folder in a copy whose board follows from that seed; the copy goes with the program. Both
/// folders end in a separator.
QString WithSeed(const QString &Folder, std::uint32_t Seed);

/// A pace, in percent, for who need not see how things move.
constexpr int Quick = 4;

/// How a game is looked at for a picture.
struct View
{
    const char *Name;
    QSize Size;
    int Level;
    bool Dark;
};

class Stage
{
public:
    /// Loads and shows the game; Message("start") is left to the test. A Folder ends in a separator. Without a class
    /// name it is the one that the settings file names.
    Stage(const QString &ClassName, const QString &Folder, QSize Size = {632, 440});
    explicit Stage(const QString &Folder, QSize Size = {632, 440});
    ~Stage();
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    /// The pace of the game from its next start on, in percent of its usual times.
    void SetPace(int Percent) const { Framework->Pace = QString::number(Percent); }
    void Start(std::int32_t Level) { Game->Message(QStringLiteral("start"), Level); }
    void Key(int Code) { Game->Message(QStringLiteral("keypress"), QVariant::fromValue(static_cast<short>(Code))); }
    /// The digits of a number and Enter.
    void Type(int Number);
    int Score() { return Game->Message(QStringLiteral("score")).toInt(); }
    /// A left click at a place of the game.
    void Click(QPoint Place);
    /// A place of the design, 620 by 420, as it lies in the game now.
    QPoint At(QPointF Place) const;
    void Resize(QSize Size);
    QImage Picture();

    /// What a screen reader tells.
    QString Name() const { return Game->Control()->accessibleName(); }
    QString Description() const { return Game->Control()->accessibleDescription(); }
    QString Word(const char *Name) const { return Framework->LangString(QLatin1String(Name)); }
    /// How often a sound was played; any sound for an empty name.
    int Sounds(const char *Name) const
    {
        return Framework->Count(QStringLiteral("playsound ") + QLatin1String(Name));
    }
    /// How often a call with that start was made.
    int Count(const char *Call) const { return Framework->Count(QLatin1String(Call)); }
    bool IsOver() const { return Count("gameover") > 0; }
    /// Unloads the game inside "gameover", as the shell does, after that.
    void UnloadAtTheEnd(const std::function<void()> &First);
    /// A light ground and the game's default words, or a dark one and German.
    void Dress(bool Dark) const;
    void Show(const View &Wanted)
    {
        Dress(Wanted.Dark);
        Resize(Wanted.Size);
    }
    /// Each of the words is there in both languages.
    void ExpectWords(std::initializer_list<const char *> Names) const;
    /// Whether somebody looks at the pictures: NOGGLE_PICTURES names the folder for them.
    static bool IsSeen();
    /// Writes the picture there; nothing without it.
    void Keep(const QString &Name);
    /// Lets what moves come to rest, for who looks at it; nothing without.
    static void Settle(int Milliseconds)
    {
        if (IsSeen()) Turn(Milliseconds);
    }
    static constexpr int Patience = 60000; // [ms]
    /// Lets the event loop run, as the program's own does.
    static void Turn(int Milliseconds);
    /// Lets it run until something is so; false if that does not come in a minute.
    static bool Until(const std::function<bool()> &Reached);
    /// Whether a timer of the game's own is on.
    bool Moves() const;
    bool UntilStill() const;

    QWidget Container;
    std::shared_ptr<PlayedFramework> Framework;
    std::shared_ptr<HostedGame> Game;
};
