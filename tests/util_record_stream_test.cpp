#include "tests/testing.h"

namespace {

struct Values {
    qint32 number;
    QString text;
    QByteArray bytes;
};

QByteArray written(const Values& values, QDataStream::ByteOrder order) {
    QByteArray record;
    QDataStream stream(&record, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_6);
    stream.setByteOrder(order);
    {
        RecordWriter writer(stream);
        { RecordReader nested(stream); }
        writer.writeInt(values.number);
        writer.writeText(values.text);
        writer.writeBytes(values.bytes);
    }
    EXPECT_EQ(stream.version(), QDataStream::Qt_5_6); // the caller's version again
    EXPECT_EQ(stream.byteOrder(), order);
    return record;
}

TEST(RecordStream, readsWhatItWrote) {
    EXPECT_EQ(written({-2, QString::fromUtf8("a\xC3\xA9"), "xyz"}, QDataStream::LittleEndian),
              octets("FEFFFFFF 04000000 6100 E900 03000000 78797A"));
    const Values rows[] = {{0, QString(), {}},
                           {1, QString(""), QByteArray("\0", 1)},
                           {-2147483647 - 1, QString(100001, QChar(0x20AC)), QByteArray(300001, 'x')}};
    for (const Values& row : rows)
        for (auto order : {QDataStream::BigEndian, QDataStream::LittleEndian}) {
            QDataStream stream(written(row, order));
            stream.setByteOrder(order);
            RecordReader reader(stream);
            EXPECT_EQ(reader.readInt(), row.number);
            const QString text = reader.readText();
            EXPECT_TRUE(text == row.text && text.isNull() == row.text.isNull()) << text.size();
            EXPECT_TRUE(reader.readBytes() == row.bytes);
            EXPECT_TRUE(reader.ok() && stream.atEnd());
        }
}

TEST(RecordStream, readsNoFurtherThanTheRecord) {
    const std::tuple<const char*, const char*, QString> rows[] = {
        {"nothing at all", "", {}},
        {"half a count", "0000", {}},
        {"count without text", "00000002", ""},
        {"huge count", "FFFFFFFE 0061 0062", "ab"},
        {"half a unit", "00000004 0061 00", "a"},
        {"odd count", "00000003 0061 0062", {}},
        {"odd huge count", "FFFFFFFD 0061", {}},
    };
    for (const auto& [name, record, text] : rows) {
        SCOPED_TRACE(name);
        QDataStream stream(octets(record));
        RecordReader reader(stream);
        EXPECT_EQ(reader.readText(), text);
        EXPECT_FALSE(reader.ok());
        const qint64 place = stream.device()->pos();
        EXPECT_EQ(reader.readInt(), 0);
        EXPECT_TRUE(reader.readText().isNull() && reader.readBytes().isNull());
        EXPECT_EQ(stream.device()->pos(), place);
    }
}

} // namespace
