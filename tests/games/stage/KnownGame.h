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

    explicit KnownGame(const char *Folder)
        : Table(WithSeed(QStringLiteral(NOGGLE_DIST_FOLDER) + QLatin1String(Folder) + u'/', Seed))
    {
        Table.SetPace(Quick);
    }
    void Start(int level)
    {
        Known.emplace(level, Seed);
        Table.Start(level);
    }
    /// Lets an answer be told to its end.
    bool UntilNext() const
    {
        return Stage::Until([this] { return Table.Description() == Table.Word("Hint"); });
    }
    /// For pictures that somebody looks at things go at their usual pace, so that they may come to rest.
    void SetPaceOfPictures() const { Table.SetPace(Stage::IsSeen() ? 100 : Quick); }

    Stage Table;
    std::optional<Rules> Known;
};
