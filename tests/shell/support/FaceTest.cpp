#include "tests/shell/support/FaceTest.h"

#include "shell/program/modMain.h"

#include "sdk/CGameArea.h"
#include "sdk/CSkinPic.h"

#include "skin/CSkin.h"
#include "skin/ScreenSize.h"
#include "skin/colSkin.h"

#include "domain/CGame.h"
#include "domain/colGame.h"

#include "shell/GameLibraries.h"

#include <QDir>
#include <QPainter>

namespace
{
const QString ClassName = QStringLiteral("Looking.GameArea");
const QString PlainSkin = QStringLiteral(NOGGLE_PLAIN_SKIN "/");
constexpr QRgb Key = 0xffff00ff;
} // namespace

class FaceTest::Area final : public CGameArea
{
public:
    Area(QWidget *container, FaceTest &test) : CGameArea(container), m_Test(test) {}
    void SetNoggleFrameWork(CNoggleFramework *Framework) override { m_Framework = Framework; }
    QVariant Message(const QString &Cmd, QVariant &, QVariant &) override
    {
        if (Cmd == u"changeskin") m_Test.SkinChanges.push_back({Background(), window()->pos()});
        return {};
    }

private:
    QImage Background() const
    {
        QImage picture(size() * devicePixelRatioF(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(devicePixelRatioF());
        picture.fill(Qt::cyan);
        QPainter painter(&picture);
        m_Framework->DrawBackground(&painter);
        return picture;
    }

    FaceTest &m_Test;
    CNoggleFramework *m_Framework = nullptr;
};

FaceTest::FaceTest()
{
    SetScreenSize(QSize(1600, 1200));
    RegisterGame(ClassName, [this](QWidget *container) {
        auto *const area = new Area(container, *this);
        GameControl = area;
        return area;
    });
    Program.GivenGame(QStringLiteral("looking"), {QStringLiteral("name=Looking"), QStringLiteral("component=Looking"),
                                                  QStringLiteral("timelimit=60"), QStringLiteral("levels=3"),
                                                  QStringLiteral("category=Memory")});
}

FaceTest::~FaceTest()
{
    RegisterGame(ClassName, {});
    SetScreenSize({});
}

void FaceTest::GivenSkin(const QString &Name, const QMap<QString, QByteArray> &Files)
{
    const QString folder = QStringLiteral("skins/") + Name + u'/';
    for (const QString &file : QDir(PlainSkin).entryList(QDir::Files))
        if (!Files.contains(file)) Program.Folder.Copy(PlainSkin + file, folder + file);
    for (auto file = Files.begin(); file != Files.end(); ++file)
        if (!file->isEmpty()) Program.Folder.Write(folder + file.key(), *file);
}

void FaceTest::StartWith(const QString &Skin)
{
    Program.Folder.Write(QStringLiteral("Settings.ini"), "[Settings]\r\nSkin=" + Skin.toUtf8() + "\r\n");
    ASSERT_TRUE(Program.Start()) << qPrintable(Program.PlainBoxes.join(u'|'));
    ASSERT_TRUE(modMain::CurrentSkin);
    ASSERT_EQ(modMain::CurrentSkin->Name(), Skin);
}

void FaceTest::ChangeTo(const QString &Skin)
{
    modMain::CurrentSkin = modMain::Skins->Item(Skin);
    Window().SetSkin(modMain::CurrentSkin);
}

std::shared_ptr<CGame> FaceTest::LookingGame() { return modMain::Games->GameByName(QStringLiteral("Looking")); }

void FaceTest::StartGame()
{
    Program.NewPlayer(QStringLiteral("Ann"));
    ASSERT_EQ(Window().Mode(), 2);
    Window().PlayGame(LookingGame(), 1);
    ASSERT_TRUE(GameControl);
}

QImage FaceTest::Shown() const
{
    const double scale = Window().devicePixelRatioF();
    QImage picture((QSizeF(Window().size()) * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    // What is rendered begins at the top left of what shows, not of the window.
    const QRegion shown = Window().mask() & Window().rect();
    if (!shown.isEmpty()) Window().render(&picture, shown.boundingRect().topLeft(), {}, QWidget::DrawChildren);
    return picture;
}

QImage FaceTest::Frame() { return modMain::CurrentSkin->Frame()->picture(); }

QStringList FaceTest::SkinNames()
{
    QStringList names;
    for (const auto &skin : *modMain::Skins) names << skin->Name();
    return names;
}

QByteArray FaceTest::PlainFrame(QSize Size, QRgb Colour)
{
    const QRect inside = QRect(QPoint(0, 0), Size).adjusted(10, 10, -10, -10);
    return GifBytes(Size, {Key, Colour}, [&](int x, int y) { return inside.contains(x, y) ? 1 : 0; });
}

QByteArray FaceTest::Positions(const QRect &GameArea)
{
    return QStringLiteral(
               "[Position]\r\nGameAreaLeft=%1\r\nGameAreaTop=%2\r\nGameAreaWidth=%3\r\nGameAreaHeight=%4\r\n")
        .arg(GameArea.x())
        .arg(GameArea.y())
        .arg(GameArea.width())
        .arg(GameArea.height())
        .toLatin1();
}

std::string Text(const QRect &Place)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(Place.x())
        .arg(Place.y())
        .arg(Place.width())
        .arg(Place.height())
        .toStdString();
}
