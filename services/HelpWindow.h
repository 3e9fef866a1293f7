// The help in a window of our own, for desktops that have no viewer for it: contents on the left, the page on the
// right, links, the way back, and a search in the page. It is no dialog: everything else goes on beside it.
#pragma once

#include "platform/ChmFile.h"

#include <QWidget>

#include <memory>

class HelpPage;
class QLabel;
class QLineEdit;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    /// Shows the first page of a help file, in the one window that there is.
    /// Failure: passed on, when the file can't be read or names no first page; then no window opens.
    static void Open(const QString &File);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    HelpWindow();
    void Show(std::unique_ptr<ChmFile> Help);
    void ListContents();
    void MarkPage(const QUrl &Shown);
    void Search(bool Backwards);
    void Follow(const QUrl &Link);
    void PlaceOnScreen();

    std::unique_ptr<ChmFile> m_Help;
    QToolButton *m_Back;
    QToolButton *m_Home;
    QLineEdit *m_Search;
    QLabel *m_Found;
    QTreeWidget *m_Contents;
    HelpPage *m_Page;
};
