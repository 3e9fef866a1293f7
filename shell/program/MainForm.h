// The main window, as screens, dialogs and the service object know it: no more than they need.
#pragma once

#include <QImage>

#include <cstdint>
#include <memory>

class CGame;
class CSkin;
class QWidget;

class MainForm
{
public:
    /// Shows the instructions of a game, and remembers it and the level for StartGame.
    /// Failure: trapped, "Error showing instructions: " and the game's name.
    virtual void Instructions(const std::shared_ptr<CGame> &Game, std::int32_t Level) = 0;
    /// Starts a game at a level. Failure: trapped, "Error starting game: " and the game's name.
    virtual void PlayGame(const std::shared_ptr<CGame> &Game, std::int32_t Level) = 0;
    /// Starts a game; an empty one means the present game at the level already set. Result: true when it runs.
    /// Failure: trapped, "Error loading game: " and the game's name.
    virtual void StartGame(const std::shared_ptr<CGame> &Game, std::int32_t Level, bool &Result) = 0;

    /// Takes the outline, the layout and the pictures of a skin. Failure: passed on.
    virtual void SetSkin(const std::shared_ptr<CSkin> &Skin) = 0;

    /// The background of the game area, of its full size: what screens copy under themselves, from their own left and
    /// top in the game area.
    virtual QImage GameBackground() const = 0;
    /// The window itself: owner of dialogs.
    virtual QWidget *Window() = 0;

protected:
    ~MainForm() = default;
};
