// Practice of one game at one level, with a look elsewhere in the middle of it.
#include "GamePlayers.h"
#include "Hands.h"
#include "StoreRows.h"
#include "Story.h"

#include "platform/Dates.h"

namespace
{
const QString Category = QStringLiteral("Numbers");
const QString Game = QStringLiteral("Tally Rush");
const QString Component = QStringLiteral("TallyRush");
constexpr int Level = 2;
constexpr int AsLongAsItTakes = 600; // [s] there is no limit in practice

QVariantMap StoredResult()
{
    return StoreRows::SelectOne(QStringLiteral("select * from GamePlayed where GamePlayedMode = 3"));
}

int SecondsIn(const QString &clock)
{
    return clock.section(u':', 0, 0).toInt() * 60 + clock.section(u':', 1, 1).toInt();
}
} // namespace

void Story::ChooseForPractice()
{
    m_Hands.ClickMenu(QStringLiteral("Practice"));
    m_Hands.WaitFor(QStringLiteral("ctlGameList1"));
    m_Hands.ClickRow(QStringLiteral("cCatList"), Category);
    m_Hands.WaitFor(QStringLiteral("cGameList"));
    m_Hands.ClickRow(QStringLiteral("cGameList"), Game);
    m_Hands.WaitFor(QStringLiteral("cLevels"));
    m_Hands.ClickRow(QStringLiteral("cLevels"), QStringLiteral("Level %1").arg(Level));
}

void Story::Practise()
{
    ChooseForPractice();
    m_Hands.Picture(QStringLiteral("practice"));
    m_Hands.Click(QStringLiteral("cmdPlay"));
    m_Hands.WaitUntil(Game, [this] { return m_Hands.SeesGame(); });
    MinimiseWhilePlaying();
    PlayGame(Component, {Level}, m_Hands, Stamina(AsLongAsItTakes));

    m_Hands.WaitFor(QStringLiteral("cmd2"));
    m_Hands.Picture(QStringLiteral("practice-result"));
    const int score = NumberIn(m_Hands.Reads(QStringLiteral("Label")));
    m_Hands.Click(QStringLiteral("cmd2"));
    m_Hands.WaitFor(QStringLiteral("ctlGameList1"));
    m_Hands.Picture(QStringLiteral("practice-with-best-results"));
    const QVariantMap row = StoredResult();
    Compare(QStringLiteral("score of the practice"), score, row.value(QStringLiteral("GamePlayedScore")));
    Compare(QStringLiteral("level of the practice"), Level, row.value(QStringLiteral("GamePlayedLevel")));
    CompareBestResult();
}

// Escape puts the window away, which pauses the game; bringing it back does not go on with it.
void Story::MinimiseWhilePlaying()
{
    m_Hands.Press(Qt::Key_Escape);
    m_Hands.WaitUntil(QStringLiteral("the minimised window"), [this] { return m_Hands.IsMinimized(); });
    m_Hands.Picture(QStringLiteral("minimised"));
    m_Hands.Restore();
    m_Hands.WaitFor(QStringLiteral("picPause"));
    m_Hands.Picture(QStringLiteral("paused-after-coming-back"));
    m_Hands.ClickMenu(QStringLiteral("Continue"));
    m_Hands.WaitUntil(Game, [this] { return m_Hands.SeesGame(); });
}

void Story::CompareBestResult()
{
    const QVariantMap row = StoredResult();
    Compare(QStringLiteral("name in the best results"), m_Hands.Reads(QStringLiteral("lblName(0)")), m_Name);
    Compare(QStringLiteral("score in the best results"), NumberIn(m_Hands.Reads(QStringLiteral("lblScore(0)"))),
            row.value(QStringLiteral("GamePlayedScore")));
    Compare(QStringLiteral("time in the best results"), SecondsIn(m_Hands.Reads(QStringLiteral("lblTimeTaken(0)"))),
            row.value(QStringLiteral("GamePlayedTime")));
    Compare(QStringLiteral("date in the best results"), m_Hands.Reads(QStringLiteral("lblDate(0)")),
            FormatShortDate(row.value(QStringLiteral("GamePlayedTimestamp")).toDouble()));
    Compare(QStringLiteral("best results after the first"), m_Hands.Reads(QStringLiteral("lblName(1)")),
            QStringLiteral("-"));
}
