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

class Stage
{
public:
    /// Loads and shows the game; Message("start") is left to the test. A Folder ends in a separator.
    Stage(const QString &ClassName, const QString &Folder, QSize Size = {632, 440});
    ~Stage();
    Stage(const Stage &) = delete;
    Stage &operator=(const Stage &) = delete;

    void Start(std::int32_t Level) { Game->Message(QStringLiteral("start"), Level); }
    void Key(int Code) { Game->Message(QStringLiteral("keypress"), QVariant::fromValue(static_cast<short>(Code))); }
    /// The digits of a number and Enter.
    void Type(int Number);
    int Score() { return Game->Message(QStringLiteral("score")).toInt(); }
    /// A left click on a child of the game with that accessible name, or at a place of the game.
    void Click(QPoint Place);
    void Resize(QSize Size);
    QImage Picture();
    /// A light ground and the game's default words, or a dark one and German.
    void Dress(bool Dark) const;
    /// Each of the words is there in both languages.
    void ExpectWords(std::initializer_list<const char *> Names) const;
    /// Writes the picture where NOGGLE_PICTURES points; nothing without it.
    void Keep(const QString &Name);
    /// Lets the event loop run, as the program's own does.
    static void Turn(int Milliseconds);
    /// Lets it run until something is so; false if that does not come in a minute.
    static bool Until(const std::function<bool()> &Reached);
    /// Lets it run until nothing in the game moves: no timer of its own is on.
    bool UntilStill() const;

    QWidget Container;
    std::shared_ptr<PlayedFramework> Framework;
    std::shared_ptr<HostedGame> Game;
};
