// A settings file of any bytes, and a write of any names and value into it. What must hold: a write that is taken is
// read back, changes nothing else, and writing it again changes nothing at all.
#include "platform/Text.h"
#include "services/IniText.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdint>
#include <cstdlib>

namespace
{
void Demand(bool holds)
{
    if (!holds) std::abort();
}

QByteArray Bytes(const std::string &text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

QByteArray Expected(QByteArray value)
{
    while (!value.isEmpty() && IsBlank(value.front())) value.remove(0, 1);
    while (!value.isEmpty() && IsBlank(value.back())) value.chop(1);
    const bool isQuoted = value.size() >= 2 && value.front() == value.back() && (value[0] == '"' || value[0] == '\'');
    return isQuoted ? value.mid(1, value.size() - 2) : value;
}

// All lines but the one that was changed, and those that were added, stand as they stood: what is before the first
// difference and behind the last is the old file, and the old bytes between them are a part of one line.
void DemandOneEdit(const QByteArray &before, const QByteArray &after)
{
    qsizetype same = 0;
    while (same < before.size() && same < after.size() && before[same] == after[same]) ++same;
    qsizetype tail = 0;
    while (tail < before.size() - same && tail < after.size() - same &&
           before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    Demand(!before.mid(same, before.size() - same - tail).contains('\n'));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    const QString section = FromFileText(Bytes(input.ConsumeRandomLengthString(20)));
    const QString key = FromFileText(Bytes(input.ConsumeRandomLengthString(20)));
    const QByteArray value = Bytes(input.ConsumeRandomLengthString(40));
    const QByteArray file = Bytes(input.ConsumeRemainingBytesAsString());

    IniText text(file);
    const QString otherSection = QStringLiteral("Settings");
    const QString otherKey = QStringLiteral("Skin");
    const QByteArray other = text.Value(otherSection, otherKey);
    const QByteArray known = text.Value(section, key);
    Demand(!known.contains('\n') && known.size() <= file.size());

    if (!text.SetValue(section, key, value)) {
        Demand(text.Bytes() == file);
        return 0;
    }
    Demand(text.Value(section, key) == Expected(value));
    DemandOneEdit(file, text.Bytes());

    const bool isOther = section.trimmed().compare(otherSection, Qt::CaseInsensitive) != 0 ||
                         key.trimmed().compare(otherKey, Qt::CaseInsensitive) != 0;
    Demand(!isOther || text.Value(otherSection, otherKey) == other);

    const QByteArray once = text.Bytes();
    IniText again(once);
    Demand(again.SetValue(section, key, value) && again.Bytes() == once);
    return 0;
}
