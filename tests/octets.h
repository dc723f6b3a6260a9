#pragma once

// Octets as written in tests, seeds and shapes of bad input.

#include <QByteArray>
#include <QByteArrayList>

/// Octets in hexadecimal, with any blanks: octets("8C 80 8D 90").
inline QByteArray octets(const char* hex) {
    return QByteArray::fromHex(QByteArray(hex).replace(' ', ""));
}

/// The same, followed by further octets, such as a text with its closing zero.
inline QByteArray octets(const char* hex, const QByteArray& more) {
    return octets(hex) + more;
}

/// A text with its closing zero.
inline QByteArray zeroed(const QByteArray& text) {
    return text + '\0';
}

/// The octets of a literal with NULs, without its closing one.
template <size_t size>
QByteArray raw(const char (&literal)[size]) {
    return QByteArray(literal, size - 1);
}

/// A number as a uintvar.
inline QByteArray uintvar(qsizetype value) {
    QByteArray octets(1, static_cast<char>(value & 0x7F));
    while (value >>= 7)
        octets.prepend(static_cast<char>(0x80 | (value & 0x7F)));
    return octets;
}

/// An entry of a multipart: lengths, head (content type and headers) and data.
inline QByteArray entry(const QByteArray& head, const QByteArray& data = QByteArray()) {
    return uintvar(head.size()) + uintvar(data.size()) + head + data;
}

/// An entry with a content type below 31 octets, given without its length.
inline QByteArray entry(const QByteArray& contentType, const QByteArray& headers, const QByteArray& data) {
    return entry(char(contentType.size()) + contentType + headers, data);
}

/// The body of a message and its content type: a presentation and further parts.
inline QByteArray related(const QByteArray& smil, const QByteArrayList& parts) {
    return octets("84 18 B3 8A") + zeroed("<s>") + octets("89") + zeroed("application/smil") +
           uintvar(1 + parts.size()) +
           entry(zeroed("application/smil"), octets("C0 22") + zeroed("<s>"), smil) + parts.join();
}
