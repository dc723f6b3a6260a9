// The binary multipart: entries, nested bodies, malformed bodies.

#include "tests/testing.h"

namespace {

/// Reads an entry that ends at the end of its allocation, so that reading behind it is detected. Other octets
/// come before it, so that its lengths look possible.
int read(const QByteArray& entry, Part& part) {
    std::vector<unsigned char> bytes(100);
    bytes.insert(bytes.end(), entry.begin(), entry.end());
    LinearBuffer buffer(bytes.data(), static_cast<int>(bytes.size()));
    buffer.skip(100);
    return Multipart_Entry::readFrom(&buffer, &part);
}

QByteArray written(Part& part, int result = CODEC_WRITTEN, int room = 4096) {
    std::vector<unsigned char> octets(static_cast<size_t>(room));
    LinearBuffer out(octets.data(), room);
    EXPECT_EQ(Multipart_Entry::writeTo(&out, part), result);
    return QByteArray(reinterpret_cast<char*>(octets.data()), out.getPosition());
}

/// Little-endian units.
QByteArray utf16(const std::u16string& text) {
    QByteArray octets;
    for (const char16_t unit : text)
        octets += QByteArray(1, static_cast<char>(unit & 0xFF)) + static_cast<char>(unit >> 8);
    return octets;
}

} // namespace

TEST(MultipartWriting, Heads) {
    using Row = std::tuple<const char*, const char*, const char*, const char*, QByteArray>;
    const QByteArray syncml = "application/vnd.syncml.notification"; // has a number, which is not sent
    const Row rows[] = {
        {"image/jpeg", "", "", "a.g", octets("0C 00 06 9E 85 61 2E 67 00 8E 61 2E 67 00")},
        {"image/jpeg", "", "c1", "", octets("06 00 01 9E C0 63 31 00")},
        {"image/jpeg", "", "<c1>", "", octets("09 00 01 9E C0 22 3C 63 31 3E 00")},
        {"text/plain", "", "", "", octets("04 00 03 83 81 EA")},
        {"text/plain", "utf-8", "", "", octets("04 00 03 83 81 83")},
        {"AUDIO/iMelody", "", "", "", octets("10 00 0F", "text/x-iMelody") + '\0'},
        {syncml, "", "", "", octets("26 00 1F 24", syncml) + '\0'},
        {"image/gif", "", "", "\xC3\xA9", octets("0C 00 06 9D 85 7F C3 A9 00 8E 7F C3 A9 00")},
    };
    for (const auto& [type, charset, id, location, bytes] : rows) {
        Part part;
        setType(part, type);
        part.setCharset(charset);
        part.setContentID(id);
        part.setContentLocation(location);
        EXPECT_EQ(written(part), bytes);
    }
}

TEST(MultipartWriting, OnePayloadAndWhatFits) {
    Part part;
    setType(part, "image/gif");
    part.setBodyData("12345", 5);
    const QByteArray whole = written(part);
    EXPECT_EQ(whole, octets("02 05 01 9D", "12345"));
    for (int room = 0; room < whole.size(); ++room)
        EXPECT_TRUE(whole.startsWith(written(part, CODEC_REFUSED, room))) << room;
    part.setContentLocation(QString(2000, 'x')); // more than a part's headers may take
    part.setSubBody(new Part, -1);               // counted, but not sent
    part.getSubBody(0)->setBodyData("67", 2);
    EXPECT_EQ(written(part), octets("06 07 03 9D 85 00 8E 00", "12345"));
}

TEST(MultipartWriting, Bodies) {
    MMS_COMP_SMILMultipart body;
    const auto encoded = [&body](int result = CODEC_WRITTEN) {
        unsigned char* out = nullptr;
        unsigned int length = 0;
        EXPECT_EQ(MMS_UA_MultiPart_CODEC::encodeMultipart(true, &body, &out, &length), result);
        EXPECT_EQ(length == 0, result == CODEC_REFUSED);
        const std::unique_ptr<unsigned char[]> owned(out);
        return QByteArray(reinterpret_cast<char*>(out), length);
    };
    EXPECT_EQ(encoded(), octets("00"));
    for (int i = 0; i < 258; ++i)
        body.appendBodypart(new Part);
    EXPECT_EQ(encoded(), octets("02") + octets("03 00 02 2F 00").repeated(258)); // the low octet of the count

    qputenv("LUM_MMS_MAX_SIZE_KB", "1"); // the headers do not fit beside the payloads
    for (int i = 0; i < 258; ++i)
        body.getBodypartByIndex(i, false)->setContentID(QString(100, 'i'));
    encoded(CODEC_REFUSED);
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
}

TEST(MultipartReading, Heads) {
    const QByteArray prompt("X-Mms-UserPrompt\0\x80", 18), refused = prompt.chopped(1) + '\x81';
    const std::pair<QByteArray, const char*> rows[] = {
        // type | location | id | boundary | flags
        {QByteArray("image/x;a=b\0", 12), "image/x||||4"},
        {octets("7F 61 2F 62 00"), "a/b||||4"},
        {QByteArray("text/X-iMelody\0", 15), "audio/imelody||||4"},
        {QByteArray("video/3GP\0", 10), "video/3gpp||||4"},
        {octets("1F 80 01 9E"), "image/jpeg||||4"}, // a Length-quote
        {octets("05 9E 85 61 62 00"), "image/jpeg|ab|||4"},
        // the length only ends the parameters: one that has begun is read whole
        {octets("00 9E"), "image/jpeg||||4"},
        {octets("03", zeroed("image/jpeg")), "image/jpeg||||4"},
        {octets("02 83 81 EA"), "text/plain||||4"},
        {octets("05 9E 85", zeroed("a.jpg")) + octets("C0", zeroed("<c>")), "image/jpeg|a.jpg|<c>||4"},
        {octets("17 9E 85", QByteArray(")&&locStr.endsWith(a\0", 21)), "image/jpeg|&&locStr.endsWith(|||4"},
        {octets("0F 9E", QByteArray("xboundary\0\x85z\0b\0", 15)), "image/jpeg|z||b|4"}, // a name in between
        {octets("0D 9E", QByteArray("boundary\0\x7Fx\0", 12)), "image/jpeg|||\x7Fx|4"},
        {octets("0E 9E", QByteArray("a\0boundary\0\x81\xEA", 13)), "image/jpeg||||4"}, // a value
        {octets("04 9E 85 61 00 8E 7F C3 A9 00"), "image/jpeg|\xC3\xA9|||4"},
        {octets("06 9E 85 7F C3 A9 00 8E C3 A9 00"), "image/jpeg|\xC3\xA9|||4"}, // UTF-8 only in the header
        {octets("9E C0 22 3C 61 3E 00", prompt), "image/jpeg||<a>||5"},
        {octets("9E", prompt + refused), "image/jpeg||||4"},
        {octets("9E", prompt.toLower()), "image/jpeg||||4"},
        {octets("9E 58 8E 62 00 00"), "image/jpeg|b|||4"}, // inside an unknown header
    };
    for (const auto& [head, shown] : rows) {
        Part part;
        part.setPartFlags(4);
        EXPECT_EQ(read(entry(head, "data"), part), CODEC_READ) << shown;
        EXPECT_EQ(part.getMimeFormat() + '|' + part.getContentLocation() + '|' + part.getContentID() + '|' +
                      part.getBoundary() + '|' + QString::number(part.getPartFlags()),
                  QString::fromUtf8(shown));
        EXPECT_EQ(QByteArray(part.getBodyData()), "data");
    }
}

TEST(MultipartReading, Data) {
    const char *text = "83", *utf8 = "03 83 81 EA", *latin1 = "03 83 81 84", *utf16Any = "05 83 81 02 03 F7",
               *utf16be = "05 83 81 02 03 F5", *utf16le = "05 83 81 02 03 F6", *none = "05 83 81 02 7F FF",
               *utf32le = "05 83 81 02 03 FB";
    const std::tuple<const char*, QByteArray, QByteArray> rows[] = {
        {text, QByteArray("ab\0", 3), "ab"},
        {text, QByteArray(1, 0), QByteArray(1, 0)}, // a single NUL stays
        {utf8, "\xC3\xA9", "\xC3\xA9"},
        {latin1, "\xE9z", "\xC3\xA9z"},
        {latin1, QByteArray("a\0b", 3), "a"},
        {none, "\xE9", "\xE9"},
        {utf32le, QByteArray("x\0\0\0y\0", 6), "x\xEF\xBF\xBD"}, // ends inside a character
        {utf16Any, utf16(u"\uFEFFa\u00E9"), "a\xC3\xA9"},
        {utf16Any, utf16(u"\uFFFEabcde"), "badce"}, // with the other byte order mark
        {utf16be, utf16(u"ab"), "ba"},              // units are exchanged in pairs
        {utf16le, utf16(u"abc"), "abc"},
        {utf16le, utf16(u"\uFFFEabc"), "abc"},
        {utf16le, utf16(u"ab") + 'c', "ab"},
        {utf16le, utf16({'a', 'b', 0, 'c'}), "ab"},
    };
    for (const auto& [head, data, stored] : rows) {
        Part part;
        EXPECT_EQ(read(entry(octets(head), data), part), CODEC_READ);
        EXPECT_EQ(QByteArray(part.getBodyData()), stored) << head;
    }
}

TEST(MultipartReading, LongTextIsConvertedWhole) {
    // surrogate pairs at every place where conversion may cut the text, and a result longer than its units
    std::u16string text = u"x";
    while (text.size() < 20000)
        text += u"\U0001F600\u20AC";
    const QByteArray data = utf16(text);
    Part part;
    ASSERT_EQ(read(octets("06 82 B8") + char(data.size() & 0x7F) + octets("05 83 81 02 03 F6") + data, part),
              CODEC_READ);
    EXPECT_EQ(QByteArray(part.getBodyData()), QString::fromStdU16String(text).toUtf8());
}

TEST(MultipartReading, MalformedEntries) {
    const char* rows[] = {
        "7F 00 9E",                   // headers longer than the rest
        "01 7F 9E",                   // data longer than the rest
        "8F FF FF FF 7F 00 9E",       // a negative length
        "03 00 05 9E",                // a value longer than the rest
        "03 00 1F 8F FF FF FF 7F 9E", // a negative value length
        "05 00 04 9E 85 61 62",       // an unterminated name
        "03 00 02 9E 81",             // a charset behind the end
        "03 00 9E 41",                // headers that end early
        "01 00 C8",                   // an empty nested body
    };
    for (const char* row : rows)
        EXPECT_EQ(read(octets(row), *std::make_unique<Part>()), CODEC_MALFORMED) << row;

    const QByteArray whole =
        entry(octets("09 61 2F 62 00 85 6E 00 81 EA C0 22", QByteArray("id\0\x8E\x7Fplace\0", 11)) +
                  QByteArray("X-Mms-UserPrompt\0\x80", 18),
              "data");
    for (qsizetype size = 0; size <= whole.size(); ++size)
        EXPECT_EQ(read(whole.left(size), *std::make_unique<Part>()),
                  size < whole.size() ? CODEC_MALFORMED : CODEC_READ)
            << size;
}

TEST(MultipartReading, Bodies) {
    const QByteArray good = entry(octets("9E"), "a"), bad = octets("01 7F 9E");
    const std::tuple<QByteArray, int, int> rows[] = {
        {"", CODEC_MALFORMED, 0},
        {octets("02") + good + good, CODEC_READ, 2},
        {octets("02") + good, CODEC_MALFORMED, 1},
        {octets("03") + good + bad + good, CODEC_MALFORMED, 1},
    };
    for (const auto& [octetsOfBody, result, parts] : rows) {
        MMS_COMP_SMILMultipart body;
        EXPECT_EQ(decode(octetsOfBody, body), result);
        EXPECT_EQ(body.getPartCount(), parts);
    }
}

TEST(MultipartReading, NestedBodies) {
    const QByteArray inner = octets("01") + entry(octets("9E"), "a"),
                     outer = octets("01") + entry(octets("C8"), inner);
    MMS_COMP_SMILMultipart body;
    EXPECT_EQ(decode(octets("01") + entry(octets("C8"), outer), body), CODEC_READ);
    Part* first = body.getBodypartByIndex(0, false);
    EXPECT_TRUE(first->getBodyData().isEmpty() && first->getSubBody(0)->getBodyData().isEmpty());
    EXPECT_EQ(QByteArray(first->getSubBody(0)->getSubBody(0)->getBodyData()), "a");
    Part part;
    QByteArray octetsOfBody = inner;
    auto* start = reinterpret_cast<unsigned char*>(octetsOfBody.data());
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeBodyMultipart(false, start, unsigned(inner.size()), &part),
              CODEC_READ);
    EXPECT_EQ(part.getSubBodyCount(), 1);
    part.clearSubBody(); // a textual multipart is no binary one
    EXPECT_EQ(read(entry(octets("0C C8", QByteArray("boundary\0b\0", 11)), "data"), part), CODEC_READ);
    EXPECT_EQ(part.getBoundary() + QByteArray(part.getBodyData()), "bdata");
    EXPECT_EQ(part.getSubBodyCount(), 0);
}
