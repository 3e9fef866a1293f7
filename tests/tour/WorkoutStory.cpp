// A game of the workout: offered, played, counted, stored.
#include "GamePlayers.h"
#include "Hands.h"
#include "StoreRows.h"
#include "Story.h"

#include <QJsonArray>

namespace
{
QString Element(const char *name, int index) { return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index); }

QString InFileNames(const QString &name) { return name.toLower().replace(u' ', u'-'); }
} // namespace

int Story::Categories() { return static_cast<int>(m_Hands.SeesAll(QStringLiteral("picCat(")).size()); }

Story::Offer Story::SelectCategory(int Tile)
{
    m_Hands.Click(Element("picCat", Tile));
    const QStringList offers = m_Hands.SeesAll(QStringLiteral("butPlay("));
    if (offers.size() != 1) throw TourFailure(QStringLiteral("%1 games are offered.").arg(offers.size()));
    Offer offer;
    offer.row = offers.front().mid(offers.front().indexOf(u'('));
    offer.game = m_Hands.Reads(QStringLiteral("lblGame") + offer.row);
    offer.level = NumberIn(m_Hands.Reads(QStringLiteral("lblLevel") + offer.row));
    offer.gameRow = StoreRows::SelectOne(QStringLiteral("select * from Game where GameName = ?"), {offer.game});
    return offer;
}

QVariantMap Story::StateOf(const Offer &Offer) const
{
    return StoreRows::SelectOne(
        QStringLiteral("select * from PlayerGame where PlayerGamePlayer = ? and PlayerGameGame = ?"),
        {m_Player, Offer.gameRow.value(QStringLiteral("GameKey"))});
}

void Story::PlayWorkoutGame(int Tile, int Stamina)
{
    const Offer offer = SelectCategory(Tile);
    const QVariantMap before = StateOf(offer);
    m_Hands.Click(QStringLiteral("butPlay") + offer.row);
    m_Hands.WaitUntil(offer.game, [this] { return m_Hands.SeesGame(); });
    if (Stamina > 0)
        PlayGame(offer.gameRow.value(QStringLiteral("GameComponent")).toString(), {offer.level}, m_Hands,
                 ::Stamina(Stamina));
    if (m_Hands.SeesGame()) m_Hands.PassTime(offer.gameRow.value(QStringLiteral("GameTimeLimit")).toInt());
    const Score score = WatchScore(offer);
    CompareResult(offer, score);
    CompareState(offer, before, score.star);
    Compare(QStringLiteral("points on the category's tile"), NumberIn(m_Hands.Reads(Element("lblCatScore", Tile))),
            score.total);
    QJsonArray results = m_Seen.value(QStringLiteral("results")).toArray();
    results.append(QJsonObject{{QStringLiteral("game"), offer.game}, {QStringLiteral("total"), score.total}});
    m_Seen.insert(QStringLiteral("results"), results);
}

// The dialog's last line comes with the button that closes it.
Story::Score Story::WatchScore(const Offer &Offer)
{
    if (m_Hurried) {
        m_Hands.WaitFor(QStringLiteral("lblGameOver"));
        m_Hands.Quicken(QStringLiteral("tmrShow"));
    }
    m_Hands.WaitFor(QStringLiteral("butOK"));
    m_Hands.Picture(QStringLiteral("score-of-") + InFileNames(Offer.game));
    const auto number = [this](const char *label) { return NumberIn(m_Hands.Reads(QLatin1String(label))); };
    const Score score{number("lblPoints"), number("lblTimeBonus"), number("lblLevelBonus"), number("lblTotal"),
                      m_Hands.Sees(QStringLiteral("picStar"))};
    Compare(QStringLiteral("sum of the lines and total"), score.points + score.timeBonus + score.levelBonus,
            score.total);
    m_Hands.Click(QStringLiteral("butOK"));
    m_Hands.WaitFor(QStringLiteral("ctlWorkOut1"));
    m_Hands.Picture(QStringLiteral("workout-after-") + InFileNames(Offer.game));
    return score;
}

void Story::CompareResult(const Offer &Offer, const Score &Score)
{
    const QVariantMap row =
        StoreRows::Select(QStringLiteral("select * from GamePlayed order by GamePlayedKey desc limit 1")).value(0);
    const auto compare = [&](const char *column, const QVariant &seen) {
        Compare(Offer.game + QStringLiteral(", ") + QLatin1String(column), seen, row.value(QLatin1String(column)));
    };
    compare("GamePlayedPlayer", m_Player);
    compare("GamePlayedGame", Offer.gameRow.value(QStringLiteral("GameKey")));
    compare("GamePlayedScore", Score.points);
    compare("GamePlayedPoints", Score.total);
    compare("GamePlayedAward", Score.star ? 1 : 0);
    compare("GamePlayedLevel", Offer.level);
    compare("GamePlayedMode", 1);
    const QVariantMap workout = StoreRows::SelectOne(QStringLiteral("select * from Workout where WorkoutStatus = 0"));
    compare("GamePlayedWorkout", workout.value(QStringLiteral("WorkoutKey")));
}

void Story::CompareState(const Offer &Offer, const QVariantMap &Before, bool Star)
{
    const QVariantMap after = StateOf(Offer);
    const auto count = [](const QVariantMap &row, const char *column) {
        return row.value(QLatin1String(column)).toInt();
    };
    int level = Offer.level;
    int unspent = count(Before, "PlayerGameUnspentAwards") + (Star ? 1 : 0);
    if (unspent == 3 && count(after, "PlayerGameLevel") > level) {
        ++level; // three awards bought it
        unspent = 0;
    }
    Compare(Offer.game + QStringLiteral(", awards"), count(Before, "PlayerGameAwards") + (Star ? 1 : 0),
            count(after, "PlayerGameAwards"));
    Compare(Offer.game + QStringLiteral(", unspent awards"), unspent, count(after, "PlayerGameUnspentAwards"));
    Compare(Offer.game + QStringLiteral(", level"), NumberIn(m_Hands.Reads(QStringLiteral("lblLevel") + Offer.row)),
            count(after, "PlayerGameLevel"));
    Compare(Offer.game + QStringLiteral(", level by the awards"), level, count(after, "PlayerGameLevel"));
}
