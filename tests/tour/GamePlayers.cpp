#include "GamePlayers.h"

#include "Hands.h"

#include "services/modIniFile.h"

#include <QDir>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>
#include <array>
#include <vector>

namespace
{
// "7 × 8 − 3 = ": products and quotients before sums, each from left to right.
int ResultOf(const QString &task)
{
    static const QRegularExpression part(QStringLiteral("([×÷+−]?)\\s*(\\d+)"));
    int sum = 0;
    int product = 0;
    for (auto parts = part.globalMatch(task.section(u'=', 0, 0)); parts.hasNext();) {
        const auto match = parts.next();
        const QString sign = match.captured(1);
        const int number = match.captured(2).toInt();
        if (sign == u"×") {
            product *= number;
        } else if (sign == u"÷") {
            product /= number;
        } else {
            sum += product;
            product = sign == u"−" ? -number : number;
        }
    }
    return sum + product;
}

// Tally Rush tells the task and what has been typed. One answer is wrong, so that this is seen too.
void PlayTallyRush(Hands &hands, const Stamina &stamina, const Board &)
{
    hands.Picture(QStringLiteral("tally-rush"));
    for (int task = 1; hands.SeesGame() && stamina.IsLeft(); ++task) {
        const QString text = hands.GameName();
        if (text.isEmpty()) continue;
        const bool mistaken = task == 3;
        hands.Type(QString::number(ResultOf(text) + (mistaken ? 1 : 0)));
        if (task == 2) hands.Picture(QStringLiteral("tally-rush-answer"));
        hands.Press(Qt::Key_Return);
        if (!mistaken) continue;
        hands.Picture(QStringLiteral("tally-rush-mistake"));
        QThread::msleep(1600); // no key counts while the right result is shown
    }
}

// Lantern Row tells by "column, row" which lantern lights up, and by its name whose turn it is.
class LanternPlayer
{
public:
    LanternPlayer(Hands &hands, const Stamina &stamina) : m_Hands(hands), m_Stamina(stamina) {}

    void Play()
    {
        for (int round = 1; Goes(); ++round) {
            const auto lanterns = Watch(round == 1);
            if (round == 1) GoToTheCorner();
            Repeat(lanterns);
            if (round == 1) m_Hands.Picture(QStringLiteral("lantern-row-right"));
            while (Goes() && !Watches()) QThread::msleep(Blink);
        }
    }

private:
    static constexpr int Blink = 20;    // [ms]
    static constexpr int WidestRow = 6; // more than any level has
    struct Lantern
    {
        int column, row;
        bool operator==(const Lantern &) const = default;
    };

    bool Goes() { return m_Hands.SeesGame() && m_Stamina.IsLeft(); }
    bool Watches() { return m_Hands.GameName().startsWith(u"Watch"); }

    std::vector<Lantern> Watch(bool isFirst)
    {
        std::vector<Lantern> lanterns;
        while (Goes() && Watches()) {
            const QStringList place = m_Hands.GameDescription().split(QStringLiteral(", "));
            const Lantern lit{place.value(0).toInt(), place.value(1).toInt()};
            if (lit.column > 0 && (lanterns.empty() || lanterns.back() != lit)) {
                lanterns.push_back(lit);
                if (isFirst && lanterns.size() == 2) m_Hands.Picture(QStringLiteral("lantern-row"));
            }
            QThread::msleep(Blink);
        }
        if (m_Hands.GameName().contains(u"backwards")) std::reverse(lanterns.begin(), lanterns.end());
        return lanterns;
    }

    void GoToTheCorner()
    {
        for (int step = 1; step < WidestRow; ++step) {
            m_Hands.Press(Qt::Key_Left);
            m_Hands.Press(Qt::Key_Up);
        }
    }

    void Repeat(const std::vector<Lantern> &lanterns)
    {
        for (const Lantern &lantern : lanterns) {
            for (; m_Ring.column < lantern.column; ++m_Ring.column) m_Hands.Press(Qt::Key_Right);
            for (; m_Ring.column > lantern.column; --m_Ring.column) m_Hands.Press(Qt::Key_Left);
            for (; m_Ring.row < lantern.row; ++m_Ring.row) m_Hands.Press(Qt::Key_Down);
            for (; m_Ring.row > lantern.row; --m_Ring.row) m_Hands.Press(Qt::Key_Up);
            m_Hands.Press(Qt::Key_Return);
        }
    }

    Hands &m_Hands;
    const Stamina &m_Stamina;
    Lantern m_Ring{1, 1};
};

void PlayLanternRow(Hands &hands, const Stamina &stamina, const Board &) { LanternPlayer(hands, stamina).Play(); }

struct Entry
{
    const char *component;
    void (*play)(Hands &, const Stamina &, const Board &);
};
constexpr std::array Table{
    Entry{"EchoStep", PlayEchoStep},         Entry{"HoldBack", PlayHoldBack}, Entry{"LanternRow", PlayLanternRow},
    Entry{"NinthTile", PlayNinthTile},       Entry{"OddStone", PlayOddStone}, Entry{"PunchedFold", PlayPunchedFold},
    Entry{"QuietRule", PlayQuietRule},       Entry{"ScaleTip", PlayScaleTip}, Entry{"TallyRush", PlayTallyRush},
    Entry{"TurnOrMirror", PlayTurnOrMirror},
};
} // namespace

void GiveSeeds(const QString &ProgramFolder, std::uint32_t Seed)
{
    const QDir program(ProgramFolder);
    for (const QString &folder : program.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString settings = program.filePath(folder + QStringLiteral("/GameSettings.ini"));
        if (QFile::exists(settings) &&
            !WriteIniString(QStringLiteral("config"), QStringLiteral("seed"), QString::number(Seed), settings))
            throw TourFailure(QStringLiteral("%1 can't be written.").arg(settings));
    }
}

bool PlayGame(const QString &Component, const Board &Board, Hands &Hands, const Stamina &Stamina)
{
    for (const Entry &entry : Table)
        if (Component == QLatin1String(entry.component)) return entry.play(Hands, Stamina, Board), true;
    Hands.Picture(QStringLiteral("game-that-nobody-plays"));
    return false;
}
