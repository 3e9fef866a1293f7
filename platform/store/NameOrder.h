// The order of names in lists: without regard to case, a letter with an accent beside its base letter, the same on
// every machine whatever its locale. "zzz" comes last, behind every other name in any script: it is the name that
// stands for "none of these".
#pragma once

#include <QByteArrayView>

/// Negative, 0 or positive, of two names in UTF-8. Names that differ only in case or accents keep a fixed order; 0
/// means the same name. Failure: none; bytes that are no UTF-8 count as the replacement character.
int CompareNames(QByteArrayView A, QByteArrayView B);
