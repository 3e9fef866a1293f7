// Placing controls as the design has them: by name, place and first caption.
#pragma once

#include <QRect>
#include <QString>
#include <QWidget>

#include <cstddef>

class LarkButton;

constexpr double SmallFont = 9.75; // points, of buttons and of most labels

/// A place that the design tells in twips.
QRect FromTwips(int Left, int Top, int Width, int Height);
/// Moves a control to a left edge, or to the middle of a width; the rest of its place stays.
void SetLeft(QWidget *Control, int Left);
void Centre(QWidget *Control, int Width);
/// The name of an element of a control array: "butPlay(0)".
QString Element(const char *Name, std::size_t Index);
/// Makes the keys walk through the controls in this order.
void SetTabOrder(const QList<QWidget *> &Controls);
/// Makes the keys walk to Control where they would come to Before, a label, if it took the focus.
void SetTabPlace(QWidget *Before, QWidget *Control);

/// A control of that name at its place.
template <typename Control>
Control *Put(QWidget *On, const QString &Name, const QRect &Place)
{
    auto *control = new Control(On);
    control->setObjectName(Name);
    control->setGeometry(Place);
    return control;
}

template <typename Label>
Label *PutLabel(QWidget *On, const QString &Name, const QRect &Place, const QString &Caption, double Points,
                bool Bold, Qt::Alignment Alignment = Qt::AlignLeft)
{
    auto *label = Put<Label>(On, Name, Place);
    label->SetFont(Points, Bold);
    label->SetAlignment(Alignment | Qt::AlignVCenter);
    label->SetCaption(Caption);
    return label;
}

LarkButton *PutButton(QWidget *On, const QString &Name, const QRect &Place, const QString &Caption);
