#include "QuestionArea.h"

#include "QuestionFile.h"

#include <QFile>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace
{
constexpr int RightTime = 700;  // [ms] for which an answer is told; a press ends it
constexpr int WrongTime = 3000; // [ms]
constexpr int EnterKey = 13;
constexpr int SpaceKey = 32;
constexpr qsizetype LongestTyped = 40; // [characters]
constexpr QSizeF Design{620, 420};
} // namespace

QuestionArea::QuestionArea(QWidget *Container) : GameCanvas(Design, Container)
{
    setAttribute(Qt::WA_InputMethodEnabled);
}

// A set of one's own needs no words in its settings file.
QString QuestionArea::WordOr(const char *name, const char *english) const
{
    const QString word = Word(name);
    return word.isEmpty() ? QString::fromLatin1(english) : word;
}

void QuestionArea::Started(int Level)
{
    m_Folder = Framework().Message(QStringLiteral("gamepath")).toString();
    const QuestionSet set = LoadQuestions(m_Folder, Framework().Lang());
    m_Marks.clear();
    m_TimeUp = false;
    m_Problems = set.Problems;
    if (!m_Problems.isEmpty()) return Refuse();
    m_Rules = std::make_unique<QuestionRules>(set, Level, Seed());
    Show();
}

void QuestionArea::Refuse()
{
    constexpr qsizetype Most = 3; // as many as a message holds
    setAccessibleName(m_Problems.join(u' '));
    Framework().ShowError(QStringLiteral("The questions in Questions.txt can't be used."),
                          m_Problems.mid(0, Most).join(QStringLiteral("\r\n")), this);
}

void QuestionArea::Show()
{
    m_Shown = m_Rules->Present();
    m_Chosen.reset();
    m_Telling.Stop();
    m_Typed.clear();
    m_Picture = m_Shown.Text.Picture.isEmpty() ? QImage() : QImage(m_Folder + m_Shown.Text.Picture);
    m_Choices.SetPlaces(ChoicePlaces());
    m_Pad.Clear();
    QString told = m_Shown.Text.Prompt;
    if (m_Shown.Text.Typed()) {
        QStringList plain;
        for (const QString &answer : m_Shown.Text.Answers) plain.append(PlainAnswer(answer));
        m_Pad.SetAnswers(plain, {20, 206, 580, 160});
    }
    for (qsizetype i = 0; i < m_Shown.Choices.size(); ++i)
        told += QStringLiteral(" %1: %2.").arg(i + 1).arg(m_Shown.Choices[i]);
    setAccessibleName(told);
    setAccessibleDescription(WordOr("Hint", "Choose the right answer"));
    update();
}

void QuestionArea::KeyPressed(int Key)
{
    if (!m_Rules) return;
    if (IsTelling()) {
        if (Key == EnterKey || Key == SpaceKey) Show();
        return;
    }
    if (m_Shown.Text.Typed()) return;
    const auto choice = m_Choices.Key(Key);
    update();
    if (choice) Choose(*choice);
}

void QuestionArea::keyPressEvent(QKeyEvent *event)
{
    if (!Running() || !isVisible() || IsTelling() || !m_Rules || !m_Shown.Text.Typed()) return event->ignore();
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return TypeLetter(LetterPad::Enter);
    if (event->key() == Qt::Key_Backspace) return TypeLetter(LetterPad::Backspace);
    for (const QChar letter : event->text()) TypeLetter(letter);
}

void QuestionArea::inputMethodEvent(QInputMethodEvent *event)
{
    if (!Running() || !isVisible() || IsTelling() || !m_Rules || !m_Shown.Text.Typed()) return event->ignore();
    for (const QChar letter : event->commitString()) TypeLetter(letter);
}

// "Enter" may end the session: nothing may follow it.
void QuestionArea::TypeLetter(QChar letter)
{
    if (letter == QChar(LetterPad::Backspace))
        m_Typed.chop(1);
    else if (letter.isPrint() && m_Typed.size() < LongestTyped && !(m_Typed.isEmpty() && letter.isSpace()))
        m_Typed += letter;
    update();
    if (letter == QChar(LetterPad::Enter) && !PlainAnswer(m_Typed).isEmpty()) GiveTyped();
}

void QuestionArea::Pressed(QPointF Place)
{
    if (!m_Rules) return;
    if (IsTelling()) return Show();
    m_Choices.HideRing();
    if (m_Shown.Text.Typed()) {
        if (const auto letter = m_Pad.At(Place)) TypeLetter(letter->isLetter() ? letter->toUpper() : *letter);
    } else if (const auto choice = m_Choices.At(Place)) {
        Choose(*choice);
    }
}

void QuestionArea::PointedAt(QPointF Place)
{
    const auto over = m_Pad.At(Place);
    const bool isOther = m_Choices.PointAt(Place) || over != m_Over;
    m_Over = over;
    if (!isOther) return;
    setCursor((m_Over || m_Choices.Over()) && Running() && !IsTelling() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void QuestionArea::Choose(int choice)
{
    m_Chosen = choice;
    Told(m_Rules->Choose(choice));
}

void QuestionArea::GiveTyped() { Told(m_Rules->Type(m_Typed)); }

void QuestionArea::Told(bool right)
{
    m_Marks.push_back(right);
    const int time = Paced(right ? RightTime : WrongTime);
    m_Telling.Start(Now(), time);
    Animate(time);
    setAccessibleDescription((right ? WordOr("Right", "Right") : WordOr("Wrong", "Not right")) +
                             QStringLiteral(": ") + m_Shown.Text.Solution());
    Progress(m_Rules->Progress());
    PlayIfThere(m_Rules->Over() ? "done" : right ? "right" : "wrong");
    update();
    if (m_Rules->Over()) EndGame();
}

// A set needs no sounds.
void QuestionArea::PlayIfThere(const char *sound) const
{
    if (QFile::exists(m_Folder + QStringLiteral("sounds/%1.wav").arg(QLatin1String(sound)))) Play(sound);
}

void QuestionArea::Ticked()
{
    if (Running() && m_Telling.IsOver(Now())) Show();
}

void QuestionArea::TimeWasUp()
{
    m_TimeUp = true;
    setAccessibleDescription(WordOr("TimeUp", "Time is up"));
}
