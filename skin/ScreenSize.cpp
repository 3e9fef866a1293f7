#include "skin/ScreenSize.h"

#include <QGuiApplication>
#include <QScreen>

namespace
{
QSize g_Size;
}

QSize ScreenSize()
{
    if (!g_Size.isEmpty()) return g_Size;
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->geometry().size() : QSize(0, 0);
}

void SetScreenSize(const QSize &Size) { g_Size = Size; }
