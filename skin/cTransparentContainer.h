// A control that holds others and shows nothing of its own.
#pragma once

#include <QWidget>

class cTransparentContainer : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
};
