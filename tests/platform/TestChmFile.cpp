// The reader of compiled help files, on the one that is delivered and on what is left of it.
#include "platform/ChmFile.h"
#include "platform/Files.h"
#include "platform/LzxReader.h"
#include "platform/RuntimeError.h"
#include "tests/support/TestFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace
{
const QString Delivered = QStringLiteral(NOGGLE_HELP);
const QString Sources = QStringLiteral(NOGGLE_HELP_SOURCES "/");

class Chm : public testing::Test
{
protected:
    QString With(const QByteArray &bytes) { return m_Folder.Write(QStringLiteral("Some.chm"), bytes); }
    /// Reads all of it. Answer: whether it was taken for a help file.
    bool ReadAll(const QByteArray &bytes)
    {
        try {
            const ChmFile help(With(bytes));
            for (const auto &line : help.Contents()) help.Read(line.Page);
            help.Read(help.FirstPage());
            help.Read(QStringLiteral("/pictures/workout.png"));
            return true;
        } catch (const RuntimeError &failure) {
            EXPECT_FALSE(failure.Description().isEmpty());
            return false;
        }
    }
    TestFolder m_Folder;
};
} // namespace

TEST_F(Chm, GivesEveryPageAndPictureByteForByte)
{
    const ChmFile help(Delivered);
    int count = 0;
    for (const char *folder : {"pages/", "pictures/"})
        for (const QString &name : EntriesOf(Sources + QLatin1String(folder))) {
            if (!name.endsWith(u".html") && !name.endsWith(u".png") && !name.endsWith(u".css")) continue;
            const QString entry = u'/' + (name.endsWith(u".png") ? QStringLiteral("pictures/") : QString()) + name;
            EXPECT_EQ(help.Read(entry), ReadFile(Sources + QLatin1String(folder) + name)) << name.toStdString();
            ++count;
        }
    EXPECT_GE(count, 15);
}

TEST_F(Chm, TellsTitleFirstPageAndContents)
{
    const ChmFile help(Delivered);
    EXPECT_EQ(help.Title(), QStringLiteral("Noggle Help"));
    EXPECT_EQ(help.FirstPage(), QStringLiteral("/index.html"));
    const auto contents = help.Contents();
    ASSERT_GT(contents.size(), 9U);
    EXPECT_EQ(contents[0].Name, QStringLiteral("Welcome"));
    EXPECT_EQ(contents[0].Depth, 0);
    EXPECT_EQ(contents[3].Page, QStringLiteral("/workout.html#score"));
    EXPECT_EQ(contents[3].Depth, 1);
    for (const auto &line : contents)
        EXPECT_FALSE(help.Read(line.Page.section(u'#', 0, 0)).isEmpty()) << line.Page.toStdString();
}

TEST_F(Chm, CaseDoesNotCountAndWhatIsNotThereIsEmpty)
{
    const ChmFile help(Delivered);
    EXPECT_FALSE(help.Read(QStringLiteral("INDEX.HTML")).isEmpty());
    for (const char *none : {"", "/", "/none.html", "/../index.html", "/pictures/"})
        EXPECT_TRUE(help.Read(QLatin1String(none)).isEmpty()) << none;
}

TEST_F(Chm, WhatIsNoHelpFileIsAFailure)
{
    EXPECT_THROW(ChmFile(m_Folder.Path() + QStringLiteral("none.chm")), RuntimeError);
    EXPECT_THROW(ChmFile(m_Folder.Path()), RuntimeError);
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("ITSF"), QByteArray(500, 'x'), QByteArray("ITSF") + QByteArray(500, '\xff')})
        EXPECT_FALSE(ReadAll(bytes));
}

TEST_F(Chm, CutAtAnyPlaceIsReadOrRefused)
{
    const QByteArray whole = ReadFile(Delivered);
    ASSERT_TRUE(ReadAll(whole));
    int refused = 0;
    for (qsizetype length = 0; length < whole.size(); length += whole.size() / 60)
        refused += ReadAll(whole.left(length)) ? 0 : 1;
    EXPECT_GT(refused, 50);
}

TEST_F(Chm, AnyByteMayBeAnother)
{
    // The small file: each of its bytes matters, and it is quickly read.
    const QByteArray whole = ReadFile(QStringLiteral(NOGGLE_SMALL_HELP));
    ASSERT_TRUE(ReadAll(whole));
    std::mt19937 random(20261121);
    int refused = 0;
    for (int time = 0; time < 1500; ++time) {
        QByteArray bytes = whole;
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes)
            bytes[static_cast<qsizetype>(random() % static_cast<unsigned>(bytes.size()))] =
                static_cast<char>(random());
        refused += ReadAll(bytes) ? 0 : 1;
    }
    EXPECT_GT(refused, 10);
}

TEST_F(Chm, AWindowThatNoFileHasIsRefused)
{
    for (const std::uint32_t size : {0U, 1U, 1U << 14, (1U << 15) + 1, 1U << 22, ~0U})
        EXPECT_THROW(LzxReader reader(size), RuntimeError) << size;
    for (const std::uint32_t size : {1U << 15, 1U << 16, 1U << 21}) EXPECT_NO_THROW(LzxReader reader(size)) << size;
}

// A block of the third kind is not packed at all: the bit for programs, the kind, the size, three distances, the
// bytes.
TEST_F(Chm, APlainBlockIsItsBytes)
{
    const auto block = [](const QByteArray &bytes) {
        const auto size = static_cast<unsigned>(bytes.size());
        // 0, 011, 24 bits of size: 28 bits, filled up to two words, each with its low byte first
        const unsigned head = 0x30000000U | size << 4;
        QByteArray packed;
        for (const unsigned shift : {16U, 24U, 0U, 8U}) packed.append(static_cast<char>(head >> shift));
        return packed + QByteArray("\1\0\0\0\1\0\0\0\1\0\0\0", 12) + bytes;
    };
    LzxReader reader(1U << 16);
    QByteArray out;
    reader.ReadFrame(block("as it stands"), 12, out);
    EXPECT_EQ(out, "as it stands");
    reader.Reset();
    EXPECT_THROW(reader.ReadFrame(block("as it stands").chopped(1), 12, out), RuntimeError);
    reader.Reset();
    EXPECT_THROW(reader.ReadFrame(block(""), 12, out), RuntimeError) << "a block of nothing would never end";
}

TEST_F(Chm, ContentsAreReadFromAnyText)
{
    EXPECT_TRUE(ChmFile::LinesOf({}).empty());
    EXPECT_TRUE(ChmFile::LinesOf(QStringLiteral("<ul><li><object></object></ul></ul></object>")).empty());
    const auto lines = ChmFile::LinesOf(QStringLiteral(
        "</UL><UL><LI><OBJECT type=x><PARAM NAME=\"Name\" VALUE=\"A &amp; &quot;B&quot;\"><param name='no'>"
        "<param name=Local value=a.html></OBJECT><UL><OBJECT><param name=\"Name\" value=\"C\"></OBJECT></UL></UL>"
        "<object><param name=\"Name\" value=\"D\"></object>"));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].Name, QStringLiteral("A & \"B\""));
    EXPECT_EQ(lines[0].Page, QStringLiteral("/a.html"));
    EXPECT_EQ(lines[1].Depth, 1);
    EXPECT_EQ(lines[1].Page, QString());
    EXPECT_EQ(lines[2].Depth, 0);
}
