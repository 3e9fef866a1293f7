#include "tools/checkgame/CheckApplication.h"

#include "platform/RuntimeError.h"

bool CheckApplication::notify(QObject *Receiver, QEvent *Event)
{
    try {
        return QApplication::notify(Receiver, Event);
    } catch (...) {
        if (Thrown) Thrown(DescriptionOf(std::current_exception()));
        return true;
    }
}
