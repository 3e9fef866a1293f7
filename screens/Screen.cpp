#include "screens/Screen.h"

#include "platform/Picture.h"
#include "sdk/CNoggleFramework.h"
#include "sdk/controls/LarkButton.h"
#include "shell/program/MainForm.h"
#include "skin/ShellSound.h"

#include <QPainter>

namespace
{
constexpr QColor PlainGround(0xF4, 0xF8, 0xF7);
} // namespace

Screen::Screen(QWidget *Container) : QWidget(Container) {}

void Screen::MakeTextBoxes()
{
    if (m_HasBoxes) return;
    m_HasBoxes = true;
    MakeBoxes();
}

void Screen::showEvent(QShowEvent *event)
{
    MakeTextBoxes();
    QWidget::showEvent(event);
}

void Screen::CopyBackground()
{
    m_OwnGround = true;
    m_Ground = modMain::Form == nullptr ? QImage() : modMain::Form->GameBackground();
    m_Place = geometry();
    m_Part = QImage();
    update();
}

void Screen::paintEvent(QPaintEvent *)
{
    if (!m_OwnGround) return;
    QPainter painter(this);
    if (m_Ground.isNull() || m_Place.isEmpty()) {
        painter.fillRect(rect(), PlainGround);
    } else if (m_Ground.devicePixelRatio() == 1) {
        painter.drawImage(QPoint(0, 0), m_Ground, m_Place);
    } else {
        if (m_Part.isNull()) m_Part = PartOf(m_Ground, m_Place); // which begins between two points, perhaps
        painter.drawImage(0, 0, m_Part);
    }
}

void Screen::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Arrange();
}

void Beep() { PlayShellSound(QStringLiteral("highbeep")); }

void Skin(LarkButton *Button, const QString &Name)
{
    if (modMain::Framework) modMain::Framework->SkinButton(Button, Name);
}
