// One skin: a folder of pictures with "Skin.ini" and, where the user has changed it, "Custom.ini".
//
// Reading settings establishes them: every key that a file lacks is written to it with the value in force, so a
// skin's folder is changed by being listed. Pictures are loaded when they are first asked for and never again, but
// for the three of the button panel, which are part of loading the settings: a skin without them can't be loaded.
//
// On a screen with a scale above 1, "Name@2x.gif" of twice the size is taken for "Name.gif" where it stands beside
// it. It counts as large as the plain one: its device pixel ratio is 2.
//
// Colours are numbers 0x00BBGGRR, positions are pixels inside the main window. Setting a field changes it in memory
// only.
#pragma once

#include "platform/KeyedList.h"

#include <QImage>
#include <QString>

#include <array>
#include <memory>
#include <vector>

class CSkinPic;
class PicBox;

class CSkin
{
public:
    CSkin();
    virtual ~CSkin();
    CSkin(const CSkin &) = delete;
    CSkin &operator=(const CSkin &) = delete;

    const QString &Name() const { return m_Name; }
    /// The name of the skin's folder; loads the settings at once. Failure: passed on, see LoadIniFile.
    void SetName(const QString &Name);
    /// The skin's folder, with the separator at its end.
    QString SkinPath() const;

    // Pictures, each loaded when first read. Failure: passed on at the first read; from then on the picture is empty.
    QImage ButtonSelected();
    QImage ButtonHighlight();
    QImage ButtonBackground();
    QImage BackgroundPicture();
    /// The main window's picture, whose outline is the window's.
    std::shared_ptr<CSkinPic> Frame();
    /// The same picture of twice the size, on a screen with a scale above 1, where the skin has one; else empty.
    /// Failure: passed on, when there is no frame; a sharper picture that can't be used counts as none.
    QImage SharpFrame();
    QImage DialogPicture();
    QImage DigitButton();
    /// The path of a picture; nothing is loaded.
    QString DigitButtonGraphic(std::int32_t N) const;
    QImage DigitButtonPressed();
    /// The picture of that name, without extension. Failure: ignored step by step; a missing picture is an empty one,
    /// for good.
    QImage Pic(const QString &Name);
    /// Reads the pictures of the buttons that every screen has, as the first of these would do it later. Failure:
    /// ignored step by step.
    void LoadButtons();
    QImage WideButton();
    QImage WideButtonPressed();
    QImage VeryWideButton();
    QImage VeryWideButtonPressed();
    QImage PuzzleBackground();
    QImage PuzzleBackgroundGiven();

    /// Reads "Skin.ini", and "Custom.ini" over it where the skin is customised. A key that "Custom.ini" lacks keeps
    /// its value; the font alone falls back to its default.
    /// Failure: passed on: a position that is no number, a missing panel picture; the fields are then half filled.
    void LoadIniFile();
    std::int32_t MinScreenWidth() const { return m_MinScreenWidth; }   // [px]
    std::int32_t MinScreenHeight() const { return m_MinScreenHeight; } // [px]
    /// True when the screen is large enough.
    bool CanBeUsed() const;

    QString Font;
    std::int32_t GridColour = 0;
    std::int32_t BigGridColour = 0;
    std::int32_t MenuLabelColour = 0;
    std::int32_t DigitColour = 0;
    std::int32_t DigitBackgroundColour = 0;
    std::int32_t DigitGivenColour = 0;
    std::int32_t UnusedCellColour = 0;
    std::int32_t DigitErrorColour = 0;
    std::int32_t PencilColour = 0;
    std::int32_t HighlightColour = 0;
    std::int32_t PencilAlternativeColour = 0;
    std::int32_t DialogTextColour = 0;
    std::int32_t ClueTextColour = 0;
    bool ShowPuzzlePic = false;
    bool Customize = false;
    std::int32_t MaxGraphic() const { return m_MaxGraphic; }

    /// Writes whether the skin is customised to "Skin.ini", and font, colours and the picture switch to "Custom.ini".
    /// The layout is left out: it is the skin's own. Failure: not noticed.
    void SaveCustomSettings() const;
    /// A text of "Skin.ini", kept from the first read; never writes. Failure: ignored step by step; an absent key is
    /// empty.
    QString Param(const QString &Section, const QString &Key);
    /// Failure: passed on, when no such digit was loaded. Nothing in the program loads them.
    const std::shared_ptr<PicBox> &DigitPic(std::int32_t Index) const;
    /// Fills the target with a piece of a panel picture of the target's own size, unstretched, from the chosen corner
    /// of the picture. Index: 1 background, 2 highlight, 3 selected; 4 and 5 are empty. Where the picture is smaller
    /// than the target, the target's back colour stays.
    /// Failure: passed on, for another Index.
    void PaintPic(PicBox &Target, std::int32_t Index, bool FromTop, bool FromLeft) const;

    std::int32_t GameAreaLeft = 0;
    std::int32_t GameAreaTop = 0;
    std::int32_t GameAreaWidth = 0;
    std::int32_t GameAreaHeight = 0;
    std::int32_t ControlPanelLeft = 0;
    std::int32_t ControlPanelTop = 0;
    std::int32_t LogoLeft = 0;
    std::int32_t LogoTop = 0;
    std::int32_t MenuLeft = 0;
    std::int32_t MenuTop = 0;

protected:
    /// Loads "Digit1.gif" to the number of MaxGraphic. Failure: passed on.
    void LoadDigitPics();

private:
    struct Setting;
    using Cell = std::shared_ptr<PicBox>;
    static const std::vector<Setting> &Settings();

    void CreatePicBoxes();
    void ReadIni(const QString &fileName);
    void ReadSetting(const Setting &setting, const QString &path);
    void WriteIni(const QString &fileName) const;
    void RefreshPanelPics();
    QString PathOf(const QString &fileName) const;
    QImage Lazy(Cell &cell, const QString &fileName) const;
    QImage Loaded(const QString &fileName) const;
    QImage Sharper(const QString &fileName, const QImage &plain) const;

    QString m_Name;
    std::array<Cell, 5> m_Panel;
    std::vector<Cell> m_Digits;
    std::int32_t m_MaxGraphic = 0;
    std::int32_t m_MinScreenHeight = 0; // [px]
    std::int32_t m_MinScreenWidth = 0;  // [px]
    std::shared_ptr<CSkinPic> m_Frame;
    KeyedList<PicBox> m_Pics;
    KeyedList<QString> m_Params;

    Cell m_SharpFrame;
    Cell m_ButtonSelected, m_ButtonHighlight, m_ButtonBackground, m_BackgroundPicture, m_DialogPicture, m_DigitButton,
        m_DigitButtonPressed, m_WideButton, m_WideButtonPressed, m_VeryWideButton, m_VeryWideButtonPressed,
        m_PuzzleBackground, m_PuzzleBackgroundGiven;
};
