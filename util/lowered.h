#pragma once

#include <QString>
#include <QStringView>

#include <algorithm>

/// Whether two texts are equal in lower case, as a.toLower() == b.toLower() has it. Copies nothing
/// when both are ASCII, as MIME words, Content-IDs and Content-Locations nearly always are.
inline bool equalLowered(QStringView a, QStringView b) {
    const auto isAscii = [](QStringView text) {
        return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
    };
    if (isAscii(a) && isAscii(b))
        return a.size() == b.size() && a.compare(b, Qt::CaseInsensitive) == 0;
    return a.toString().toLower() == b.toString().toLower();
}
