// Icons, cursors and bitmaps as they lie in a resource module, turned into pictures.
#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>

/// What can go wrong on the way from a resource to a picture.
enum class PictureFailure {
    BitmapHandle,
    PictureType,
    MetafileDimensions,
    NoInterface,
    Address,
    Arguments,
    Memory,
    Catastrophic,
    Unknown
};
/// The sentence for it.
QString TextOf(PictureFailure Failure);

/// A bitmap: a header without the file's own, colours, rows.
/// Failure: passed on, "Invalid bitmap handle", or "Ran out of memory." when it is larger than any picture here.
QImage BitmapFromResource(QByteArrayView Bytes);

enum class IconKind { Cursor = 1, Icon = 3 }; // the numbers of the resource types that hold the pictures
/// The picture of a group that comes nearest to the usual 32 pixels, the one with most colours among equals. Find
/// gives the bytes of one picture by its id.
/// Failure: passed on, "One or more arguments are invalid." when the group or its picture can't be read.
QImage IconFromGroup(QByteArrayView Group, IconKind Kind,
                     const std::function<std::optional<QByteArrayView>(std::uint32_t Id)> &Find);
