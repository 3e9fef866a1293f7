// A machine without a sound device, in a program of its own: the library looks for its drivers once.
#include "platform/SoundDevice.h"
#include "services/colSound.h"
#include "services/modDX.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WaveBytes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace
{
[[maybe_unused]] const bool noDriver = qputenv("ALSOFT_DRIVERS", "nosuch");

/// Answers every plain box as a person would, by its OK button, and keeps what it said.
class Answering : public QObject
{
public:
    Answering()
    {
        connect(&m_Timer, &QTimer::timeout, this, &Answering::Answer);
        m_Timer.start(5);
    }
    QStringList Texts;
    QMessageBox::Icon Icon = QMessageBox::NoIcon;

private:
    void Answer()
    {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        Texts << box->text();
        Icon = box->icon();
        QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
    }
    QTimer m_Timer;
};

class NoSoundDevice : public testing::Test
{
protected:
    ~NoSoundDevice() override { modDX::EndSound(); }
    Answering m_Answering;
};
} // namespace

TEST_F(NoSoundDevice, IsToldOnceInThreeLinesWithAnExclamationMark)
{
    modDX::InitSound(nullptr);
    EXPECT_EQ(modDX::Device(), nullptr);
    ASSERT_EQ(m_Answering.Texts.size(), 1);
    const QStringList lines = m_Answering.Texts.first().split(u'\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], QStringLiteral("DirectX not found, sound effects will be disabled."));
    EXPECT_EQ(lines[1], QStringLiteral("Please install DirectX 7 or higher"));
    EXPECT_TRUE(lines[2].contains(QStringLiteral("https://noggle.example.org/sound")));
    EXPECT_EQ(m_Answering.Icon, QMessageBox::Warning);

    modDX::InitSound(nullptr);
    QTest::qWait(30);
    EXPECT_EQ(m_Answering.Texts.size(), 1);
}

TEST_F(NoSoundDevice, IsSilenceFromThenOnWithoutAnotherWord)
{
    const TestFolder folder;
    folder.Write(QStringLiteral("sounds/hum.wav"), RampWave());
    modDX::InitSound(nullptr);
    colSound sounds(true);
    sounds.SetPath(folder.Path());
    CSound &hum = sounds.Item(QStringLiteral("hum"));
    hum.SetVolume(-1000);
    hum.Play(1);
    hum.ChangeVolume(-5);
    sounds.SetSoundOn(false);
    sounds.SetSoundOn(true);
    hum.Halt();
    modDX::SetCooperativeLevel(nullptr, 2);
    EXPECT_EQ(hum.Volume(), 0);
    EXPECT_EQ(hum.DSBuffer(), nullptr);
    QTest::qWait(30);
    EXPECT_EQ(m_Answering.Texts.size(), 1);
}

TEST_F(NoSoundDevice, NothingWaitsForIt)
{
    modDX::InitSound(nullptr);
    colSound sounds(true);
    CSound &hum = sounds.Item(QStringLiteral("hum"));
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1000; ++i) {
        hum.Play(1);
        hum.SetVolume(-i);
        hum.Halt();
        sounds.SetSoundOn(i % 2 != 0);
    }
    EXPECT_LT(timer.elapsed(), 1000) << "a thousand rounds, each far below a frame";
}

TEST_F(NoSoundDevice, ALoadIsNoFailureWithoutIt)
{
    CSound sound;
    EXPECT_NO_THROW(sound.LoadWave(QStringLiteral("/nowhere/hum.wav")));
}
