#pragma once

#include "platform/export.h"
#include "qt2/qarray.h"

#include <QDataStream>
#include <QString>

/// Reads the values of one stored record. Records are untrusted input.
///
/// A reader sets its stream to the record format, and its destructor restores the former format. The byte
/// order is always the stream's. After a failure of the stream, reads give 0, a null text or no octets, and
/// consume nothing.
class LUM_EXPORT RecordReader {
public:
    /// The stream stays the caller's and must outlive the reader.
    explicit RecordReader(QDataStream& stream);
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;
    ~RecordReader();

    /// A signed 32-bit number.
    qint32 readInt();
    /// A text: 32-bit count of octets (0xFFFFFFFF for a null text), then UTF-16 units. A text that is cut off
    /// gives the whole units that are there, an odd count a null text; ok() is false then.
    QString readText();
    /// Octets: 32-bit count, then the octets themselves, as many as there are; a new private array.
    QArray<char> readBytes();

    /// False once a read has failed, or when the stream had failed before.
    bool ok() const { return stream_.status() == QDataStream::Ok; }

private:
    QDataStream& stream_;
    const int callersVersion_;
};

/// Writes the values of one stored record. Uses the stream as RecordReader does.
class LUM_EXPORT RecordWriter {
public:
    /// The stream stays the caller's and must outlive the writer.
    explicit RecordWriter(QDataStream& stream);
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;
    ~RecordWriter();

    /// A signed 32-bit number.
    void writeInt(qint32 value);
    /// A text, as RecordReader::readText() reads it; null and empty texts are distinct.
    void writeText(const QString& text);
    /// Octets, as RecordReader::readBytes() reads them.
    void writeBytes(const QArray<char>& octets);

private:
    QDataStream& stream_;
    const int callersVersion_;
};
