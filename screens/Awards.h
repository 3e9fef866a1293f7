// Awards as pictures: a count in base 3, one star being one award. The ground shows where a picture has the colour of
// its top left pixel.
#pragma once

#include <cstdint>

class QPainter;

/// Draws the count from left to right, biggest first: crowns worth 27, trophies 9, medals 3, stars 1.
void DrawAwards(QPainter &hdc, int x, int y, std::int32_t Count);
/// One star, as DrawAwards draws it.
void DrawStar(QPainter &hdc, int x, int y);
/// The mark of what is done.
void DrawTick(QPainter &hdc, int x, int y);
int TickWidth(); // [px]
