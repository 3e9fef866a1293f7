// Random numbers from a seed, the same on every machine: a level and a seed give one board everywhere.
#pragma once

#include <cstdint>
#include <random>
#include <utility>

class SeededRandom
{
public:
    explicit SeededRandom(std::uint32_t Seed) : m_Engine(Seed) {}

    /// A whole number from Low to High, both included, each as likely as the others. Low must not be above High.
    // The library's own distributions differ between compilers.
    int Between(int Low, int High)
    {
        const auto choices = static_cast<std::uint64_t>(static_cast<std::int64_t>(High) - Low + 1);
        return static_cast<int>(Low + static_cast<std::int64_t>((choices * m_Engine()) >> 32));
    }
    bool Coin() { return Between(0, 1) == 1; }
    /// Every order is as likely as the others; of a std::vector, std::array or std::span.
    template <typename List>
    void Shuffle(List &&Values)
    {
        for (std::size_t i = Values.size(); i > 1; --i)
            std::swap(Values[i - 1], Values[static_cast<std::size_t>(Between(0, static_cast<int>(i) - 1))]);
    }

private:
    std::mt19937 m_Engine;
};
