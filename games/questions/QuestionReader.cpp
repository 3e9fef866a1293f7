#include "QuestionReader.h"

#include <QHash>
#include <QStringDecoder>

#include <algorithm>

namespace
{
constexpr qsizetype MostBytes = qsizetype{1024} * 1024;
constexpr qsizetype LongestLine = 400;   // [characters]
constexpr std::size_t MostProblems = 20; // one mistake may repeat itself in every line
constexpr int MostChoices = 6;
constexpr int MostLevels = 20;
constexpr int MostRounds = 100;
constexpr int MostPoints = 10;
} // namespace

QuestionReader::QuestionReader(const QByteArray &Bytes) { Read(Bytes); }

void QuestionReader::Read(const QByteArray &bytes)
{
    if (bytes.size() > MostBytes) return Problem(1, QStringLiteral("the file is larger than one megabyte."));
    QStringDecoder decoder(QStringDecoder::Utf8); // a byte order mark is dropped
    const QString text = decoder.decode(bytes);
    if (decoder.hasError() || text.contains(QChar(0)))
        return Problem(1, QStringLiteral("the file is not saved as UTF-8 text."));
    for (const QString &line : text.split(u'\n')) {
        ++m_Line;
        TakeLine(line.simplified());
    }
    EndBlock();
    if (m_Set.Questions.empty() && m_Problems.empty())
        Problem(1, QStringLiteral("there is no question in the file."));
    if (m_Problems.empty()) JudgeTogether();
}

QuestionSet QuestionReader::Take()
{
    std::ranges::stable_sort(m_Problems, {}, &Trouble::line);
    for (const Trouble &trouble : m_Problems)
        m_Set.Problems.append(QStringLiteral("Line %1: %2").arg(trouble.line).arg(trouble.text));
    return std::move(m_Set);
}

void QuestionReader::TakeLine(const QString &line)
{
    if (line.isEmpty()) return EndBlock();
    if (line.startsWith(u'#')) return;
    if (!m_InBlock) m_Present = m_Standing;
    m_InBlock = true;
    const qsizetype colon = line.indexOf(u':');
    if (colon < 1) return Problem(m_Line, QStringLiteral("a line is a word, a colon and a value."));
    const QString value = line.mid(colon + 1).trimmed();
    if (value.isEmpty()) return Problem(m_Line, QStringLiteral("nothing stands behind the colon."));
    if (value.size() > LongestLine)
        return Problem(m_Line, QStringLiteral("the line is longer than %1 characters.").arg(LongestLine));
    TakeWord(line.left(colon).trimmed().toLower(), value);
}

void QuestionReader::TakeWord(const QString &word, const QString &value)
{
    if (word == u"question") {
        if (m_InQuestion) return Problem(m_Line, QStringLiteral("an empty line is missing before this question."));
        m_InQuestion = true;
        m_Present.Prompt = value;
        m_Present.Line = m_Line;
    } else if (word == u"right") {
        if (!m_Present.Right.isEmpty()) return Problem(m_Line, QStringLiteral("a question has one right choice."));
        m_Present.Right = value;
    } else if (word == u"wrong") {
        m_Present.Wrong.append(value);
    } else if (word == u"answer") {
        m_Present.Answers.append(value);
    } else if (word == u"picture") {
        TakePicture(value);
    } else if (!TakeSetting(word, value)) {
        Problem(m_Line, QStringLiteral("\"%1\" is no word of this file. There are Question, Picture, Right, Wrong, "
                                       "Answer, Level, Points, Group, Choices and Rounds.")
                            .arg(word));
    }
}

bool QuestionReader::TakeSetting(const QString &word, const QString &value)
{
    if (word == u"level")
        m_Present.Level = Number(word, value, 1, MostLevels);
    else if (word == u"points")
        m_Present.Points = Number(word, value, 1, MostPoints);
    else if (word == u"rounds")
        m_Set.Rounds = Number(word, value, 1, MostRounds);
    else if (word == u"group")
        m_Present.Group = value;
    else if (word == u"choices")
        TakeChoices(value);
    else
        return false;
    return true;
}

void QuestionReader::TakeChoices(const QString &value)
{
    m_Present.Fixed.clear();
    if (!value.contains(u'|')) {
        m_Present.Choices = Number(QStringLiteral("choices"), value, 2, MostChoices);
        return;
    }
    for (const QString &part : value.split(u'|')) m_Present.Fixed.append(part.trimmed());
    m_Present.Choices = static_cast<int>(m_Present.Fixed.size());
    QStringList different = m_Present.Fixed;
    different.removeDuplicates();
    if (different.size() < m_Present.Fixed.size() || different.contains(QString()))
        Problem(m_Line, QStringLiteral("two of the choices are alike, or one is empty."));
    if (m_Present.Choices > MostChoices)
        Problem(m_Line, QStringLiteral("there are at most %1 choices.").arg(MostChoices));
}

// A file of the game's own folder, wherever that lies: nothing that leads out of it.
void QuestionReader::TakePicture(const QString &value)
{
    if (value.startsWith(u'/') || value.contains(u'\\') || value.contains(u':') || value.split(u'/').contains(u".."))
        return Problem(m_Line, QStringLiteral("a picture lies in the game's folder, like pictures/tree.png."));
    m_Present.Picture = value;
}

void QuestionReader::EndBlock()
{
    if (!m_InBlock) return;
    if (m_InQuestion) {
        Judge(m_Present);
        m_Set.Questions.push_back(m_Present);
    } else if (!m_Present.Right.isEmpty() || !m_Present.Wrong.isEmpty() || m_Present.Typed() ||
               !m_Present.Picture.isEmpty()) {
        Problem(m_Line, QStringLiteral("the block that ends here has an answer or a picture and no question."));
    } else {
        m_Standing = m_Present;
    }
    m_InBlock = m_InQuestion = false;
}

void QuestionReader::Judge(const Question &question)
{
    const int line = question.Line;
    if (question.Typed()) {
        if (!question.Right.isEmpty() || !question.Wrong.isEmpty())
            Problem(line, QStringLiteral("the question has an answer to type and choices as well; it can have one."));
        if (std::ranges::any_of(question.Answers, [](const QString &one) { return PlainAnswer(one).isEmpty(); }))
            Problem(line, QStringLiteral("an answer has nothing that can be typed."));
        return;
    }
    if (question.Right.isEmpty())
        return Problem(line, QStringLiteral("the question has no line \"Right:\" and no line \"Answer:\"."));
    QStringList choices = question.Wrong;
    choices.append(question.Right);
    if (choices.removeDuplicates() > 0) Problem(line, QStringLiteral("two choices of the question are alike."));
    if (choices.size() > MostChoices)
        Problem(line, QStringLiteral("the question has more than %1 choices.").arg(MostChoices));
    if (question.Fixed.isEmpty()) return;
    if (!question.Wrong.isEmpty())
        Problem(line, QStringLiteral("the choices are given for all questions; no line \"Wrong:\" is needed."));
    if (!question.Fixed.contains(question.Right))
        Problem(line, QStringLiteral("the right answer is none of the choices."));
}

// What only shows when all are known: a second question of the same words would make a right answer wrong, and there
// have to be enough wrong ones.
void QuestionReader::JudgeTogether()
{
    QHash<QString, int> known;
    for (const Question &question : m_Set.Questions) {
        const QString asked = question.Prompt + u'\n' + question.Picture;
        if (const int before = known.value(asked); before > 0)
            Problem(question.Line, QStringLiteral("the same is asked in line %1 already.").arg(before));
        known.insert(asked, question.Line);
        if (question.Typed() || !question.Fixed.isEmpty() || !question.Wrong.isEmpty()) continue;
        if (m_Set.OthersFor(question).size() + 1 < question.Choices)
            Problem(question.Line,
                    QStringLiteral("there are not %1 different answers in the questions of its level and group; "
                                   "write some with \"Wrong:\".")
                        .arg(question.Choices));
    }
}

int QuestionReader::Number(const QString &word, const QString &value, int lowest, int highest)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    if (isNumber && number >= lowest && number <= highest) return number;
    Problem(m_Line, QStringLiteral("\"%1\" wants a number from %2 to %3.").arg(word).arg(lowest).arg(highest));
    return lowest;
}

void QuestionReader::Problem(int line, const QString &text)
{
    if (m_Problems.size() < MostProblems) m_Problems.push_back({line, text});
}
