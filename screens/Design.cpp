#include "screens/Design.h"

#include "platform/Units.h"
#include "sdk/controls/LarkButton.h"

QRect FromTwips(int Left, int Top, int Width, int Height)
{
    return {ToPixels(Twips{Left}).Value, ToPixels(Twips{Top}).Value, ToPixels(Twips{Width}).Value,
            ToPixels(Twips{Height}).Value};
}

void SetLeft(QWidget *Control, int Left) { Control->move(Left, Control->y()); }

void Centre(QWidget *Control, int Width) { SetLeft(Control, (Width - Control->width()) / 2); }

QString Element(const char *Name, std::size_t Index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(Name)).arg(Index);
}

void SetTabOrder(const QList<QWidget *> &Controls)
{
    for (qsizetype i = 1; i < Controls.size(); ++i) QWidget::setTabOrder(Controls[i - 1], Controls[i]);
}

LarkButton *PutButton(QWidget *On, const QString &Name, const QRect &Place, const QString &Caption)
{
    auto *button = Put<LarkButton>(On, Name, Place);
    button->SetFont(SmallFont, true);
    button->SetCaption(Caption);
    return button;
}

void SetTabPlace(QWidget *Before, QWidget *Control)
{
    // No order is kept for what does not take the focus.
    const Qt::FocusPolicy policy = Before->focusPolicy();
    Before->setFocusPolicy(Qt::TabFocus);
    QWidget::setTabOrder(Before, Control);
    Before->setFocusPolicy(policy);
}
