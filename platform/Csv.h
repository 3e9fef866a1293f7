// Tables as text for other programs: comma separated values as RFC 4180 has them, in UTF-8.
#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

/// Each row ends in CR LF. A field that holds a comma, a quote or a line break stands in quotes, its quotes doubled.
QByteArray ToCsv(const QList<QStringList> &Rows);
