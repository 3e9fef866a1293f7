// A set of questions as a teacher writes it: a text file, read into questions by level, or into sentences that say
// what to mend and in which line. No widget, no file: bytes in.
//
// The file is UTF-8. A line is a word, a colon and a value; a line that starts with "#" is a note; an empty line ends
// a block. A block with "Question:" is a question; any other block sets what holds from there on.
//
//   Rounds: 12              questions in a session, 15 when nothing is said
//   Choices: 4              how many choices; those that are not written come from the right answers of others
//   Choices: + | − | ×      or the choices of all questions from here on, shown in this order
//   Level: 2                the level from here on, or of one question; 1 when nothing is said
//   Points: 2               the weight, likewise
//   Group: Africa           choices come from questions of the same group, likewise
//
//   Question: What is the capital of Kenya?
//   Picture: pictures/kenya.png
//   Right: Nairobi
//   Wrong: Mombasa
//
//   Question: How many legs has a spider?
//   Answer: 8
//   Answer: eight           typed; any of them is right, and accents, capitals and blanks don't count
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

struct Question
{
    QString Prompt;
    QString Picture; // a file below the game's folder, or empty
    QString Right;   // empty when the answer is typed
    QStringList Wrong;
    QStringList Answers; // typed ones that are right; the first is shown
    QStringList Fixed;   // all choices in their order, when the file gives one
    QString Group;
    int Choices = 4;
    int Level = 1;
    int Points = 1;
    int Line = 0; // where it begins, from 1

    bool Typed() const { return !Answers.isEmpty(); }
    const QString &Solution() const { return Typed() ? Answers.front() : Right; }
};

struct QuestionSet
{
    int Rounds = 15;
    std::vector<Question> Questions;
    QStringList Problems; // "Line 12: ...", in the order of the lines; a set that has one is not to be played

    /// Failure: none; what is wrong stands in Problems.
    static QuestionSet Read(const QByteArray &Bytes);
    /// The wrong choices that a question may be given besides those written with it: right answers of other questions
    /// of its level and group that are neither right nor wrong for it yet; each once, in the order of the file.
    QStringList OthersFor(const Question &One) const;
};

/// What is left of a typed answer when accents, capitals, blanks and marks don't count.
QString PlainAnswer(const QString &Text);
