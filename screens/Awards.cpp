#include "screens/Awards.h"

#include "platform/Picture.h"
#include "skin/modTransBlt.h"

#include <QPaintDevice>
#include <QPainter>
#include <QString>

#include <array>

namespace
{
struct Award
{
    const char *Picture;
    std::int32_t Worth; // in stars
};
constexpr std::array Kinds{Award{"crown", 27}, Award{"trophy", 9}, Award{"medal", 3}, Award{"star", 1}};
constexpr std::size_t Trophy = 1, Star = 3;

QImage Load(const char *Name) { return LoadPicture(QStringLiteral(":/pictures/%1.gif").arg(QLatin1String(Name))); }

// Read once: the pictures are part of the program.
const QImage &PictureOf(std::size_t Kind)
{
    static const std::array pictures{Load(Kinds[0].Picture), Load(Kinds[1].Picture), Load(Kinds[2].Picture),
                                     Load(Kinds[3].Picture)};
    return pictures[Kind];
}

const QImage &TickPicture()
{
    static const QImage tick = Load("tick");
    return tick;
}

// Whole, but for the colour of its own top left pixel.
void Draw(QPainter &hdc, int x, int y, const QImage &picture)
{
    TransBlt(hdc, x, y, picture.width(), picture.height(), picture, 0, 0, KeyColour(picture));
}
} // namespace

void DrawAwards(QPainter &hdc, int x, int y, std::int32_t Count)
{
    const int end = hdc.device()->width();
    std::int32_t left = Count;
    for (std::size_t kind = 0; kind < Kinds.size(); ++kind) {
        // After a trophy the place moves on by a star's width: kept as it always was, and alike for our pictures.
        const int step = PictureOf(kind == Trophy ? Star : kind).width();
        for (std::int32_t n = left / Kinds[kind].Worth; n > 0 && x < end; --n, x += step)
            Draw(hdc, x, y, PictureOf(kind));
        left %= Kinds[kind].Worth;
    }
}

void DrawStar(QPainter &hdc, int x, int y) { Draw(hdc, x, y, PictureOf(Star)); }

int TickWidth() { return TickPicture().width(); }

void DrawTick(QPainter &hdc, int x, int y) { Draw(hdc, x, y, TickPicture()); }
