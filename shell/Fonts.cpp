#include "shell/Fonts.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>

void UseInterfaceFont()
{
    QFont font = QApplication::font();
    if (QFontDatabase::hasFamily(QStringLiteral("Inter")))
        font.setFamily(QStringLiteral("Inter"));
    else
        font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(9.75);
    font.setStyleStrategy(QFont::PreferAntialias);
    QApplication::setFont(font);
}
