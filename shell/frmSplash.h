// The first window: one picture, shown while the program starts.
#pragma once

#include "sdk/controls/PictureBox.h"

#include <QWidget>

class frmSplash : public QWidget
{
    Q_OBJECT

public:
    frmSplash();
    /// Takes the picture from the language module, its size from the picture, the middle of the primary screen, and
    /// notes the time in SplashTime. Without a picture the window stays 1 x 1. Failure: passed on.
    void Load();

private:
    PictureBox *picSplash;
};
