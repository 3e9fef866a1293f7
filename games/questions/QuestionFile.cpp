#include "QuestionFile.h"

#include <QFile>
#include <QImageReader>

QuestionSet LoadQuestions(const QString &Folder, const QString &Language)
{
    QFile file(Folder + QStringLiteral("Questions.%1.txt").arg(Language));
    if (!file.exists()) file.setFileName(Folder + QStringLiteral("Questions.txt"));
    QuestionSet set;
    if (!file.open(QIODevice::ReadOnly)) {
        set.Problems.append(QStringLiteral("The file is not in the game's folder, or can't be read."));
        return set;
    }
    set = QuestionSet::Read(file.readAll());
    for (const Question &question : set.Questions) {
        if (question.Picture.isEmpty() || QImageReader(Folder + question.Picture).canRead()) continue;
        set.Problems.append(QStringLiteral("Line %1: the picture \"%2\" is not there, or can't be read.")
                                .arg(question.Line)
                                .arg(question.Picture));
    }
    return set;
}
