// Takes the tour's pictures: "01-splash.png", "02-choice-of-player.png" and so on, in the order in which they are
// taken.
//
// On a display a picture is a piece of the screen, so that it shows the outline of the windows; a plain ground is
// laid behind them for that. Where the screen can't be read the windows are drawn into the picture instead. To be
// used on the interface thread.
#pragma once

#include <QDir>
#include <QImage>
#include <QString>

#include <memory>

class QRasterWindow;

class Camera
{
public:
    /// First: the number of the first picture.
    Camera(const QString &Folder, int First);
    ~Camera();

    /// False for one plain colour where a window should be: the display may bring it a moment later.
    bool SeesSomething() const;
    /// Failure: passed on, when a picture can't be written.
    void Take(const QString &Name);
    int Next() const { return m_Next; }

private:
    QImage Look() const;

    std::unique_ptr<QRasterWindow> m_Ground;
    QDir m_Folder;
    int m_Next;
};
