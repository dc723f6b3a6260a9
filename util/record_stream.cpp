#include "util/record_stream.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr int RECORD_FORMAT = QDataStream::Qt_2_1; // the format in which phones store records
static_assert(sizeof(QChar) == 2, "a text is stored as units of two octets");

constexpr quint32 NULL_TEXT = 0xFFFFFFFF;
constexpr qsizetype FIRST_STEP = 32 * 1024; // units; longer texts grow as octets are read

int switchTo(QDataStream& stream, int version) {
    const int former = stream.version();
    stream.setVersion(version);
    return former;
}

/// Converts the units in `text` from the stream's byte order to the host's.
void toHostOrder(QString& text, QDataStream::ByteOrder order) {
    constexpr bool littleHost = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
    if ((order == QDataStream::LittleEndian) == littleHost)
        return;
    for (QChar& unit : text)
        unit = QChar(qbswap(unit.unicode()));
}

} // namespace

RecordReader::RecordReader(QDataStream& stream)
    : stream_(stream), callersVersion_(switchTo(stream, RECORD_FORMAT)) {
}

RecordReader::~RecordReader() {
    stream_.setVersion(callersVersion_);
}

qint32 RecordReader::readInt() {
    qint32 value = 0;
    if (ok())
        stream_ >> value;
    return ok() ? value : 0;
}

QString RecordReader::readText() {
    const auto count = static_cast<quint32>(readInt());
    if (!ok() || count == NULL_TEXT)
        return QString();
    if (count % 2 != 0) {
        stream_.setStatus(QDataStream::ReadCorruptData);
        return QString();
    }
    QString text = QLatin1String("");
    const auto units = static_cast<qsizetype>(count / 2);
    while (text.size() < units && ok()) {
        const qsizetype done = text.size();
        const qsizetype step = std::min(units - done, std::max(FIRST_STEP, done));
        text.resize(done + step);
        const qsizetype got = readRawOctets(stream_, reinterpret_cast<char*>(text.data() + done), step * 2);
        if (got < step * 2) {
            stream_.setStatus(QDataStream::ReadPastEnd);
            text.truncate(done + got / 2);
        }
    }
    toHostOrder(text, stream_.byteOrder());
    return text;
}

QArray<char> RecordReader::readBytes() {
    QArray<char> octets;
    if (ok())
        stream_ >> octets;
    return octets;
}

RecordWriter::RecordWriter(QDataStream& stream)
    : stream_(stream), callersVersion_(switchTo(stream, RECORD_FORMAT)) {
}

RecordWriter::~RecordWriter() {
    stream_.setVersion(callersVersion_);
}

void RecordWriter::writeInt(qint32 value) {
    stream_ << value;
}
void RecordWriter::writeText(const QString& text) {
    stream_ << text;
}
void RecordWriter::writeBytes(const QArray<char>& octets) {
    stream_ << octets;
}
