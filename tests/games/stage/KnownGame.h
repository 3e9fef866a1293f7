// A game of choices on the stage with a board that is known, and beside it the same rules, which tell what is right.
#pragma once

#include "tests/games/stage/Stage.h"

#include <gtest/gtest.h>

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
    /// For pictures that somebody looks at things go at their usual pace, so that they may come to rest.
    void SetPaceOfPictures() const { Table.SetPace(Stage::IsSeen() ? 100 : Quick); }

    Stage Table;
    const int ShortestSet;
    std::optional<Rules> Known;
};
