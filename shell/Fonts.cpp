#include "shell/Fonts.h"

#include "platform/FontList.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>

#include <algorithm>
#include <future>

namespace
{
const QString Inter = QStringLiteral("Inter");
std::future<bool> hasInter;

// Found in the list: asked for by its name, a family is first looked for under every other name that it may go by,
// which takes longer than all fonts did to be listed. Where two makers have one, theirs follow in brackets.
bool IsThere(const QString &Family)
{
    AwaitFontList();
    const QStringList families = QFontDatabase::families();
    return std::any_of(families.begin(), families.end(), [&](const QString &family) {
        return family == Family || family.startsWith(Family + QStringLiteral(" ["));
    });
}
} // namespace

void LookForInterfaceFont()
{
    hasInter = std::async(std::launch::async, [] { return IsThere(Inter); });
}

void UseInterfaceFont()
{
    if (!hasInter.valid()) return; // was done
    QFont font = QApplication::font();
    if (hasInter.get())
        font.setFamily(Inter);
    else
        font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(9.75);
    font.setStyleStrategy(QFont::PreferAntialias);
    QApplication::setFont(font);
}
