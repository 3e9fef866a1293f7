#include "Story.h"

#include "Hands.h"
#include "StoreRows.h"

#include "platform/Files.h"

#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTextStream>

namespace
{
constexpr int DaysOfAWeek = 7;

QString MemoryFile() { return ProgramFolder() + QStringLiteral("tour.json"); }

void Remember(const QJsonObject &seen)
{
    QFile file(MemoryFile());
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(seen).toJson()) < 0)
        throw TourFailure(MemoryFile() + QStringLiteral(" can't be written."));
}
} // namespace

void Story::DayOne()
{
    m_Hands.WaitFor(QStringLiteral("ctlPlayerlist1"));
    MakePlayer();
    EditName();
    BeginWorkout();
    ReadInstructions();
    PauseAndLeave();
    PlayWorkout();
    Practise();
    Remember(m_Seen);
    EndProgram();
}

void Story::RestOfTheWeek()
{
    m_Seen = QJsonDocument::fromJson(ReadFile(MemoryFile())).object();
    m_Hands.WaitFor(QStringLiteral("ctlPlayerlist1"));
    FindPlayer();
    FindPracticeResult();
    FindWorkout();
    BeginNextWorkout();
    FinishWorkout(1, m_Stamina); // the other game of each category
    m_Hurried = true;
    m_Hands.KeepPictures(false);
    for (int day = 3; day <= DaysOfAWeek; ++day) LiveDay(day);
    m_Hands.KeepPictures(true);
    CompareWeek();
    LookAtProgress();
    EndProgram();
}

void Story::EndProgram()
{
    m_Hands.ClickMenu(QStringLiteral("Exit"));
    m_Hands.WaitFor(QStringLiteral("cmd2"));
    m_Hands.Picture(QStringLiteral("question-before-the-end"));
    m_Hands.ClickLast(QStringLiteral("cmd1"));
}

void Compare(const QString &What, const QVariant &Seen, const QVariant &Stored)
{
    const QString seen = Seen.toString();
    if (seen != Stored.toString())
        throw TourFailure(QStringLiteral("%1: seen %2, stored %3.").arg(What, seen, Stored.toString()));
    QTextStream(stdout) << "  as stored: " << What << ": " << seen << '\n';
}

int NumberIn(const QString &Text)
{
    static const QRegularExpression number(QStringLiteral("-?\\d+"));
    const auto found = number.match(Text);
    if (!found.hasMatch()) throw TourFailure(QStringLiteral("There is no number in \"%1\".").arg(Text));
    return found.captured().toInt();
}
