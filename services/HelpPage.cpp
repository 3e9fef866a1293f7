#include "services/HelpPage.h"

#include "platform/ChmFile.h"
#include "platform/Text.h"

#include <QUrl>

namespace
{
const QString Scheme = QStringLiteral("help");
}

HelpPage::HelpPage(QWidget *Container) : QTextBrowser(Container)
{
    setOpenLinks(false); // the window decides where a link leads
    document()->setDocumentMargin(16);
}

void HelpPage::SetHelp(const ChmFile *Help)
{
    m_Help = Help;
    if (Help == nullptr) return;
    clearHistory();
}

void HelpPage::ShowPage(const QString &Page)
{
    QUrl address;
    address.setScheme(Scheme);
    address.setPath(Page.section(u'#', 0, 0));
    if (Page.contains(u'#')) address.setFragment(Page.section(u'#', 1));
    setSource(address, QTextDocument::HtmlResource);
}

QVariant HelpPage::loadResource(int type, const QUrl &name)
{
    const QUrl address = source().isEmpty() || !name.isRelative() ? name : source().resolved(name);
    if (m_Help == nullptr || (address.scheme() != Scheme && !address.isRelative())) return {};
    const QByteArray bytes = m_Help->Read(address.path());
    if (type == QTextDocument::ImageResource) return bytes;
    return FromFileText(bytes); // a page without bytes is an empty one
}
