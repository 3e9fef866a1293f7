#include "tests/games/stage/Stage.h"

#include "services/modIniFile.h"
#include "shell/program/modMain.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>

QString WithSeed(const QString &Folder, std::uint32_t Seed)
{
    static const QTemporaryDir copies;
    const QString name = QDir(Folder).dirName();
    QString copy = QStringLiteral("%1/%2/%3/").arg(copies.path()).arg(Seed).arg(name);
    if (QDir(copy).exists()) return copy;
    for (const char *part : {"", "sounds/"}) {
        EXPECT_TRUE(QDir().mkpath(copy + QLatin1String(part)));
        const QDir from(Folder + QLatin1String(part));
        for (const QString &file : from.entryList(QDir::Files))
            EXPECT_TRUE(QFile::copy(from.filePath(file), copy + QLatin1String(part) + file)) << qPrintable(file);
    }
    const QString settings = copy + QStringLiteral("GameSettings.ini");
    QFile::setPermissions(settings, QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_TRUE(WriteIniString(QStringLiteral("config"), QStringLiteral("seed"), QString::number(Seed), settings));
    return copy;
}

Stage::Stage(const QString &ClassName, const QString &Folder, QSize Size)
    : Framework(PlayedFramework::Install(Folder))
{
    Container.resize(Size);
    Container.show();
    Game = CreateGame(ClassName, Folder, &Container);
    Game->SetNoggleFrameWork();
    Game->Move(0, 0, Size.width(), Size.height());
    Game->SetVisible(true);
}

Stage::Stage(const QString &Folder, QSize Size)
    : Stage(ReadIniString(QStringLiteral("config"), QStringLiteral("component"), {},
                          Folder + QStringLiteral("GameSettings.ini")) +
                QStringLiteral(".GameArea"),
            Folder, Size)
{}

Stage::~Stage()
{
    Game.reset();
    Turn(0);
    modMain::Framework.reset();
    modMain::Language.clear();
}

void Stage::Type(int Number)
{
    for (const QChar digit : QString::number(Number)) Key(digit.unicode());
    Key(13);
}

void Stage::Click(QPoint Place) { QTest::mouseClick(Game->Control(), Qt::LeftButton, {}, Place); }

QPoint Stage::At(QPointF Place) const
{
    constexpr QSizeF Design(620, 420);
    const QSizeF whole = Game->Control()->size();
    const QSizeF drawn = Design.scaled(whole, Qt::KeepAspectRatio);
    const QPointF origin((whole.width() - drawn.width()) / 2, (whole.height() - drawn.height()) / 2);
    return (origin + Place * (drawn.width() / Design.width())).toPoint();
}

void Stage::Resize(QSize Size)
{
    Container.resize(Size);
    Game->Move(0, 0, Size.width(), Size.height());
}

QImage Stage::Picture()
{
    QImage picture(Game->Control()->size(), QImage::Format_RGB32);
    Game->Control()->render(&picture);
    return picture;
}

void Stage::Dress(bool Dark) const
{
    Framework->Top = Dark ? QColor(0x10, 0x1a, 0x24) : QColor(0xfa, 0xfd, 0xfb);
    Framework->Bottom = Dark ? QColor(0x1c, 0x2a, 0x3a) : QColor(0xe0, 0xf0, 0xe8);
    modMain::Language = Dark ? QStringLiteral("1") : QString();
}

void Stage::ExpectWords(std::initializer_list<const char *> Names) const
{
    for (const char *name : Names)
        for (const char *section : {"default", "1"})
            EXPECT_FALSE(Framework->GetSetting(QLatin1String(section), QLatin1String(name)).isEmpty()) << name;
}

void Stage::Keep(const QString &Name)
{
    if (IsSeen()) Picture().save(qEnvironmentVariable("NOGGLE_PICTURES") + u'/' + Name + QStringLiteral(".png"));
}

bool Stage::IsSeen() { return !qEnvironmentVariableIsEmpty("NOGGLE_PICTURES"); }

void Stage::UnloadAtTheEnd(const std::function<void()> &First)
{
    Framework->GameOver = [this, First] {
        First();
        Game->Message(QStringLiteral("unload"));
        Game->Unload();
    };
}

bool Stage::Until(const std::function<bool()> &Reached) { return QTest::qWaitFor(Reached, Patience); }

bool Stage::Moves() const
{
    return std::ranges::any_of(Game->Control()->findChildren<QTimer *>(), &QTimer::isActive);
}

bool Stage::UntilStill() const
{
    return Until([this] { return !Moves(); });
}

void Stage::Turn(int Milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(Milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}
