#include "shell/frmSplash.h"

#include "platform/Clock.h"
#include "services/CResource.h"
#include "shell/program/modMain.h"

#include <QGuiApplication>
#include <QScreen>

namespace
{
constexpr std::int16_t SplashPicture = 1001;
}

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), picSplash(new PictureBox(this))
{
    setObjectName(QStringLiteral("frmSplash"));
    picSplash->setObjectName(QStringLiteral("picSplash"));
}

void frmSplash::Load()
{
    const QImage picture = modMain::Resources->LoadJPEG(SplashPicture);
    picSplash->Setpicture(picture);
    picSplash->resize(picture.isNull() ? QSize(1, 1) : picture.size());
    resize(picSplash->size());
    move(QGuiApplication::primaryScreen()->geometry().center() - rect().center());
    modMain::SplashTime = Timer();
}
