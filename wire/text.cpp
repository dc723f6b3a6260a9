#include "wire/text.h"

#include <QTextCodec>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <climits>
#include <iterator>
#include <memory>

namespace {

enum MIB : int {

    MIB_ISO_8859_1 = 4,
    MIB_UCS_2 = 1000,
    MIB_UCS_4 = 1001,
    MIB_UTF_16_BE = 1013,
    MIB_UTF_16_LE = 1014,
    MIB_UTF_16 = 1015,
    MIB_UTF_32 = 1017,
    MIB_UTF_32_BE = 1018,
    MIB_UTF_32_LE = 1019,
};

/// Charsets by IANA name.
constexpr struct {
    int mib;
    const char* name;
} charsetNames[] = {
    {106, "UTF-8"},
    {3, "US-ASCII"},
    {4, "ISO-8859-1"},
    {1015, "UTF-16"},
    {1013, "UTF-16BE"},
    {1014, "UTF-16LE"},
    {1000, "ISO-10646-UCS-2"},
    {1001, "ISO-10646-UCS-4"},
    {1017, "UTF-32"},
    {1018, "UTF-32BE"},
    {1019, "UTF-32LE"},
    {5, "ISO-8859-2"},
    {6, "ISO-8859-3"},
    {7, "ISO-8859-4"},
    {8, "ISO-8859-5"},
    {9, "ISO-8859-6"},
    {10, "ISO-8859-7"},
    {11, "ISO-8859-8"},
    {12, "ISO-8859-9"},
    {13, "ISO-8859-10"},
    {109, "ISO-8859-13"},
    {110, "ISO-8859-14"},
    {111, "ISO-8859-15"},
    {112, "ISO-8859-16"},
    {17, "Shift_JIS"},
    {18, "EUC-JP"},
    {39, "ISO-2022-JP"},
    {40, "ISO-2022-JP-2"},
    {36, "KS_C_5601-1987"},
    {37, "ISO-2022-KR"},
    {38, "EUC-KR"},
    {113, "GBK"},
    {114, "GB18030"},
    {2025, "GB2312"},
    {2026, "Big5"},
    {2101, "Big5-HKSCS"},
    {2084, "KOI8-R"},
    {2088, "KOI8-U"},
    {2250, "windows-1250"},
    {2251, "windows-1251"},
    {2252, "windows-1252"},
    {2253, "windows-1253"},
    {2254, "windows-1254"},
    {2255, "windows-1255"},
    {2256, "windows-1256"},
    {2257, "windows-1257"},
    {2258, "windows-1258"},
    {2259, "TIS-620"},
};

/// Decodes 16-bit units in the byte order of their byte order mark, or else of `isLittle`. Half surrogate
/// pairs and a lone octet at the end become U+FFFD.
QString sixteenBitText(QByteArrayView octets, bool isLittle, bool* isValid) {
    if (octets.startsWith("\xFE\xFF") || octets.startsWith("\xFF\xFE")) {
        isLittle = octets.front() == '\xFF';
        octets = octets.sliced(2);
    }
    QString text(octets.size() / 2, Qt::Uninitialized);
    for (QChar& unit : text) {
        unit =
            isLittle ? qFromLittleEndian<char16_t>(octets.data()) : qFromBigEndian<char16_t>(octets.data());
        octets = octets.sliced(2);
    }
    *isValid = octets.isEmpty();
    if (!*isValid)
        text += QChar(QChar::ReplacementCharacter);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate())
            continue;
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            ++i;
            continue;
        }
        text[i] = QChar::ReplacementCharacter;
        *isValid = false;
    }
    return text;
}

/// Decodes a text in a known charset. `isValid` is set to whether all octets are valid in it.
QString decodedAs(QByteArrayView octets, int charset, Charsets& charsets, bool* isValid) {
    switch (charset) {
    case mibUtf8:
        *isValid = octets.isValidUtf8();
        return QString::fromUtf8(octets);
    case MIB_ISO_8859_1:
        *isValid = true;
        return QString::fromLatin1(octets);
    case MIB_UCS_2:
    case MIB_UTF_16:
    case MIB_UTF_16_BE:
    case MIB_UTF_16_LE:
        return sixteenBitText(octets, charset == MIB_UTF_16_LE, isValid);
    }
    QString text;
    *isValid = false;
    const QTextCodec* codec = charsets.find(charset);
    if (!codec)
        return text;
    const std::unique_ptr<QTextDecoder> decoder(codec->makeDecoder());
    constexpr qsizetype piece = 1 << 20; // the decoder's counts are ints
    for (; !octets.isEmpty(); octets = octets.sliced(std::min(piece, octets.size())))
        text += decoder->toUnicode(octets.data(), static_cast<int>(std::min(piece, octets.size())));
    *isValid = !decoder->needsMoreData() && !text.contains(QChar::ReplacementCharacter);
    return text;
}

} // namespace

int unitSize(int charset) {
    switch (charset) {
    case MIB_UCS_2:
    case MIB_UTF_16_BE:
    case MIB_UTF_16_LE:
    case MIB_UTF_16:
        return 2;
    case MIB_UCS_4:
    case MIB_UTF_32:
    case MIB_UTF_32_BE:
    case MIB_UTF_32_LE:
        return 4;
    }
    return 1;
}

bool isKnownCharset(int charset, Charsets& charsets) {
    return charset == mibUtf8 || charset == charsetUsAscii || charset == MIB_ISO_8859_1 ||
           unitSize(charset) == 2 || charsets.find(charset);
}

QString charsetName(int charset, Charsets& charsets) {
    for (const auto& [mib, name] : charsetNames)
        if (mib == charset)
            return QLatin1StringView(name);
    const QTextCodec* codec = charsets.find(charset);
    return codec ? QString::fromLatin1(codec->name()) : QString();
}

int charsetByName(QByteArrayView name) {
    for (const auto& [mib, known] : charsetNames)
        if (name.compare(known, Qt::CaseInsensitive) == 0)
            return mib;
    return charsetUnknown;
}

bool isAsciiText(QByteArrayView octets) {
    return std::all_of(octets.begin(), octets.end(),
                       [](char octet) { return static_cast<unsigned char>(octet) < 0x80; });
}

bool isValidText(QByteArrayView octets, int charset, Charsets& charsets) {
    if (charset == mibUtf8)
        return octets.isValidUtf8();
    if (charset == charsetUsAscii || charset == MIB_ISO_8859_1 || !isKnownCharset(charset, charsets))
        return true;
    bool isValid = true;
    decodedAs(octets, charset, charsets, &isValid);
    return isValid;
}

QString decodedText(QByteArrayView octets, int charset, Charsets& charsets) {
    if (charset == charsetUsAscii || !isKnownCharset(charset, charsets))
        return octets.isValidUtf8() ? QString::fromUtf8(octets) : QString::fromLatin1(octets);
    bool isValid = true;
    return decodedAs(octets, charset, charsets, &isValid);
}
