#include "FoldWords.h"

#include <QStringList>

namespace
{
const char *SideOf(const Fold &fold)
{
    if (fold.Down == 0) return fold.Across > 0 ? "RightPart" : "LeftPart";
    if (fold.Across == 0) return fold.Down > 0 ? "LowerPart" : "UpperPart";
    if (fold.Down > 0) return fold.Across > 0 ? "LowerRightPart" : "LowerLeftPart";
    return fold.Across > 0 ? "UpperRightPart" : "UpperLeftPart";
}

QString Line(const FoldPoint &end) { return QStringLiteral("%1/%2").arg(end.x / 2).arg(end.y / 2); }
} // namespace

QString FoldWords::Folds(const FoldItem &Item, const Words &Word)
{
    QStringList told;
    Outline paper = Outline::Sheet();
    for (const Fold &fold : Item.Folds) {
        QStringList ends;
        const Outline flap = paper.Beyond(fold);
        for (int corner = 0; corner < flap.Corners(); ++corner)
            if (fold.Beyond(flap[corner]) == 0) ends += Line(flap[corner]);
        told += Word("FoldTold").arg(Word(SideOf(fold)), ends.value(0), ends.value(1));
        paper = paper.Within(fold);
    }
    return told.join(QStringLiteral("; "));
}

QString FoldWords::Holes(const std::vector<FoldPoint> &Holes)
{
    QStringList told;
    for (const FoldPoint &hole : Holes)
        told += QChar(static_cast<char16_t>(u'A' + hole.x / 2)) + QString::number(hole.y / 2 + 1);
    return told.join(QStringLiteral(", "));
}

QString FoldWords::Sheets(const FoldItem &Item)
{
    QStringList told;
    for (const std::uint64_t sheet : Item.Sheets)
        told += QStringLiteral("%1: %2").arg(told.size() + 1).arg(Holes(::Holes::Of(sheet)));
    return told.join(QStringLiteral("; "));
}
