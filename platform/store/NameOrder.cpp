#include "platform/store/NameOrder.h"

#include <QString>

#include <algorithm>
#include <array>

namespace
{
// Letters that no decomposition takes apart.
struct Spelled
{
    char16_t Letter;
    const char16_t *As;
};
constexpr std::array SpelledOut{
    Spelled{u'ß', u"ss"}, Spelled{u'æ', u"ae"}, Spelled{u'œ', u"oe"}, Spelled{u'ø', u"o"}, Spelled{u'đ', u"d"},
    Spelled{u'ð', u"d"},  Spelled{u'ł', u"l"},  Spelled{u'þ', u"th"}, Spelled{u'ħ', u"h"}, Spelled{u'ı', u"i"},
};

bool IsAscii(QByteArrayView name)
{
    return std::all_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool IsMark(QChar c)
{
    return c.category() == QChar::Mark_NonSpacing || c.category() == QChar::Mark_SpacingCombining ||
           c.category() == QChar::Mark_Enclosing;
}

// The base letters alone, in small letters.
QString Folded(QByteArrayView name)
{
    const QString parts = QString::fromUtf8(name).normalized(QString::NormalizationForm_KD).toCaseFolded();
    QString folded;
    folded.reserve(parts.size());
    for (const QChar c : parts) {
        const auto spelled = std::find_if(SpelledOut.begin(), SpelledOut.end(),
                                          [c](const Spelled &letter) { return letter.Letter == c.unicode(); });
        if (spelled != SpelledOut.end())
            folded += QStringView(spelled->As);
        else if (!IsMark(c))
            folded += c;
    }
    return folded;
}

// Most names are plain, and a catalogue compares them some ten thousand times.
int CompareFolded(QByteArrayView a, QByteArrayView b)
{
    if (!IsAscii(a) || !IsAscii(b)) return QtPrivate::compareStrings(Folded(a), Folded(b));
    const auto [inA, inB] =
        std::mismatch(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Lower(x) == Lower(y); });
    if (inA == a.end() || inB == b.end()) return (inA != a.end()) - (inB != b.end());
    return Lower(*inA) - Lower(*inB);
}

bool IsLastName(QByteArrayView name) { return name.size() == 3 && CompareFolded(name, "zzz") == 0; }

int CompareBytes(QByteArrayView a, QByteArrayView b)
{
    return std::lexicographical_compare(b.begin(), b.end(), a.begin(), a.end()) -
           std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end());
}
} // namespace

int CompareNames(QByteArrayView A, QByteArrayView B)
{
    if (const int last = IsLastName(A) - IsLastName(B); last != 0) return last;
    if (const int folded = CompareFolded(A, B); folded != 0) return folded;
    return CompareBytes(A, B);
}
