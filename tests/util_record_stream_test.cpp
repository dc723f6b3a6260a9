#include "tests/octets.h"
#include "util/lowered.h"
#include "util/record_stream.h"

#include <QBuffer>

namespace {

struct Values {
    qint32 number;
    QString text;
    QByteArray bytes;
};

QByteArray written(const Values& values, QDataStream::ByteOrder order) {
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    stream.setByteOrder(order);
    RecordWriter writer(stream);
    writer.writeInt(values.number);
    writer.writeText(values.text);
    writer.writeBytes(values.bytes);
    return record;
}

TEST(RecordStream, hasTheStoredFormat) {
    const Values values = {-2, QString::fromUtf8("a\xC3\xA9"), "xyz"};
    EXPECT_EQ(written(values, QDataStream::BigEndian), octets("FFFFFFFE 00000004 0061 00E9 00000003 78797A"));
    EXPECT_EQ(written(values, QDataStream::LittleEndian),
              octets("FEFFFFFF 04000000 6100 E900 03000000 78797A"));
    EXPECT_EQ(written({0, QString(), QByteArray()}, QDataStream::BigEndian),
              octets("00000000 FFFFFFFF 00000000"));
}

TEST(RecordStream, readsWhatItWrote) {
    const Values rows[] = {
        {0, QString(), {}},
        {1, QString(""), QByteArray("\0", 1)},
        {-2147483647 - 1, QString(100001, QChar(0x20AC)), QByteArray(300001, 'x')},
    };
    for (const Values& row : rows)
        for (auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            QDataStream stream(written(row, order));
            stream.setByteOrder(order);
            RecordReader reader(stream);
            EXPECT_EQ(reader.readInt(), row.number);
            const QString text = reader.readText();
            EXPECT_TRUE(text == row.text && text.isNull() == row.text.isNull()) << text.size();
            EXPECT_TRUE(reader.readBytes() == row.bytes);
            EXPECT_TRUE(reader.ok());
            EXPECT_TRUE(stream.atEnd());
        }
}

TEST(RecordStream, leavesTheCallersFormat) {
    QByteArray record;
    QDataStream stream(&record, QIODevice::ReadWrite);
    stream.setVersion(QDataStream::Qt_5_6);
    stream.setByteOrder(QDataStream::LittleEndian);
    {
        RecordWriter writer(stream);
        { RecordReader nested(stream); }
        writer.writeText(QString());
    }
    EXPECT_EQ(stream.version(), QDataStream::Qt_5_6);
    EXPECT_EQ(stream.byteOrder(), QDataStream::LittleEndian);
}

TEST(RecordStream, readsNoFurtherThanTheRecord) {
    const struct {
        const char* name;
        QByteArray record;
        QString text;
    } rows[] = {
        {"nothing at all", {}, QString()},
        {"half a count", octets("0000"), QString()},
        {"count without text", octets("00000002"), QString("")},
        {"huge count", octets("FFFFFFFE 0061 0062"), "ab"},
        {"half a unit", octets("00000004 0061 00"), "a"},
        {"odd count", octets("00000003 0061 0062"), QString()},
        {"odd huge count", octets("FFFFFFFD 0061"), QString()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        QDataStream stream(row.record);
        RecordReader reader(stream);
        EXPECT_EQ(reader.readText(), row.text);
        EXPECT_FALSE(reader.ok());
        const qint64 place = stream.device()->pos();
        EXPECT_EQ(reader.readInt(), 0);
        EXPECT_TRUE(reader.readText().isNull());
        EXPECT_TRUE(reader.readBytes().isNull());
        EXPECT_EQ(stream.device()->pos(), place);
    }
}

TEST(EqualLowered, comparesLikeLowerCase) {
    const struct {
        const char* a;
        const char* b;
        bool equal;
    } rows[] = {
        {"", "", true},
        {"Image/JPEG", "image/jpeg", true},
        {"image/jpeg", "image/jpe", false},
        {"[", "{", false}, // one bit apart, like a letter and its capital
        {"\xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89", true},
        {"\xE2\x84\xAA", "k", true}, // the Kelvin sign
        {"\xC5\xBF", "s", false},    // a long s is no capital
        {"stra\xC3\x9F"
         "e",
         "STRASSE", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(equalLowered(QString::fromUtf8(row.a), QString::fromUtf8(row.b)), row.equal)
            << row.a << " " << row.b;
}

} // namespace
