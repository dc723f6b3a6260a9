#pragma once

// What every test starts from: the whole library, octets as they are written down, and parts.

#include <gtest/gtest.h>
#include <lumsmilparser.h>

#include <QDataStream>
#include <QIODevice>

#include <climits>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <tuple>
#include <vector>

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

/// How a failed comparison shows Qt's texts.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << (text.isNull() ? "(null)" : qPrintable('"' + text + '"'));
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << bytes.toHex(' ').constData();
}

using Part = MMS_COMP_SMILMultipartBodypart;

/// Appends a part of this name, an ordinary one or, with 0, one that is linked already.
inline Part* addPart(MMS_COMP_SMILMultipart& container, const QString& location, int fileType = 1) {
    auto* part = new Part;
    part->setContentLocation(location);
    part->setDispFileType(fileType);
    container.appendBodypart(part);
    return part;
}

/// Gives a part a type written as "type/sub-type".
inline void setType(Part& part, const QString& type) {
    part.setContentType(Part::getTypePartFromFormat(type));
    part.setContentSubType(Part::getSubTypePartFromFormat(type));
}

/// What an object is stored as.
template <class Recorded>
QByteArray recordOf(const Recorded& object) {
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    EXPECT_TRUE(object.writeToStream(stream));
    return octets;
}

/// Restores an object from its record.
template <class Recorded>
bool read(Recorded& object, const QByteArray& octets) {
    QDataStream stream(octets);
    return object.readFromStream(stream);
}
