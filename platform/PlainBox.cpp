#include "platform/PlainBox.h"

#include <QMessageBox>

void ShowPlainBox(const QString &Text, PlainBoxIcon Icon)
{
    QMessageBox box;
    box.setTextFormat(Qt::PlainText);
    box.setText(QString(Text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    box.setIcon(Icon == PlainBoxIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}
