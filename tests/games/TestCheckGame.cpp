// The tool that checks games, run as an author runs it: nothing to mend in our own, and the right words for rude
// ones.
#include "tests/support/TestFolder.h"

#include "tools/checkgame/GameFolder.h"
#include "tools/checkgame/Plan.h"

#include "platform/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QProcess>

#include <set>

namespace
{
using testing::HasSubstr;
using testing::Not;

struct Outcome
{
    int Code = -1;
    std::string Said;
};

Outcome Check(const QString &Folder, int Sessions = 24, const QStringList &More = {})
{
    constexpr int Limit = 600'000; // [ms] on a machine that does much else
    QProcess tool;
    tool.start(QStringLiteral(NOGGLE_CHECK_GAME),
               QStringList{QStringLiteral("--sessions"), QString::number(Sessions), Folder} + More);
    if (!tool.waitForFinished(Limit)) return {};
    return {tool.exitCode(), tool.readAllStandardOutput().toStdString()};
}

/// A folder with a rude class and nothing else amiss. The game is to be found in the folder as "rude".
class Rude : public testing::Test
{
protected:
    Outcome CheckClass(const char *Class, const char *Library = "rude", int Sessions = 24,
                       const QStringList &More = {}) const
    {
        Folder.Copy(QStringLiteral(NOGGLE_RUDE "/%1/%1.so").arg(QLatin1String(Library)),
                    QStringLiteral("rude/rude.so"));
        Folder.Write(QStringLiteral("rude/GameSettings.ini"),
                     QByteArray("[config]\nname=Rude\ntimelimit=0\nlevels=2\ncomponent=") + Class +
                         "\n[default]\nName=Rude\n");
        Folder.Write(QStringLiteral("rude/Instructions.rtf"), "{\\rtf1 Be rude.\\par}");
        return Check(Folder.Path() + QStringLiteral("rude"), Sessions, More);
    }
    TestFolder Folder;
};

QStringList Findings(const QByteArray &Settings)
{
    const TestFolder folder;
    folder.Write(QStringLiteral("game/GameSettings.ini"), Settings);
    folder.Write(QStringLiteral("game/Instructions.rtf"), "{\\rtf1 Words.\\par}");
    Report report;
    QStringList found;
    report.Told = [&](bool mustMend, const QString &sentence) {
        found << (mustMend ? QStringLiteral("Mend: ") : QStringLiteral("Note: ")) + sentence;
    };
    const GameFolder read(folder.Path() + QStringLiteral("game/"), report);
    return found;
}

std::string Found(const QByteArray &Settings) { return Findings(Settings).join(u'\n').toStdString(); }

const QByteArray Sound = "[config]\nname=A\ncomponent=A\ntimelimit=0\n[default]\nName=A\n";
} // namespace

TEST(CheckGame, HasNothingToMendInOurGames)
{
    const QString dist = QStringLiteral(NOGGLE_BUILD "/dist/");
    QStringList folders{QStringLiteral(NOGGLE_BUILD "/blank/blank")};
    for (const QString &entry : EntriesOf(dist))
        if (FileExists(dist + entry + QStringLiteral("/GameSettings.ini"))) folders << dist + entry;
    EXPECT_GE(folders.size(), 5);
    for (const QString &folder : folders) {
        const Outcome outcome = Check(folder, 45);
        EXPECT_EQ(outcome.Code, 0) << folder.toStdString() << "\n" << outcome.Said;
        EXPECT_THAT(outcome.Said, HasSubstr("45 sessions"));
        EXPECT_THAT(outcome.Said, HasSubstr("Nothing to mend."));
    }
}

TEST(CheckGame, SaysWhatItCannotFind)
{
    EXPECT_EQ(Check(QStringLiteral("/nowhere/at/all")).Code, 2);
    const TestFolder empty;
    const Outcome outcome = Check(empty.Path());
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Said, HasSubstr("Mend: There is no GameSettings.ini in the folder"));
    EXPECT_THAT(outcome.Said, HasSubstr("Mend: There is no Instructions.rtf in the folder."));
}

TEST_F(Rude, EveryBrokenRuleIsNamed)
{
    const std::vector<std::pair<const char *, const char *>> rules{
        {"RudeThrowsOnCreate", "It throws at its creation: thrown on creation"},
        {"RudeThrowsOnStart", "It throws at \"start\": thrown on start"},
        {"RudeThrowsOnKey", "It throws at \"keypress\": thrown on keypress"},
        {"RudeThrowsOnTimeUp", "It throws at \"timeup\": thrown on timeup"},
        {"RudeThrowsOnUnload", "It throws at \"unload\": thrown on unload"},
        {"RudeMakesNothing", "Its library lists the class and does not make it."},
        {"RudeIsAWindow", "It comes as a window, or shown"},
        {"RudeEndsOnStart", "It says \"gameover\" inside \"start\""},
        {"RudeEndsOnScore", "It says \"gameover\" inside \"score\""},
        {"RudeEndsTwice", "It says \"gameover\" once more when the session has ended"},
        {"RudeCallsLate", "It still calls SaveSetting after it has been taken away."},
        {"RudeScoresNothing", "It answers \"score\" with nothing"},
        {"RudeScoresWords", "It answers \"score\" with the text \"plenty\", which starts with no number"},
        {"RudeScoresHuge", "It answers \"score\" with a number that is too large"},
        {"RudeScoresAList", "It answers \"score\" with neither a number nor a text"},
        {"RudeDeletesItself", "It deletes itself"},
        {"RudeHoldsInput", "It holds on to the keyboard or the mouse"},
        {"RudeOpensWindows", "A window of its own is still seen while the game is paused."},
        {"RudeShowsItself", "It shows itself while it is paused"},
    };
    for (const auto &[name, words] : rules) {
        const Outcome outcome = CheckClass(name);
        EXPECT_EQ(outcome.Code, 1) << name;
        EXPECT_THAT(outcome.Said, HasSubstr(std::string("Mend: ") + words)) << name;
    }
}

TEST_F(Rude, WhatTheProgramPutsUpWithIsANoteOrNothing)
{
    for (const char *name : {"RudeScoresText", "RudeScoresHalf", "RudeAsksInBox", "RudeEndsOnKey"}) {
        const Outcome outcome = CheckClass(name);
        EXPECT_EQ(outcome.Code, 0) << name << "\n" << outcome.Said;
        EXPECT_THAT(outcome.Said, Not(HasSubstr("Note:"))) << name;
    }
    for (const char *name : {"RudeWaitsInDialog", "RudeWaitsInLoop"}) {
        const Outcome outcome = CheckClass(name);
        EXPECT_EQ(outcome.Code, 0) << name << "\n" << outcome.Said;
        EXPECT_THAT(outcome.Said, HasSubstr("Note: It waits in an event loop of its own at \"keypress\"")) << name;
    }
}

TEST_F(Rude, ACrashAndAStandstillAreNamedWithTheirStep)
{
    const Outcome crash = CheckClass("RudeCrashes", "rude-hard");
    EXPECT_EQ(crash.Code, 1);
    EXPECT_THAT(crash.Said, HasSubstr("Mend: It ends the whole program at \"keypress\", in session "));
    const Outcome stuck = CheckClass("RudeNeverReturns", "rude-hard", 24, {QStringLiteral("--patience=8")});
    EXPECT_EQ(stuck.Code, 1);
    EXPECT_THAT(stuck.Said, HasSubstr("Mend: It does not come back from \"keypress\", in session "));
}

TEST_F(Rude, MemoryThatIsLeftBehindIsToldWithItsSize)
{
    const Outcome outcome = CheckClass("RudeLeaks", "rude-hard", 220);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_THAT(outcome.Said, testing::ContainsRegex("Mend: Each session leaves (39|4[0-9])[0-9][0-9][0-9] bytes"));
}

TEST_F(Rude, WhatComesWhileHiddenAndWrongCallsAreTold)
{
    const std::string hidden = CheckClass("RudePlaysOnHidden", "rude-hard", 200).Said;
    EXPECT_THAT(hidden, HasSubstr("Mend: Its points change while it is hidden"));
    EXPECT_THAT(hidden, HasSubstr("Mend: It reports \"progress\" while it is hidden"));
    const std::string wrong = CheckClass("RudeAsksWrongly", "rude-hard", 4).Said;
    for (const char *words :
         {"Mend: It says \"Progress\", which the program does not know", "Mend: It reports a \"progress\" of \"150\"",
          "Mend: It plays the sound \"bang\", and there is no sounds/bang.wav.", "Mend: It keeps a \"|\" in the text",
          "Mend: It keeps something for level 9; the settings file says that there are 2 levels.",
          "Mend: It saves the setting \"two\" in [mine] with more than one line",
          "Mend: It tells of an error: Nothing works. Not at all.", "Note: It asks for the word \"Nowhere\""})
        EXPECT_THAT(wrong, HasSubstr(words));
    EXPECT_THAT(CheckClass("RudeThrowsInPaint", "rude-hard", 4).Said,
                HasSubstr("Mend: It throws in an event handler: thrown on painting"));
}

TEST_F(Rude, AnotherVersionAndAMissingClassAreRefusedInTheProgramsOwnWords)
{
    EXPECT_THAT(CheckClass("RudeNext", "rude-next").Said,
                HasSubstr("Mend: The component \"RudeNext.GameArea\" can't be used: the library \"rude.so\" was made "
                          "for another version of this program."));
    EXPECT_THAT(CheckClass("Nobody").Said, HasSubstr("Mend: The component \"Nobody.GameArea\" is not installed"));
}

TEST(CheckFolder, ASoundFolderSaysNothing) { EXPECT_EQ(Found(Sound), ""); }

TEST(CheckFolder, EveryKeyIsLookedAt)
{
    EXPECT_THAT(Found("[config]\nname=A\ncomponent=A\ntimelimit=soon\n[default]\n"),
                HasSubstr("Mend: \"timelimit\" in [config] is \"soon\": it must be a whole number of seconds"));
    EXPECT_THAT(Found("[config]\nname=A\ncomponent=A\n[default]\n"), HasSubstr("Mend: \"timelimit\""));
    EXPECT_THAT(Found("[config]\ntimelimit=1\n[default]\n"),
                testing::AllOf(HasSubstr("Mend: \"name\" in [config] is missing"),
                               HasSubstr("Mend: \"component\" in [config] is missing")));
    EXPECT_THAT(Found(Sound + "[config]\nlevels=2\n"),
                HasSubstr("Mend: GameSettings.ini has the section [config] twice"));
    EXPECT_THAT(Found("[config]\nname=A\ncomponent=A\ntimelimit=0\nlevels=many\ncategory=zzz\nlevel=3\nseed=4\n"
                      "NAME=B\ncontrolpanel=yes\n"),
                testing::AllOf(HasSubstr("Mend: \"levels\" in [config] is \"many\""),
                               HasSubstr("Mend: The category \"zzz\" is the program's own"),
                               HasSubstr("Note: \"level\" in [config] means nothing to the program."),
                               HasSubstr("Note: \"seed\" is set"),
                               HasSubstr("Mend: GameSettings.ini has \"NAME\" twice in [config]"),
                               HasSubstr("Note: \"controlpanel\" is \"yes\""),
                               HasSubstr("Note: There is no section [default]")));
    EXPECT_THAT(Found(Sound + "Long=" + QByteArray(1000, 'x')), HasSubstr("Mend: \"Long\" in [default] is longer"));
    EXPECT_THAT(Found("name=A\n" + Sound), HasSubstr("Mend: GameSettings.ini has \"name\" above its first section"));
    EXPECT_THAT(Found("\xff\xfe[\0c\0"), HasSubstr("Note: GameSettings.ini is not saved as UTF-8"));
}

TEST(CheckFolder, WordsThatALanguageLacksAreNotes)
{
    EXPECT_EQ(Found(Sound + "Hint=Go\n[1]\nName=B\nTip=x\n"),
              "Note: [1] has no \"Hint\": its players see the word of [default].\n"
              "Note: [default] has no \"Tip\", which [1] has: other players see nothing.");
}

TEST(CheckFolder, InstructionsAndSoundsMustBeReadable)
{
    const TestFolder folder;
    folder.Write(QStringLiteral("game/GameSettings.ini"), Sound);
    folder.Write(QStringLiteral("game/Instructions.rtf"), "no rich text");
    folder.Write(QStringLiteral("game/sounds/right.wav"), "RIFF and nothing else");
    folder.Write(QStringLiteral("game/sounds/wrong.ogg"), "x");
    Report report;
    std::string said;
    report.Told = [&](bool, const QString &sentence) { said += sentence.toStdString() + '\n'; };
    const GameFolder read(folder.Path() + QStringLiteral("game/"), report);
    EXPECT_THAT(said, HasSubstr("Instructions.rtf can't be read"));
    EXPECT_THAT(said, HasSubstr("sounds/right.wav is silent in the program"));
    EXPECT_THAT(said, HasSubstr("sounds/wrong.ogg is no wave file"));
}

TEST(CheckPlan, AThousandSessionsHoldEveryOrderOfUpToThreeEventsWithBothEndings)
{
    EXPECT_LE(SessionsForAllOrders(), 1000);
    std::set<std::pair<std::vector<Act>, Ending>> seen;
    std::set<int> levels;
    for (int session = 1; session <= 1000; ++session) {
        const Plan plan = PlanOf(session, 1, 3);
        levels.insert(plan.Level);
        const bool hasTurn = std::find(plan.Acts.begin(), plan.Acts.end(), Act::Turn) != plan.Acts.end();
        if (plan.Acts.size() <= 3 && !hasTurn) seen.emplace(plan.Acts, plan.End);
    }
    EXPECT_EQ(levels, (std::set<int>{1, 2, 3}));
    EXPECT_EQ(seen.size(), 2u * (1 + 6 + 36 + 216) + 1);
}
