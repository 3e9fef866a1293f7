// GIF files for tests: Qt reads them and writes none.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRgb>
#include <QSize>

#include <functional>

/// A picture of up to four colours. ColourAt tells for each place, x and y, which of them it has, counting from 0.
QByteArray GifBytes(QSize Size, const QList<QRgb> &Colours, const std::function<int(int, int)> &ColourAt);
/// A picture of one colour.
QByteArray GifBytes(QSize Size, QRgb Colour);
