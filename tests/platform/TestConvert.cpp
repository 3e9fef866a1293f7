#include "platform/Convert.h"
#include "platform/RuntimeError.h"
#include "platform/Units.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>

namespace
{
// The number, or empty for a failure with that description.
template <typename Work>
auto Or(const QString &description, Work &&work) -> std::optional<decltype(work())>
{
    try {
        return work();
    } catch (const RuntimeError &error) {
        EXPECT_EQ(error.Description(), description);
        return {};
    }
}
const QString Overflow = QStringLiteral("Overflow.");
const QString Mismatch = QStringLiteral("Type mismatch.");

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr std::nullopt_t Fails = std::nullopt;
using Whole = std::optional<std::int32_t>;
} // namespace

TEST(Convert, RoundsHalvesToTheEvenNeighbour)
{
    struct Case
    {
        double number;
        Whole whole;
    };
    for (const Case &c : {
             Case{0, 0},
             Case{0.5, 0},
             Case{1.5, 2},
             Case{2.5, 2},
             Case{3.5, 4},
             Case{-0.5, 0},
             Case{-1.5, -2},
             Case{-2.5, -2},
             Case{0.49999999999999994, 0},
             Case{2.5000000001, 3},
             Case{2147483647.0, 2147483647},
             Case{2147483647.49, 2147483647},
             Case{2147483647.5, Fails},
             Case{2147483648.0, Fails},
             Case{-2147483648.5, std::numeric_limits<std::int32_t>::min()},
             Case{-2147483648.51, Fails},
             Case{-2147483649.0, Fails},
             Case{1e300, Fails},
             Case{Infinity, Fails},
             Case{-Infinity, Fails},
             Case{std::nan(""), Fails},
         })
        EXPECT_EQ(Or(Overflow, [&] { return ToInt32(c.number); }), c.whole) << c.number;
}

TEST(Convert, LargeIntegersFailInsteadOfWrapping)
{
    for (const std::int64_t edge : {2147483647LL, -2147483648LL}) EXPECT_EQ(ToInt32(edge), edge);
    for (const std::int64_t beyond : {2147483648LL, -2147483649LL, 4294967296LL})
        EXPECT_THROW(ToInt32(beyond), RuntimeError);
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16(-32768), -32768);
    for (const std::int32_t beyond : {32768, -32769, 65536}) EXPECT_THROW(ToInt16(beyond), RuntimeError);
}

TEST(Convert, LeadingNumberStopsAtWhatCantContinueIt)
{
    struct Case
    {
        const char *text;
        double number;
    };
    for (const Case &c : {
             Case{"", 0},
             Case{"abc", 0},
             Case{"12", 12},
             Case{"  12abc", 12},
             Case{"\t\r\n 7", 7},
             Case{"1 2", 1},
             Case{"-3.75x", -3.75},
             Case{"+4", 4},
             Case{"+ 4", 0},
             Case{"--4", 0},
             Case{".5", 0.5},
             Case{"5.", 5},
             Case{".", 0},
             Case{"-", 0},
             Case{"-.", 0},
             Case{"1.2.3", 1.2},
             Case{"1,5", 1},
             Case{"1e3", 1000},
             Case{"1E-2x", 0.01},
             Case{"1e", 1},
             Case{"1e+", 1},
             Case{"e3", 0},
             Case{"1d3", 1},
             Case{"0x10", 0},
             Case{"&HFF", 255},
             Case{"&hffG", 255},
             Case{" &H10", 16},
             Case{"&HFFFF", 65535},
             Case{"&HFFFFFF", 16777215},
             Case{"&H7FFFFFFF", 2147483647.0},
             Case{"&HFFFFFFFF", -1},
             Case{"&H80000005", -2147483643.0},
             Case{"&O17", 15},
             Case{"&o178", 15},
             Case{"&H", 0},
             Case{"&", 0},
             Case{"&X1", 0},
             Case{"-&H10", 0},
             Case{"16777215", 16777215},
             Case{"1e999", Infinity},
             Case{"inf", 0},
             Case{"nan", 0},
         })
        EXPECT_EQ(LeadingNumber(QString::fromUtf8(c.text)), c.number) << c.text;
    EXPECT_EQ(LeadingNumber(QStringLiteral("\u0661\u0662")), 0) << "digits of other scripts are none";
    EXPECT_EQ(LeadingNumber(QString(400, u'9')), Infinity);
    EXPECT_THROW(LeadingNumber(QStringLiteral("&H100000000")), RuntimeError);
    EXPECT_THROW(LeadingNumber(QStringLiteral("&H") + QString(100, u'F')), RuntimeError);
}

TEST(Convert, WholeNumberTakesTheWholeTextOrFails)
{
    struct Case
    {
        const char *text;
        Whole whole;
    };
    for (const Case &c : {
             Case{"60", 60},
             Case{" 60 ", 60},
             Case{"-5", -5},
             Case{"2.5", 2},
             Case{"3.5", 4},
             Case{"1e2", 100},
             Case{"0", 0},
             Case{"2147483647", 2147483647},
             Case{"", Fails},
             Case{"  ", Fails},
             Case{"abc", Fails},
             Case{"60s", Fails},
             Case{"6 0", Fails},
             Case{"1,5", Fails},
             Case{"1.2.3", Fails},
             Case{"-", Fails},
         })
        EXPECT_EQ(Or(Mismatch, [&] { return WholeNumber(QString::fromUtf8(c.text)); }), c.whole) << c.text;
    for (const char *large : {"2147483648", "-2147483649", "1e999"})
        EXPECT_FALSE(Or(Overflow, [&] { return WholeNumber(QString::fromUtf8(large)); })) << large;
}

TEST(Convert, PointsComeFromNumbersAndFromTextsThatStartWithOne)
{
    struct Case
    {
        QVariant answer;
        Whole points;
    };
    for (const Case &c : {
             Case{{}, 0},
             Case{42, 42},
             Case{-42, -42},
             Case{42U, 42},
             Case{42LL, 42},
             Case{42ULL, 42},
             Case{QVariant::fromValue(short{-7}), -7},
             Case{QVariant::fromValue<signed char>(-7), -7},
             Case{QVariant::fromValue<char>(7), 7},
             Case{QVariant::fromValue<ushort>(65535), 65535},
             Case{QVariant::fromValue<uchar>(255), 255},
             Case{QVariant::fromValue(42L), 42},
             Case{QVariant::fromValue(42UL), 42},
             Case{2.5, 2},
             Case{3.5F, 4},
             Case{-0.5, 0},
             Case{QStringLiteral("12 points"), 12},
             Case{QStringLiteral("2.5"), 2},
             Case{QStringLiteral("many"), 0},
             Case{QString(), 0},
             Case{QByteArray("17"), 17},
             Case{true, 0},
             Case{QVariantList{1, 2}, 0},
             Case{QVariant::fromValue(QChar(u'7')), 0},
             Case{QVariant::fromValue(nullptr), 0},
             Case{2147483648U, Fails},
             Case{2147483648LL, Fails},
             Case{~0ULL, Fails},
             Case{1e10, Fails},
             Case{Infinity, Fails},
             Case{std::nan(""), Fails},
             Case{QStringLiteral("99999999999"), Fails},
         })
        EXPECT_EQ(Or(Overflow, [&] { return NumberIn(c.answer); }), c.points)
            << c.answer.typeName() << ' ' << c.answer.toString().toStdString();
}

TEST(Convert, APixelIsFifteenTwips)
{
    EXPECT_EQ(ToPixels(Twips{15}), Pixels{1});
    EXPECT_EQ(ToPixels(Twips{7}), Pixels{0});
    EXPECT_EQ(ToPixels(Twips{8}), Pixels{1});
    EXPECT_EQ(ToPixels(Twips{-8}), Pixels{-1});
    EXPECT_EQ(ToTwips(Pixels{100}), Twips{1500});
}
