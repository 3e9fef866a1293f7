// The wheel hook: what it tells a form, and that nothing is lost by it.
#include "services/modWheel.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>

#include <memory>
#include <stdexcept>
#include <vector>

namespace
{
using Told = std::vector<std::vector<int>>;

// Counts what reaches the window itself, which is where events went before the hook.
class Reached : public QWidget
{
public:
    int Wheels = 0;

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        ++Wheels;
        event->ignore();
    }
};

class FormWithWheel : public Reached
{
    Q_OBJECT

public:
    Q_INVOKABLE void MouseWheel(std::int32_t Rotation, std::int32_t Keys, std::int32_t Y, std::int32_t X)
    {
        Calls.push_back({Rotation, Keys, Y, X});
        if (Throws) throw std::runtime_error("no wheel, please");
    }
    Told Calls;
    bool Throws = false;
};

void Turn(QWidget &window, QPoint angle, QPoint screen = {30, 40}, Qt::MouseButtons buttons = {},
          Qt::KeyboardModifiers modifiers = {})
{
    QWheelEvent event(QPointF(3, 4), QPointF(screen), QPoint(), angle, buttons, modifiers, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&event); // as one of the desktop: Qt passes no other on to the parents
    QCoreApplication::instance()->notify(&window, &event);
}
} // namespace

TEST(Wheel, TellsTheFormRotationKeysAndPlace)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    Turn(form, {0, 120}, {300, 40});
    Turn(form, {0, -240}, {300, 40}, Qt::LeftButton, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(form.Calls, (Told{{120, 0, 40, 300}, {-240, 0x0D, 40, 300}}));
    modWheel::UnhookWheel();
}

TEST(Wheel, ReachesTheOldProcedureWithAMethodOnTheForm)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    Turn(form, {0, 120});
    EXPECT_EQ(form.Wheels, 1);
    modWheel::UnhookWheel();
}

TEST(Wheel, ReachesTheOldProcedureWithoutAMethodOnTheForm)
{
    Reached form;
    modWheel::HookWheel(&form);
    Turn(form, {0, 120});
    EXPECT_EQ(form.Wheels, 1);
    modWheel::UnhookWheel();
}

TEST(Wheel, ReachesTheOldProcedureWhenTheMethodFails)
{
    FormWithWheel form;
    form.Throws = true;
    modWheel::HookWheel(&form);
    Turn(form, {0, 120});
    EXPECT_EQ(form.Calls.size(), 1U);
    EXPECT_EQ(form.Wheels, 1);
    modWheel::UnhookWheel();
}

TEST(Wheel, IsToldOnceForAFormThatWasHookedTwice)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    modWheel::HookWheel(&form);
    Turn(form, {0, 120});
    EXPECT_EQ(form.Calls.size(), 1U);
    modWheel::UnhookWheel();
    Turn(form, {0, 120});
    EXPECT_EQ(form.Calls.size(), 1U);
    EXPECT_EQ(form.Wheels, 2);
}

TEST(Wheel, BelongsToTheFormHookedLast)
{
    FormWithWheel first;
    FormWithWheel second;
    modWheel::HookWheel(&first);
    modWheel::HookWheel(&second);
    Turn(first, {0, 120});
    Turn(second, {0, 120});
    EXPECT_TRUE(first.Calls.empty());
    EXPECT_EQ(second.Calls.size(), 1U);
    modWheel::UnhookWheel();
}

TEST(Wheel, UnhooksWhatWasNeverHookedOrIsGone)
{
    modWheel::UnhookWheel();
    modWheel::HookWheel(nullptr);
    modWheel::HookWheel(std::make_unique<FormWithWheel>().get());
    modWheel::UnhookWheel();
    FormWithWheel form;
    modWheel::HookWheel(&form);
    Turn(form, {0, 120});
    EXPECT_EQ(form.Calls.size(), 1U);
    modWheel::UnhookWheel();
}

TEST(Wheel, EveryButtonAndKeyHasItsBit)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton})
        Turn(form, {0, 120}, {}, button);
    for (const auto key : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        Turn(form, {0, 120}, {}, {}, key);
    std::vector<int> bits;
    for (const auto &call : form.Calls) bits.push_back(call[1]);
    EXPECT_EQ(bits, (std::vector<int>{0x01, 0x02, 0x10, 0x20, 0x40, 0x04, 0x08, 0}));
    modWheel::UnhookWheel();
}

TEST(Wheel, ATouchpadsSmallTurnsAreToldAsTheyCome)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    for (const int step : {1, -1, 7, -15}) Turn(form, {0, step});
    EXPECT_EQ(form.Calls, (Told{{1, 0, 40, 30}, {-1, 0, 40, 30}, {7, 0, 40, 30}, {-15, 0, 40, 30}}));
    modWheel::UnhookWheel();
}

TEST(Wheel, ATurnLeftOfOrAboveTheFirstScreenTellsItsTrueHeight)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    Turn(form, {0, 120}, {-1, 40});
    Turn(form, {0, 120}, {-1280, 40}, Qt::LeftButton);
    Turn(form, {0, -120}, {30, -5});
    EXPECT_EQ(form.Calls, (Told{{120, 0, 40, 65535}, {120, 1, 40, 64256}, {-120, 0, -5, 30}}));
    modWheel::UnhookWheel();
}

TEST(Wheel, TurnedSidewaysIsNoTurn)
{
    FormWithWheel form;
    modWheel::HookWheel(&form);
    Turn(form, {120, 0});
    EXPECT_TRUE(form.Calls.empty());
    EXPECT_EQ(form.Wheels, 1);
    modWheel::UnhookWheel();
}

TEST(Wheel, ATurnOverAControlThatDoesNotUseItReachesTheForm)
{
    FormWithWheel form;
    auto *const control = new QWidget(&form);
    modWheel::HookWheel(&form);
    Turn(*control, {0, 120});
    EXPECT_EQ(form.Calls.size(), 1U);
    modWheel::UnhookWheel();
}

// Two halves of 16 bits: the high one is rounded with the low one behind its point, so a low half beyond the middle
// takes it one up.
TEST(Wheel, TakesTheNumbersApart)
{
    struct Row
    {
        modWheel::Turn Message;
        std::vector<int> Told;
    };
    const std::vector<Row> rows{
        {{120 * 65536, 0}, {120, 0, 0, 0}},
        {{-120 * 65536, 0}, {-120, 0, 0, 0}},
        {{120 * 65536 + 8, 50 * 65536 + 70}, {120, 8, 50, 70}},
        {{-120 * 65536 + 8, 50 * 65536 + 70}, {-120, 8, 50, 70}},
        {{0, 50 * 65536 + 32767}, {0, 0, 50, 32767}},
        {{0, 50 * 65536 + 32768}, {0, 0, 50, 32768}}, // half-way goes to the even side
        {{0, 51 * 65536 + 32768}, {0, 0, 52, 32768}},
        {{0, 50 * 65536 + 65535}, {0, 0, 51, 65535}}, // one pixel left of the first screen
        {{0, -1}, {0, 0, 0, 65535}},
        {{INT32_MAX, INT32_MIN}, {32768, 65535, -32768, 0}},
    };
    for (const Row &row : rows) {
        FormWithWheel form;
        modWheel::WheelProc(&form, row.Message);
        EXPECT_EQ(form.Calls, Told{row.Told}) << row.Message.wParam << " " << row.Message.lParam;
    }
}

#include "TestWheel.moc"
