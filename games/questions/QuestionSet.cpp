#include "QuestionSet.h"

#include "QuestionReader.h"

QuestionSet QuestionSet::Read(const QByteArray &Bytes) { return QuestionReader(Bytes).Take(); }

QStringList QuestionSet::OthersFor(const Question &One) const
{
    QStringList others;
    for (const Question &other : Questions) {
        if (other.Level != One.Level || other.Group != One.Group || other.Typed()) continue;
        if (other.Right == One.Right || One.Wrong.contains(other.Right) || others.contains(other.Right)) continue;
        others.append(other.Right);
    }
    return others;
}

QString PlainAnswer(const QString &Text)
{
    QString plain;
    QString parted = Text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    parted.replace(QChar(0xdf), QStringLiteral("ss")); // sharp s, which capitals write as two
    for (const QChar letter : parted)
        if (!letter.isMark() && !letter.isSpace()) plain += letter;
    return plain;
}
