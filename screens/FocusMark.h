// Shows where the keyboard stands on a control that paints no mark of its own. Lies over the control, as large as it,
// and lets the mouse through.
#pragma once

#include <QWidget>

class FocusMark : public QWidget
{
    Q_OBJECT

public:
    explicit FocusMark(QWidget *Control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
