#include "tests/skin/SkinTest.h"

#include "platform/Files.h"
#include "platform/Step.h"
#include "services/CResource.h"
#include "services/colSound.h"
#include "shell/program/modMain.h"
#include "skin/ScreenSize.h"
#include "skin/colSkin.h"

#include <QDir>
#include <QImage>

namespace
{
const QString Delivered = QStringLiteral(NOGGLE_DIST "/");
const QString PictureFolderVariable = QStringLiteral("NOGGLE_TEST_PICTURES");

void Set(QObject *object, const char *property, const QImage &picture)
{
    object->setProperty(property, QVariant::fromValue(picture));
}
} // namespace

void SkinningFramework::SkinButton(QObject *But, const QString &Name)
{
    const auto skin = modMain::CurrentSkin;
    if (!skin) return;
    const bool isWide = But->property("width").toInt() > 60;
    const auto up = [&] { return isWide ? skin->VeryWideButton() : skin->WideButton(); };
    const auto down = [&] { return isWide ? skin->VeryWideButtonPressed() : skin->WideButtonPressed(); };
    Step([&] { Set(But, "PictureUp", Name.isEmpty() ? up() : skin->Pic(Name)); });
    Step([&] { Set(But, "PictureDown", Name.isEmpty() ? down() : skin->Pic(Name + QStringLiteral("Down"))); });
}

void SkinningFramework::SkinPicbox(QObject *Pic, const QString &Name)
{
    const auto skin = modMain::CurrentSkin;
    if (!skin) return;
    Step([&] { Set(Pic, "PictureFile", Name.isEmpty() ? skin->DialogPicture() : skin->Pic(Name)); });
}

SkinTest::SkinTest()
{
    modMain::Framework = std::make_shared<SkinningFramework>();
    modMain::Resources = std::make_shared<CResource>();
    modMain::Resources->SetLibraryFilePath(Delivered + QStringLiteral("0.dll"));
    ForgetSounds();
}

SkinTest::~SkinTest()
{
    modMain::CurrentSkin = nullptr;
    modMain::Skins = nullptr;
    modMain::ShellSounds = nullptr;
    modMain::Resources = nullptr;
    modMain::Framework = nullptr;
    SetScreenSize({});
}

void SkinTest::ForgetSounds()
{
    modMain::ShellSounds = std::make_shared<colSound>(true);
    modMain::ShellSounds->SetPath(Delivered);
}

// An effect is loaded when it is first played.
bool SkinTest::Heard(const QString &name) const
{
    return Step([&] { modMain::ShellSounds->Remove(name); });
}

void SkinTest::GivenSkin(const QString &name, const QByteArray &settings)
{
    const QString folder = QStringLiteral("skins/") + name + u'/';
    for (const char *file : {"ButtonBackground.gif", "ButtonHighlight.gif", "ButtonSelected.gif"})
        m_Folder.Write(folder + QLatin1String(file), Gif(200, 40));
    m_Folder.Write(folder + QStringLiteral("Skin.ini"), settings);
}

void SkinTest::GivenDeliveredSkin(const QString &name)
{
    const QString folder = QStringLiteral("skins/") + name + u'/';
    const QString source = QStringLiteral(NOGGLE_SKINS "/") + name + u'/';
    for (const QString &file : EntriesOf(source)) m_Folder.Copy(source + file, folder + file);
    modMain::CurrentSkin = std::make_shared<CSkin>();
    modMain::CurrentSkin->SetName(name);
}

void SkinTest::Keep(QWidget &window, const QString &name)
{
    const QString folder = qEnvironmentVariable(qPrintable(PictureFolderVariable));
    if (folder.isEmpty()) return;
    QDir().mkpath(folder);
    QImage picture(window.size(), QImage::Format_ARGB32);
    picture.fill(0xff5c6470);
    window.render(&picture);
    picture.save(folder + u'/' + name + QStringLiteral(".png"));
}
