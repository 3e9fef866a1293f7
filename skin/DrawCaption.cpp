#include "skin/DrawCaption.h"

#include "platform/Colour.h"
#include "platform/Convert.h"
#include "sdk/controls/Caption.h"
#include "shell/program/modMain.h"
#include "skin/CSkin.h"

#include <QFontMetrics>
#include <QPainter>

void modMain::DrawCaption(const QFont &Font, QImage &Surface, const QString &Text, int Left, int Flags,
                          bool UseSkinColour)
{
    const bool breaks = (Flags & WordBreak) != 0;
    const QSize size = (QSizeF(Surface.size()) / Surface.devicePixelRatio()).toSize();
    const Caption::Line line = breaks ? Caption::Line{Font, Text} : Caption::Fitted(Font, Text, size.width() - Left);
    const int top = breaks ? 2 : ToInt32((size.height() - QFontMetrics(line.Font).height()) / 2.0);
    QPainter painter(&Surface);
    painter.setFont(line.Font);
    painter.setPen(UseSkinColour && CurrentSkin ? ToColour(CurrentSkin->MenuLabelColour) : QColor(Qt::black));
    // A caption is plain: "&" stands for itself.
    const int flags = Qt::AlignLeft | Qt::AlignTop | (breaks ? Qt::TextWordWrap : Qt::TextSingleLine);
    painter.drawText(QRect(QPoint(Left, top), QPoint(size.width() - 1, size.height() - 1)), flags, line.Text);
}
