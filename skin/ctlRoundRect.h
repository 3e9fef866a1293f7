// A rounded rectangle, drawn on its own ground: a decoration.
#pragma once

#include <QFont>
#include <QWidget>

#include <cstdint>

class ctlRoundRect : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool Enabled MEMBER Enabled)
    Q_PROPERTY(QFont Font MEMBER Font)
    Q_PROPERTY(int BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(int ForeColor READ ForeColor WRITE SetForeColor)

public:
    explicit ctlRoundRect(QWidget *Container = nullptr);

    bool Enabled = false; // these four are kept for the host, and nothing more
    QFont Font;           // the container's to begin with
    std::int16_t BackStyle = 0;
    std::int16_t BorderStyle = 0;
    /// The ground; a number with its highest bit set stands for a colour of the desktop, of which the button's is
    /// known.
    std::int32_t BackColor() const { return m_BackColor; }
    void SetBackColor(std::int32_t Colour);
    /// The line.
    std::int32_t ForeColor() const { return m_ForeColor; }
    void SetForeColor(std::int32_t Colour);
    /// Does nothing.
    void Refresh() {}

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::int32_t m_BackColor;
    std::int32_t m_ForeColor = 0xC0FFC0;
};
