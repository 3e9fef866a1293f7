#include "EchoRules.h"

#include <algorithm>

namespace
{
struct LevelPlan
{
    int back;
    bool letters;
    int beat;   // [ms]
    int judged; // steps: as many as take about 57 seconds, and a third of them are echoes
};
constexpr std::array<LevelPlan, EchoRules::Levels> Plans{{
    {1, false, 2200, 24},
    {2, false, 2200, 24},
    {3, false, 2100, 24},
    {4, false, 2000, 24},
    {1, true, 2600, 21},
    {2, true, 2500, 21},
    {2, true, 2100, 24},
    {3, true, 2300, 21},
    {3, true, 1900, 27},
}};
constexpr int OneEchoOf = 3;        // judged steps
constexpr double FalsePress = -0.5; // there are two other steps for an echo
constexpr double WholeSet = 1.25;   // of par
constexpr int LongestRunOfEchoes = 3;
constexpr int LongestWait = 5;   // judged steps without an echo
constexpr int OneNearMissOf = 4; // of the steps that are no echoes: what was there one step sooner or later

const LevelPlan &PlanOf(int level) { return Plans.at(static_cast<std::size_t>(level - 1)); }

bool HasLongRun(const std::vector<int> &echoes)
{
    int run = 0;
    int before = -1;
    for (const int echo : echoes) {
        run = echo == before ? run + 1 : 1;
        before = echo;
        if (run > (echo != 0 ? LongestRunOfEchoes : LongestWait)) return true;
    }
    return false;
}
} // namespace

EchoRules::EchoRules(int Level, std::uint32_t Seed) : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed)
{
    const int judged = PlanOf(m_Level).judged;
    const int all = judged + Back();
    const std::vector<int> places = Values(all, Places);
    const std::vector<int> letters = HasLetters() ? Values(all, static_cast<int>(Letters.size()))
                                                  : std::vector<int>(static_cast<std::size_t>(all), 0);
    for (std::size_t i = 0; i < places.size(); ++i) m_Steps.push_back({places[i], letters[i]});
    const int echoes = judged / OneEchoOf * (HasLetters() ? 2 : 1);
    m_Set = Rounds(judged, echoes / WholeSet);
}

int EchoRules::Back() const { return PlanOf(m_Level).back; }
bool EchoRules::HasLetters() const { return PlanOf(m_Level).letters; }
int EchoRules::Beat() const { return PlanOf(m_Level).beat; }

// One value for each step, a third of the judged ones as so many steps before.
std::vector<int> EchoRules::Values(int count, int choices)
{
    const int back = Back();
    std::vector<int> echoes(static_cast<std::size_t>(count - back), 0);
    std::fill_n(echoes.begin(), echoes.size() / OneEchoOf, 1);
    do m_Random.Shuffle(echoes);
    while (HasLongRun(echoes));

    std::vector<int> values;
    for (int i = 0; i < count; ++i) {
        const bool echo = i >= back && echoes[static_cast<std::size_t>(i - back)] != 0;
        values.push_back(echo ? values[static_cast<std::size_t>(i - back)] : Other(values, i, choices));
    }
    return values;
}

// Any value but the one of so many steps ago, now and then one that was there a step sooner or later than that.
int EchoRules::Other(const std::vector<int> &values, int index, int choices)
{
    const int back = Back();
    if (index < back) return m_Random.Between(0, choices - 1);
    const int banned = values[static_cast<std::size_t>(index - back)];
    if (back > 1 && m_Random.Between(1, OneNearMissOf) == 1) {
        const int near = index - back + (index == back || m_Random.Coin() ? 1 : -1);
        const int value = values[static_cast<std::size_t>(near)];
        if (value != banned) return value;
    }
    const int value = m_Random.Between(0, choices - 2);
    return value < banned ? value : value + 1;
}

bool EchoRules::IsEcho(Trait Trait) const
{
    if (!IsJudged() || (Trait == Letter && !HasLetters())) return false;
    const auto index = static_cast<std::size_t>(m_Index);
    return m_Steps[index][Trait] == m_Steps[index - static_cast<std::size_t>(Back())][Trait];
}

bool EchoRules::Press(Trait Trait)
{
    if (!IsJudged() || m_Set.Over() || m_Pressed[Trait] || (Trait == Letter && !HasLetters())) return false;
    m_Pressed[Trait] = true;
    return true;
}

double EchoRules::Earned() const
{
    double earned = 0;
    for (const Trait trait : {Place, Letter})
        if (m_Pressed[trait]) earned += IsEcho(trait) ? 1 : FalsePress;
    return earned;
}

void EchoRules::Close()
{
    if (IsJudged() && !m_Set.Over()) m_Set.Add(IsRight(), Earned());
}

void EchoRules::Next()
{
    if (m_Set.Over()) return;
    ++m_Index;
    m_Pressed = {};
}
