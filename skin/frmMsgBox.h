// The message box: every question and every failure of the running program, skinned at each showing, dragged by its
// face. It can also take a line of text.
//
// A box is kept between uses. One that is asked for while another is open is a box of its own, so the outer one keeps
// its question and its answer. A box closes by its buttons alone.
#pragma once

#include "sdk/controls/LarkForm.h"

#include <cstdint>

class LarkButton;
class QLineEdit;
class QScrollArea;
class TransLabel;

class frmMsgBox : public LarkForm
{
    Q_OBJECT

public:
    frmMsgBox();

    /// Shows the box in a box that is free, over Parent, or over the main window when Parent is empty, or alone
    /// before there is one. Answer, where given, gets what the box's Answer holds afterwards. Result: its ReturnCode.
    static std::int32_t Ask(QWidget *Parent, const QString &Message, std::int32_t Options, QString *Answer = nullptr,
                            std::int32_t FontSize = 16);

    /// Shows the box over Parent, which may be empty, and returns when a button has closed it. Options is a bit set:
    /// 1 OK and Cancel, 4 Yes and No, 32 together with 1 asks for a text. FontSize is in points. Not while this very
    /// box is open: Ask takes another one then.
    void ShowMsgBox(QWidget *Parent, const QString &Message, std::int32_t Options, std::int32_t FontSize);
    /// 1 OK, 2 Cancel, 6 Yes, 7 No.
    std::int32_t ReturnCode() const { return m_ReturnCode; }
    /// The text at the last press of the left button, of this showing or an earlier one: Cancel does not read it.
    const QString &Answer() const { return m_Answer; }

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static frmMsgBox &Free();
    bool Has(std::int32_t option) const { return (m_Options & option) != 0; }
    void SetButtons();
    void Skin();
    void SetMessage(const QString &message, std::int32_t fontSize);
    void Arrange();
    void FocusAnswer();
    void Cmd1();
    void Cmd2();

    std::int32_t m_ReturnCode = 0;
    std::int32_t m_Options = 0;
    QString m_Answer;
    bool m_InUse = false;

    QScrollArea *m_Pane;
    TransLabel *Label;
    QLineEdit *txtAnswer;
    LarkButton *cmd1;
    LarkButton *cmd2;
};
