// Works a task of Tally Rush out again, from its text alone.
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QStringList>

/// Products and quotients first, then from left to right.
inline int TallyResult(const QString &Text)
{
    const QStringList words = Text.split(u' ');
    int sum = 0;
    int sign = 1;
    int product = words.at(0).toInt();
    for (qsizetype i = 1; i + 1 < words.size(); i += 2) {
        const int number = words.at(i + 1).toInt();
        if (words.at(i) == u"\u00d7") {
            product *= number;
        } else if (words.at(i) == u"\u00f7") {
            EXPECT_EQ(product % number, 0) << qPrintable(Text);
            product /= number;
        } else {
            sum += sign * product;
            sign = words.at(i) == u"+" ? 1 : -1;
            product = number;
        }
    }
    return sum + sign * product;
}
