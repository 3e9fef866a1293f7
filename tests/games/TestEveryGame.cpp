// What holds for every delivered game alike, at its first, middle and last level.
#include "platform/Files.h"
#include "services/modIniFile.h"
#include "tests/games/stage/PacedStage.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPainter>

#include <ostream>

namespace
{
QString Setting(const QString &folder, const char *name)
{
    return ReadIniString(QStringLiteral("config"), QLatin1String(name), {},
                         folder + QStringLiteral("GameSettings.ini"));
}

std::vector<std::string> Delivered()
{
    std::vector<std::string> names;
    const QDir dist(QStringLiteral(NOGGLE_DIST_FOLDER));
    for (const QString &name : dist.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        if (QFile::exists(dist.filePath(name) + QStringLiteral("/GameSettings.ini")))
            names.push_back(name.toStdString());
    return names;
}

class EveryGame : public testing::TestWithParam<std::string>
{
protected:
    EveryGame() { SetProgramFolder(QStringLiteral(NOGGLE_DIST_FOLDER)); } // shared components are there
    ~EveryGame() override { SetProgramFolder({}); }

    const QString Name = QString::fromStdString(GetParam());
    const QString Folder = QStringLiteral(NOGGLE_DIST_FOLDER) + Name + u'/';
    const QString Class = Setting(Folder, "component") + QStringLiteral(".GameArea");
    const int Last = std::max(1, Setting(Folder, "levels").toInt());
    const std::vector<std::pair<const char *, int>> Levels{{"first", 1}, {"middle", (Last + 1) / 2}, {"last", Last}};
};

// The part of the picture that is not the stage's own ground.
double Drawn(Stage &table)
{
    const QImage picture = table.Picture();
    QImage ground(picture.size(), QImage::Format_RGB32);
    ground.setDevicePixelRatio(picture.devicePixelRatio());
    QPainter painter(&ground);
    table.Framework->DrawBackground(&painter);
    painter.end();
    int other = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) other += picture.pixel(x, y) != ground.pixel(x, y) ? 1 : 0;
    return static_cast<double>(other) / (picture.width() * picture.height());
}

void PressEverything(Stage &table)
{
    constexpr int LastKey = 123;
    for (int key = 0; key <= LastKey; ++key) table.Key(key);
    for (int y = 10; y < 420; y += 40)
        for (int x = 10; x < 620; x += 40) table.Click(table.At(QPointF(x, y)));
}
} // namespace

INSTANTIATE_TEST_SUITE_P(Games, EveryGame, testing::ValuesIn(Delivered()), [](const auto &game) {
    std::string name = game.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST_P(EveryGame, ShowsItselfAndTellsWhatItAsksForAtEachLevel)
{
    for (const auto &[which, level] : Levels) {
        SCOPED_TRACE(which);
        Stage table(WithSeed(Folder, 7), QSize(620, 420));
        table.Start(level);
        EXPECT_GT(Drawn(table), 0.03);
        EXPECT_FALSE(table.Game->Control()->accessibleName().isEmpty());
        EXPECT_EQ(table.Score(), 0);
        table.Keep(QStringLiteral("game-%1-%2").arg(Name, QLatin1String(which)));
    }
}

// What it tells and shows at once, or the next things that come by themselves, as lanterns and shapes do.
TEST_P(EveryGame, DealsOneBoardForOneSeedAndLevelAndAnotherOneForAnother)
{
    constexpr int Enough = 6;
    const auto told = [this](std::uint32_t seed) {
        PacedStage table(Class, Folder, seed, Quick);
        table.Start(Last);
        QStringList seen;
        EXPECT_TRUE(table.Sees([&] {
            const QString now = table.Name() + u'|' + table.Description();
            if (seen.isEmpty() || seen.last() != now) seen.append(now);
            return seen.size() == Enough || !table.Moves();
        }));
        return std::pair(seen, table.Moves() ? QImage() : table.Picture());
    };
    EXPECT_EQ(told(7), told(7));
    EXPECT_NE(told(7), told(8));
}

TEST_P(EveryGame, BeforeItsStartNothingHappens)
{
    Stage table(Folder);
    PressEverything(table);
    EXPECT_EQ(table.Score(), 0);
    EXPECT_FALSE(table.Picture().isNull());
    table.Game->Message(QStringLiteral("timeup"));
    EXPECT_FALSE(table.Picture().isNull());
}

TEST_P(EveryGame, WhenTheTimeIsUpNothingCountsAndNothingMoves)
{
    Stage table(WithSeed(Folder, 7));
    table.SetPace(Quick);
    table.Start(1);
    table.Game->Message(QStringLiteral("timeup"));
    const QStringList calls = table.Framework->Calls;
    const QString name = table.Name();
    PressEverything(table);
    EXPECT_TRUE(table.UntilStill());
    EXPECT_EQ(table.Score(), 0);
    EXPECT_EQ(table.Framework->Calls, calls);
    EXPECT_EQ(table.Name(), name);
}

// The picture tells the level, so that the settings file and the rules have the same last one.
TEST_P(EveryGame, ALevelOutOfRangePlaysAsTheNearest)
{
    Stage table(WithSeed(Folder, 7));
    const auto shown = [&](int level) {
        table.Start(level);
        return table.Picture();
    };
    const QImage first = shown(1);
    const QImage last = shown(Last);
    EXPECT_NE(last, shown(Last - 1));
    EXPECT_EQ(last, shown(Last + 1));
    EXPECT_EQ(last, shown(99));
    EXPECT_EQ(first, shown(0));
    EXPECT_EQ(first, shown(-3));
}

TEST_P(EveryGame, HasItsWordsInGermanToo)
{
    const QString settings = Folder + QStringLiteral("GameSettings.ini");
    QFile file(settings);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const QString words = text.section(QStringLiteral("[default]"), 1).section(u'[', 0, 0);
    int count = 0;
    for (const QString &line : words.split(u'\n', Qt::SkipEmptyParts)) {
        const QString name = line.section(u'=', 0, 0).trimmed();
        if (name.isEmpty() || name.startsWith(u';')) continue;
        ++count;
        EXPECT_FALSE(ReadIniString(QStringLiteral("1"), name, {}, settings).isEmpty()) << qPrintable(name);
    }
    EXPECT_GT(count, 3);
}

TEST_P(EveryGame, ExplainsItselfWithAPicture)
{
    QFile file(Folder + QStringLiteral("Instructions.rtf"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("\\pngblip"));
}

TEST_P(EveryGame, ItsFolderIsComplete)
{
    for (const char *file : {"Instructions.rtf", "sounds/wrong.wav", "sounds/done.wav"})
        EXPECT_TRUE(FileExists(Folder + QLatin1String(file))) << file;
    const bool isQuestionSet = Setting(Folder, "component") == u"Questions";
    EXPECT_EQ(FileExists(Folder + Name + QStringLiteral(".so")), !isQuestionSet);
    EXPECT_EQ(FileExists(Folder + QStringLiteral("Questions.txt")), isQuestionSet);
    EXPECT_EQ(Setting(Folder, "category").isEmpty(), isQuestionSet) << "question sets stay out of the workout";
    EXPECT_FALSE(Setting(Folder, "timelimit").isEmpty());
    for (const char *ofTests : {"seed", "pace"}) EXPECT_TRUE(Setting(Folder, ofTests).isEmpty()) << ofTests;
}

TEST(TheGames, AreTenInFiveCategories)
{
    struct Row
    {
        const char *folder, *category;
        int seconds, levels;
    };
    for (const auto &[name, category, seconds, levels] :
         {Row{"lantern-row", "Memory", 90, 8}, Row{"echo-step", "Memory", 75, 9},
          Row{"tally-rush", "Numbers", 60, 10}, Row{"scale-tip", "Numbers", 45, 8}, Row{"quiet-rule", "Logic", 75, 7},
          Row{"ninth-tile", "Logic", 105, 10}, Row{"odd-stone", "Attention", 60, 9},
          Row{"hold-back", "Attention", 60, 7}, Row{"turn-or-mirror", "Space", 60, 8},
          Row{"punched-fold", "Space", 105, 8}}) {
        const QString folder = QStringLiteral(NOGGLE_DIST_FOLDER) + QLatin1String(name) + u'/';
        EXPECT_EQ(Setting(folder, "category"), QLatin1String(category)) << name;
        EXPECT_EQ(Setting(folder, "timelimit").toInt(), seconds) << name;
        EXPECT_EQ(Setting(folder, "levels").toInt(), levels) << name;
    }
}
