#pragma once

#include <QStringView>

/// What of a text a Text-string of a message can hold, which ends at its first zero.
inline QStringView upToZero(QStringView text) {
    const qsizetype zero = text.indexOf(QChar(0));
    return zero < 0 ? text : text.first(zero);
}

/// Whether a text has no character beyond ASCII, as nearly all texts of a message's headers.
inline bool isAscii(QStringView text) {
    char16_t bits = 0;
    for (const QChar c : text)
        bits = static_cast<char16_t>(bits | c.unicode());
    return bits < 0x80;
}
