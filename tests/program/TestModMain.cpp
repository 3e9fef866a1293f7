#include "shell/program/modMain.h"

#include "platform/PicBox.h"
#include "services/CResource.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{
// With the words of the English module.
class TimeInWords : public testing::Test
{
protected:
    TimeInWords()
    {
        modMain::Resources = std::make_shared<CResource>();
        modMain::Resources->SetLibraryFilePath(QStringLiteral(NOGGLE_ENGLISH));
    }
    ~TimeInWords() override { modMain::Resources.reset(); }
};

constexpr std::int32_t Longest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t Shortest = std::numeric_limits<std::int32_t>::min();

struct Case
{
    std::int32_t seconds;
    const char16_t *text;
};
} // namespace

TEST(ModMain, AFlagIsTrueForExactlyTrueOrOne)
{
    for (const char *text : {"True", "1"}) EXPECT_TRUE(modMain::IsTrue(QString::fromUtf8(text))) << text;
    for (const char *text : {"", "0", "true", "TRUE", "-1", "False", "yes", "on", "2", "11", " 1", "1 ", "True "})
        EXPECT_FALSE(modMain::IsTrue(QString::fromUtf8(text))) << text;
    EXPECT_FALSE(modMain::IsTrue({}));
}

TEST(ModMain, TimeInFiguresIsMinutesAndTwoDigitsOfSeconds)
{
    for (const Case &c : {
             Case{0, u"0:00"},
             Case{5, u"0:05"},
             Case{59, u"0:59"},
             Case{60, u"1:00"},
             Case{125, u"2:05"},
             Case{3600, u"60:00"},
             Case{-5, u"0:-05"},
             Case{-59, u"0:-59"},
             Case{-60, u"-1:00"},
             Case{-125, u"-2:-05"},
             Case{Longest, u"35791394:07"},
             Case{Shortest, u"-35791394:-08"},
         })
        EXPECT_EQ(modMain::FormatTime(c.seconds, false), QString::fromUtf16(c.text)) << c.seconds;
}

TEST_F(TimeInWords, TellsTheSecondsAlwaysAndTheMinutesWhenThereAreAny)
{
    for (const Case &c : {
             Case{0, u"0 seconds"},
             Case{1, u"1 second"},
             Case{2, u"2 seconds"},
             Case{59, u"59 seconds"},
             Case{60, u"1 minute 0 seconds"},
             Case{61, u"1 minute 1 second"},
             Case{120, u"2 minutes 0 seconds"},
             Case{125, u"2 minutes 5 seconds"},
             Case{3600, u"60 minutes 0 seconds"},
             Case{-1, u"-1 seconds"},
             Case{-60, u"-1 minutes 0 seconds"},
         })
        EXPECT_EQ(modMain::FormatTime(c.seconds, true), QString::fromUtf16(c.text)) << c.seconds;
}

TEST_F(TimeInWords, WithoutWordsTheBlanksStay)
{
    modMain::Resources->SetLibraryFilePath(QStringLiteral("/none/9.dll"));
    EXPECT_EQ(modMain::FormatTime(125, true), u"2  5 ");
    modMain::Resources.reset();
    EXPECT_EQ(modMain::FormatTime(0, true), u"0 ");
}

TEST(ModMain, OnlineIsWhatTheSettingsSaid)
{
    EXPECT_FALSE(modMain::OnlineEnabled());
    modMain::Online = true;
    EXPECT_TRUE(modMain::OnlineEnabled());
    modMain::Online = false;
}

TEST(ModMain, EachPictureBoxIsNewAndOnePixelLarge)
{
    const auto first = modMain::NewPicBox();
    const auto second = modMain::NewPicBox();
    EXPECT_NE(first, second);
    EXPECT_EQ(first->Width(), 1);
    EXPECT_EQ(first->Height(), 1);
    EXPECT_EQ(first->Image().size(), QSize(1, 1));
    EXPECT_EQ(first.use_count(), 2) << "the pool keeps it";
}
