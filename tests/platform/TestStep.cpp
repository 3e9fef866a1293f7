#include "platform/RuntimeError.h"
#include "platform/Step.h"

#include <gtest/gtest.h>

#include <stdexcept>

TEST(Step, TheNextStepRunsAfterAFailure)
{
    int ran = 0;
    EXPECT_FALSE(Step([&] {
        ++ran;
        throw RuntimeError(QStringLiteral("broken"));
    }));
    EXPECT_TRUE(Step([&] { ++ran; }));
    EXPECT_EQ(ran, 2);
}

TEST(Step, EndsWhateverIsThrown)
{
    EXPECT_FALSE(Step([] { throw std::runtime_error("foreign"); }));
    EXPECT_FALSE(Step([] { throw 42; }));
}

TEST(Step, AFailureHasASentenceWhateverItIs)
{
    const auto described = [](auto failure) { return DescriptionOf(std::make_exception_ptr(failure)); };
    EXPECT_EQ(described(RuntimeError(6, {}, QStringLiteral("Overflow."))), u"Overflow.");
    EXPECT_EQ(described(std::runtime_error("caf\xC3\xA9")), QStringLiteral("caf\u00E9"));
    EXPECT_EQ(described(42), u"Unknown failure.");
    EXPECT_EQ(DescriptionOf({}), QString());
}
