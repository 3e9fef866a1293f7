// The outline of a window, cut from a picture: everything but the key colour, row by row.
//
// The key colour is the bottom left pixel where none is given. The scan stops at the last pixel of a row without
// taking it in, so the rightmost column never belongs to the outline: frame pictures are drawn for it.
#pragma once

#include "skin/cDIBSection.h"

#include <QRegion>

#include <vector>

class QWidget;

class Region
{
public:
    /// Pixels of one row of the picture, counted from the top, without the end.
    struct Run
    {
        int Row = 0;
        int Start = 0;
        int End = 0;
        friend bool operator==(const Run &, const Run &) = default;
    };
    static constexpr std::int32_t UseCorner = 1;
    /// What a window system takes: a window with a finer outline would not be shown at all.
    static constexpr int MostRectangles = 25000;

    /// Builds the region. TransColour is the key: UseCorner stands for the colour of the bottom left pixel, and is
    /// replaced by it. A colour is a number with red in the lowest byte when it is read, and pixels are read with red
    /// and blue exchanged, both alike; whoever gives a key of his own must exchange them too.
    void ScanPicture(const QImage &Picture, std::int32_t &TransColour);
    /// Moves the region from client to window coordinates, for a form with a border: BorderStyle is not 0. Sizes in
    /// pixels, the whole window's and that of its inside.
    void OffsetHeader(int BorderStyle, const QSize &Window, const QSize &Inside);
    /// Failure: passed on, in words, when the outline is finer than window systems can take.
    void Check() const;
    /// Gives the window this outline. An empty region shows nothing of the window, not the whole of it.
    /// Failure: passed on, as of Check; the window keeps its own.
    void ApplyRgn(QWidget &Window) const;

    const QRegion &Rgn() const { return m_Rgn; }
    /// The runs of the last scan, from the top of the picture down; empty ones left out.
    const std::vector<Run> &Runs() const { return m_Runs; }

private:
    void ScanRow(const QRgb *pixels, int row, std::int32_t key);
    void BuildRgn();

    QRegion m_Rgn;
    cDIBSection m_DIB; // of the last picture, whose memory it shares
    std::vector<Run> m_Runs;
};
