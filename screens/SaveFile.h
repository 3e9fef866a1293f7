// What a screen offers to save: a menu over the control, a question for the place, and the file.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

class QKeyEvent;
class QPoint;
class QWidget;

struct Savable
{
    QString Caption; // of the menu's row and of the dialog: "Save table as CSV"
    QString Name;    // proposed, without the ending; what no file system takes is replaced
    QString Ending;  // "csv"
    QString Kind;    // of the file, in the dialog: "CSV table"
    /// The contents as they are when the place has been chosen; empty when there is nothing to save yet.
    std::function<QByteArray()> Bytes;
};

/// A menu of what can be saved, at a place of the control. One menu at a time: a second one does not open.
void ShowSaveMenu(QWidget *Control, const QPoint &At, const QList<Savable> &Items);
/// Asks where, and puts the file there in one step: it is there whole, or as it was before.
/// Failure: trapped, "Error saving file."
void Save(const Savable &Item, QWidget *Owner);
/// Whether a key asks for a menu: the Menu key, or Shift and F10.
bool AsksForMenu(const QKeyEvent &Event);
