// Where games wait between being taken away and being deleted.
//
// A game may be taken away inside its own handler: from "gameover", or by the clock while a message box or a dialog
// of the game is open, several event loops deep. Deleting it later in the usual way is not enough, since a nested
// loop deletes what was given up inside it while the handler below still runs. So a game is deleted only when no verb
// and no framework call of it is under way, and the loop it was made in, or one further out, is about to wait.
#pragma once

#include <memory>

class QWidget;
struct GameTie;

/// Hides the game and its windows, takes keyboard and mouse from it, and deletes it as told above.
/// EventLoop is the depth of nested loops in which it was made; made outside of any, it goes as if in the first.
/// Failure: none; what the game's own handlers throw meanwhile is ignored.
void BuryGame(QWidget *Control, const std::shared_ptr<GameTie> &Tie, int EventLoop);

/// How many wait.
int BuriedGames();
