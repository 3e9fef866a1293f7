// A window onto rows that may be more than fit. The rows lie on a sheet that has the coordinates of the screen, so
// that each keeps its designed place; where they end below the window, a wheel, a thin bar, the page keys, or the
// focus moves the sheet.
#pragma once

#include <QWidget>

class QScrollBar;

class RowView : public QWidget
{
    Q_OBJECT

public:
    explicit RowView(QWidget *Screen);
    ~RowView() override;
    RowView(const RowView &) = delete;
    RowView &operator=(const RowView &) = delete;

    /// What the rows are made on.
    QWidget *Sheet() const { return m_Sheet; }
    /// The part of the screen in which rows may be seen.
    void SetWindow(const QRect &Window);
    /// To be called when rows have come, gone or moved.
    void Fit();
    /// Back to the first row.
    void ToTop();
    /// Moves the sheet so that the whole row can be seen.
    void Show(const QWidget *Row);

protected:
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void FollowFocus(const QWidget *Now);
    void PlaceSheet();
    void MakeBar();
    void FitBar(int beyond); // [px] what the rows need more than there is
    void ScrollTo(int value);
    int Scrolled() const; // [px]

    QWidget *m_Sheet;
    QScrollBar *m_Bar = nullptr; // until there are too many rows
};
