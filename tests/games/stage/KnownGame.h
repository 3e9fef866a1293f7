// A game of choices on the stage with a board that is known, and beside it the same rules, which tell what is right.
#pragma once

#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

#include <QTest>

#include <initializer_list>
#include <optional>

template <typename Rules>
class KnownGame : public testing::Test
{
protected:
    static constexpr std::uint32_t Seed = 7;

    /// ShortestSet is the level that has it.
    KnownGame(const char *Folder, int ShortestSet)
        : Table(WithSeed(QStringLiteral(NOGGLE_DIST_FOLDER) + QLatin1String(Folder) + u'/', Seed)),
          ShortestSet(ShortestSet)
    {
        Table.SetPace(Quick);
    }
    void Start(int level)
    {
        Known.emplace(level, Seed);
        Table.Start(level);
    }

    // Of the present item.
    virtual int Offered() const = 0;
    virtual int RightOne() const = 0;
    int WrongOne() const { return (RightOne() + 1) % Offered(); }
    virtual QPoint PlaceOf(int Choice) const = 0;
    virtual void PressKeys(int Choice) { Table.Key('1' + Choice); }

    /// Lets the rules beside the game follow an answer that it has been given.
    void Follow(int Choice)
    {
        Known->Judge(Choice);
        if (!Known->Set().Over()) Known->Next();
    }
    void ExpectToFollow(int Choice)
    {
        Follow(Choice);
        EXPECT_EQ(Table.Score(), Known->Set().Points());
        EXPECT_EQ(Table.Framework->Last(QStringLiteral("progress")), Known->Set().Progress());
    }
    void AnswerByKeys(int Choice)
    {
        PressKeys(Choice);
        ExpectToFollow(Choice);
    }
    void AnswerByMouse(int Choice)
    {
        Table.Click(PlaceOf(Choice));
        ExpectToFollow(Choice);
    }
    /// Lets an answer be told to its end.
    bool UntilNext() const
    {
        return Stage::Until([this] { return Table.Description() == Table.Word("Hint"); });
    }
    /// The item, a right and a wrong answer, and that the time is up: each looks different, in every view. Where
    /// somebody looks at the pictures, what an answer moves has so long to come to rest. [ms]
    void ExpectPicturesToDiffer(const char *Name, std::initializer_list<View> Views, int Settling)
    {
        constexpr int DownArrow = 40;
        Table.SetPace(Stage::IsSeen() ? 100 : Quick);
        for (const View &view : Views) {
            const auto keep = [&](const char *what) {
                Table.Keep(QStringLiteral("%1-%2-%3")
                               .arg(QLatin1String(Name), QLatin1String(view.Name), QLatin1String(what)));
                return Table.Picture();
            };
            Table.Show(view);
            Start(view.Level);
            const QImage item = keep("1-item");
            Table.Key(DownArrow); // shows the ring
            QTest::mouseMove(Table.Game->Control(), PlaceOf(WrongOne()));
            keep("2-ring");
            AnswerByMouse(RightOne());
            Stage::Settle(Settling);
            const QImage right = keep("3-right");
            Start(view.Level);
            AnswerByMouse(WrongOne());
            Stage::Settle(Settling);
            const QImage wrong = keep("4-wrong");
            Table.Game->Message(QStringLiteral("timeup"));
            EXPECT_NE(item, right) << view.Name;
            EXPECT_NE(right, wrong) << view.Name;
            EXPECT_NE(wrong, keep("5-timeup")) << view.Name;
        }
    }

    Stage Table;
    const int ShortestSet;
    std::optional<Rules> Known;
};
