#include "tools/checkgame/Plan.h"

#include "sdk/author/SeededRandom.h"

#include <array>

namespace
{
constexpr std::array Events{Act::Key, Act::Click, Act::Skin, Act::Score, Act::Resize, Act::Pause};
constexpr std::size_t LongestOrder = 3;
constexpr int LongestRandom = 40;

/// All orders of events, the shortest first.
const std::vector<std::vector<Act>> &Orders()
{
    static const std::vector<std::vector<Act>> orders = [] {
        std::vector<std::vector<Act>> all{{}};
        for (std::size_t i = 0; i < all.size() && all[i].size() < LongestOrder; ++i) {
            for (const Act event : Events) {
                std::vector<Act> longer = all[i];
                longer.push_back(event);
                all.push_back(longer);
            }
        }
        return all;
    }();
    return orders;
}

int OrdersAndEndings() { return 1 + 2 * static_cast<int>(Orders().size()); }

Act RandomAct(SeededRandom &random)
{
    if (random.Between(1, 3) == 1) return Act::Turn;
    if (random.Coin()) return random.Coin() ? Act::Key : Act::Click; // what a player does most
    return Events[static_cast<std::size_t>(random.Between(0, static_cast<int>(Events.size()) - 1))];
}
} // namespace

int SessionsForAllOrders() { return OrdersAndEndings() * 3 / 2 + 1; }

Plan PlanOf(int Number, std::uint32_t Seed, int Levels)
{
    SeededRandom random(Seed * 1'000'003u + static_cast<std::uint32_t>(Number));
    Plan plan;
    plan.Number = Number;
    plan.Level = 1 + (Number - 1) % Levels;
    plan.Seed = static_cast<std::uint32_t>(random.Between(0, 0x7fffffff));
    const int place = (Number - 1) / 3 * 2 + (Number - 1) % 3; // two of three
    if (Number % 3 != 0 && place < OrdersAndEndings()) {
        if (place == 0) {
            plan.End = Ending::AbandonBeforeStart;
            return plan;
        }
        plan.End = place % 2 == 1 ? Ending::TimeUp : Ending::Abandon;
        plan.Acts = Orders()[static_cast<std::size_t>((place - 1) / 2)];
        return plan;
    }
    plan.End = random.Between(1, 4) == 1 ? Ending::Abandon : Ending::TimeUp;
    for (int left = random.Between(1, LongestRandom); left > 0; --left) plan.Acts.push_back(RandomAct(random));
    return plan;
}
