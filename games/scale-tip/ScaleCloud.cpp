#include "ScaleCloud.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double Spare = 1.22;            // places for each dot, so that gaps fall at random
constexpr double LeastGap = 1.5;          // between two dots
constexpr double WidestJitter = 0.34;     // of the distance between two places
constexpr double Closer = 0.97;           // the next try, where there were too few places
const double RowShare = std::sqrt(3) / 2; // of the distance between places, from row to row

double Share(SeededRandom &random) { return random.Between(0, 1000) / 1000.0; }

// A turned honeycomb, as far as it lies within the reach.
std::vector<QPointF> Honeycomb(SeededRandom &random, double pitch, double reach)
{
    const double turn = Share(random) * std::numbers::pi / 3;
    const QPointF along(pitch * std::cos(turn), pitch * std::sin(turn));
    const QPointF across(-RowShare * along.y(), RowShare * along.x());
    const QPointF shift = Share(random) * along + Share(random) * across;
    std::vector<QPointF> places;
    places.reserve(64);
    const int rows = static_cast<int>(reach / (pitch * RowShare)) + 2;
    const int columns = static_cast<int>(reach / pitch) + 2;
    for (int row = -rows; row <= rows; ++row) {
        const QPointF first = shift + row * across + (row % 2 == 0 ? 0 : 0.5) * along;
        for (int column = -columns; column <= columns; ++column) {
            const QPointF place = first + column * along;
            if (QPointF::dotProduct(place, place) <= reach * reach) places.push_back(place);
        }
    }
    return places;
}
} // namespace

// Dots thrown one by one would crowd where many have to fit into a small field; a honeycomb with gaps, each place
// shaken as far as it may, looks as loose and always ends.
std::vector<ScaleDot> ScaleCloud::Scatter(SeededRandom &Random, int Count, double Field, double Dot)
{
    const auto count = static_cast<std::size_t>(Count);
    const double largest = Dot * (1 + Swing);
    const double area = std::numbers::pi * Field * Field / (Spare * Count);
    std::vector<QPointF> places;
    double jitter = 0;
    for (double pitch = std::sqrt(area / RowShare); places.size() < count; pitch *= Closer) {
        jitter = std::clamp((pitch - LeastGap) / 2 - largest, 0.0, WidestJitter * pitch);
        places = Honeycomb(Random, pitch, Field - largest - jitter);
    }
    Random.Shuffle(places);
    std::vector<ScaleDot> dots;
    dots.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double way = jitter * std::sqrt(Share(Random));
        const double angle = 2 * std::numbers::pi * Share(Random);
        const QPointF place = places[i] + way * QPointF(std::cos(angle), std::sin(angle));
        dots.push_back({place, Dot * (1 - Swing + 2 * Swing * Share(Random))});
    }
    return dots;
}
