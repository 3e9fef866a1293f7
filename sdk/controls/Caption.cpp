#include "sdk/controls/Caption.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QRegularExpression>
#include <QStringList>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace
{
constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr int SmallestText = 9;          // [px], below it nobody reads
constexpr double SmallestShare = 0.6;    // of the size asked for
constexpr int EndlessWidth = 0x00FFFFFF; // [px]
constexpr int EndlessHeight = EndlessWidth;

QStringList ParagraphsOf(const QString &Text)
{
    // A line that was cut behind its CR has one more.
    static const QRegularExpression lineBreak(QStringLiteral("\r*\n|\r"));
    return Text.split(lineBreak);
}

QStringList WrappedAt(const QString &Paragraph, const QFont &Font, int Width)
{
    QTextLayout layout(Paragraph, Font);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(Width);
        lines << Paragraph.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines.isEmpty() ? QStringList{QString()} : lines;
}

QStringList LinesOf(const QString &Text, const QFont &Font, int Width, bool WordWrap)
{
    QStringList lines;
    for (const QString &paragraph : ParagraphsOf(Text))
        lines << (WordWrap ? WrappedAt(paragraph, Font, Width) : QStringList{paragraph});
    return lines;
}

int SizeOf(const QFont &Font) { return Font.pixelSize() > 0 ? Font.pixelSize() : QFontInfo(Font).pixelSize(); }

// The first line needs the height of its letters alone: the air that a font keeps above them may lie outside.
int HeightOf(qsizetype Lines, const QFont &Font)
{
    return SizeOf(Font) + static_cast<int>(Lines - 1) * QFontMetrics(Font).lineSpacing();
}

int WidthOf(const QStringList &Lines, const QFont &Font)
{
    const QFontMetrics metrics(Font);
    int width = 0;
    for (const QString &line : Lines) width = std::max(width, metrics.horizontalAdvance(line));
    return width;
}

struct FittedText
{
    QFont Font;
    QStringList Lines;
};

FittedText FitInto(const QSize &Room, const QString &Text, QFont Font, bool WordWrap)
{
    const int smallest = std::max(SmallestText, static_cast<int>(SizeOf(Font) * SmallestShare));
    for (int size = SizeOf(Font);; --size) {
        Font.setPixelSize(std::max(1, size));
        const QStringList lines = LinesOf(Text, Font, Room.width(), WordWrap);
        const bool fits = WidthOf(lines, Font) <= Room.width() && HeightOf(lines.size(), Font) <= Room.height();
        if (fits || size <= smallest) return {Font, lines};
    }
}

// Drops the lines that have no room and marks what was lost by dots.
void Cut(FittedText &Text, const QSize &Room)
{
    const QFontMetrics metrics(Text.Font);
    const auto whole = Text.Lines.size();
    while (Text.Lines.size() > 1 && HeightOf(Text.Lines.size(), Text.Font) > Room.height()) Text.Lines.removeLast();
    if (Text.Lines.size() < whole) Text.Lines.last() += u'…';
    for (QString &line : Text.Lines) line = metrics.elidedText(line, Qt::ElideRight, Room.width());
}

int TopOf(const QRect &Place, int Height, Qt::Alignment Alignment)
{
    if (Alignment.testFlag(Qt::AlignTop)) return Place.top();
    if (Alignment.testFlag(Qt::AlignBottom)) return Place.top() + Place.height() - Height;
    return Place.top() + (Place.height() - Height) / 2;
}

// In a place that is lower than a line, letters hang out below while there is air above. They are raised by as much
// as the deepest of any text needs, so that texts side by side stay on one line, but no further than their own top
// allows.
int RaiseOf(const QRect &Place, int Top, int Height, const FittedText &Text)
{
    const QFontMetrics metrics(Text.Font);
    const int depth = metrics.tightBoundingRect(QStringLiteral("gjpqy")).bottom() + 1;
    const int below = Top + Height - metrics.descent() + depth - (Place.top() + Place.height());
    const int air = Top + metrics.ascent() + metrics.tightBoundingRect(Text.Lines.first()).top() - Place.top();
    return std::max(0, std::min(below, air));
}
} // namespace

QFont Caption::DesignFont(const QFont &Like, double Points, bool Bold)
{
    QFont font = Like;
    font.setPixelSize(std::max(1, qRound(Points * PixelsPerPoint)));
    font.setBold(Bold);
    return font;
}

void Caption::Draw(QPainter &Painter, const QRect &Place, const QString &Text, const QColor &Colour,
                   Qt::Alignment Alignment, bool WordWrap)
{
    if (Text.isEmpty() || Place.isEmpty()) return;
    FittedText fitted = FitInto(Place.size(), Text, Painter.font(), WordWrap);
    Cut(fitted, Place.size());

    const QFontMetrics metrics(fitted.Font);
    const int height = metrics.height() + static_cast<int>(fitted.Lines.size() - 1) * metrics.lineSpacing();
    int top = TopOf(Place, height, Alignment);
    if (height > Place.height()) top -= RaiseOf(Place, top, height, fitted);
    QRect line(Place.left(), top, Place.width(), metrics.height());
    const int flags = static_cast<int>((Alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter) |
                      Qt::TextSingleLine | Qt::TextDontClip;
    Painter.save();
    Painter.setFont(fitted.Font);
    Painter.setPen(Colour);
    for (const QString &text : std::as_const(fitted.Lines)) {
        Painter.drawText(line, flags, text);
        line.translate(0, metrics.lineSpacing());
    }
    Painter.restore();
}

Caption::Line Caption::Fitted(const QFont &Font, const QString &Text, int Width)
{
    const QSize room(Width, EndlessHeight);
    FittedText fitted = FitInto(room, ParagraphsOf(Text).join(u' '), Font, false);
    Cut(fitted, room);
    return {fitted.Font, fitted.Lines.first()};
}

QSize Caption::Needs(const QFont &Font, const QString &Text)
{
    const QStringList lines = LinesOf(Text, Font, EndlessWidth, false);
    const QFontMetrics metrics(Font);
    return {WidthOf(lines, Font), metrics.height() + static_cast<int>(lines.size() - 1) * metrics.lineSpacing()};
}
