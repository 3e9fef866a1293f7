#include "Camera.h"

#include "TourFailure.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QRasterWindow>
#include <QScreen>
#include <QWidget>

namespace
{
constexpr int Margin = 24; // [px] of the ground around the windows
const QColor GroundColour(0x5b, 0x6b, 0x7a);

// Not managed by the desktop, so that it gets no frame, no focus and no place above another window.
class Ground final : public QRasterWindow
{
public:
    Ground()
    {
        setFlags(Qt::X11BypassWindowManagerHint | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                 Qt::WindowDoesNotAcceptFocus);
        setGeometry(QGuiApplication::primaryScreen()->geometry());
        show();
        lower();
    }

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(QRect(QPoint(0, 0), size()), GroundColour); }
};

bool ScreenCanBeRead() { return QGuiApplication::platformName() == u"xcb"; }

// The main window first, what lies over it later.
QWidgetList VisibleWindows()
{
    QWidgetList windows;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->isMinimized()) continue;
        window->isModal() ? windows.append(window) : windows.prepend(window);
    }
    return windows;
}

QImage Drawn(const QWidgetList &windows, const QRect &place)
{
    QImage picture(place.size(), QImage::Format_RGB32);
    picture.fill(GroundColour);
    QPainter painter(&picture);
    for (QWidget *window : windows) {
        QImage face(window->size(), QImage::Format_ARGB32_Premultiplied);
        face.fill(Qt::transparent);
        window->render(&face); // the only way that keeps to the window's outline
        painter.drawImage(window->pos() - place.topLeft(), face);
    }
    return picture;
}

bool IsPlain(const QImage &picture)
{
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != picture.pixel(0, 0)) return false;
    return true;
}
} // namespace

Camera::Camera(const QString &Folder, int First)
    : m_Ground(ScreenCanBeRead() ? std::make_unique<Ground>() : nullptr), m_Folder(Folder), m_Next(First)
{}

Camera::~Camera() = default;

QImage Camera::Look() const
{
    QScreen *const screen = QGuiApplication::primaryScreen();
    const QWidgetList windows = VisibleWindows();
    // Dialogs lie over the main window, and where they are is not known as soon as they are seen.
    QRect place;
    for (const QWidget *window : windows)
        if (place.isEmpty() || !window->isModal()) place |= window->geometry();
    if (place.isEmpty()) place = screen->geometry().adjusted(Margin, Margin, -Margin, -Margin);
    place.adjust(-Margin, -Margin, Margin, Margin);
    if (!m_Ground) return Drawn(windows, place);
    place &= screen->geometry();
    return screen->grabWindow(0, place.x(), place.y(), place.width(), place.height()).toImage();
}

bool Camera::SeesSomething() const { return VisibleWindows().isEmpty() || !IsPlain(Look()); }

void Camera::Take(const QString &Name)
{
    const QString file = QStringLiteral("%1-%2.png").arg(m_Next++, 2, 10, QLatin1Char('0')).arg(Name);
    if (!Look().save(m_Folder.filePath(file))) throw TourFailure(file + QStringLiteral(" can't be written."));
}
