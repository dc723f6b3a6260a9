#pragma once

#include <QStringView>

/// Whether a text has no character beyond ASCII, as nearly all texts of a message's headers.
inline bool isAscii(QStringView text) {
    char16_t bits = 0;
    for (const QChar c : text)
        bits = static_cast<char16_t>(bits | c.unicode());
    return bits < 0x80;
}
