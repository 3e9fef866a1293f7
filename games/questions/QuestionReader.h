// Reads the text of a question set, line by line. One reader, one text.
#pragma once

#include "QuestionSet.h"

class QuestionReader
{
public:
    explicit QuestionReader(const QByteArray &Bytes);
    QuestionSet Take();

private:
    void Read(const QByteArray &bytes);
    void TakeLine(const QString &line);
    void TakeWord(const QString &word, const QString &value);
    bool TakeSetting(const QString &word, const QString &value);
    void TakeChoices(const QString &value);
    void TakePicture(const QString &value);
    void EndBlock();
    void Judge(const Question &question);
    void JudgeTogether();
    int Number(const QString &word, const QString &value, int lowest, int highest);
    void Problem(int line, const QString &text);

    struct Trouble
    {
        int line;
        QString text;
    };
    QuestionSet m_Set;
    std::vector<Trouble> m_Problems;
    Question m_Standing; // what holds for questions from here on
    Question m_Present;
    bool m_InQuestion = false;
    bool m_InBlock = false;
    int m_Line = 0;
};
