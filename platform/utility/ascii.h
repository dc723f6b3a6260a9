#pragma once

#include <QStringView>

/// The part of a text that fits into a Text-string: up to the first zero.
inline QStringView upToZero(QStringView text) {
    const qsizetype zero = text.indexOf(QChar(0));
    return zero < 0 ? text : text.first(zero);
}

/// Whether a text is ASCII, as nearly all texts in message headers are.
inline bool isAscii(QStringView text) {
    char16_t bits = 0;
    for (const QChar c : text)
        bits = static_cast<char16_t>(bits | c.unicode());
    return bits < 0x80;
}
