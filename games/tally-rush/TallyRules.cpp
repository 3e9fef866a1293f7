#include "TallyRules.h"

#include <algorithm>
#include <array>

namespace
{
struct LevelPlan
{
    int par;   // right answers for 100 points in a minute
    int tasks; // of a whole set: a quarter more than par, so that a swift player ends before the clock
};

// Measured with the model player of the tests: a good one gets about 100 points at every level.
constexpr std::array<LevelPlan, TallyRules::Levels> Plans{{
    {25, 32},
    {26, 33},
    {20, 25},
    {23, 29},
    {25, 32},
    {14, 18},
    {12, 15},
    {10, 13},
    {10, 13},
    {7, 9},
}};

// Drawn as people write them, not as programs do.
const QString Plus = QStringLiteral(" + ");
const QString Minus = QStringLiteral(" \u2212 ");
const QString Times = QStringLiteral(" \u00d7 ");
const QString Through = QStringLiteral(" \u00f7 ");

int Digits(int number) { return number < 10 ? 1 : number < 100 ? 2 : 3; }

// Columns to add or subtract, and one for a carry.
int ColumnSteps(int first, int second, bool carry)
{
    return std::min(Digits(first), Digits(second)) + (carry ? 1 : 0);
}

bool CarriesInSum(int first, int second) { return first % 10 + second % 10 > 9 && first + second > 19; }
bool BorrowsInDifference(int first, int second) { return first % 10 < second % 10 && first > 19; }

// Facts of a product by parts, and their sums.
int ProductSteps(int first, int second)
{
    const int facts = Digits(first) * Digits(second);
    return facts == 1 ? 1 : 2 * facts;
}
} // namespace

TallyRules::TallyRules(int Level, std::uint32_t Seed) : m_Level(std::clamp(Level, 1, Levels)), m_Random(Seed)
{
    m_Task = Make();
}

int TallyRules::Par(int Level) { return Plans.at(static_cast<std::size_t>(std::clamp(Level, 1, Levels) - 1)).par; }

int TallyRules::Tasks() const { return Plans.at(static_cast<std::size_t>(m_Level - 1)).tasks; }

int TallyRules::Points() const { return 100 * m_Right / Par(m_Level); }

bool TallyRules::Answer(int Result)
{
    if (Over()) return false;
    const bool right = Result == m_Task.Result;
    ++m_Done;
    if (right) ++m_Right;
    if (!Over()) Next();
    return right;
}

// Never the same task twice in a row: an answer given twice by mistake would be right.
void TallyRules::Next()
{
    const TallyTask last = m_Task;
    do m_Task = Make();
    while (m_Task.Text == last.Text || m_Task.Result == last.Result);
}

TallyTask TallyRules::Make()
{
    const int kind = Between(1, 3);
    switch (m_Level) {
    case 1:
        return Sum(1, 9, 1, 9);
    case 2:
        return kind == 1 ? Sum(2, 9, 2, 9) : Difference(5, 18, 2, 9);
    case 3:
        return kind == 1 ? Difference(11, 49, 2, 9) : Sum(11, 49, 2, 9);
    case 4:
        return kind == 1 ? Sum(11, 79, 3, 9) : Product(2, 5, 2, 9);
    case 5:
        return kind == 1 ? Quotient(2, 9) : Product(3, 9, 3, 9);
    case 6:
        return kind == 1 ? Difference(21, 69, 11, 39) : Sum(11, 59, 11, 39);
    case 7:
        return kind == 1 ? Product(11, 12, 3, 9) : kind == 2 ? Sum(26, 99, 26, 99) : Difference(51, 99, 13, 49);
    case 8:
        return kind == 1 ? Chain(5, 29) : ProductChain(2, 9, 2, 19);
    case 9:
        return kind == 1 ? ProductChain(4, 9, 11, 39) : Product(12, 29, 3, 9);
    default:
        return kind == 1 ? Product(23, 99, 4, 9) : kind == 2 ? Product(11, 15, 11, 19) : ProductChain(6, 12, 21, 79);
    }
}

TallyTask TallyRules::Sum(int low, int high, int lowSecond, int highSecond)
{
    const int first = Between(low, high);
    const int second = Between(lowSecond, highSecond);
    return {QString::number(first) + Plus + QString::number(second), first + second,
            ColumnSteps(first, second, CarriesInSum(first, second))};
}

// Never below 0: the larger one stands first.
TallyTask TallyRules::Difference(int low, int high, int lowSecond, int highSecond)
{
    const int one = Between(low, high);
    const int other = Between(lowSecond, highSecond);
    const int first = std::max(one, other);
    const int second = std::min(one, other);
    return {QString::number(first) + Minus + QString::number(second), first - second,
            ColumnSteps(first, second, BorrowsInDifference(first, second))};
}

TallyTask TallyRules::Product(int low, int high, int lowSecond, int highSecond)
{
    int first = Between(low, high);
    int second = Between(lowSecond, highSecond);
    const int steps = ProductSteps(first, second);
    if (m_Random.Coin()) std::swap(first, second);
    return {QString::number(first) + Times + QString::number(second), first * second, steps};
}

TallyTask TallyRules::Quotient(int low, int high)
{
    const int divisor = Between(low, high);
    const int result = Between(low, high);
    return {QString::number(divisor * result) + Through + QString::number(divisor), result, 1};
}

TallyTask TallyRules::Chain(int low, int high)
{
    const TallyTask sum = Sum(low, high, low, high);
    const int last = Between(2, 9);
    if (m_Random.Coin()) return {sum.Text + Plus + QString::number(last), sum.Result + last, sum.Steps + 2};
    return {sum.Text + Minus + QString::number(last), sum.Result - last, sum.Steps + 2};
}

TallyTask TallyRules::ProductChain(int low, int high, int lowLast, int highLast)
{
    const TallyTask product = Product(low, high, low, high);
    const int last = Between(lowLast, highLast);
    const int steps = product.Steps + Digits(last) + 1;
    if (last <= product.Result && m_Random.Coin())
        return {product.Text + Minus + QString::number(last), product.Result - last, steps};
    return {product.Text + Plus + QString::number(last), product.Result + last, steps};
}
