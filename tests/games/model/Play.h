// A simulated session of a game of rounds: one loop for all of them, and how skill runs from one player to another.
#pragma once

#include "sdk/author/Rounds.h"
#include "tests/games/model/Model.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <type_traits>
#include <utility>
#include <vector>

namespace Model
{
/// What a game's clock does while a session lasts. [s]
struct Clock
{
    double Limit;
    double Right, Wrong; // for which an answer is told, but for the one that ends the session
};

/// Plays on until the set or the time is over. Act gives for an item the seconds until the answer, and the answer as
/// Judge takes it.
template <typename Rules, typename Act>
Session Play(Rules Game, const Clock &Clock, Act Acts)
{
    double time = 0;
    for (; !Game.Set().Over(); Game.Next()) {
        const auto [thought, answer] = Acts(Game.Item());
        time += thought;
        if (time > Clock.Limit) break;
        const bool right = Game.Judge(answer);
        if (!Game.Set().Over()) time += right ? Clock.Right : Clock.Wrong;
    }
    return {Game.Set().Points(), time};
}

/// The rules of a session whose items are made once and kept, for games that take long over an item: each player of
/// the level gets the same ones. RightAnswer is the member of an item that tells it, and Mistake of the rules what a
/// wrong one takes back.
template <typename Rules, auto RightAnswer>
class Kept
{
public:
    Kept(int Level, std::uint32_t Seed) : m_Kept(The(Level, Seed)), m_Set(m_Kept.Set) {}

    const Rounds &Set() const { return m_Set; }
    const auto &Item() const { return m_Kept.Items[static_cast<std::size_t>(m_Set.Done())]; }
    template <typename Answer>
    bool Judge(const Answer &Given)
    {
        const bool right = Given == Item().*RightAnswer;
        m_Set.Add(right, right ? 1 : -Rules::Mistake);
        return right;
    }
    void Next() {} // as many items as rounds: the set knows how many are done

private:
    using ItemType = std::decay_t<decltype(std::declval<const Rules &>().Item())>;
    struct Session
    {
        Rounds Set; // before the first answer
        std::vector<ItemType> Items;
    };
    static const Session &The(int level, std::uint32_t seed)
    {
        static std::map<std::pair<int, std::uint32_t>, Session> sessions;
        Session &session = sessions[{level, seed}];
        if (!session.Items.empty()) return session;
        Rules rules(level, seed);
        session.Set = rules.Set();
        for (; !rules.Set().Over(); rules.Next()) {
            session.Items.push_back(rules.Item());
            rules.Judge({});
        }
        return session;
    }

    const Session &m_Kept;
    Rounds m_Set;
};

/// A player between two others, or beyond them, in every number that describes one: Way is 0 at One and 1 at Other.
template <typename Player>
Player Between(const Player &One, const Player &Other, double Way)
{
    using Numbers = std::array<double, sizeof(Player) / sizeof(double)>;
    const auto from = std::bit_cast<Numbers>(One);
    const auto to = std::bit_cast<Numbers>(Other);
    Numbers made{};
    for (std::size_t i = 0; i < made.size(); ++i) made[i] = std::lerp(from[i], to[i], Way);
    return std::bit_cast<Player>(made);
}

/// Skill runs from 0, a learner, over 1, a good player, to 2, an expert.
template <typename Player>
Player Skilled(const Player &Learner, const Player &Good, const Player &Expert, double Skill)
{
    return Skill < 1 ? Between(Learner, Good, Skill) : Between(Good, Expert, Skill - 1);
}

/// Holds that the median never falls while the skill rises, but for the noise of a median of so many sessions.
template <typename MedianOf>
void ExpectSkillPays(const std::vector<double> &Skills, MedianOf MedianOfSkill, double Noise = 0)
{
    double best = 0;
    for (const double skill : Skills) {
        const double median = MedianOfSkill(skill);
        EXPECT_GE(median, best - Noise) << "skill " << skill;
        best = std::max(best, median);
    }
}
} // namespace Model
