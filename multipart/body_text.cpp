#include "multipart/body_text.h"

#include <QString>
#include <QTextCodec>

#include <algorithm>

namespace {

/// IANA MIBenum numbers of the charsets in 16-bit units.
enum MIB : int {
    MIB_UCS_2 = 1000,
    MIB_UTF_16_BE = 1013,
    MIB_UTF_16_LE = 1014,
    MIB_UTF_16 = 1015,
};

/// UTF-16 units as UTF-8 up to the first NUL, a piece at a time, so that there is never more in
/// memory than the result. `unitAt(i)` gives the i-th of `count` units.
template <typename UnitAt>
QArray<char> utf8UpToNul(qsizetype count, UnitAt unitAt) {
    constexpr qsizetype pieceSize = 2048;
    char16_t piece[pieceSize];
    QArray<char> result;
    qsizetype used = 0;
    bool ended = false;
    for (qsizetype i = 0; i < count && !ended;) {
        qsizetype n = 0;
        while (n < pieceSize && i < count && !ended) {
            piece[n] = unitAt(i);
            ended = piece[n] == 0;
            if (!ended)
                ++n, ++i;
        }
        if (i < count && !ended && QChar::isHighSurrogate(piece[n - 1]))
            --n, --i; // goes with its other half
        const QByteArray utf8 = QStringView(piece, n).toUtf8();
        if (used + utf8.size() > result.size())
            result.resize(std::max({used + utf8.size(), used + used / 2, count}));
        if (used + utf8.size() > result.size())
            return QArray<char>(); // no memory
        std::copy(utf8.begin(), utf8.end(), result.data() + used);
        used += utf8.size();
    }
    if (used < result.size() || result.isNull())
        result.resize(used);
    return result;
}

QArray<char> sixteenBitText(const unsigned char* octets, int length, int mib) {
    qsizetype count = length / 2;
    const auto startsWith = [octets, count](unsigned char first, unsigned char second) {
        return count > 0 && octets[0] == first && octets[1] == second;
    };
    const bool littleEndian = mib == MIB_UTF_16_LE || startsWith(0xFF, 0xFE);
    if (startsWith(0xFF, 0xFE) || startsWith(0xFE, 0xFF)) {
        octets += 2;
        --count;
    }
    return utf8UpToNul(count, [=](qsizetype i) {
        // In any other order whole units are exchanged, not their octets: 1, 0, 3, 2, ... That is
        // intended. An odd one at the end has no partner and stays.
        if (!littleEndian && (i ^ 1) < count)
            i ^= 1;
        return static_cast<char16_t>(octets[2 * i] | octets[2 * i + 1] << 8);
    });
}

} // namespace

std::optional<QArray<char>> bodyTextAsUtf8(const unsigned char* octets, int length, int mib) {
    switch (mib) {
    case mibUtf8:
        return std::nullopt;
    case MIB_UCS_2:
    case MIB_UTF_16_BE:
    case MIB_UTF_16_LE:
    case MIB_UTF_16:
        return sixteenBitText(octets, length, mib);
    }
    const QTextCodec* codec = QTextCodec::codecForMib(mib);
    if (!codec)
        return std::nullopt;
    const QString text = codec->toUnicode(reinterpret_cast<const char*>(octets), length);
    return utf8UpToNul(text.size(), [&text](qsizetype i) { return text.at(i).unicode(); });
}
