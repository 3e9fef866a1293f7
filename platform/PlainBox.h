// The platform's own message box: one OK button, no owner. Only for what may come up before anything else works.
#pragma once

#include <QString>

enum class PlainBoxIcon { None, Exclamation };

/// Returns once it is answered. CR LF in the text breaks the line.
void ShowPlainBox(const QString &Text, PlainBoxIcon Icon = PlainBoxIcon::None);
