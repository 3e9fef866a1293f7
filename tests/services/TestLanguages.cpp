#include "platform/Files.h"
#include "services/CResource.h"
#include "tests/support/TestFolder.h"

#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>

namespace
{
// Every number that the program asks for.
std::vector<std::int16_t> Numbers()
{
    const std::vector<std::pair<int, int>> ranges{{1, 9},       {100, 101},   {301, 316},   {501, 505},
                                                  {601, 604},   {1001, 1001}, {2001, 2011}, {3001, 3002},
                                                  {4001, 4009}, {4500, 4502}, {4600, 4603}};
    std::vector<std::int16_t> numbers;
    for (const auto &[first, last] : ranges)
        for (int n = first; n <= last; ++n) numbers.push_back(static_cast<std::int16_t>(n));
    return numbers;
}

QStringList MarksIn(const QString &text)
{
    static const QRegularExpression mark(QStringLiteral("<[a-z]+>"));
    QStringList marks;
    for (auto found = mark.globalMatch(text); found.hasNext();) marks.append(found.next().captured());
    return marks;
}

const std::map<int, QStringList> Marks{
    {302, {QStringLiteral("<name>")}},
    {303, {QStringLiteral("<score>"), QStringLiteral("<time>")}},
    {3001, {QStringLiteral("<x>")}},
    {4602, {QStringLiteral("<x>")}},
};

// The modules as they are delivered.
class Language : public testing::TestWithParam<const char *>
{
protected:
    Language() { m_Resources.SetLibraryFilePath(Path()); }
    static QString Path() { return QStringLiteral(NOGGLE_DIST "/") + QLatin1StringView(GetParam()); }
    QString Text(std::int16_t id) const { return m_Resources.GetString(id, 256); }

    const TestFolder m_Folder;
    CResource m_Resources;
};
INSTANTIATE_TEST_SUITE_P(Delivered, Language, testing::Values("0.dll", "1.dll"));
} // namespace

TEST_P(Language, HasAWordForEveryNumber)
{
    for (const std::int16_t id : Numbers()) EXPECT_FALSE(Text(id).trimmed().isEmpty()) << id;
}

TEST_P(Language, HasNoNumberThatNobodyAsksFor)
{
    const std::vector<std::int16_t> numbers = Numbers();
    for (std::int16_t id = 1; id < 6000; ++id) {
        const bool isAsked = std::find(numbers.begin(), numbers.end(), id) != numbers.end();
        EXPECT_EQ(!Text(id).isEmpty(), isAsked) << id;
    }
}

TEST_P(Language, HasItsMarksAndNoOthers)
{
    for (const std::int16_t id : Numbers()) {
        const auto wanted = Marks.find(id);
        EXPECT_EQ(MarksIn(Text(id)), wanted == Marks.end() ? QStringList() : wanted->second) << id;
    }
}

TEST_P(Language, ComesWholeWithinTheLimit)
{
    QString longer;
    for (const std::int16_t id : Numbers()) {
        m_Resources.DLL_LoadString(id, longer, 70000);
        EXPECT_LE(longer.size(), 255) << id;
    }
}

// A date follows these directly; after all others the program puts a blank itself.
TEST_P(Language, EndsInABlankOnlyWhereADateFollows)
{
    for (const std::int16_t id : Numbers()) {
        const bool isBeforeADate = id == 4002 || id == 4003;
        EXPECT_EQ(Text(id).endsWith(u' '), isBeforeADate) << id;
        EXPECT_FALSE(Text(id).startsWith(u' ')) << id;
    }
}

TEST_P(Language, TellsApartWhatStandsSideBySide)
{
    const std::vector<std::vector<std::int16_t>> groups{
        {1, 2},
        {3, 4},
        {5, 6, 7, 8},
        {305, 306, 307, 308, 309, 310, 311, 312, 313, 314},
        {502, 503, 504},
        {601, 602, 603, 604},
        {2002, 2003, 2004},
        {2008, 2009, 2010, 2011},
        {2005, 2006, 2},
        {3001, 3002},
        {4001, 4002, 4003, 4004, 4008, 4009},
        {4500, 4501, 4502},
        {304, 4600, 4601, 4602, 4603},
    };
    for (const auto &group : groups) {
        QStringList words;
        for (const std::int16_t id : group) words.append(Text(id));
        EXPECT_EQ(words.removeDuplicates(), 0) << group.front() << words.join(u'|').toStdString();
    }
}

TEST_P(Language, NamesTheProductAndItsAddressWithoutAScheme)
{
    EXPECT_EQ(Text(100), QStringLiteral("Noggle"));
    EXPECT_FALSE(Text(101).contains(QStringLiteral("://")));
    EXPECT_TRUE(Text(101).contains(u'.'));
}

TEST_P(Language, HasASplashAndALogo)
{
    EXPECT_EQ(m_Resources.LoadJPEG(1001).size(), QSize(560, 340));
    EXPECT_EQ(m_Resources.LoadJPEG(1002).size(), QSize(150, 150));
    EXPECT_EQ(EntriesOf(m_Folder.Path()), QStringList());
}

TEST_P(Language, AnotherReaderFindsTheSamePictureBytes)
{
    const std::map<int, const char *> pictures{{1001, "splash.jpg"}, {1002, "logo.jpg"}};
    for (const auto &[id, name] : pictures) {
        QProcess wrestool;
        wrestool.start(QStringLiteral("wrestool"),
                       {QStringLiteral("-x"), QStringLiteral("--raw"), QStringLiteral("--type=CUSTOM"),
                        QStringLiteral("--name=%1").arg(id), Path()});
        ASSERT_TRUE(wrestool.waitForStarted()) << "wrestool is missing";
        ASSERT_TRUE(wrestool.waitForFinished());
        const char *pointer = nullptr;
        std::int32_t size = 0;
        ASSERT_TRUE(m_Resources.DLL_LoadData(id, pointer, size, QStringLiteral("CUSTOM")));
        const QByteArray ours(pointer, size);
        EXPECT_EQ(ours, ReadFile(QStringLiteral(NOGGLE_PICTURES "/") + QLatin1StringView(name)));
        EXPECT_EQ(ours, wrestool.readAllStandardOutput());
    }
}

TEST(Languages, EnglishAndGermanAreDifferentWords)
{
    CResource english, german;
    english.SetLibraryFilePath(QStringLiteral(NOGGLE_DIST "/0.dll"));
    german.SetLibraryFilePath(QStringLiteral(NOGGLE_DIST "/1.dll"));
    EXPECT_EQ(english.GetString(503, 256), QStringLiteral("Delete"));
    EXPECT_EQ(german.GetString(503, 256), QStringLiteral("Löschen"));
    int same = 0;
    for (const std::int16_t id : Numbers())
        if (english.GetString(id, 256) == german.GetString(id, 256)) ++same;
    EXPECT_LE(same, 6) << "the product, its address, OK and Pause, and little more";
}
