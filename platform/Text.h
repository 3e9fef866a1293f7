// Text in files is 8-bit: UTF-8, and where the bytes are no valid UTF-8, Windows-1252.
#pragma once

#include <QByteArray>
#include <QString>

QString FromFileText(const QByteArray &Bytes);
QByteArray ToFileText(const QString &Text);
/// The first Count bytes at the most, never ending in half a character.
QByteArray CutBytes(const QByteArray &Bytes, qsizetype Count);
