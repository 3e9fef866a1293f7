// A picture surface that is never shown: the holder of every loaded skin picture, and what skins paint into.
// Measures are in pixels of the program's own layout; a picture of a higher scale (its device pixel ratio) counts as
// large as it is shown.
#pragma once

#include <QColor>
#include <QImage>

class PicBox
{
public:
    int Width() const { return m_Width; }
    int Height() const { return m_Height; }
    /// The surface becomes that large and keeps what was in it, at the top left. Scale is its device pixel ratio.
    void SetSize(int Width, int Height, double Scale = 1);

    /// The picture sizes the surface.
    void SetPicture(const QImage &Picture);
    /// The picture set last; empty when none was.
    const QImage &Picture() const { return m_Picture; }

    /// What the surface holds, of its full size.
    const QImage &Image() const { return m_Image; }
    QImage &Image() { return m_Image; }
    QColor BackColour = Qt::white;
    /// Fills the surface with BackColour.
    void Cls();

private:
    int m_Width = 1;
    int m_Height = 1;
    QImage m_Picture;
    QImage m_Image{1, 1, QImage::Format_RGB32};
};
