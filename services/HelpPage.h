// A page of a help file. Everything on it comes out of that file: nothing of the disk or the net can be named by it.
#pragma once

#include <QTextBrowser>

class ChmFile;

class HelpPage : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpPage(QWidget *Container);

    /// Where pages come from now; may be empty.
    void SetHelp(const ChmFile *Help);
    /// Shows a page by its path, perhaps with "#" and an anchor.
    void ShowPage(const QString &Page);
    /// The path of the page shown, without an anchor.
    QString Page() const { return source().path(); }

    QVariant loadResource(int type, const QUrl &name) override;

private:
    const ChmFile *m_Help = nullptr;
};
