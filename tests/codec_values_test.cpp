// The values of the binary header: integers, texts, times, addresses and the content type.

#include "tests/testing.h"

namespace {

/// The encoded value; checks that it has as many octets as its size says.
template <class Binary, class Value>
QByteArray written(const Value& value, int result = CODEC_WRITTEN, int uncounted = 0) {
    std::vector<unsigned char> room(64 * 1024, 0x55);
    LinearBuffer buffer(room.data(), static_cast<int>(room.size()));
    EXPECT_EQ(Binary::writeTo(&buffer, value), result);
    EXPECT_EQ(Binary::sizeOf(value) + uncounted, buffer.getPosition());
    return QByteArray(reinterpret_cast<char*>(room.data()), buffer.getPosition());
}

/// A reader over octets that end at the end of their allocation.
struct Input {
    explicit Input(const QByteArray& bytes)
        : octets(bytes.begin(), bytes.end()), buffer(octets.data(), static_cast<int>(octets.size())) {}
    std::vector<unsigned char> octets;
    LinearBuffer* at() { return &buffer; }
    LinearBuffer buffer;
};

const QByteArray smil("application/smil\0", 17), appId("Application-ID\0app1\0", 20);

} // namespace

TEST(LinearBuffer, CursorBounds) {
    unsigned char bytes[] = {1, 2, 3}, octet = 0, out[3] = {7, 8, 9};
    LinearBuffer buffer(bytes, 2), none(nullptr, -5);
    EXPECT_FALSE(buffer.appendData(out, 3) || buffer.readData(out, 3) || buffer.readData(out, -1));
    EXPECT_TRUE(buffer.readData(out, 2));
    EXPECT_FALSE(buffer.hasMore());
    EXPECT_TRUE(buffer.readByte(&octet)); // reads behind the end, deliberately
    EXPECT_EQ(octet, 3);
    EXPECT_FALSE(buffer.readByte(&octet) || buffer.appendByte(1));
    EXPECT_EQ(buffer.getPosition(), 3);
    EXPECT_FALSE(buffer.readData(out, 0)); // not even no octets
    EXPECT_EQ(buffer.restLength(), 0);
    buffer.rewind(INT_MAX);
    EXPECT_EQ(buffer.getPosition(), 0);
    buffer.forward(INT_MAX);
    EXPECT_EQ(buffer.getPosition(), 1); // on the last octet, not behind it
    buffer.forward(INT_MIN);
    EXPECT_TRUE(buffer.appendByte(0xAA));
    buffer.zerolize();
    EXPECT_EQ(buffer.getPosition(), 1);
    EXPECT_EQ(QByteArray(reinterpret_cast<char*>(bytes), 3), octets("00 00 03"));
    none.forward(1);
    EXPECT_FALSE(none.hasMore());
    none.zerolize();
}

TEST(Integers, WrittenMeasuredAndRead) {
    const auto check = []<class Binary>(Binary, int value, const char* expected) {
        const QByteArray bytes = written<Binary>(value);
        EXPECT_EQ(bytes, octets(expected));
        int back = -1;
        EXPECT_EQ(Binary::readFrom(Input(bytes).at(), &back), CODEC_READ);
        EXPECT_EQ(back, value);
        for (qsizetype cut = 0; cut < bytes.size(); ++cut)
            EXPECT_EQ(Binary::readFrom(Input(bytes.left(cut)).at(), &back), CODEC_MALFORMED) << expected;
    };
    const std::tuple<int, const char*, const char*, const char*> rows[] = {
        {0, "80", "00", "00"},
        {30, "9E", "1E", "1E"},
        {31, "9F", "1F", "1F 1F"},
        {127, "FF", "7F", "1F 7F"},
        {128, "01 80", "81 00", "1F 81 00"},
        {256, "02 01 00", "82 00", "1F 82 00"},
        {0x01000000, "04 01 00 00 00", "88 80 80 00", "1F 88 80 80 00"},
        {INT_MAX, "04 7F FF FF FF", "87 FF FF FF 7F", "1F 87 FF FF FF 7F"},
    };
    for (const auto& [value, integer, uintvar, length] : rows) {
        check(IntegerBinary(), value, integer);
        check(CharsetBinary(), value, integer);
        check(UIntBinary(), value, uintvar);
        check(ValueLengthBinary(), value, length);
    }
    EXPECT_EQ(written<IntegerBinary>(-1), octets("FF"));
}

TEST(Integers, LenientForms) {
    using Row = std::tuple<decltype(&IntegerBinary::readFrom), const char*, int, int>;
    for (const auto& [read, bytes, value, length] :
         {Row(IntegerBinary::readFrom, "00 77", 0, 1),
          Row(IntegerBinary::readFrom, "06 01 02 03 04 05 06", 0x03040506, 7), // the last four octets count
          Row(ValueLengthBinary::readFrom, "40", 64, 1)}) {
        Input input(octets(bytes));
        int result = -1;
        EXPECT_EQ(read(&input.buffer, &result), CODEC_READ);
        EXPECT_EQ(result, value);
        EXPECT_EQ(input.buffer.getPosition(), length);
    }
}

TEST(Texts, Written) {
    const QByteArray a28(28, 'a');
    const std::tuple<QByteArray, QByteArray, QByteArray> rows[] = {
        {"", octets("02 EA"), octets("00")},
        {"abc", octets("05 EA"), octets("61 62 63 00")},
        {"\xC3\xA9t", octets("06 EA"), octets("7F C3 A9 74 00")},
        {"t\xC3\xA9", octets("05 EA"), octets("74 C3 A9 00")},
        {a28, octets("1E EA"), a28 + '\0'},
        {a28 + 'b', octets("1F 1F EA"), a28 + octets("62 00")}, // one octet more needs a Length-quote
    };
    const QString twoFields = QString("+1") + QChar(0) + QChar(1); // behind the zero would be a Bcc
    EXPECT_EQ(written<PlainTextBinary>(twoFields), zeroed("+1"));
    for (const auto& [utf8, start, plain] : rows) {
        EXPECT_EQ(written<PlainTextBinary>(QString::fromUtf8(utf8)), plain);
        EXPECT_EQ(written<EncodedStringBinary>(QString::fromUtf8(utf8)), start + plain);
    }
}

TEST(Texts, Read) {
    const QString e = QStringLiteral("\u00e9"), nul(QChar(u'\0'));
    const auto plain = PlainTextBinary::readFrom, encoded = EncodedStringBinary::readFrom;
    const std::tuple<const char*, const char*, decltype(plain), int, QString> rows[] = {
        {"up to the NUL", "61 62 00 63", plain, CODEC_READ, "ab"},
        {"only the first quote", "7F 7F 41 00", plain, CODEC_READ, QChar(0x7F) + QString("A")},
        {"octets as Latin-1", "C3 A9 00", plain, CODEC_READ, QString::fromLatin1("\xC3\xA9")},
        {"no end", "41 42", plain, CODEC_MALFORMED, "AB"},
        {"nothing", "", plain, CODEC_MALFORMED, "before"},
        {"text form", "61 62 00", encoded, CODEC_READ, "ab"},
        {"text form without end", "61 62", encoded, CODEC_MALFORMED, "ab"},
        {"short charset is local", "05 EA 61 62 63 00", encoded, CODEC_READ, "abc"},
        {"long charset is UTF-8", "06 01 EA 61 C3 A9 00", encoded, CODEC_READ, "a" + e},
        {"length in a uintvar", "1F 05 EA 61 62 63 00", encoded, CODEC_READ, "abc"},
        {"no closing zero", "04 EA 61 62 63", encoded, CODEC_READ, "abc"},
        {"the zero behind a quote stays", "05 EA 7F C3 A9 00", encoded, CODEC_READ, e + nul},
        {"quote before a double zero", "05 EA 7F 41 00 00", encoded, CODEC_READ, "A" + nul},
        {"charset alone", "01 EA", encoded, CODEC_READ, ""},
        {"too short for its charset", "01 01 EA 61", encoded, CODEC_MALFORMED, "before"},
        {"longer than the input", "06 EA 61 62 63 00", encoded, CODEC_MALFORMED, "before"},
        {"wrapped length", "1F 8F FF FF FF 7F EA 61", encoded, CODEC_MALFORMED, "before"},
        {"no charset", "05", encoded, CODEC_MALFORMED, "before"},
        {"length octet above 127", "80 EA 61 00", encoded, CODEC_MALFORMED, "before"},
    };
    for (const auto& [name, bytes, read, result, expected] : rows) {
        QString text = "before";
        EXPECT_EQ(read(Input(octets(bytes)).at(), &text), result) << name;
        EXPECT_EQ(text, expected) << name;
    }
}

TEST(Times, ReadAndWritten) {
    QDateTime time;
    EXPECT_EQ(TimeBinary::readFrom(Input(octets("03 81 01 3C")).at(), &time), CODEC_READ);
    const auto ahead = QDateTime::currentDateTime().secsTo(time);
    EXPECT_TRUE(ahead >= 58 && ahead <= 60) << ahead;
    time = QDateTime();
    for (const char* bad : {"03 82 01 3C", "03 81", "03", "", "03 80 04 01 02 03"}) {
        Input input(octets(bad));
        EXPECT_EQ(TimeBinary::readFrom(&input.buffer, &time), CODEC_MALFORMED) << bad;
        EXPECT_TRUE(time.isNull());
        EXPECT_FALSE(input.buffer.hasMore()) << bad; // what was read stays consumed
    }
    for (const qint64 seconds : {-630000000LL, 5LL, 930823200LL, 0x80000000LL, 0xFFFFFFFFLL}) {
        const QDateTime moment = QDateTime::fromSecsSinceEpoch(seconds);
        const QByteArray bytes = written<TimeBinary>(moment);
        if (seconds < 0) // before 1970: any octets, but not more than the size says
            continue;
        EXPECT_EQ(TimeBinary::readFrom(Input(bytes).at(), &time), CODEC_READ);
        EXPECT_EQ(time, moment);
    }
    const QDateTime noon(QDate(2026, 1, 1), QTime(12, 0));
    for (const auto& [zone, seconds] : {std::pair{"AAA0", "69 56 61 C0"}, {"AAA-5", "69 56 1B 70"}}) {
        qputenv("TZ", zone); // the time zone is looked up for each time
        const QByteArray bytes = octets("06 80 04", octets(seconds));
        EXPECT_EQ(written<TimeBinary>(QDateTime(noon.date(), noon.time())), bytes);
        EXPECT_EQ(TimeBinary::readFrom(Input(bytes).at(), &time), CODEC_READ);
        EXPECT_EQ(time.time(), noon.time()) << zone;
    }
    qunsetenv("TZ");
}

TEST(Addresses, ReadAndWritten) {
    // input; its name, type and address; and what is written for it
    const std::tuple<const char*, const char*, int, const char*, const char*> rows[] = {
        {"+123/TYPE=PLMN", "", 1, "+123", "+123/TYPE=PLMN"},
        {"1234", "", 1, "1234", "1234/TYPE=PLMN"},
        {"12@x/TYPE=PLMN", "", 1, "12@x", "12@x/TYPE=PLMN"},
        {"12/type=PLMN", "", 1, "12/type=PLMN", "12/type=PLMN/TYPE=PLMN"},
        {"Ann <a@b.c>", "Ann ", 0, "a@b.c", "a@b.c"},
        {"a@b.c", "", 0, "a@b.c", "a@b.c"},
        {"Ann <a@b.c", "Ann ", 0, "a@b.c", "a@b.c"},
        {"<x>", "", 1, "<x>", "<x>/TYPE=PLMN"},
    };
    for (const auto& [bytes, name, type, address, back] : rows) {
        MMS_UTIL_Entry entry;
        EXPECT_EQ(AddressBinary::readFrom(Input(QByteArray(bytes) + '\0').at(), &entry), CODEC_READ);
        EXPECT_EQ(entry.getName(), name) << bytes;
        EXPECT_EQ(entry.getType(), type) << bytes;
        EXPECT_EQ(entry.getAddress(), address) << bytes;
        EXPECT_EQ(written<AddressBinary>(entry), zeroed(back));
    }
    const auto sent = [](int type, const QString& address, int result = CODEC_WRITTEN) {
        return written<AddressBinary>(MMS_UTIL_Entry("", type, address), result);
    };
    EXPECT_EQ(sent(0, QStringLiteral("\u00e9@b")), octets("07 EA 7F C3 A9 40 62 00"));
    EXPECT_EQ(sent(0, "\x01@"), octets("04 EA 01 40 00")); // a first octet 1 would be read as a length
    EXPECT_EQ(sent(1, QString("+1") + QChar(0) + "x"), zeroed("+1/TYPE=PLMN"));
    EXPECT_EQ(sent(2, "x", CODEC_REFUSED), "");
}

TEST(ContentType, Parameters) {
    EXPECT_EQ(ContentTypeField::replyAppIDOf("Application-ID=x;Reply-To-Application-ID=y"), "y");
    EXPECT_TRUE(ContentTypeField::startOf("Start=x").isNull());
    EXPECT_EQ(ContentTypeField::mprtOf("subtype=q"), "q"); // matches the end of a longer name too
    // the key of the application id also finds that of the reply when it comes first
    EXPECT_EQ(ContentTypeField::appIDOf("Reply-To-Application-ID=y;Application-ID=x"), "y");
}

TEST(ContentType, Written) {
    const char* related = "vnd.wap.multipart.related";
    const std::tuple<const char*, const char*, QByteArray, QByteArray> rows[] = {
        {"image", "jpeg", "", octets("84 9E")},
        {"x", "unknown", "", octets("84 FF")},
        {"application", related, "type=application/smil;start=<s>",
         octets("84 18 B3 8A 3C 73 3E 00 89", smil)},
        {"application", related, "", octets("84 05 B3 8A 00 89 00")},
        {"text", "plain", "charset=utf-8", octets("84 01 83")},
        {"text", "plain", "Application-ID=app1", octets("84 15 83", appId)},
        {"text", "plain", QByteArray("Application-ID=app1\0x", 21), octets("84 15 83", appId)},
        {"application", related, "start=\xC3\xA9;type=", octets("84 07 B3 8A 7F C3 A9 00 89 00")},
    };
    for (const auto& [main, sub, params, bytes] : rows) {
        const MMS_CONTENT_TYPE_T type{main, sub, QString::fromUtf8(params)};
        EXPECT_EQ(written<ContentTypeField>(type, CODEC_WRITTEN, 1), bytes); // the field code
    }
}

TEST(ContentType, Read) {
    const char *related = "application/vnd.wap.multipart.related", *app = "Application-ID=app1",
               *both = "type=application/smil;start=<s>", *kept = "kept";
    // the last: octets left behind the value; negative for a malformed value
    const std::tuple<const char*, QByteArray, const char*, const char*, int> rows[] = {
        {"short form", octets("9E 01"), "image/jpeg", kept, 1},
        {"type and start", octets("18 B3 8A 3C 73 3E 00 89", smil), related, both, 0},
        {"start in quotes", octets("19 B3 8A 22 3C 73 3E 00 89", smil), related, both, 0},
        {"type alone", octets("13 B3 89", smil), related, "type=application/smil;start=", 0},
        {"no parameters", octets("01 B3 07"), related, kept, 1},
        {"application id", octets("16 B3", appId), related, app, 0},
        {"media octet as UTF-8", octets("01 C2 B3 C2 07"), related, kept, 1},
        {"0x80 is a length", octets("80 83"), "text/plain", kept, 0},
        {"unknown parameter counts twice an octet", octets("07 B3 6B 3D 76 00 55"), related, kept, 2},
        {"known behind an unknown", octets("18 B3 81 EA 00", appId), related, app, 0},
        {"announced one octet too many", octets("1A B3 81 00", appId), related, kept, -1},
        {"ends in the type", octets("19 B3 89 61 62"), related, kept, -1},
        {"ends behind the start token", octets("19 B3 8A"), related, kept, -1},
        {"length without media", octets("19"), "", kept, -1},
        {"stray octet without media", octets("19 C2"), "", kept, -1},
        {"negative length", octets("1F 8F FF FF FF 7F B3 89 61 00"), "", kept, -1},
        {"nothing", "", "", kept, -1},
        {"name without end", octets("1F 87 FF FF FF 7F B3", "xx"), related, kept, -1},
    };
    for (const auto& [name, bytes, media, params, left] : rows) {
        SCOPED_TRACE(name);
        Input input(bytes);
        MMS_CONTENT_TYPE_T type;
        type.parameters = params == kept ? kept : ""; // unchanged unless the value replaces it
        const int result = ContentTypeField::readFrom(&input.buffer, &type);
        EXPECT_EQ(result, left < 0 ? CODEC_MALFORMED : CODEC_READ);
        EXPECT_EQ(type.type.isEmpty() ? "" : type.type + '/' + type.subType, media);
        EXPECT_EQ(type.parameters, params);
        EXPECT_TRUE(left < 0 || input.buffer.restLength() == left);
    }
}
