// The keys of a skin's files: one table for reading, one for what a user may change.
#include "platform/Convert.h"
#include "platform/Files.h"
#include "services/modIniFile.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"

#include <array>
#include <utility>
#include <variant>

namespace
{
const QString FontSection = QStringLiteral("font");
const QString FontKey = QStringLiteral("Font");
const QString ColourSection = QStringLiteral("colours");
const QString PictureSection = QStringLiteral("Pictures");
const QString PuzzleKey = QStringLiteral("Puzzle");
const QString DefaultFont = QStringLiteral("Times New Roman");

// A colour is the number that its text starts with, 0 where there is none; any other number must be the whole text.
struct ColourField
{
    std::int32_t CSkin::*At;
};
struct NumberField
{
    std::int32_t CSkin::*At;
};
struct FlagField
{
    bool CSkin::*At;
};
struct FontField
{};
} // namespace

struct CSkin::Setting
{
    QString Section;
    QString Key;
    std::variant<FontField, ColourField, NumberField, FlagField> Field;
};

// In the order of reading.
const std::vector<CSkin::Setting> &CSkin::Settings()
{
    static const auto colour = [](const char16_t *key, std::int32_t CSkin::*at) {
        return Setting{ColourSection, QString::fromUtf16(key), ColourField{at}};
    };
    static const auto position = [](const char16_t *key, std::int32_t CSkin::*at) {
        return Setting{QStringLiteral("Position"), QString::fromUtf16(key), NumberField{at}};
    };
    static const auto graphic = [](const char16_t *key, std::int32_t CSkin::*at) {
        return Setting{QStringLiteral("Graphics"), QString::fromUtf16(key), NumberField{at}};
    };
    static const std::vector<Setting> settings{
        {FontSection, FontKey, FontField{}},
        colour(u"Grid", &CSkin::GridColour),
        colour(u"BigGrid", &CSkin::BigGridColour),
        colour(u"MenuLabel", &CSkin::MenuLabelColour),
        colour(u"Digit", &CSkin::DigitColour),
        colour(u"ClueText", &CSkin::ClueTextColour),
        colour(u"DigitBackground", &CSkin::DigitBackgroundColour),
        colour(u"UnusedCell", &CSkin::UnusedCellColour),
        colour(u"DigitGiven", &CSkin::DigitGivenColour),
        colour(u"DigitError", &CSkin::DigitErrorColour),
        colour(u"Pencil", &CSkin::PencilColour),
        colour(u"PencilAlternative", &CSkin::PencilAlternativeColour),
        colour(u"Highlight", &CSkin::HighlightColour),
        colour(u"DialogText", &CSkin::DialogTextColour),
        {PictureSection, PuzzleKey, FlagField{&CSkin::ShowPuzzlePic}},
        {QStringLiteral("Customize"), QStringLiteral("Customize"), FlagField{&CSkin::Customize}},
        graphic(u"Max", &CSkin::m_MaxGraphic),
        position(u"GameAreaLeft", &CSkin::GameAreaLeft),
        position(u"GameAreaTop", &CSkin::GameAreaTop),
        position(u"GameAreaWidth", &CSkin::GameAreaWidth),
        position(u"GameAreaHeight", &CSkin::GameAreaHeight),
        position(u"ControlPanelLeft", &CSkin::ControlPanelLeft),
        position(u"ControlPanelTop", &CSkin::ControlPanelTop),
        position(u"LogoLeft", &CSkin::LogoLeft),
        position(u"LogoTop", &CSkin::LogoTop),
        position(u"MenuLeft", &CSkin::MenuLeft),
        position(u"MenuTop", &CSkin::MenuTop),
        graphic(u"MinY", &CSkin::m_MinScreenHeight),
        graphic(u"MinX", &CSkin::m_MinScreenWidth),
    };
    return settings;
}

void CSkin::ReadIni(const QString &fileName)
{
    const QString path = PathOf(fileName);
    for (const Setting &setting : Settings()) ReadSetting(setting, path);
    RefreshPanelPics();
}

// The default of each key is the value in force, so a file read second keeps what it does not name, and either file
// is filled up. The font's default alone is fixed.
void CSkin::ReadSetting(const Setting &setting, const QString &path)
{
    const auto read = [&](const QString &present) {
        return ReadIniString(setting.Section, setting.Key, present, path);
    };
    const auto *colour = std::get_if<ColourField>(&setting.Field);
    const auto *number = std::get_if<NumberField>(&setting.Field);
    const auto *flag = std::get_if<FlagField>(&setting.Field);
    if (colour != nullptr)
        this->*colour->At = ToInt32(LeadingNumber(read(QString::number(this->*colour->At))));
    else if (number != nullptr)
        this->*number->At = WholeNumber(read(QString::number(this->*number->At)));
    else if (flag != nullptr)
        this->*flag->At = modMain::IsTrue(read(this->*flag->At ? QStringLiteral("True") : QStringLiteral("False")));
    else
        Font = read(DefaultFont);
}

void CSkin::WriteIni(const QString &fileName) const
{
    static const std::array<std::pair<QString, std::int32_t CSkin::*>, 13> colours{{
        {QStringLiteral("Grid"), &CSkin::GridColour},
        {QStringLiteral("BigGrid"), &CSkin::BigGridColour},
        {QStringLiteral("MenuLabel"), &CSkin::MenuLabelColour},
        {QStringLiteral("Digit"), &CSkin::DigitColour},
        {QStringLiteral("DigitBackground"), &CSkin::DigitBackgroundColour},
        {QStringLiteral("DigitGiven"), &CSkin::DigitGivenColour},
        {QStringLiteral("DigitError"), &CSkin::DigitErrorColour},
        {QStringLiteral("UnusedCell"), &CSkin::UnusedCellColour},
        {QStringLiteral("Pencil"), &CSkin::PencilColour},
        {QStringLiteral("PencilAlternative"), &CSkin::PencilAlternativeColour},
        {QStringLiteral("Highlight"), &CSkin::HighlightColour},
        {QStringLiteral("DialogText"), &CSkin::DialogTextColour},
        {QStringLiteral("ClueText"), &CSkin::ClueTextColour},
    }};
    const QString path = PathOf(fileName);
    WriteIniString(FontSection, FontKey, Font, path);
    for (const auto &[key, field] : colours) WriteIniString(ColourSection, key, QString::number(this->*field), path);
    WriteIniString(PictureSection, PuzzleKey, ShowPuzzlePic ? QStringLiteral("1") : QStringLiteral("0"), path);
}
