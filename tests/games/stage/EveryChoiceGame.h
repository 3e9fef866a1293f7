// What holds for every game of choices alike. A program that tests one instantiates the suite with its fixture, which
// is a KnownGame:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Here, EveryChoiceGame, NinthTile);
#pragma once

#include "tests/games/stage/KnownGame.h"

#include <array>

constexpr std::array<int, 6> AnswerKeys{'1', '2', 37, 39, 13, 32}; // digits, arrows, Enter and space bar

template <typename Game>
class EveryChoiceGame : public Game
{};
TYPED_TEST_SUITE_P(EveryChoiceGame);

TYPED_TEST_P(EveryChoiceGame, IsPlayedToItsEndByTheKeysAloneAndNothingCountsAfterwards)
{
    auto &table = this->Table;
    int atTheEnd = -1;
    table.Framework->GameOver = [&] { atTheEnd = table.Score(); }; // asked for inside, before anything closes
    this->Start(this->ShortestSet);
    while (!this->Known->Set().Over()) {
        EXPECT_FALSE(table.IsOver());
        ASSERT_TRUE(this->UntilNext());
        this->AnswerByKeys(this->RightOne());
    }
    EXPECT_EQ(atTheEnd, this->Known->Set().Points());
    EXPECT_GE(atTheEnd, 120);
    EXPECT_EQ(table.Framework->Last(QStringLiteral("progress")), 100);
    EXPECT_EQ(table.Sounds("done"), 1);
    EXPECT_TRUE(table.UntilStill());

    const QStringList calls = table.Framework->Calls;
    this->PressKeys(this->RightOne());
    for (const int key : {13, 32, 40}) table.Key(key); // Enter, space bar, an arrow
    table.Click(this->PlaceOf(this->RightOne()));
    EXPECT_EQ(table.Score(), atTheEnd);
    EXPECT_EQ(table.Framework->Calls, calls);
    EXPECT_EQ(table.Count("gameover"), 1);
}

TYPED_TEST_P(EveryChoiceGame, IsPlayedByTheMouseAloneAndTakenAwayInsideItsEnd)
{
    auto &table = this->Table;
    int atTheEnd = -1;
    table.UnloadAtTheEnd([&] { atTheEnd = table.Score(); });
    this->Start(this->ShortestSet);
    while (!this->Known->Set().Over()) {
        ASSERT_TRUE(this->UntilNext());
        const int right = this->RightOne();
        table.Click(this->PlaceOf(right));
        this->Follow(right);
    }
    EXPECT_EQ(atTheEnd, this->Known->Set().Points());
    EXPECT_EQ(table.Count("gameover"), 1);
    Stage::Turn(20);
}

TYPED_TEST_P(EveryChoiceGame, IsPlayedByTheMouseAtEverySize)
{
    for (const QSize size : {QSize(620, 420), QSize(400, 300), QSize(900, 420), QSize(1600, 1000)}) {
        this->Table.Resize(size);
        this->Start(3);
        for (int round = 0; round < 2; ++round) {
            this->AnswerByMouse(this->RightOne());
            EXPECT_EQ(this->Table.Description(), this->Table.Word("Right")) << size.width();
            ASSERT_TRUE(this->UntilNext());
        }
        EXPECT_GT(this->Table.Score(), 0);
    }
}

TYPED_TEST_P(EveryChoiceGame, AWrongAnswerIsToldAndNothingCountsMeanwhile)
{
    auto &table = this->Table;
    this->Start(3);
    const QImage before = table.Picture();
    const QPoint right = this->PlaceOf(this->RightOne());
    this->AnswerByKeys(this->WrongOne());
    EXPECT_EQ(table.Description(), table.Word("Wrong"));
    EXPECT_EQ(table.Sounds("wrong"), 1);
    EXPECT_NE(table.Picture(), before);
    for (const int key : AnswerKeys) table.Key(key);
    table.Click(right);
    EXPECT_EQ(table.Count("progress"), 1);
    EXPECT_EQ(table.Sounds(""), 1);
    ASSERT_TRUE(this->UntilNext());
    this->AnswerByKeys(this->RightOne());
    EXPECT_EQ(table.Sounds("right"), 1);
}

TYPED_TEST_P(EveryChoiceGame, TheTellingStandsStillWhileHidden)
{
    auto &table = this->Table;
    this->Start(1);
    this->AnswerByKeys(this->RightOne());
    table.Game->SetVisible(false);
    EXPECT_TRUE(table.UntilStill());
    Stage::Turn(200); // longer than a right answer is told
    EXPECT_EQ(table.Description(), table.Word("Right"));
    table.Key('1');
    table.Game->SetVisible(true);
    EXPECT_EQ(table.Description(), table.Word("Right"));
    table.Key('1');
    EXPECT_EQ(table.Count("progress"), 1);
    EXPECT_TRUE(this->UntilNext());
}

TYPED_TEST_P(EveryChoiceGame, AfterTimeUpNothingCountsAndThePointsStand)
{
    auto &table = this->Table;
    for (const bool whileTold : {true, false}) {
        this->Start(1);
        this->AnswerByKeys(this->RightOne());
        if (!whileTold) {
            ASSERT_TRUE(this->UntilNext());
        }
        const int points = table.Score();
        EXPECT_GT(points, 0);
        table.Game->Message(QStringLiteral("timeup"));
        EXPECT_EQ(table.Description(), table.Word("TimeUp"));
        EXPECT_TRUE(table.UntilStill());
        for (const int key : AnswerKeys) table.Key(key);
        for (int choice = 0; choice < this->Offered(); ++choice) table.Click(this->PlaceOf(choice));
        EXPECT_EQ(table.Score(), points);
        EXPECT_FALSE(table.IsOver());
    }
}

TYPED_TEST_P(EveryChoiceGame, MovesOnlyWhileAnAnswerIsTold)
{
    this->Start(1);
    EXPECT_TRUE(this->Table.UntilStill());
    this->AnswerByKeys(this->RightOne());
    EXPECT_TRUE(this->Table.Moves());
    ASSERT_TRUE(this->UntilNext());
    EXPECT_TRUE(this->Table.UntilStill());
}

REGISTER_TYPED_TEST_SUITE_P(EveryChoiceGame, IsPlayedToItsEndByTheKeysAloneAndNothingCountsAfterwards,
                            IsPlayedByTheMouseAloneAndTakenAwayInsideItsEnd, IsPlayedByTheMouseAtEverySize,
                            AWrongAnswerIsToldAndNothingCountsMeanwhile, TheTellingStandsStillWhileHidden,
                            AfterTimeUpNothingCountsAndThePointsStand, MovesOnlyWhileAnAnswerIsTold);
