#include "tests/games/stage/Stage.h"

#include "shell/program/modMain.h"

#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <algorithm>

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

void Stage::Keep(const QString &Name)
{
    const QString folder = qEnvironmentVariable("NOGGLE_PICTURES");
    if (!folder.isEmpty()) Picture().save(folder + u'/' + Name + QStringLiteral(".png"));
}

bool Stage::Until(const std::function<bool()> &Reached)
{
    constexpr int Patience = 60000; // [ms]
    return QTest::qWaitFor(Reached, Patience);
}

bool Stage::UntilStill() const
{
    const auto timers = Game->Control()->findChildren<QTimer *>();
    return Until([&] { return std::ranges::none_of(timers, &QTimer::isActive); });
}

void Stage::Turn(int Milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(Milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}
