#include "skin/CSkin.h"

#include "platform/Files.h"
#include "platform/PicBox.h"
#include "platform/Picture.h"
#include "platform/Step.h"
#include "services/modIniFile.h"
#include "shell/program/modMain.h"
#include "skin/CLoadedSkinPic.h"
#include "skin/ScreenSize.h"

#include <QGuiApplication>
#include <QPainter>

namespace
{
const QString SettingsName = QStringLiteral("Skin.ini");
const QString CustomName = QStringLiteral("Custom.ini");
const QString FrameName = QStringLiteral("Frame.gif");
constexpr int SharperBy = 2;
const QString NotReadYet = QStringLiteral("qqq"); // no text of a skin; one that is gets read anew each time

QString Flag(bool value) { return value ? QStringLiteral("1") : QStringLiteral("0"); }

template <typename Holders>
auto &HolderAt(Holders &holders, std::int32_t index)
{
    if (index < 1 || index > static_cast<std::int32_t>(holders.size()))
        throw RuntimeError(9, {}, QStringLiteral("Subscript out of range."));
    return holders[static_cast<std::size_t>(index) - 1];
}
} // namespace

CSkin::CSkin() { CreatePicBoxes(); }

CSkin::~CSkin() = default;

void CSkin::CreatePicBoxes()
{
    for (Cell &panel : m_Panel) panel = modMain::NewPicBox();
    if (m_MaxGraphic >= 1) m_Digits.resize(static_cast<std::size_t>(m_MaxGraphic));
}

void CSkin::SetName(const QString &Name)
{
    m_Name = Name;
    LoadIniFile();
}

QString CSkin::SkinPath() const { return ProgramFolder() + QStringLiteral("skins/") + m_Name + u'/'; }

QString CSkin::PathOf(const QString &fileName) const { return FindFile(SkinPath() + fileName); }

// The holder is kept before it is loaded: a file that can't be read fails once and is an empty picture from then on.
QImage CSkin::Lazy(Cell &cell, const QString &fileName) const
{
    if (!cell) {
        cell = modMain::NewPicBox();
        cell->SetPicture(Loaded(fileName));
    }
    return cell->Picture();
}

QImage CSkin::Loaded(const QString &fileName) const
{
    const QImage plain = LoadPicture(PathOf(fileName));
    const QImage sharp = Sharper(fileName, plain);
    return sharp.isNull() ? plain : sharp;
}

void CSkin::LoadButtons()
{
    for (QImage (CSkin::*const picture)() :
         {&CSkin::WideButton, &CSkin::WideButtonPressed, &CSkin::VeryWideButton, &CSkin::VeryWideButtonPressed})
        Step([&] { (this->*picture)(); });
    for (const char *name : {"Button300", "Button300Down"}) Pic(QLatin1String(name));
}

// The name with "@2x" before its extension.
QImage CSkin::Sharper(const QString &fileName, const QImage &plain) const
{
    QImage sharp;
    if (qGuiApp->devicePixelRatio() <= 1) return sharp;
    const QString path = PathOf(QString(fileName).insert(fileName.lastIndexOf(u'.'), QStringLiteral("@2x")));
    if (!FileExists(path)) return sharp;
    Step([&] { sharp = LoadPicture(path); });
    if (sharp.size() != plain.size() * SharperBy) return {};
    sharp.setDevicePixelRatio(SharperBy);
    return sharp;
}

QImage CSkin::ButtonSelected() { return Lazy(m_ButtonSelected, QStringLiteral("ButtonSelected.gif")); }
QImage CSkin::ButtonHighlight() { return Lazy(m_ButtonHighlight, QStringLiteral("ButtonHighlight.gif")); }
QImage CSkin::ButtonBackground() { return Lazy(m_ButtonBackground, QStringLiteral("ButtonBackground.gif")); }
QImage CSkin::BackgroundPicture() { return Lazy(m_BackgroundPicture, QStringLiteral("BackgroundPicture.gif")); }
QImage CSkin::DialogPicture() { return Lazy(m_DialogPicture, QStringLiteral("DialogPicture.gif")); }
QImage CSkin::DigitButton() { return Lazy(m_DigitButton, QStringLiteral("DigitButton.gif")); }
QImage CSkin::DigitButtonPressed() { return Lazy(m_DigitButtonPressed, QStringLiteral("DigitButtonPressed.gif")); }
QImage CSkin::WideButton() { return Lazy(m_WideButton, QStringLiteral("WideButton.gif")); }
QImage CSkin::WideButtonPressed() { return Lazy(m_WideButtonPressed, QStringLiteral("WideButtonPressed.gif")); }
QImage CSkin::VeryWideButton() { return Lazy(m_VeryWideButton, QStringLiteral("VeryWideButton.gif")); }
QImage CSkin::PuzzleBackground() { return Lazy(m_PuzzleBackground, QStringLiteral("PuzzleBackground.gif")); }

QImage CSkin::VeryWideButtonPressed()
{
    return Lazy(m_VeryWideButtonPressed, QStringLiteral("VeryWideButtonPressed.gif"));
}

QImage CSkin::PuzzleBackgroundGiven()
{
    return Lazy(m_PuzzleBackgroundGiven, QStringLiteral("PuzzleBackgroundGiven.gif"));
}

std::shared_ptr<CSkinPic> CSkin::Frame()
{
    if (!m_Frame) {
        m_Frame = std::make_shared<CLoadedSkinPic>();
        m_Frame->Load(PathOf(FrameName));
    }
    return m_Frame;
}

QImage CSkin::SharpFrame()
{
    if (!m_SharpFrame) {
        m_SharpFrame = modMain::NewPicBox();
        m_SharpFrame->SetPicture(Sharper(FrameName, Frame()->picture()));
    }
    return m_SharpFrame->Picture();
}

QString CSkin::DigitButtonGraphic(std::int32_t N) const
{
    return SkinPath() + QStringLiteral("DigitButton") + QString::number(N) + QStringLiteral(".gif");
}

QImage CSkin::Pic(const QString &Name)
{
    std::shared_ptr<PicBox> holder = m_Pics.Find(Name);
    if (!holder) {
        holder = modMain::NewPicBox();
        Step([&] { holder->SetPicture(Loaded(Name + QStringLiteral(".gif"))); });
        Step([&] { m_Pics.Add(holder, Name); });
    }
    return holder->Picture();
}

bool CSkin::CanBeUsed() const
{
    const QSize screen = ScreenSize();
    const bool isWideEnough = screen.width() >= m_MinScreenWidth;
    const bool isHighEnough = screen.height() >= m_MinScreenHeight;
    return isWideEnough && isHighEnough;
}

QString CSkin::Param(const QString &Section, const QString &Key)
{
    const QString name = Section + u'|' + Key;
    QString text = NotReadYet;
    Step([&] { text = *m_Params.Item(name); });
    if (text != NotReadYet) return text;
    Step([&] { text = ReadIniString(Section, Key, {}, PathOf(SettingsName)); });
    Step([&] { m_Params.Add(std::make_shared<QString>(text), name); });
    return text;
}

const std::shared_ptr<PicBox> &CSkin::DigitPic(std::int32_t Index) const { return HolderAt(m_Digits, Index); }

void CSkin::PaintPic(PicBox &Target, std::int32_t Index, bool FromTop, bool FromLeft) const
{
    Target.Cls();
    const QImage source = HolderAt(m_Panel, Index)->Picture();
    if (source.isNull()) return;
    const QSize size = source.deviceIndependentSize().toSize();
    const int row = FromTop ? 0 : size.height() - Target.Height();
    const int column = FromLeft ? 0 : size.width() - Target.Width();
    QPainter painter(&Target.Image());
    painter.setRenderHint(QPainter::SmoothPixmapTransform); // counts on a target of another scale only
    painter.drawImage(-column, -row, source);
}

void CSkin::LoadDigitPics()
{
    m_Digits.clear();
    for (std::int32_t digit = 1; digit <= m_MaxGraphic; ++digit) {
        const Cell &holder = m_Digits.emplace_back(modMain::NewPicBox());
        holder->SetPicture(Loaded(QStringLiteral("Digit%1.gif").arg(digit)));
    }
}

void CSkin::RefreshPanelPics()
{
    HolderAt(m_Panel, 1)->SetPicture(ButtonBackground());
    HolderAt(m_Panel, 2)->SetPicture(ButtonHighlight());
    HolderAt(m_Panel, 3)->SetPicture(ButtonSelected());
}

void CSkin::LoadIniFile()
{
    ReadIni(SettingsName);
    if (Customize) ReadIni(CustomName);
}

void CSkin::SaveCustomSettings() const
{
    const QString section = QStringLiteral("Customize");
    WriteIniString(section, section, Flag(Customize), PathOf(SettingsName));
    WriteIni(CustomName);
}
