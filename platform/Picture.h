// Pictures are QImage values of the format RGB32: GIF and JPEG, first frame, the transparent entry of a GIF read as
// the plain colour it has in the palette. (A pixmap would lose that colour, and outlines are cut by it.)
#pragma once

#include <QImage>
#include <QStringList>

/// Failure: passed on, naming the file, when it is missing, damaged, cut short or larger than 8192 x 8192.
QImage LoadPicture(const QString &Path);
/// Begins to read pictures, one after the other on a thread of its own, for a moment at which the interface thread
/// has other things to do. The next LoadPicture of such a path waits for it and takes the picture, or the failure.
/// From the interface thread; a later call begins with what is left of the former one forgotten.
void ReadPicturesAhead(const QStringList &Paths);
QImage PictureFromData(const QByteArray &Bytes, const QString &NameForErrors);
/// One of the program's own ":/pictures/Name.png", with its soft edges. Empty when there is none.
QImage OwnPicture(const QString &Name);

/// The part of a picture under a place told in logical pixels, as large as the place; what lies outside the picture
/// is black. A picture of a higher scale gives a part of that scale.
QImage PartOf(const QImage &Picture, const QRect &Place);
