// The reader of question sets: what a file may say, and what is told of one that can't be used.
#include "games/questions/QuestionFile.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <fstream>

namespace
{
QuestionSet Read(const char *Text) { return QuestionSet::Read(QByteArray(Text)); }
std::string Problems(const char *Text) { return Read(Text).Problems.join(u'\n').toStdString(); }
const QString Dist = QStringLiteral(NOGGLE_DIST_FOLDER);
} // namespace

TEST(QuestionSet, ABlockWithAQuestionIsOneAndAnyOtherHoldsFromThereOn)
{
    const QuestionSet set = Read("# a note\n\nRounds: 7\nLevel: 2\nGroup: spiders\n\n"
                                 "Question: How many legs?\nRight: 8\nWrong: 6\nWrong: 4\nPoints: 3\n\n"
                                 "Question: And eyes?\r\nLEVEL : 3\r\nRight: 8, mostly\r\nWrong: none\r\n\r\n"
                                 "Level: 4\nGroup: hats\n\nQuestion: Who?\nAnswer: me\nAnswer: I");
    ASSERT_EQ(set.Problems.join(u'\n').toStdString(), "");
    ASSERT_EQ(set.Questions.size(), 3u);
    EXPECT_EQ(set.Rounds, 7);
    EXPECT_EQ(set.Questions[0].Level, 2);
    EXPECT_EQ(set.Questions[0].Points, 3);
    EXPECT_EQ(set.Questions[0].Line, 7);
    EXPECT_EQ(set.Questions[0].Wrong, (QStringList{QStringLiteral("6"), QStringLiteral("4")}));
    EXPECT_EQ(set.Questions[1].Level, 3) << "a level inside a question is its own";
    EXPECT_EQ(set.Questions[1].Points, 1);
    EXPECT_EQ(set.Questions[1].Right, QStringLiteral("8, mostly"));
    EXPECT_EQ(set.Questions[1].Group, QStringLiteral("spiders"));
    EXPECT_EQ(set.Questions[2].Level, 4);
    EXPECT_EQ(set.Questions[2].Group, QStringLiteral("hats"));
    EXPECT_TRUE(set.Questions[2].Typed());
}

TEST(QuestionSet, AColonInsideAValueIsPartOfIt)
{
    EXPECT_EQ(Read("Question: 12:30 and 2 h?\nAnswer: 14:30").Questions.at(0).Prompt,
              QStringLiteral("12:30 and 2 h?"));
}

TEST(QuestionSet, AByteOrderMarkAndAccentsAreRead)
{
    EXPECT_EQ(Read("\xef\xbb\xbfQuestion: Où?\nAnswer: là").Questions.at(0).Prompt, QStringLiteral("Où?"));
}

TEST(QuestionSet, WhatIsWrongIsToldWithItsLine)
{
    EXPECT_EQ(Problems("Question: A?\nRight: 1\nWrong: 2\nWong: 3"),
              "Line 4: \"wong\" is no word of this file. There are Question, Picture, Right, Wrong, Answer, Level, "
              "Points, Group, Choices and Rounds.");
    EXPECT_EQ(Problems("\n\nQuestion: A?\nWrong: 2"),
              "Line 3: the question has no line \"Right:\" and no line \"Answer:\".");
    EXPECT_EQ(Problems("Question: A?\nAnswer: 1\nQuestion: B?"),
              "Line 3: an empty line is missing before this question.");
    EXPECT_EQ(Problems("What is this?"), "Line 1: a line is a word, a colon and a value.");
    EXPECT_EQ(Problems("Question:"), "Line 1: nothing stands behind the colon.");
    EXPECT_EQ(Problems("Question: A?\nAnswer: 1\nLevel: two"), "Line 3: \"level\" wants a number from 1 to 20.");
    EXPECT_EQ(Problems("Question: A?\nAnswer: 1\nRounds: 0"), "Line 3: \"rounds\" wants a number from 1 to 100.");
    EXPECT_EQ(Problems("Question: A?\nRight: 1\nRight: 2\nWrong: 3"), "Line 3: a question has one right choice.");
    EXPECT_EQ(Problems("Question: A?\nRight: 1\nWrong: 1"), "Line 1: two choices of the question are alike.");
    EXPECT_EQ(Problems("Question: A?\nRight: 1\nAnswer: 1"),
              "Line 1: the question has an answer to type and choices as well; it can have one.");
    EXPECT_EQ(Problems("Question: A?\nAnswer: 1\nPicture: ../secret.png"),
              "Line 3: a picture lies in the game's folder, like pictures/tree.png.");
    EXPECT_EQ(Problems("Right: 1\nWrong: 2\n"),
              "Line 3: the block that ends here has an answer or a picture and no question.");
    EXPECT_EQ(Problems("Choices: + | + | -\n\nQuestion: 1 ? 1 = 2\nRight: +"),
              "Line 1: two of the choices are alike, or one is empty.");
    EXPECT_EQ(Problems("Choices: + | -\n\nQuestion: 1 ? 1 = 1\nRight: x"),
              "Line 3: the right answer is none of the choices.");
    EXPECT_EQ(Problems(""), "Line 1: there is no question in the file.");
    EXPECT_EQ(Problems("Question: A?\nAnswer: \xff"), "Line 1: the file is not saved as UTF-8 text.");
}

TEST(QuestionSet, TheSameQuestionTwiceWouldHaveTwoAnswers)
{
    EXPECT_EQ(Problems("Question: A?\nAnswer: 1\n\nQuestion: A?\nAnswer: 2"),
              "Line 4: the same is asked in line 1 already.");
}

TEST(QuestionSet, ChoicesOfOthersMustSuffice)
{
    EXPECT_EQ(Problems("Choices: 3\n\nQuestion: A?\nRight: a\n\nQuestion: B?\nRight: b\n\nQuestion: C?\nLevel: 2\n"
                       "Right: c\nWrong: d"),
              "Line 3: there are not 3 different answers in the questions of its level and group; write some with "
              "\"Wrong:\".\n"
              "Line 6: there are not 3 different answers in the questions of its level and group; write some with "
              "\"Wrong:\".");
}

TEST(QuestionSet, OneMistakeInEveryLineIsToldTwentyTimes)
{
    EXPECT_EQ(QuestionSet::Read(QByteArray("nonsense\n").repeated(5000)).Problems.size(), 20);
}

TEST(QuestionSet, AFileOfAnySizeEndsInASentence)
{
    EXPECT_EQ(QuestionSet::Read(QByteArray(2'000'000, 'x')).Problems.join(u' ').toStdString(),
              "Line 1: the file is larger than one megabyte.");
    EXPECT_EQ(QuestionSet::Read("Question: " + QByteArray(500, 'x')).Problems.at(0).toStdString(),
              "Line 1: the line is longer than 400 characters.");
}

TEST(QuestionSet, AccentsCapitalsAndBlanksDontCountInATypedAnswer)
{
    EXPECT_EQ(PlainAnswer(QStringLiteral("  São  Tomé ")), PlainAnswer(QStringLiteral("sao tome")));
    EXPECT_EQ(PlainAnswer(QStringLiteral("STRASSE")), PlainAnswer(QStringLiteral("straße")));
    EXPECT_NE(PlainAnswer(QStringLiteral("14")), PlainAnswer(QStringLiteral("41")));
}

TEST(QuestionSet, AMissingFileAndAMissingPictureAreTold)
{
    const QTemporaryDir folder;
    const QString path = folder.path() + u'/';
    EXPECT_EQ(LoadQuestions(path, {}).Problems.join(u' ').toStdString(),
              "The file is not in the game's folder, or can't be read.");
    std::ofstream(folder.filePath(QStringLiteral("Questions.txt")).toStdString())
        << "Question: A?\nPicture: tree.png\nAnswer: 1\n";
    EXPECT_EQ(LoadQuestions(path, {}).Problems.join(u' ').toStdString(),
              "Line 1: the picture \"tree.png\" is not there, or can't be read.");
}

TEST(QuestionSet, TheBundledSetsAreSoundInEachLanguage)
{
    for (const char *game : {"world-capitals/", "missing-operator/"}) {
        for (const char *language : {"0", "1"}) {
            const QuestionSet set = LoadQuestions(Dist + QLatin1String(game), QLatin1String(language));
            EXPECT_EQ(set.Problems.join(u'\n').toStdString(), "") << game << language;
            EXPECT_GT(set.Questions.size(), 100u);
        }
    }
    EXPECT_EQ(LoadQuestions(Dist + QStringLiteral("world-capitals/"), QStringLiteral("1")).Questions.at(2).Right,
              QStringLiteral("Wien"));
}
