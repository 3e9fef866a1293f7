#include "DomainTest.h"
#include "domain/Store.h"
#include "services/colSound.h"

namespace
{
class Games : public DomainTest
{
protected:
    std::shared_ptr<CGame> Given(const QByteArray &More)
    {
        GivenGame(QStringLiteral("arrows"), {"Arrows", "Memory", "60", More});
        Start();
        return Game(QStringLiteral("Arrows"));
    }
};
} // namespace

TEST_F(Games, NameFollowsTheLanguageElseItIsTheStoredOne)
{
    const auto arrows = Given("[deutsch]\r\nName=Pfeile\r\n");
    EXPECT_EQ(arrows->Name(), u"Arrows");
    modMain::Language = QStringLiteral("deutsch");
    EXPECT_EQ(arrows->Name(), u"Pfeile");
    EXPECT_EQ(arrows->StoredName(), u"Arrows");
}

TEST_F(Games, SaveWritesTheStoredNameUnderATranslationToo)
{
    const auto arrows = Given("[0]\r\nName=Pfeile\r\n");
    arrows->SetName(QStringLiteral("Bows"));
    arrows->Save();
    EXPECT_EQ(arrows->Name(), u"Pfeile");
    EXPECT_EQ(StoredOne(QStringLiteral("select GameName from Game")), u"Bows");
}

TEST_F(Games, ATextOfAnotherLanguageComesFromTheDefaultSection)
{
    const auto arrows = Given("[0]\r\ngo=Los\r\n[default]\r\ngo=Go\r\nstop=Stop\r\n");
    EXPECT_EQ(arrows->LangString(QStringLiteral("go")), u"Los");
    EXPECT_EQ(arrows->LangString(QStringLiteral("stop")), u"Stop");
    EXPECT_EQ(arrows->LangString(QStringLiteral("nowhere")), QString());
}

TEST_F(Games, LevelsAreTheLeadingNumberRoundedAndOneWhenThatIsNothing)
{
    const struct
    {
        const char *Line;
        std::int32_t Levels;
    } rows[] = {{"", 1},
                {"levels=", 1},
                {"levels=0", 1},
                {"levels=many", 1},
                {"levels=10", 10},
                {"levels= 7 of", 7},
                {"levels=2.5", 2},
                {"levels=3.5", 4},
                {"levels=0.5", 1},
                {"levels=-3", -3},
                {"LEVELS=4", 4},
                {"levels=1e1", 10},
                {"levels=\"6\"", 6}};
    for (const auto &row : rows) EXPECT_EQ(Given(row.Line)->Levels(), row.Levels) << row.Line;
}

TEST_F(Games, LevelsAreReadOnce)
{
    const auto arrows = Given("levels=4");
    EXPECT_EQ(arrows->Levels(), 4);
    arrows->SaveSetting(QStringLiteral("config"), QStringLiteral("levels"), QStringLiteral("9"));
    EXPECT_EQ(arrows->Levels(), 4);
}

TEST_F(Games, MoreLevelsThanANumberHoldsAreAFailure)
{
    const auto arrows = Given("levels=99999999999");
    EXPECT_THROW(arrows->Levels(), RuntimeError);
}

TEST_F(Games, SettingsAreReadAndWrittenInTheGamesOwnFile)
{
    const auto arrows = Given("");
    EXPECT_EQ(arrows->GetSetting(QStringLiteral("own"), QStringLiteral("speed")), QString());
    arrows->SaveSetting(QStringLiteral("own"), QStringLiteral("speed"), QStringLiteral("fast"));
    EXPECT_EQ(arrows->GetSetting(QStringLiteral("OWN"), QStringLiteral("Speed")), u"fast");
    EXPECT_TRUE(m_folder.Read(QStringLiteral("arrows/GameSettings.ini")).contains("speed=fast"));
}

TEST_F(Games, WithoutAFolderSettingsAreEmptyAndWritingMakesNoFile)
{
    const QStringList before = QDir(m_folder.Path()).entryList(QDir::AllEntries | QDir::Hidden);
    CGame game;
    game.SaveSetting(QStringLiteral("own"), QStringLiteral("speed"), QStringLiteral("fast"));
    EXPECT_EQ(game.GetSetting(QStringLiteral("own"), QStringLiteral("speed")), QString());
    EXPECT_EQ(game.LangString(QStringLiteral("go")), QString());
    EXPECT_EQ(game.Levels(), 1);
    EXPECT_EQ(QDir(m_folder.Path()).entryList(QDir::AllEntries | QDir::Hidden), before);
}

TEST_F(Games, ControlPanelIsTrueForTrueAndOneAlone)
{
    for (const char *text : {"True", "1"})
        EXPECT_TRUE(Given(QByteArray("controlpanel=") + text)->ControlPanel) << text;
    for (const char *text : {"true", "-1", "0", "", "yes"})
        EXPECT_FALSE(Given(QByteArray("controlpanel=") + text)->ControlPanel) << text;
}

TEST_F(Games, EffectsComeFromTheGamesFolder)
{
    const auto arrows = Given("");
    // No such file: the effect is there, silent, and asked for by its name in the game's own folder.
    arrows->Sounds().Item(QStringLiteral("hit")).Play(0);
    EXPECT_EQ(arrows->Sounds().Count(), 1);
}

TEST_F(Games, AreSavedByTheirKeyAndANewOneGetsIts)
{
    CGame game;
    game.SetName(QStringLiteral("Arrows"));
    game.ComponentName = QStringLiteral("Bow");
    game.TimeLimit = 30;
    game.Category = 4;
    game.Save();
    EXPECT_EQ(game.Key, 1);
    game.TimeLimit = 31;
    game.Save();
    EXPECT_EQ(Stored(QStringLiteral("select * from Game")), QStringList(QStringLiteral("1|Arrows|Bow|31|4")));
}
