// Help: the desktop's viewer where it has one, our own window where it has none, silence where there is no file.
#include "platform/DesktopViewers.h"
#include "platform/Files.h"
#include "services/HelpPage.h"
#include "services/HelpWindow.h"
#include "services/modHelp.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include <array>
#include <vector>

namespace
{
const QStringList Kinds{QStringLiteral("application/vnd.ms-htmlhelp"), QStringLiteral("application/x-chm")};

// What the desktop is asked to open, in its place.
class Opener : public QObject
{
    Q_OBJECT

public:
    Opener()
    {
        for (const char *scheme : {"file", "http", "https"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "Open");
    }
    ~Opener() override
    {
        for (const char *scheme : {"file", "http", "https"}) QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    Q_INVOKABLE void Open(const QUrl &url)
    {
        Opened << url.toString();
        Last = url;
        From = QDir::currentPath();
    }
    QStringList Opened;
    QUrl Last;
    QString From; // the working folder
};

class Help : public testing::Test
{
protected:
    Help()
    {
        // A desktop that knows no program at all.
        for (const char *name : Variables) {
            m_Before.push_back(qgetenv(name));
            qputenv(name, (m_Folder.Path() + QStringLiteral("desktop")).toUtf8());
        }
        qunsetenv("XDG_CURRENT_DESKTOP");
        modHelp::HelpFile = QStringLiteral("Help.chm");
    }
    ~Help() override
    {
        if (Window() != nullptr) Window()->close();
        for (std::size_t i = 0; i < Variables.size(); ++i) qputenv(Variables[i], m_Before[i]);
        modHelp::HelpFile.clear();
    }

    void GivenHelp(const QString &file = QStringLiteral(NOGGLE_HELP))
    {
        m_Folder.Copy(file, QStringLiteral("Help.chm"));
    }
    /// A program of the desktop for help files, as an installed one leaves its traces.
    void GivenViewer(const QByteArray &command = "sh %f")
    {
        m_Folder.Write(QStringLiteral("desktop/applications/reader.desktop"),
                       "[Desktop Entry]\nName=Reader\nExec=" + command + "\nMimeType=application/vnd.ms-htmlhelp;\n");
        m_Folder.Write(QStringLiteral("desktop/applications/mimeinfo.cache"),
                       "[MIME Cache]\napplication/pdf=other.desktop;\napplication/vnd.ms-htmlhelp=reader.desktop;\n");
    }
    void GivenNoViewer() { QFile::remove(m_Folder.Path() + QStringLiteral("desktop/applications/mimeinfo.cache")); }

    static QWidget *Window()
    {
        for (QWidget *window : QApplication::topLevelWidgets())
            if (window->objectName() == u"frmHelp" && window->isVisible()) return window;
        return nullptr;
    }
    template <typename Child>
    static Child *Of(const char *name)
    {
        return Window()->findChild<Child *>(QLatin1String(name));
    }
    static QString Heading() { return Of<HelpPage>("txtPage")->document()->firstBlock().text(); }
    static QString Marked()
    {
        const auto *item = Of<QTreeWidget>("lstContents")->currentItem();
        return item == nullptr ? QString() : item->text(0);
    }
    static void ClickLine(const char *name)
    {
        auto *list = Of<QTreeWidget>("lstContents");
        auto *item = list->findItems(QLatin1String(name), Qt::MatchExactly | Qt::MatchRecursive).value(0);
        ASSERT_NE(item, nullptr);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(item).center());
    }
    /// A click on the first place of a text on the page.
    static void ClickText(const char *words)
    {
        auto *page = Of<HelpPage>("txtPage");
        QTextCursor place = page->document()->find(QLatin1String(words));
        ASSERT_FALSE(place.isNull()) << words;
        place.setPosition(place.selectionStart() + 2);
        page->setTextCursor(place);
        page->ensureCursorVisible();
        QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, page->cursorRect(place).center());
    }
    static void Keep(const char *name)
    {
        const QString folder = qEnvironmentVariable("NOGGLE_TEST_PICTURES");
        if (folder.isEmpty()) return;
        QDir().mkpath(folder);
        QApplication::processEvents();
        Window()->grab().save(folder + u'/' + QLatin1String(name) + QStringLiteral(".png"));
    }

    static constexpr std::array Variables{"XDG_DATA_DIRS", "XDG_DATA_HOME", "XDG_CONFIG_DIRS", "XDG_CONFIG_HOME"};
    TestFolder m_Folder;
    Opener m_Desktop;
    std::vector<QByteArray> m_Before;
};
} // namespace

TEST_F(Help, AMissingFileChangesNothingAndSaysNothing)
{
    modHelp::ShowHelp(nullptr);
    GivenViewer();
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_TRUE(m_Desktop.Opened.isEmpty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Help, AFileThatIsNoHelpChangesNothingAndSaysNothing)
{
    m_Folder.Write(QStringLiteral("Help.chm"), "ITSF and nothing more");
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Help, IsTheDesktopsWhereItHasAViewer)
{
    GivenHelp();
    GivenViewer();
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(m_Desktop.Opened,
              QStringList{QUrl::fromLocalFile(m_Folder.Path() + QStringLiteral("Help.chm")).toString()});
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(Help, TheDesktopIsAskedFromTheProgramsFolderAndTheProgramStaysWhereItIs)
{
    GivenHelp();
    GivenViewer();
    const QString before = QDir::currentPath();
    ASSERT_NE(before + u'/', m_Folder.Path());
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(m_Desktop.From + u'/', m_Folder.Path());
    EXPECT_EQ(QDir::currentPath(), before);
}

TEST_F(Help, IsOurOwnWindowWhereTheDesktopFailsToOpenItWithItsViewer)
{
    GivenHelp();
    GivenViewer();
    QDesktopServices::unsetUrlHandler(QStringLiteral("file")); // without a display there is no opener behind it
    modHelp::ShowHelp(nullptr);
    ASSERT_NE(Window(), nullptr);
    EXPECT_EQ(Heading(), QStringLiteral("Welcome to Noggle"));
}

TEST_F(Help, AFileNamedWithBlanksAndSignsReachesTheViewerAsItIsNamed)
{
    modHelp::HelpFile = QStringLiteral("Help #1 & 50%20 ?.chm");
    m_Folder.Copy(QStringLiteral(NOGGLE_HELP), modHelp::HelpFile);
    GivenViewer();
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(m_Desktop.Last.toLocalFile(), m_Folder.Path() + modHelp::HelpFile);
}

TEST_F(Help, IsOurOwnWindowWhereTheDesktopHasNone)
{
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    EXPECT_TRUE(m_Desktop.Opened.isEmpty());
    ASSERT_NE(Window(), nullptr);
    EXPECT_FALSE(Window()->isModal());
    EXPECT_EQ(Window()->windowTitle(), QStringLiteral("Noggle Help"));
    EXPECT_EQ(Heading(), QStringLiteral("Welcome to Noggle"));
    EXPECT_EQ(Marked(), QStringLiteral("Welcome"));
    EXPECT_FALSE(Of<QToolButton>("butBack")->isEnabled());
    Keep("help-welcome");
}

TEST_F(Help, AViewerThatIsGoneOrRemovedIsNone)
{
    EXPECT_FALSE(DesktopCanOpen(Kinds));
    GivenViewer("no-such-program-anywhere %f");
    EXPECT_FALSE(DesktopCanOpen(Kinds)) << "its program is gone";
    GivenViewer();
    EXPECT_TRUE(DesktopCanOpen(Kinds));
    EXPECT_FALSE(DesktopCanOpen({QStringLiteral("application/pdf")})) << "listed, and not installed";
    m_Folder.Write(QStringLiteral("desktop/mimeapps.list"),
                   "[Removed Associations]\napplication/vnd.ms-htmlhelp=reader.desktop;\n");
    EXPECT_FALSE(DesktopCanOpen(Kinds)) << "removed by the user";
}

TEST_F(Help, AUsersOwnChoiceIsAViewer)
{
    GivenViewer();
    GivenNoViewer();
    EXPECT_FALSE(DesktopCanOpen(Kinds));
    m_Folder.Write(QStringLiteral("desktop/mimeapps.list"),
                   "[Default Applications]\napplication/x-chm=reader.desktop\n");
    EXPECT_TRUE(DesktopCanOpen(Kinds)) << "by the kind's other name";
}

TEST_F(Help, ContentsLinksAndTheWayBackGoTogether)
{
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    ASSERT_NE(Window(), nullptr);
    ClickLine("Practice");
    EXPECT_EQ(Heading(), QStringLiteral("Practice"));
    EXPECT_EQ(Marked(), QStringLiteral("Practice"));
    ClickText("workout.");
    EXPECT_EQ(Heading(), QStringLiteral("The workout"));
    EXPECT_EQ(Marked(), QStringLiteral("The workout"));
    ClickLine("Score, awards and levels");
    EXPECT_EQ(Heading(), QStringLiteral("The workout"));
    EXPECT_EQ(Marked(), QStringLiteral("Score, awards and levels"));
    Keep("help-score");
    QTest::mouseClick(Of<QToolButton>("butBack"), Qt::LeftButton);
    EXPECT_EQ(Marked(), QStringLiteral("The workout"));
    QTest::mouseClick(Of<QToolButton>("butBack"), Qt::LeftButton);
    EXPECT_EQ(Heading(), QStringLiteral("Practice"));
    QTest::mouseClick(Of<QToolButton>("butHome"), Qt::LeftButton);
    EXPECT_EQ(Heading(), QStringLiteral("Welcome to Noggle"));
}

TEST_F(Help, SearchFindsEachPlaceInThePageAndBeginsAnewAtItsEnd)
{
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    ASSERT_NE(Window(), nullptr);
    ClickLine("Options");
    auto *words = Of<QLineEdit>("txtSearch");
    auto *page = Of<HelpPage>("txtPage");
    QTest::keyClicks(words, QStringLiteral("white"));
    QList<int> places;
    for (int time = 0; time < 3; ++time) {
        QTest::keyClick(words, Qt::Key_Return);
        EXPECT_EQ(page->textCursor().selectedText().toLower(), QStringLiteral("white"));
        places << page->textCursor().position();
    }
    EXPECT_NE(places[0], places[1]);
    EXPECT_EQ(places[0], places[2]) << "there are two";
    words->clear();
    QTest::keyClicks(words, QStringLiteral("crocodile"));
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(Of<QLabel>("lblFound")->text(), QStringLiteral("Not on this page"));
    Keep("help-options");
}

TEST_F(Help, SearchAndTheWayBackHaveTheirKeys)
{
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    ASSERT_NE(Window(), nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(Window()));
    auto *words = Of<QLineEdit>("txtSearch");
    auto *page = Of<HelpPage>("txtPage");
    ClickLine("Options");
    QTest::keySequence(page, QKeySequence::Find);
    ASSERT_TRUE(words->hasFocus());
    QTest::keyClicks(words, QStringLiteral("white"));
    QTest::keyClick(words, Qt::Key_Return);
    const int first = page->textCursor().position();
    QTest::keySequence(words, QKeySequence::FindNext);
    EXPECT_GT(page->textCursor().position(), first);
    QTest::keySequence(words, QKeySequence::FindPrevious);
    EXPECT_EQ(page->textCursor().position(), first);
    QTest::keySequence(words, QKeySequence::FindPrevious);
    EXPECT_GT(page->textCursor().position(), first) << "once more from the end";
    QTest::keySequence(page, QKeySequence::Back);
    EXPECT_EQ(Heading(), QStringLiteral("Welcome to Noggle"));
    page->setFocus();
    QTest::keyClick(page, Qt::Key_Escape);
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(Help, AskedForAgainIsTheSameWindowOnItsFirstPage)
{
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    QWidget *const window = Window();
    ASSERT_NE(window, nullptr);
    ClickLine("Options");
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(Window(), window);
    EXPECT_EQ(Heading(), QStringLiteral("Welcome to Noggle"));
    QTest::keyClick(window, Qt::Key_Escape);
    EXPECT_EQ(Window(), nullptr);
    modHelp::ShowHelp(nullptr);
    EXPECT_EQ(Window(), window);
}

TEST_F(Help, LinksToTheWebGoToTheDesktopAndNothingElseLeavesTheFile)
{
    m_Folder.Write(QStringLiteral("secret.html"), "<h1>Secret</h1>");
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    ASSERT_NE(Window(), nullptr);
    auto *page = Of<HelpPage>("txtPage");
    const auto follow = [&](const QString &link) { Q_EMIT page->anchorClicked(QUrl(link)); };
    follow(QStringLiteral("file://") + m_Folder.Path() + QStringLiteral("secret.html"));
    follow(QStringLiteral("none.html"));
    follow(QStringLiteral("javascript:alert(1)"));
    EXPECT_EQ(Heading(), QStringLiteral("Welcome to Noggle"));
    EXPECT_TRUE(m_Desktop.Opened.isEmpty());
    follow(QStringLiteral("https://example.org/a"));
    EXPECT_EQ(m_Desktop.Opened, QStringList{QStringLiteral("https://example.org/a")});
    for (const char *name : {"file:///etc/hostname", "qrc:/pictures/checked.png", ":/pictures/checked.png"})
        EXPECT_TRUE(
            page->loadResource(QTextDocument::ImageResource, QUrl(QLatin1String(name))).toByteArray().isEmpty())
            << name;
}

TEST_F(Help, EveryLinkAndPictureOfEveryPageIsThere)
{
    const ChmFile help(QStringLiteral(NOGGLE_HELP));
    static const QRegularExpression reference(QStringLiteral("(?:href|src)=\"([^\"]+)\""));
    int count = 0;
    for (const auto &line : help.Contents()) {
        const QString page = QString::fromUtf8(help.Read(line.Page.section(u'#', 0, 0)));
        for (auto found = reference.globalMatch(page); found.hasNext(); ++count) {
            const QString target = found.next().captured(1);
            const QString entry = target.section(u'#', 0, 0);
            const QByteArray bytes = entry.isEmpty() ? page.toUtf8() : help.Read(entry);
            EXPECT_FALSE(bytes.isEmpty()) << target.toStdString();
            const QString anchor = target.section(u'#', 1);
            EXPECT_TRUE(anchor.isEmpty() || bytes.contains("name=\"" + anchor.toUtf8() + '"'))
                << target.toStdString();
        }
    }
    EXPECT_GT(count, 25);
}

TEST_F(Help, EveryEntryOfItsIndexLeadsToAPlaceInTheFile)
{
    const ChmFile help(QStringLiteral(NOGGLE_HELP));
    EXPECT_FALSE(help.Read(QStringLiteral("/$WWKeywordLinks/BTree")).isEmpty()) << "as viewers look it up";
    const QString index = QString::fromUtf8(help.Read(QStringLiteral("/index.hhk")));
    static const QRegularExpression local(QStringLiteral("name=\"Local\" value=\"([^\"]+)\""));
    int count = 0;
    for (auto found = local.globalMatch(index); found.hasNext(); ++count) {
        const QString target = found.next().captured(1);
        const QByteArray page = help.Read(target.section(u'#', 0, 0));
        EXPECT_FALSE(page.isEmpty()) << target.toStdString();
        const QByteArray anchor = target.section(u'#', 1).toUtf8();
        EXPECT_TRUE(anchor.isEmpty() || page.contains("name=\"" + anchor + '"')) << target.toStdString();
    }
    EXPECT_GT(count, 15);
}

TEST_F(Help, EveryPageFitsTheWindowsWidth)
{
    GivenHelp();
    modHelp::ShowHelp(nullptr);
    ASSERT_NE(Window(), nullptr);
    auto *page = Of<HelpPage>("txtPage");
    for (const auto &line : ChmFile(QStringLiteral(NOGGLE_HELP)).Contents()) {
        page->ShowPage(line.Page);
        EXPECT_EQ(page->horizontalScrollBar()->maximum(), 0) << line.Page.toStdString();
        EXPECT_EQ(page->verticalScrollBar()->width(), 10) << "the bar of our screens, not the desktop's";
        Keep(("help-page-" + line.Page.mid(1).section(u'.', 0, 0).toUtf8()).constData());
    }
}

#include "TestHelp.moc"
