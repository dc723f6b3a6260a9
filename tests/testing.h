#pragma once

// Included by every test: the whole library, and helpers for files, rows and parts.

#include "tests/octets.h"

#include <gtest/gtest.h>
#include <lumsmilparser.h>

#include <QDataStream>
#include <QFile>
#include <QIODevice>

#include <climits>
#include <functional>
#include <limits>
#include <memory>
#include <ostream>
#include <tuple>
#include <vector>

/// Prints Qt's texts in failed comparisons.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << (text.isNull() ? "(null)" : qPrintable('"' + text + '"'));
}
inline void PrintTo(const QByteArray& bytes, std::ostream* out) {
    *out << bytes.toHex(' ').constData();
}

/// The contents of a file; null when it cannot be read.
inline QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file and returns its path.
inline QString put(const QString& path, const QByteArray& octets) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(octets) == octets.size());
    return path;
}

/// Collects log output, which is then not printed, while it exists.
struct Log {
    Log() { lines.clear(); }
    ~Log() { qInstallMessageHandler(former); }
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    static inline QStringList lines;
    const QtMessageHandler former = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { lines += line; });
};

/// Expects for each row "input = result" that `work` returns that result.
template <class Work>
void expectRows(const QStringList& rows, Work work) {
    for (const QString& row : rows) {
        const QString input = row.section(" = ", 0, 0);
        EXPECT_EQ(input + " = " + work(input), row);
    }
}

using Part = MMS_COMP_SMILMultipartBodypart;

/// Appends a part with that name: an ordinary one, or with 0 a linked one.
inline Part* addPart(MMS_COMP_SMILMultipart& container, const QString& location, int fileType = 1) {
    auto* part = new Part;
    part->setContentLocation(location);
    part->setDispFileType(fileType);
    container.appendBodypart(part);
    return part;
}

/// Reads a body that ends at the end of its allocation.
inline int decode(const QByteArray& octets, MMS_COMP_SMILMultipart& body) {
    std::vector<unsigned char> bytes(octets.begin(), octets.end());
    return MMS_UA_MultiPart_CODEC::decodeMultipart(true, bytes.data(), unsigned(bytes.size()), &body);
}

/// Sets a part's type from "type/sub-type".
inline void setType(Part& part, const QString& type) {
    part.setContentType(Part::getTypePartFromFormat(type));
    part.setContentSubType(Part::getSubTypePartFromFormat(type));
}

/// The record of an object.
template <class Recorded>
QByteArray recordOf(const Recorded& object) {
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    EXPECT_TRUE(object.writeToStream(stream));
    return octets;
}

/// Reads an object from a record and expects true, even when it ends early; returns whether it was complete.
template <class Recorded>
bool readWhole(Recorded& object, const QByteArray& octets) {
    QDataStream stream(octets);
    EXPECT_TRUE(object.readFromStream(stream));
    return stream.status() == QDataStream::Ok;
}

/// A slide or object that deletes its parts, which are in no container.
template <class Shown>
struct Released : Shown {
    Released() : Shown(nullptr) {}
    ~Released() { Shown::clear(); }
};

/// Reads an object from its record.
template <class Recorded>
bool read(Recorded& object, const QByteArray& octets) {
    QDataStream stream(octets);
    return object.readFromStream(stream);
}
