#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>

#include <ostream>

/// Octets written in hexadecimal, blanks as you like: octets("8C 80 8D 90").
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

/// How a failed comparison shows Qt's texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << (text.isNull() ? "(null)" : qPrintable('"' + text + '"'));
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << bytes.toHex(' ').constData();
}
