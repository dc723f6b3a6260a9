#pragma once

// Messages of a few octets whose pictures, texts or slides would take much work.

#include "tests/octets.h"

#include <QByteArrayList>
#include <QList>
#include <QtEndian>

#include <algorithm>
#include <functional>

/// A kind of message, of about as many octets as wanted.
struct RenderAttack {
    const char* name;
    std::function<QByteArray(int)> make;
};

namespace attack {

/// A 32-bit number in big-endian order.
inline QByteArray number(quint32 value) {
    const quint32 octets = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&octets), 4);
}

inline QByteArray chunk(const QByteArray& typeAndData) {
    quint32 sum = ~0u; // CRC-32 (PNG, annex D)
    for (const char octet : typeAndData) {
        sum ^= static_cast<quint8>(octet);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320u : 0);
    }
    return number(quint32(typeAndData.size() - 4)) + typeAndData + number(~sum);
}

/// That many zeros, compressed.
inline QByteArray zeros(qsizetype count) {
    return qCompress(QByteArray(count, 0), 9).sliced(4);
}

/// A black PNG of `form` ("bit depth, colour type, 0, 0, interlace") with further chunks before its pixels.
inline QByteArray png(int side, const QByteArray& form, int bitsPerPixel, const QByteArray& chunks = {}) {
    const qint64 rows = (qint64(side) * bitsPerPixel + 7) / 8 + 1;
    return raw("\x89PNG\r\n\x1a\n") + chunk("IHDR" + number(quint32(side)) + number(quint32(side)) + form) +
           chunks + chunk("IDAT" + zeros(qsizetype(rows * side))) + chunk("IEND");
}

inline const QByteArray TRUE_COLOR = octets("08 02 00 00 00");

/// A PNG of one pixel with chunks of eight megabytes each when unpacked.
inline QByteArray pngOfChunks(const QByteArray& begin, int size) {
    static const QByteArray many = zeros(8 << 20);
    const QByteArray one = chunk(begin + many);
    return png(1, TRUE_COLOR, 24, one.repeated(std::max<int>(1, size / int(one.size()))));
}

/// A JPEG of one colour with that many scans and no encoded pixels.
inline QByteArray jpeg(quint16 side, int scans) {
    const QByteArray high = number(side).right(2);
    QByteArray jpeg = octets("FF D8 FF DB 00 43 00", QByteArray(64, 1)) +
                      octets("FF C2 00 11 08", high + high + octets("03 01 11 00 02 11 00 03 11 00"));
    for (const char* table : {"00", "10"}) // of one code each: no difference, an endless run of blocks
        jpeg += octets("FF C4 00 14") + octets(table) + '\1' + QByteArray(15, 0) +
                (*table == '0' ? raw("\0") : raw("\xE0"));
    jpeg += octets("FF DA 00 0C 03 01 00 02 00 03 00 00 00 00", QByteArray(20, 0));
    for (int scan = 1; scan < scans; ++scan)
        jpeg += octets("FF DA 00 08 01 01 00 01 3F 00", QByteArray(20, 0));
    return jpeg + octets("FF D9");
}

/// A GIF of 35 octets that announces that many pixels.
inline QByteArray gif(quint8 sideBy256) {
    const QByteArray side = QByteArray(1, 0) + char(sideBy256);
    return "GIF89a" + side + side + octets("80 00 00 00 00 00 00 00 00 2C 00 00 00 00 01 00 01 00 00") +
           octets("02 02 44 01 00 3B");
}

/// A message of slides with those media elements each.
inline QByteArray message(const QByteArrayList& slides, const QByteArrayList& parts) {
    return octets("8C 84 8D 90") +
           related("<smil><head><layout><root-layout width='120' height='320'/>"
                   "<region id='a' left='0' top='0' width='120' height='160' fit='fill'/>"
                   "<region id='b' left='0' top='160' width='120' height='160' fit='meet'/></layout></head>"
                   "<body><par>" +
                       slides.join("</par><par>") + "</par></body></smil>",
                   parts);
}

inline QByteArray named(int i) {
    return "p" + QByteArray::number(i);
}

constexpr int MOST_PARTS = 126; // plus the presentation: the most that both readings read alike

/// That many parts with that type and those octets, each on a slide of its own.
inline QByteArray messageOfParts(const QByteArray& type, const QByteArray& data, int size) {
    QByteArrayList slides, parts;
    for (int i = 0; i < std::clamp<int>(size / int(data.size() + 70), 1, MOST_PARTS); ++i) {
        slides += "<img src='" + named(i) + "' region='b'/>";
        parts += entry(type, octets("8E") + zeroed(named(i)), data);
    }
    return message(slides, parts);
}

/// One part shown by that many elements, so many on a slide.
inline QByteArray messageOfOnePart(const QByteArray& type, const QByteArray& data, const QByteArray& element,
                                   int elements, int perSlide) {
    return message(QByteArrayList(std::max(1, elements / perSlide), element.repeated(perSlide)),
                   {entry(type, octets("8E") + zeroed("p"), data)});
}

} // namespace attack

/// All kinds of message that are known to cost a renderer too much time, memory or space.
inline QList<RenderAttack> renderAttacks() {
    using namespace attack;
    const QByteArray isPng = octets("A0"), isJpeg = octets("9E"), isGif = octets("9D");
    const QByteArray isText = octets("83 81 EA");
    const QByteArray picture = "<img src='p' region='b'/>", text = "<text src='p' region='a'/>";
    return {
        {"a PNG of compressed texts",
         [=](int n) { return messageOfParts(isPng, pngOfChunks(raw("zTXtk\0\0"), n), n); }},
        {"a PNG of compressed texts in some language",
         [=](int n) { return messageOfParts(isPng, pngOfChunks(raw("iTXtk\0\1\0\0\0"), n), n); }},
        {"PNGs of compressed profiles",
         [=](int n) { return messageOfParts(isPng, pngOfChunks(raw("iCCPk\0\0"), 1), n); }},
        {"a PNG of 64 megapixels", [=](int) { return messageOfParts(isPng, png(8000, TRUE_COLOR, 24), 1); }},
        {"an interlaced PNG of 64 megapixels",
         [=](int) { return messageOfParts(isPng, png(8000, octets("08 00 00 00 01"), 8), 1); }},
        {"JPEGs of 50 scans", [=](int n) { return messageOfParts(isJpeg, jpeg(2400, 50), n); }},
        {"JPEGs of 10 scans", [=](int n) { return messageOfParts(isJpeg, jpeg(1800, 10), n); }},
        {"one JPEG of 50 scans on many slides",
         [=](int n) { return messageOfOnePart(isJpeg, jpeg(2200, 50), picture, n / 40, 1); }},
        {"GIFs of 35 octets", [=](int n) { return messageOfParts(isGif, gif(16), n); }},
        {"one picture in many elements",
         [=](int n) { return messageOfOnePart(isPng, png(1000, TRUE_COLOR, 24), picture, n / 25, 400); }},
        {"one text on many slides",
         [=](int n) { return messageOfOnePart(isText, QByteArray(n / 2, 'x'), text, n / 80, 1); }},
        {"many slides", [=](int n) { return messageOfOnePart(isText, "x", "", n / 11, 1); }},
    };
}
