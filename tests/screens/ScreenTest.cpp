#include "ScreenTest.h"

#include "platform/Clock.h"
#include "sdk/controls/LarkButton.h"
#include "sdk/controls/TransLabel.h"
#include "services/CResource.h"
#include "services/colSound.h"
#include "tests/support/Records.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QLinearGradient>
#include <QPainter>

namespace
{
constexpr QSize AreaSize(632, 508); // [px]

QImage LightGround()
{
    QImage ground(AreaSize, QImage::Format_RGB32);
    QPainter painter(&ground);
    QLinearGradient light(0, 0, 0, AreaSize.height());
    light.setColorAt(0, QColor(0xF6, 0xFA, 0xF8));
    light.setColorAt(1, QColor(0xE2, 0xF1, 0xE9));
    painter.fillRect(ground.rect(), light);
    return ground;
}
} // namespace

void NotingForm::Note(const char *what, const std::shared_ptr<CGame> &game, std::int32_t level)
{
    m_Calls << QStringLiteral("%1 %2 %3").arg(QLatin1String(what), game ? game->Name() : QString()).arg(level);
}
void NotingForm::Instructions(const std::shared_ptr<CGame> &Game, std::int32_t Level)
{
    Note("Instructions", Game, Level);
}
void NotingForm::PlayGame(const std::shared_ptr<CGame> &Game, std::int32_t Level) { Note("PlayGame", Game, Level); }
void NotingForm::StartGame(const std::shared_ptr<CGame> &Game, std::int32_t Level, bool &Result)
{
    Note("StartGame", Game, Level);
    Result = true;
}
QString NotingForm::TakeCalls()
{
    QString calls = m_Calls.join(QStringLiteral("; "));
    m_Calls.clear();
    return calls;
}

ScreenTest::ScreenTest() : m_Framework(RecordingFramework::Install()), m_Area(std::make_unique<QWidget>())
{
    modMain::Language = QStringLiteral("0");
    modMain::Resources = std::make_shared<CResource>();
    modMain::Resources->SetLibraryFilePath(QStringLiteral(NOGGLE_LANGUAGE_MODULE));
    modMain::ShellSounds = std::make_shared<colSound>(true);
    m_Form.Background = LightGround();
    modMain::Form = &m_Form;
    m_Area->resize(AreaSize);
    m_Area->setFont(QFont(QStringLiteral("Inter")));
    QPalette ground;
    ground.setBrush(QPalette::Window, QPixmap::fromImage(m_Form.Background));
    m_Area->setPalette(ground);
}

ScreenTest::~ScreenTest()
{
    m_Area.reset();
    SetClock({});
    modMain::Form = nullptr;
    ForgetRecords();
    modMain::ShellSounds.reset();
    modMain::Resources.reset();
    modMain::Framework.reset();
    modMain::Online = false;
}

void ScreenTest::GivenGame(const QString &Name, const QString &Category, const QString &More)
{
    const QString text = QStringLiteral("[config]\r\nname=%1\r\ncomponent=%1\r\ncategory=%2\r\n%3\r\n");
    m_Store.Folder().Write(Name + QStringLiteral("/GameSettings.ini"),
                           text.arg(Name, Category, More.isEmpty() ? QStringLiteral("timelimit=60") : More).toUtf8());
}

void ScreenTest::Start()
{
    LoadRecords();
    modMain::Categories->Load();
}

void ScreenTest::StartWithSixGames()
{
    for (const char *name : {"Arrows", "Beacons"}) GivenGame(QLatin1String(name), QStringLiteral("Attention"));
    for (const char *name : {"Corners", "Digits"}) GivenGame(QLatin1String(name), QStringLiteral("Logic"));
    for (const char *name : {"Echoes", "Faces"}) GivenGame(QLatin1String(name), QStringLiteral("Memory"));
    Start();
}

std::shared_ptr<CPlayer> ScreenTest::GivenPlayer(const QString &Name)
{
    modMain::CurrentPlayer = modMain::Players->Add();
    modMain::CurrentPlayer->Name = Name;
    modMain::CurrentPlayer->Save();
    return modMain::CurrentPlayer;
}

std::shared_ptr<CGame> ScreenTest::Game(const QString &Name)
{
    auto game = modMain::Games->GameByName(Name);
    if (!game) qFatal("no game %s", qPrintable(Name));
    return game;
}

std::shared_ptr<CCategory> ScreenTest::Category(const QString &Name)
{
    auto category = modMain::Categories->CategoryByName(Name);
    if (!category) qFatal("no category %s", qPrintable(Name));
    return category;
}

std::shared_ptr<CWorkout> ScreenTest::GivenWorkout(double Day)
{
    auto workout = modMain::CurrentPlayer->Workouts().Add();
    workout->Mode = 1;
    workout->Timestamp = Day;
    workout->Save();
    return workout;
}

void ScreenTest::Finish(const QString &GameName, std::int32_t Points, std::int32_t Award)
{
    CPlayer &player = *modMain::CurrentPlayer;
    const auto workout = player.Workouts().Current();
    workout->GamesPlayed().Add(player.Key, Game(GameName)->Key, Points / 2, 30, Points, 1, 1, Award);
}

void ScreenTest::SetToday(int Year, int Month, int Day)
{
    QDateTime noon(QDate(Year, Month, Day), QTime(12, 0));
    SetClock([noon] { return noon; });
}

void ScreenTest::Open(QWidget *Screen)
{
    m_Screen = Screen;
    if (Screen->parentWidget() != m_Area.get()) Screen->setParent(m_Area.get());
    Screen->setGeometry(0, 0, AreaSize.width(), AreaSize.height());
    Screen->show();
    m_Area->show();
    m_Area->activateWindow();
    QApplication::processEvents();
}

QString ScreenTest::Text(const QString &Name)
{
    const QVariant caption = At(Name)->property("Caption");
    return caption.isValid() ? caption.toString() : At(Name)->property("text").toString();
}

QRect ScreenTest::Place(const QString &Name)
{
    const QWidget *control = At(Name);
    return {control->mapTo(m_Screen, QPoint()), control->size()};
}

void ScreenTest::Click(const QString &Name) { QTest::mouseClick(At(Name), Qt::LeftButton); }

QString ScreenTest::ShownOf(const QStringList &Names)
{
    QStringList shown;
    for (const QString &name : Names)
        if (Shown(name)) shown << name;
    return shown.join(u' ');
}

void ScreenTest::Photograph(const QString &Name)
{
    QDir().mkpath(QStringLiteral(NOGGLE_PICTURES));
    QApplication::processEvents();
    ASSERT_TRUE(m_Area->grab().save(QStringLiteral(NOGGLE_PICTURES "/%1.png").arg(Name)));
}

int ScreenTest::TakeSounds()
{
    const int sounds = modMain::ShellSounds->Count();
    modMain::ShellSounds = std::make_shared<colSound>(true);
    return sounds;
}

bool ScreenTest::TakeOnly(const char *Sound)
{
    const int before = modMain::ShellSounds->Count();
    modMain::ShellSounds->Item(QLatin1String(Sound)); // one more, unless it was asked for
    return before == 1 && TakeSounds() == 1;
}

void ScreenTest::SpeakGerman() { modMain::Resources->SetLibraryFilePath(QStringLiteral(NOGGLE_GERMAN_MODULE)); }

QString ScreenTest::Word(std::int16_t ID) { return modMain::Resources->GetString(ID, 256); }
