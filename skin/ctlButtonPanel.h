// A vertical list of picture buttons drawn from the skin: the menu of the main window, and the list of the screens.
//
// Each button is three surfaces, painted once and then only shown or hidden: normal, hover above it, selected above
// both. A host fills the list with ClearButtons, Add for each row, and UpdateButtons; what is on the screen changes
// with the last only. A press acts when the mouse goes down, and only through the hover surface, so a selected button
// ignores the mouse. The second press of a double click does nothing where the first has refilled the panel. A plain
// button shows its selected surface for a quarter of a second, a sticky one until the next.
//
// The panel is exactly as tall as its buttons: it sets its own height, so put it in no layout that forces one.
// UpdateButtons and a write of Selection let pending events run once. A handler of Click may refill the panel.
#pragma once

#include <QColor>
#include <QFont>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <vector>

class PanelSurface;
class PicBox;

class ctlButtonPanel : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE SetBorderStyle)
    Q_PROPERTY(int Appearance READ Appearance WRITE SetAppearance)
    Q_PROPERTY(int BackColour MEMBER BackColour)
    Q_PROPERTY(int HoverColour MEMBER HoverColour)
    Q_PROPERTY(int SelectColour MEMBER SelectColour)
    Q_PROPERTY(QFont Font READ TheFont WRITE SetTheFont)
    Q_PROPERTY(QString FontName READ FontName WRITE SetFontName)
    Q_PROPERTY(double FontSize READ FontSize WRITE SetFontSize)
    Q_PROPERTY(bool FontBold READ FontBold WRITE SetFontBold)
    Q_PROPERTY(bool FontItalic READ FontItalic WRITE SetFontItalic)
    Q_PROPERTY(bool FontStrikethru READ FontStrikethru WRITE SetFontStrikethru)
    Q_PROPERTY(bool FontUnderline READ FontUnderline WRITE SetFontUnderline)
    Q_PROPERTY(bool FontTransparent MEMBER FontTransparent)
    Q_PROPERTY(float Indent MEMBER Indent)
    Q_PROPERTY(bool StickySelection MEMBER StickySelection)
    Q_PROPERTY(int Selection MEMBER m_Selection)

public:
    explicit ctlButtonPanel(QWidget *Container = nullptr);
    ~ctlButtonPanel() override;

    /// When false a press does nothing at all; hover still shows. (Not the widget's own switch, which would end
    /// that.)
    bool Enabled = true;
    bool StickySelection = false;
    float Indent = 30;                    // kept for the host, not painted
    std::int32_t BackColour = 0xFFFFFF;   // these three are kept for the host; what they are
    std::int32_t HoverColour = 0x80FFFF;  // when the first rows are made stays the ground of
    std::int32_t SelectColour = 0x80FF80; // buttons, seen where a skin's picture does not reach
    bool FontTransparent = true;

    /// Takes every button surface away and keeps captions and keys. Failure: ignored.
    void Clear();
    /// Forgets captions and keys and touches no surface.
    void ClearButtons();
    /// Appends a row; nothing is drawn.
    void Add(const QString &Caption, const QString &Key);
    /// Rebuilds the panel from the present skin. The argument is not used.
    void SetSkin(ctlButtonPanel *Panel = nullptr);
    /// Rebuilds everything from the rows and the present skin; the selected look goes, Selection stays. Without rows
    /// the buttons go, background and height stay. The argument is not used. Failure: ignored step by step.
    void UpdateButtons(ctlButtonPanel *Panel = nullptr);
    std::int32_t Count() const { return static_cast<std::int32_t>(m_Captions.size()); }
    /// Always 0.
    std::int32_t NewHeight() const { return m_NewHeight; }

    int Appearance() const { return m_Appearance; }
    void SetAppearance(int Appearance);
    int BorderStyle() const { return m_BorderStyle; }
    void SetBorderStyle(int BorderStyle);
    /// The background colour of the panel's own surface.
    std::int32_t BackColor() const;
    /// The height of a button to come. [px]
    void SetButtonHeight(int Height);

    /// The font of the captions.
    const QFont &TheFont() const { return m_Font; }
    void SetTheFont(const QFont &Font) { m_Font = Font; }
    /// The family that the host asked for. A new panel writes in the font around it until one is set.
    QString FontName() const { return m_FontName; }
    void SetFontName(const QString &Name);
    double FontSize() const; // [points]
    void SetFontSize(double Points);
    bool FontBold() const { return m_Font.bold(); }
    void SetFontBold(bool On) { m_Font.setBold(On); }
    bool FontItalic() const { return m_Font.italic(); }
    void SetFontItalic(bool On) { m_Font.setItalic(On); }
    bool FontStrikethru() const { return m_Font.strikeOut(); }
    void SetFontStrikethru(bool On) { m_Font.setStrikeOut(On); }
    bool FontUnderline() const { return m_Font.underline(); }
    void SetFontUnderline(bool On) { m_Font.setUnderline(On); }

    /// The row that was chosen last, from 1; 0 for none.
    std::int32_t Selection() const { return m_Selected; }
    /// Chooses a row as a press does, without its sound; Click is raised. Nothing happens while Enabled is false.
    /// Failure: passed on, for a row that does not exist; Selection has the number all the same, and no Click comes.
    void SetSelection(std::int32_t Row);

Q_SIGNALS:
    void Click(const QString &Key);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Button
    {
        PanelSurface *Normal;
        PanelSurface *Hover;
        PanelSurface *Selected;
    };
    Button *At(std::int32_t row);
    int Border() const; // [px]
    void FitHeight();
    void PaintBackground();
    void MakeButton(std::int32_t row);
    void PaintButton(const Button &button, std::int32_t row);
    QImage Painted(int width, int slot, const QColor &ground) const;

    void ShowHover(std::int32_t row);
    static void WatchForTab();
    void HideHover();
    void HoverByKey(std::int32_t row);
    void MouseTick();
    void CheckPointer();
    std::int32_t RowUnderPointer() const;
    void LeaveHover();
    bool IsMeant(bool isSecond);
    void Press(std::int32_t row);
    void PressBesideKeys(std::int32_t row);
    void ClearSelected();

    const std::int32_t m_NewHeight = 0;
    std::int32_t m_Hover = 0;     // the row whose hover surface shows, 0 for none
    std::int32_t m_Selected = 0;  // the row whose selected surface shows, 0 for none
    std::int32_t m_Selection = 0; // kept for the host
    QStringList m_Captions;
    QStringList m_Keys;

    int m_Appearance = 1;
    int m_BorderStyle = 0;
    int m_ButtonHeight; // [px]
    QFont m_Font;
    QString m_FontName = QStringLiteral("Arial");
    bool m_HoverByKey = false; // m_Hover is the keyboard's
    bool m_FocusByMouse = false;
    bool m_KeysAtWork = false;
    int m_Refills = 0;   // how often the rows have been made
    int m_PressedAt = 0; // that, at the last press that was not the second of a double click
    QSize m_BuiltFor;
    QColor m_HoverGround; // of the templates; invalid before the first rows
    QColor m_SelectGround;

    PanelSurface *picPanel;
    std::unique_ptr<PicBox> m_Background;
    std::vector<Button> m_Buttons;
    QWidget *m_FocusMark;
    QTimer tmrMouse;
    QTimer tmrClick;
};
