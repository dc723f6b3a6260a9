// The values of the binary header: integers, texts, times, addresses and the content type.

#include "codec/address_binary.h"
#include "codec/codec_result.h"
#include "codec/content_type_field.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "codec/time_binary.h"
#include "tests/octets.h"

#include <climits>
#include <functional>
#include <vector>

namespace {

unsigned char* raw(QByteArray& bytes) {
    return reinterpret_cast<unsigned char*>(bytes.data());
}

/// The octets that `write` puts into a buffer with room to spare, and none of its results lost.
QByteArray written(const std::function<unsigned char(LinearBuffer*)>& write, int result = CODEC_WRITTEN) {
    QByteArray room(64 * 1024, '\x55');
    LinearBuffer buffer(raw(room), static_cast<int>(room.size()));
    EXPECT_EQ(write(&buffer), result);
    return room.left(buffer.getPosition());
}

/// A reader over octets that end exactly at the end of their allocation.
class Input {
public:
    explicit Input(const QByteArray& bytes)
        : octets_(bytes.begin(), bytes.end()), buffer(octets_.data(), static_cast<int>(octets_.size())) {}

private:
    std::vector<unsigned char> octets_;

public:
    LinearBuffer buffer;
};

} // namespace

TEST(LinearBuffer, CursorBounds) {
    QByteArray bytes = octets("01 02 03");
    LinearBuffer buffer(raw(bytes), 2);
    unsigned char octet = 0;
    unsigned char out[2] = {};
    const unsigned char three[] = {7, 8, 9};
    EXPECT_FALSE(buffer.appendData(three, 3));
    EXPECT_EQ(buffer.getPosition(), 0);
    EXPECT_FALSE(buffer.readData(out, 3));
    EXPECT_FALSE(buffer.readData(out, -1));
    EXPECT_TRUE(buffer.readData(out, 2));
    EXPECT_FALSE(buffer.hasMore());
    EXPECT_TRUE(buffer.readByte(&octet)); // the lenient read behind the end
    EXPECT_EQ(octet, 3);
    EXPECT_FALSE(buffer.readByte(&octet));
    EXPECT_EQ(buffer.getPosition(), 3);
    EXPECT_FALSE(buffer.appendByte(1));
    EXPECT_FALSE(buffer.readData(out, 0)); // not even nothing is there
    EXPECT_EQ(buffer.restLength(), 0);
    buffer.rewind(INT_MAX);
    EXPECT_EQ(buffer.getPosition(), 0);
    buffer.forward(INT_MAX);
    EXPECT_EQ(buffer.getPosition(), 1); // the last octet, not the end
    buffer.forward(INT_MIN);
    EXPECT_EQ(buffer.getPosition(), 0);
    EXPECT_TRUE(buffer.appendByte(0xAA));
    buffer.zerolize();
    EXPECT_EQ(bytes, octets("00 00 03"));
    EXPECT_EQ(buffer.getPosition(), 1);
    LinearBuffer none(nullptr, -5);
    none.forward(1);
    EXPECT_FALSE(none.hasMore());
    none.zerolize();
}

TEST(Integers, WrittenAndMeasured) {
    struct Row {
        int value;
        const char *integer, *uintvar, *valueLength;
    };
    for (const Row& row : {Row{0, "80", "00", "00"},
                           {30, "9E", "1E", "1E"},
                           {31, "9F", "1F", "1F 1F"},
                           {127, "FF", "7F", "1F 7F"},
                           {128, "01 80", "81 00", "1F 81 00"},
                           {200, "01 C8", "81 48", "1F 81 48"},
                           {256, "02 01 00", "82 00", "1F 82 00"},
                           {16384, "02 40 00", "81 80 00", "1F 81 80 00"},
                           {65535, "02 FF FF", "83 FF 7F", "1F 83 FF 7F"},
                           {0x01000000, "04 01 00 00 00", "88 80 80 00", "1F 88 80 80 00"},
                           {INT_MAX, "04 7F FF FF FF", "87 FF FF FF 7F", "1F 87 FF FF FF 7F"}}) {
        SCOPED_TRACE(row.value);
        struct Codec {
            unsigned char (*write)(LinearBuffer*, int);
            unsigned char (*read)(LinearBuffer*, int*);
            int (*size)(int);
            const char* expected;
        };
        for (const Codec& codec :
             {Codec{IntegerBinary::writeTo, IntegerBinary::readFrom, IntegerBinary::sizeOf, row.integer},
              {CharsetBinary::writeTo, CharsetBinary::readFrom, CharsetBinary::sizeOf, row.integer},
              {UIntBinary::writeTo, UIntBinary::readFrom, UIntBinary::sizeOf, row.uintvar},
              {ValueLengthBinary::writeTo, ValueLengthBinary::readFrom, ValueLengthBinary::sizeOf,
               row.valueLength}}) {
            const QByteArray bytes = written([&](LinearBuffer* b) { return codec.write(b, row.value); });
            EXPECT_EQ(bytes, octets(codec.expected));
            EXPECT_EQ(codec.size(row.value), bytes.size());
            int value = -1;
            Input whole(bytes);
            EXPECT_EQ(codec.read(&whole.buffer, &value), CODEC_READ);
            EXPECT_EQ(value, row.value);
            for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
                Input part(bytes.left(cut));
                EXPECT_EQ(codec.read(&part.buffer, &value), CODEC_MALFORMED) << cut;
            }
        }
    }
    EXPECT_EQ(written([](LinearBuffer* b) { return IntegerBinary::writeTo(b, -1); }), octets("FF"));
    EXPECT_EQ(IntegerBinary::sizeOf(-1), 1);
}

TEST(Integers, LenientForms) {
    int value = -1;
    Input zero(octets("00 77"));
    EXPECT_EQ(IntegerBinary::readFrom(&zero.buffer, &value), CODEC_READ);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(zero.buffer.getPosition(), 1);
    Input wide(octets("06 01 02 03 04 05 06")); // only the last four octets fit
    EXPECT_EQ(IntegerBinary::readFrom(&wide.buffer, &value), CODEC_READ);
    EXPECT_EQ(value, 0x03040506);
    Input large(octets("40"));
    EXPECT_EQ(ValueLengthBinary::readFrom(&large.buffer, &value), CODEC_READ);
    EXPECT_EQ(value, 64);
}

TEST(Texts, Written) {
    struct Row {
        const char* text; // UTF-8
        const char *plain, *encoded;
    };
    for (const Row& row : {Row{"", "00", "02 EA 00"},
                           {"abc", "61 62 63 00", "05 EA 61 62 63 00"},
                           {"\xC3\xA9t", "7F C3 A9 74 00", "06 EA 7F C3 A9 74 00"},
                           {"t\xC3\xA9", "74 C3 A9 00", "05 EA 74 C3 A9 00"},
                           {"abcdefghijklmnopqrstuvwxyz12", // 28 octets
                            "6162636465666768696a6b6c6d6e6f707172737475767778797a313200",
                            "1E EA 6162636465666768696a6b6c6d6e6f707172737475767778797a313200"},
                           {"abcdefghijklmnopqrstuvwxyz123", // one more takes a Length-quote
                            "6162636465666768696a6b6c6d6e6f707172737475767778797a31323300",
                            "1F 1F EA 6162636465666768696a6b6c6d6e6f707172737475767778797a31323300"}}) {
        const QString text = QString::fromUtf8(row.text);
        SCOPED_TRACE(row.text);
        EXPECT_EQ(written([&](LinearBuffer* b) { return PlainTextBinary::writeTo(b, text); }),
                  octets(row.plain));
        EXPECT_EQ(PlainTextBinary::sizeOf(text), octets(row.plain).size());
        EXPECT_EQ(written([&](LinearBuffer* b) { return EncodedStringBinary::writeTo(b, text); }),
                  octets(row.encoded));
        EXPECT_EQ(EncodedStringBinary::sizeOf(text), octets(row.encoded).size());
    }
}

TEST(Texts, Read) {
    struct Row {
        const char* name;
        const char* bytes;
        bool encoded;
        int result;
        QString text;
    };
    const QString e = QStringLiteral("\u00e9");
    for (const Row& row : std::vector<Row>{
             {"plain", "61 62 00 63", false, CODEC_READ, "ab"},
             {"plain, empty", "00 61", false, CODEC_READ, ""},
             {"plain, quote dropped", "7F 41 00", false, CODEC_READ, "A"},
             {"plain, only the first quote", "7F 7F 41 00", false, CODEC_READ,
              "\x7F"
              "A"},
             {"plain, octets as Latin-1", "C3 A9 00", false, CODEC_READ, QString::fromLatin1("\xC3\xA9")},
             {"plain, no end", "41 42", false, CODEC_MALFORMED, "AB"},
             {"plain, nothing", "", false, CODEC_MALFORMED, "before"},
             {"encoded, text form", "61 62 00", true, CODEC_READ, "ab"},
             {"encoded, empty text", "00", true, CODEC_READ, ""},
             {"encoded, text form without end", "61 62", true, CODEC_MALFORMED, "ab"},
             {"encoded, short charset is local", "05 EA 61 62 63 00", true, CODEC_READ, "abc"},
             {"encoded, long charset is UTF-8", "06 01 EA 61 C3 A9 00", true, CODEC_READ, "a" + e},
             {"encoded, length in a uintvar", "1F 05 EA 61 62 63 00", true, CODEC_READ, "abc"},
             {"encoded, no closing zero", "04 EA 61 62 63", true, CODEC_READ, "abc"},
             {"encoded, the zero behind a quote stays", "05 EA 7F C3 A9 00", true, CODEC_READ,
              e + QChar(u'\0')},
             {"encoded, quote before a double zero", "05 EA 7F 41 00 00", true, CODEC_READ,
              QString("A") + QChar(u'\0')},
             {"encoded, charset alone", "01 EA", true, CODEC_READ, ""},
             {"encoded, too short for its charset", "01 01 EA 61", true, CODEC_MALFORMED, "before"},
             {"encoded, longer than the input", "06 EA 61 62 63 00", true, CODEC_MALFORMED, "before"},
             {"encoded, wrapped length", "1F 8F FF FF FF 7F EA 61", true, CODEC_MALFORMED, "before"},
             {"encoded, no charset", "05", true, CODEC_MALFORMED, "before"},
             {"encoded, length octet above 127", "80 EA 61 00", true, CODEC_MALFORMED, "before"}}) {
        SCOPED_TRACE(row.name);
        Input input(octets(row.bytes));
        QString text = "before";
        const auto read = row.encoded ? EncodedStringBinary::readFrom : PlainTextBinary::readFrom;
        EXPECT_EQ(read(&input.buffer, &text), row.result);
        EXPECT_EQ(text, row.text);
    }
}

TEST(Times, ReadAndWritten) {
    QDateTime time;
    Input relative(octets("03 81 01 3C"));
    EXPECT_EQ(TimeBinary::readFrom(&relative.buffer, &time), CODEC_READ);
    const auto ahead = QDateTime::currentDateTime().secsTo(time);
    EXPECT_TRUE(ahead >= 58 && ahead <= 60) << ahead;
    time = QDateTime();
    for (const char* bad : {"03 82 01 3C", "03 81", "03", "", "03 80 04 01 02 03"}) {
        Input input(octets(bad));
        EXPECT_EQ(TimeBinary::readFrom(&input.buffer, &time), CODEC_MALFORMED) << bad;
        EXPECT_TRUE(time.isNull());
        EXPECT_FALSE(input.buffer.hasMore()) << bad; // what was read stays read
    }
    for (const char* utc : {"1970-01-01T00:00:05Z", "1999-07-01T10:00:00Z", "2026-11-21T09:30:00Z",
                            "2038-01-19T03:14:08Z", "2106-02-07T06:28:15Z"}) {
        SCOPED_TRACE(utc);
        const QDateTime moment = QDateTime::fromString(utc, Qt::ISODate).toLocalTime();
        const QByteArray bytes = written([&](LinearBuffer* b) { return TimeBinary::writeTo(b, moment); });
        EXPECT_EQ(TimeBinary::sizeOf(moment), bytes.size());
        Input input(bytes);
        EXPECT_EQ(TimeBinary::readFrom(&input.buffer, &time), CODEC_READ);
        EXPECT_EQ(time.toSecsSinceEpoch(), moment.toSecsSinceEpoch());
    }
    const QDateTime before1970(QDate(1950, 1, 1), QTime(0, 0));
    EXPECT_EQ(written([&](LinearBuffer* b) { return TimeBinary::writeTo(b, before1970); }).size(),
              TimeBinary::sizeOf(before1970));
}

TEST(Addresses, ReadAndWritten) {
    struct Row {
        const char *bytes, *name;
        int type;
        const char *address, *back; // back: what is written for the entry
    };
    for (const Row& row : {Row{"+123/TYPE=PLMN", "", 1, "+123", "+123/TYPE=PLMN"},
                           {"1234", "", 1, "1234", "1234/TYPE=PLMN"},
                           {"12@x/TYPE=PLMN", "", 1, "12@x", "12@x/TYPE=PLMN"},
                           {"12/type=PLMN", "", 1, "12/type=PLMN", "12/type=PLMN/TYPE=PLMN"},
                           {"Ann <a@b.c>", "Ann ", 0, "a@b.c", "a@b.c"},
                           {"a@b.c", "", 0, "a@b.c", "a@b.c"},
                           {"Ann <a@b.c", "Ann ", 0, "a@b.c", "a@b.c"},
                           {"<x>", "", 1, "<x>", "<x>/TYPE=PLMN"}}) {
        SCOPED_TRACE(row.bytes);
        Input input(QByteArray(row.bytes) + '\0');
        MMS_UTIL_Entry entry;
        EXPECT_EQ(AddressBinary::readFrom(&input.buffer, &entry), CODEC_READ);
        EXPECT_EQ(entry.getName(), row.name);
        EXPECT_EQ(entry.getType(), row.type);
        EXPECT_EQ(entry.getAddress(), row.address);
        EXPECT_EQ(written([&](LinearBuffer* b) { return AddressBinary::writeTo(b, entry); }),
                  QByteArray(row.back) + '\0');
        EXPECT_EQ(AddressBinary::sizeOf(entry), QByteArray(row.back).size() + 1);
    }
    const MMS_UTIL_Entry accented("", MMS_UTIL_Entry::EMAIL, QStringLiteral("\u00e9@b"));
    EXPECT_EQ(written([&](LinearBuffer* b) { return AddressBinary::writeTo(b, accented); }),
              octets("07 EA 7F C3 A9 40 62 00"));
    EXPECT_EQ(AddressBinary::sizeOf(accented), 8);
    const MMS_UTIL_Entry unknown("", 2, "x");
    EXPECT_EQ(written([&](LinearBuffer* b) { return AddressBinary::writeTo(b, unknown); }, CODEC_REFUSED),
              "");
    EXPECT_EQ(AddressBinary::sizeOf(unknown), 0);
}

TEST(ContentType, Parameters) {
    const QString params = "type=a/b;start=<s>;Application-ID=x;Reply-To-Application-ID=y";
    EXPECT_EQ(ContentTypeField::mprtOf(params), "a/b");
    EXPECT_EQ(ContentTypeField::startOf(params), "<s>");
    EXPECT_EQ(ContentTypeField::replyAppIDOf(params), "y");
    EXPECT_EQ(ContentTypeField::appIDOf(params), "x");
    EXPECT_TRUE(ContentTypeField::startOf("Start=x").isNull());
    EXPECT_EQ(ContentTypeField::mprtOf("subtype=q"), "q"); // also at the end of a longer name
    // the application id of the reply is found by the shorter key as well, when it stands first
    EXPECT_EQ(ContentTypeField::appIDOf("Reply-To-Application-ID=y;Application-ID=x"), "y");
}

TEST(ContentType, Written) {
    struct Row {
        const char *type, *subType, *params;
        QByteArray bytes;
    };
    const QByteArray smil = QByteArray("application/smil") + '\0';
    for (const Row& row :
         std::vector<Row>{{"image", "jpeg", "", octets("84 9E")},
                          {"application", "vnd.wap.multipart.mixed", "", octets("84 A3")},
                          {"x", "unknown", "", octets("84 FF")},
                          {"application", "vnd.wap.multipart.related", "type=application/smil;start=<s1>",
                           octets("84 19 B3 8A 3C 73 31 3E 00 89", smil)},
                          {"application", "vnd.wap.multipart.related", "", octets("84 05 B3 8A 00 89 00")},
                          {"text", "plain", "charset=utf-8", octets("84 01 83")},
                          {"text", "plain", "Application-ID=app1",
                           octets("84 15 83", QByteArray("Application-ID\0app1\0", 20))},
                          {"application", "vnd.wap.multipart.related",
                           "start=\xC3\xA9;type=", octets("84 07 B3 8A 7F C3 A9 00 89 00")}}) {
        const MMS_CONTENT_TYPE_T type{row.type, row.subType, QString::fromUtf8(row.params)};
        SCOPED_TRACE(row.params);
        EXPECT_EQ(written([&](LinearBuffer* b) { return ContentTypeField::writeTo(b, type); }), row.bytes);
        EXPECT_EQ(ContentTypeField::sizeOf(type), row.bytes.size() - 1);
    }
}

TEST(ContentType, Read) {
    struct Row {
        const char* name;
        QByteArray bytes;
        int result;
        const char *type, *params;
        int left = 0; // octets behind the value
    };
    const char* related = "application/vnd.wap.multipart.related";
    const QByteArray smil = QByteArray("application/smil") + '\0';
    const QByteArray appId("Application-ID\0app1\0", 20);
    for (const Row& row : std::vector<Row>{
             {"short form", octets("9E 01"), CODEC_READ, "image/jpeg", "kept", 1},
             {"type and start", octets("19 B3 8A 3C 73 31 3E 00 89", smil), CODEC_READ, related,
              "type=application/smil;start=<s1>"},
             {"start in quotes", octets("1A B3 8A 22 3C 73 31 3E 00 89", smil), CODEC_READ, related,
              "type=application/smil;start=<s1>"},
             {"type alone", octets("13 B3 89", smil), CODEC_READ, related, "type=application/smil;start="},
             {"no parameters", octets("01 B3 07"), CODEC_READ, related, "kept", 1},
             {"application id", octets("16 B3", appId), CODEC_READ, related, "Application-ID=app1"},
             {"media octet as UTF-8", octets("01 C2 B3 C2 07"), CODEC_READ, related, "kept", 1},
             {"0x80 is a length", octets("80 83"), CODEC_READ, "text/plain", "kept"},
             {"unknown parameter counts twice an octet", octets("07 B3 6B 3D 76 00 55"), CODEC_READ, related,
              "kept", 2},
             {"known behind an unknown", octets("18 B3 81 EA 00", appId), CODEC_READ, related,
              "Application-ID=app1"},
             {"announced one octet too many", octets("1A B3 81 00", appId), CODEC_MALFORMED, related, "kept"},
             {"ends in the type", octets("19 B3 89 61 62"), CODEC_MALFORMED, related, "kept"},
             {"ends behind the start token", octets("19 B3 8A"), CODEC_MALFORMED, related, "kept"},
             {"length without media", octets("19"), CODEC_MALFORMED, "", "kept"},
             {"stray octet without media", octets("19 C2"), CODEC_MALFORMED, "", "kept"},
             {"negative length", octets("1F 8F FF FF FF 7F B3 89 61 00"), CODEC_MALFORMED, "", "kept"},
             {"nothing", "", CODEC_MALFORMED, "", "kept"}}) {
        SCOPED_TRACE(row.name);
        Input input(row.bytes);
        MMS_CONTENT_TYPE_T type;
        type.parameters = row.params; // what is there stays unless the value replaces it
        if (type.parameters != "kept")
            type.parameters.clear();
        EXPECT_EQ(ContentTypeField::readFrom(&input.buffer, &type), row.result);
        EXPECT_EQ(type.type.isEmpty() ? "" : type.type + '/' + type.subType, row.type);
        EXPECT_EQ(type.parameters, row.params);
        if (row.result == CODEC_READ) {
            EXPECT_EQ(input.buffer.restLength(), row.left);
        }
    }
}

TEST(ContentType, UnknownParameterWithoutEndIsReadInOneGo) {
    // quadratic handling of a megabyte would take minutes
    QByteArray bytes = octets("1F 87 FF FF FF 7F B3");
    bytes += QByteArray(1 << 20, 'x');
    Input input(bytes);
    MMS_CONTENT_TYPE_T type;
    EXPECT_EQ(ContentTypeField::readFrom(&input.buffer, &type), CODEC_MALFORMED);
    EXPECT_EQ(type.type, "application");
}
