#include "services/modWheel.h"

#include "platform/Convert.h"
#include "platform/Step.h"

#include <QMetaMethod>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>

#include <array>
#include <utility>

namespace
{
constexpr int HalfWord = 65536;
constexpr std::int32_t LowHalf = HalfWord - 1;

class Hook final : public QObject
{
public:
    QPointer<QWidget> Form;
    bool eventFilter(QObject *receiver, QEvent *event) override { return modWheel::WheelProc(receiver, event); }
};

Hook &TheHook()
{
    static Hook hook;
    return hook;
}

std::int32_t KeysOf(const QWheelEvent &event)
{
    constexpr std::array buttons{std::pair{Qt::LeftButton, 0x01}, std::pair{Qt::RightButton, 0x02},
                                 std::pair{Qt::MiddleButton, 0x10}, std::pair{Qt::BackButton, 0x20},
                                 std::pair{Qt::ForwardButton, 0x40}};
    constexpr std::array modifiers{std::pair{Qt::ShiftModifier, 0x04}, std::pair{Qt::ControlModifier, 0x08}};
    std::int32_t keys = 0;
    for (const auto &[button, bit] : buttons) keys |= event.buttons().testFlag(button) ? bit : 0;
    for (const auto &[modifier, bit] : modifiers) keys |= event.modifiers().testFlag(modifier) ? bit : 0;
    return keys;
}

// Each half keeps its low 16 bits, as a place left of the first screen or a fast wheel has them.
std::int32_t Packed(int high, int low)
{
    const auto half = static_cast<std::int16_t>(high);
    return half * HalfWord + (low & LowHalf);
}

modWheel::Turn TurnOf(const QWheelEvent &event)
{
    const QPoint place = event.globalPosition().toPoint();
    return {Packed(event.angleDelta().y(), KeysOf(event)), Packed(place.y(), place.x())};
}
// By its name at run time; whoever has none is hooked in vain.
QMetaMethod MouseWheelOf(const QObject &form)
{
    constexpr int numbers = 4;
    const QMetaObject &type = *form.metaObject();
    for (int i = type.methodCount() - 1; i >= 0; --i)
        if (type.method(i).name() == "MouseWheel" && type.method(i).parameterCount() == numbers)
            return type.method(i);
    return {};
}

struct Told
{
    std::int32_t Rotation = 0;
    std::int32_t Keys = 0;
    std::int32_t Y = 0;
    std::int32_t X = 0;
};

Told TakenApart(const modWheel::Turn &message)
{
    const auto rounded = [](std::int32_t packed) { return ToInt32(static_cast<double>(packed) / HalfWord); };
    return {rounded(message.wParam), message.wParam & LowHalf, rounded(message.lParam), message.lParam & LowHalf};
}

void Tell(QObject &form, const Told &told)
{
    const QMetaMethod method = MouseWheelOf(form);
    if (!method.isValid()) return;
    Step([&] {
        method.invoke(&form, Qt::DirectConnection, Q_ARG(std::int32_t, told.Rotation), Q_ARG(std::int32_t, told.Keys),
                      Q_ARG(std::int32_t, told.Y), Q_ARG(std::int32_t, told.X));
    });
}
} // namespace

void modWheel::HookWheel(QWidget *Form)
{
    UnhookWheel();
    if (Form == nullptr) return;
    TheHook().Form = Form;
    Form->installEventFilter(&TheHook());
}

void modWheel::UnhookWheel()
{
    if (TheHook().Form) TheHook().Form->removeEventFilter(&TheHook());
    TheHook().Form.clear();
}

QWidget *modWheel::HookedForm() { return TheHook().Form; }

bool modWheel::WheelProc(QObject *Form, QEvent *Event)
{
    if (Event->type() != QEvent::Wheel) return false;
    const auto &wheel = *static_cast<QWheelEvent *>(Event);
    // A wheel turned sideways is another event to the desktop, and no number of MouseWheel would tell it from this
    // one.
    if (wheel.angleDelta().y() == 0) return false;
    Told told = TakenApart(TurnOf(wheel));
    told.Y = wheel.globalPosition().toPoint().y(); // left of the first screen the packed one is a pixel too low
    Tell(*Form, told);
    return false;
}

void modWheel::WheelProc(QObject *Form, const Turn &Message) { Tell(*Form, TakenApart(Message)); }
