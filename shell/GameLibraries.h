// The libraries that may hold a game's class: found by class name, judged by their metadata alone, loaded once.
//
// A class is looked for among the games registered in the program itself, then among the library files of the game's
// own folder, then among those of the folder "components" below the program's folder; files of one folder in the
// order of their names. A library that is no good is passed over while another one offers the class.
#pragma once

#include <QString>

#include <functional>

class CGameArea;
class QWidget;

using GameMaker = std::function<CGameArea *(QWidget *Container)>;

/// Lets a class of the program itself take part, as if a library offered it; an empty Maker takes it out again.
void RegisterGame(const QString &ClassName, GameMaker Maker);

/// What makes games of that class, by its exact name. The library is loaded here, and stays in memory to the end of
/// the process: queued deletes and registered types of a game point into it. GameFolder may be empty.
/// Failure: passed on, a sentence for the player that names the class: not found, damaged, of another version of the
/// program or of Qt.
GameMaker FindGameMaker(const QString &ClassName, const QString &GameFolder);
