#include "screens/SaveFile.h"

#include "platform/Files.h"
#include "shell/program/Trapped.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <QRegularExpression>
#include <QStandardPaths>

namespace
{
constexpr int LongestName = 80; // characters of a proposed file name

// Where the last file went, else where people keep what they have written.
QString &LastFolder()
{
    static QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return folder;
}

QString FileNameOf(const Savable &item)
{
    static const QRegularExpression unwanted(QStringLiteral("[\\x00-\\x1f\\x7f<>:\"/\\\\|?*]"));
    const QString name = QString(item.Name).replace(unwanted, QStringLiteral("_")).left(LongestName).trimmed();
    return name + u'.' + item.Ending;
}

QString AskForPath(const Savable &item, QWidget *owner)
{
    QFileDialog dialog(owner, item.Caption, LastFolder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(item.Kind, item.Ending));
    dialog.setDefaultSuffix(item.Ending);
    dialog.selectFile(FileNameOf(item));
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}
} // namespace

void Save(const Savable &Item, QWidget *Owner)
{
    const QPointer<QWidget> owner = Owner; // may go while the dialog is open
    const QString path = AskForPath(Item, Owner);
    if (path.isEmpty() || !owner) return;
    Trapped(
        QStringLiteral("Error saving file."),
        [&] {
            ReplaceFile(path, Item.Bytes());
            LastFolder() = QFileInfo(path).path();
        },
        Owner);
}

void ShowSaveMenu(QWidget *Control, const QPoint &At, const QList<Savable> &Items)
{
    if (QApplication::activePopupWidget() != nullptr) return;
    auto *menu = new QMenu(Control);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(QStringLiteral("SaveMenu"));
    for (const Savable &item : Items) {
        QAction *row = menu->addAction(item.Caption);
        row->setEnabled(static_cast<bool>(item.Bytes));
        QObject::connect(row, &QAction::triggered, Control, [item, Control] { Save(item, Control->window()); });
    }
    menu->popup(Control->mapToGlobal(At));
}

bool AsksForMenu(const QKeyEvent &Event)
{
    return Event.key() == Qt::Key_Menu ||
           (Event.key() == Qt::Key_F10 && Event.modifiers().testFlag(Qt::ShiftModifier));
}
