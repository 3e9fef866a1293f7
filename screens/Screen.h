// What the screens have in common: the ground under them, the words, the click's sound, and rows that may be more
// than fit.
#pragma once

#include "shell/program/modMain.h"

#include <QImage>
#include <QString>
#include <QWidget>

#include <cstdint>

class LarkButton;

class Screen : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE SetScaleMode)

public:
    explicit Screen(QWidget *Container);

    /// The surface that the screen is painted on.
    QPaintDevice *hdc() { return this; }
    /// The unit of the screen's own layout as the forms have it: 1 twips, 3 pixels. Kept, and changes nothing.
    int ScaleMode() const { return m_ScaleMode; }
    void SetScaleMode(int ScaleMode) { m_ScaleMode = ScaleMode; }
    /// Makes the boxes of text, whose fonts take longer to load than all else of a screen: a start has no use for
    /// them. They come with the first show, or with this call. Nothing once they are there.
    void MakeTextBoxes();

protected:
    /// For the screens that have some: makes them, shown and in their place among the others.
    virtual void MakeBoxes() {}
    /// Copies the game area's background from under the screen. Without a main window, or without a background, the
    /// ground is a plain light one.
    void CopyBackground();
    /// Lays the controls out for the present size.
    virtual void Arrange() = 0;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool m_HasBoxes = false;
    QImage m_Ground;          // the whole game area's, as it was when it was copied; shared with the main window
    QRect m_Place;            // of the screen in it
    QImage m_Part;            // what lies there, where the display has a scale
    bool m_OwnGround = false; // a screen that never copied lets the game area show through
    int m_ScaleMode = 3;
};

using modMain::Word;
/// The sound of a button.
void Beep();
/// Gives a button the skin's pictures, where there is a service object to do so.
void Skin(LarkButton *Button, const QString &Name = {});
