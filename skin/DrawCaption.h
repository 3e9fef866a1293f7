// Text drawn into a picture surface, once, rather than at every repaint.
#pragma once

#include <QFont>
#include <QImage>
#include <QString>

namespace modMain
{
constexpr int WordBreak = 16; // of Flags: lines break between words, from the top of the surface

/// Draws one line of plain text, centred from top to bottom, from Left [px] to the surface's right edge; one that is
/// too long is drawn smaller, and ends with dots when even that does not fit. With WordBreak, lines of the font's
/// size that are cut at the edges. The colour is the skin's for menus where UseSkinColour is set and there is a skin,
/// else black. The surface may have a device pixel ratio; positions are those of the control.
void DrawCaption(const QFont &Font, QImage &Surface, const QString &Text, int Left, int Flags, bool UseSkinColour);
} // namespace modMain
