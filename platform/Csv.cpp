#include "platform/Csv.h"

namespace
{
QString Field(const QString &text)
{
    const bool quoted = text.contains(u',') || text.contains(u'"') || text.contains(u'\r') || text.contains(u'\n');
    return quoted ? u'"' + QString(text).replace(QStringLiteral("\""), QStringLiteral("\"\"")) + u'"' : text;
}
} // namespace

QByteArray ToCsv(const QList<QStringList> &Rows)
{
    QString text;
    for (const QStringList &row : Rows) {
        QStringList fields;
        for (const QString &field : row) fields << Field(field);
        text += fields.join(u',') + QStringLiteral("\r\n");
    }
    return text.toUtf8();
}
