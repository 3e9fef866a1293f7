// The table of best results as one thing: what the keyboard reaches and a screen reader reads. It lies behind the
// cells, which are labels, and paints nothing but where the keyboard stands.
#pragma once

#include <QStringList>
#include <QWidget>

class BestTable : public QWidget
{
    Q_OBJECT

public:
    explicit BestTable(QWidget *Screen);

    /// What is read: the rows from the best result on.
    void SetRows(const QStringList &Rows);
};
