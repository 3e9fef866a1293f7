#include "services/HelpWindow.h"

#include "platform/Process.h"
#include "platform/RuntimeError.h"
#include "sdk/controls/Look.h"
#include "services/HelpPage.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include <algorithm>

namespace
{
constexpr QSize WindowSize(900, 640); // [px]
constexpr int ContentsWidth = 200;    // [px]
constexpr int PageRole = Qt::UserRole;

// The same whatever the desktop's theme is.
const QString Style = QStringLiteral(
    "HelpWindow { background: #e2f1e9; }"
    "QTextBrowser { background: white; color: #16302a; border: 1px solid #a9c4b8; border-radius: 6px; }"
    "QTreeWidget { background: #f4faf7; color: #16302a; border: 1px solid #a9c4b8; border-radius: 6px; padding: 6px;"
    " outline: none; }"
    "QTreeWidget::item { padding: 4px 2px; }"
    "QTreeWidget::item:selected { background: #ffd36b; color: #16302a; }"
    "QToolButton { background: white; color: #16302a; border: 1px solid #6f8f84; border-radius: 6px;"
    " padding: 4px 12px; }"
    "QToolButton:hover, QToolButton:focus { background: #ffefc4; }"
    "QToolButton:disabled { color: #8a9a94; border-color: #c3d2cb; }"
    "QLineEdit { background: white; color: #16302a; border: 1px solid #6f8f84; border-radius: 6px; padding: 4px 8px; "
    "}"
    "QLineEdit:focus { border: 2px solid #b86b00; }"
    "QLabel { color: #16302a; }"
    "QSplitter::handle { background: transparent; }");

QToolButton *Button(QWidget *on, const char *name, const QString &words)
{
    auto *button = new QToolButton(on);
    button->setObjectName(QLatin1String(name));
    button->setText(words);
    return button;
}
} // namespace

HelpWindow::HelpWindow()
    : m_Back(Button(this, "butBack", QStringLiteral("Back"))),
      m_Home(Button(this, "butHome", QStringLiteral("First page"))),
      m_Search(new QLineEdit(this)),
      m_Found(new QLabel(this)),
      m_Contents(new QTreeWidget(this)),
      m_Page(new HelpPage(this))
{
    setObjectName(QStringLiteral("frmHelp"));
    setStyleSheet(Style + Look::ScrollBars());
    m_Search->setObjectName(QStringLiteral("txtSearch"));
    m_Search->setPlaceholderText(QStringLiteral("Search in this page"));
    m_Search->setAccessibleName(m_Search->placeholderText());
    m_Search->setFixedWidth(240);
    m_Found->setObjectName(QStringLiteral("lblFound"));
    m_Contents->setObjectName(QStringLiteral("lstContents"));
    m_Contents->setAccessibleName(QStringLiteral("Contents"));
    m_Contents->setHeaderHidden(true);
    m_Contents->setRootIsDecorated(false);
    m_Page->setObjectName(QStringLiteral("txtPage"));

    auto *const bar = new QHBoxLayout;
    for (QWidget *control : {static_cast<QWidget *>(m_Back), static_cast<QWidget *>(m_Home)}) bar->addWidget(control);
    bar->addStretch();
    bar->addWidget(m_Found);
    bar->addWidget(m_Search);
    auto *const sides = new QSplitter(this);
    sides->addWidget(m_Contents);
    sides->addWidget(m_Page);
    sides->setStretchFactor(1, 1);
    sides->setSizes({ContentsWidth, WindowSize.width() - ContentsWidth});
    sides->setChildrenCollapsible(false);
    auto *const all = new QVBoxLayout(this);
    all->addLayout(bar);
    all->addWidget(sides);

    connect(m_Back, &QToolButton::clicked, m_Page, &QTextBrowser::backward);
    connect(m_Page, &QTextBrowser::backwardAvailable, m_Back, &QWidget::setEnabled);
    connect(m_Home, &QToolButton::clicked, this, [this] { m_Page->ShowPage(m_Help->FirstPage()); });
    connect(m_Page, &QTextBrowser::anchorClicked, this, &HelpWindow::Follow);
    connect(m_Page, &QTextBrowser::sourceChanged, this, &HelpWindow::MarkPage);
    connect(m_Contents, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem *item) { m_Page->ShowPage(item->data(0, PageRole).toString()); });
    connect(m_Contents, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem *item) { m_Page->ShowPage(item->data(0, PageRole).toString()); });
    connect(m_Search, &QLineEdit::returnPressed, this, [this] { Search(false); });
    connect(m_Search, &QLineEdit::textEdited, m_Found, &QLabel::clear);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, m_Search,
            qOverload<>(&QWidget::setFocus));
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, [this] { Search(false); });
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this, [this] { Search(true); });
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, m_Page, &QTextBrowser::backward);
}

void HelpWindow::Open(const QString &File)
{
    auto help = std::make_unique<ChmFile>(File);
    if (help->Read(help->FirstPage()).isEmpty())
        throw RuntimeError(QStringLiteral("The help file has no first page."));
    static std::unique_ptr<HelpWindow> window;
    if (!window) {
        window.reset(new HelpWindow);
        qAddPostRoutine([] { window.reset(); }); // no window outlives the application
    }
    window->Show(std::move(help));
}

void HelpWindow::Show(std::unique_ptr<ChmFile> Help)
{
    m_Page->SetHelp(Help.get());
    m_Help = std::move(Help);
    setWindowTitle(m_Help->Title().isEmpty() ? QStringLiteral("Help") : m_Help->Title());
    ListContents();
    m_Search->clear();
    m_Found->clear();
    m_Page->ShowPage(m_Help->FirstPage());
    m_Page->reload(); // of this file, though the page may bear the same name
    m_Page->clearHistory();
    if (!isVisible()) PlaceOnScreen();
    isMinimized() ? showNormal() : show();
    raise();
    activateWindow();
    m_Page->setFocus();
}

void HelpWindow::PlaceOnScreen()
{
    const QRect room = QApplication::primaryScreen()->availableGeometry();
    resize(WindowSize.boundedTo(room.size() * 19 / 20));
    move(room.center() - rect().center());
}

void HelpWindow::ListContents()
{
    m_Contents->clear();
    std::vector<QTreeWidgetItem *> above; // the last line of each depth
    for (const ChmFile::Line &line : m_Help->Contents()) {
        const auto depth = std::min(static_cast<std::size_t>(line.Depth), above.size());
        above.resize(depth);
        auto *const item = depth == 0 ? new QTreeWidgetItem(m_Contents) : new QTreeWidgetItem(above.back());
        item->setText(0, line.Name);
        item->setData(0, PageRole, line.Page);
        if (line.Page.isEmpty()) item->setFlags(Qt::ItemIsEnabled);
        above.push_back(item);
    }
    m_Contents->expandAll();
    m_Contents->setVisible(m_Contents->topLevelItemCount() > 0);
}

// The line of the page shown; of its anchor where there is one.
void HelpWindow::MarkPage(const QUrl &Shown)
{
    const QString page = Shown.path();
    const QString anchor = Shown.fragment();
    QTreeWidgetItem *found = nullptr;
    for (QTreeWidgetItemIterator it(m_Contents); *it != nullptr; ++it) {
        const QString named = (*it)->data(0, PageRole).toString();
        if (found == nullptr && named == page) found = *it;
        if (!anchor.isEmpty() && named == page + u'#' + anchor) found = *it;
    }
    m_Contents->setCurrentItem(found);
    m_Found->clear();
}

void HelpWindow::Search(bool Backwards)
{
    const QString wanted = m_Search->text();
    if (wanted.isEmpty()) return;
    const auto direction = Backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = m_Page->find(wanted, direction);
    if (!found) { // once more from the other end
        m_Page->moveCursor(Backwards ? QTextCursor::End : QTextCursor::Start);
        found = m_Page->find(wanted, direction);
    }
    m_Found->setText(found ? QString() : QStringLiteral("Not on this page"));
}

void HelpWindow::Follow(const QUrl &Link)
{
    const QUrl target = m_Page->source().resolved(Link);
    if (target.scheme() == m_Page->source().scheme()) {
        if (target.path() == m_Page->Page() || !m_Help->Read(target.path()).isEmpty()) m_Page->setSource(target);
    } else if (target.scheme() == u"http" || target.scheme() == u"https") {
        OpenWithDesktop(target.toString());
    }
}

void HelpWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) close();
}
