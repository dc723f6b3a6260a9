#pragma once

#include <QByteArray>

/// A number as a uintvar.
inline QByteArray uintvar(qsizetype value) {
    QByteArray octets(1, static_cast<char>(value & 0x7F));
    while (value >>= 7)
        octets.prepend(static_cast<char>(0x80 | (value & 0x7F)));
    return octets;
}

/// An entry of a multipart: its lengths, its head (content type and headers) and its data.
inline QByteArray entry(const QByteArray& head, const QByteArray& data = QByteArray()) {
    return uintvar(head.size()) + uintvar(data.size()) + head + data;
}
