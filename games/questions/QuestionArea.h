// A set of questions as the player sees it: the row of the set, the question with its picture on a card, and below it
// the choices, or a field with keys for an answer that is typed.
//
// Choices are taken by the verb "keypress" and by clicks. A typed answer is taken from key events, since only those
// bring letters with accents; a press never counts as both.
#pragma once

#include "LetterPad.h"
#include "QuestionRules.h"

#include "sdk/author/Choices.h"
#include "sdk/author/Countdown.h"
#include "sdk/author/GameCanvas.h"
#include "sdk/author/GameColours.h"

#include <QImage>

#include <memory>

class QuestionArea final : public GameCanvas
{
public:
    explicit QuestionArea(QWidget *Container);

protected:
    void Started(int Level) override;
    void Paint(QPainter &Painter) override;
    int Points() const override { return m_Rules ? m_Rules->Points() : 0; }
    void KeyPressed(int Key) override;
    void Pressed(QPointF Place) override;
    void PointedAt(QPointF Place) override;
    void Ticked() override;
    void TimeWasUp() override;
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;

private:
    bool IsTelling() const { return m_Telling.Runs(); }
    QString WordOr(const char *name, const char *english) const;
    void Show();
    void TypeLetter(QChar letter);
    void Choose(int choice);
    void GiveTyped();
    void Told(bool right);
    void PlayIfThere(const char *sound) const;
    void Refuse();

    void PaintQuestion(QPainter &painter) const;
    void PaintChoices(QPainter &painter) const;
    void PaintChoice(QPainter &painter, int choice) const;
    void PaintTyped(QPainter &painter) const;
    void PaintFoot(QPainter &painter, const QString &line) const;
    void PaintProblems(QPainter &painter) const;
    QRectF Card() const;
    std::vector<QRectF> ChoicePlaces() const;
    const GameColours &Colours() const { return GameColours::For(Dark()); }

    std::unique_ptr<QuestionRules> m_Rules;
    QStringList m_Problems;
    QString m_Folder;
    QuestionRules::Asked m_Shown; // the question on the card; the rules may be at the next one
    QImage m_Picture;
    Choices m_Choices;
    LetterPad m_Pad;
    std::optional<QChar> m_Over;
    QString m_Typed;
    Countdown m_Telling;
    std::optional<int> m_Chosen;
    std::vector<bool> m_Marks;
    bool m_TimeUp = false;
};
