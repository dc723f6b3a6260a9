// The binary multipart: entries written and read octet by octet, nested bodies, malformed ones.

#include "codec/codec_result.h"
#include "codec/linear_buffer.h"
#include "multipart/multipart.h"
#include "multipart/multipart_codec.h"
#include "tests/octets.h"

#include <functional>
#include <memory>
#include <vector>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

/// An entry with the lengths in front; both must be below 128.
QByteArray entry(const QByteArray& head, const QByteArray& data = QByteArray()) {
    return QByteArray(1, static_cast<char>(head.size())) + static_cast<char>(data.size()) + head + data;
}

/// Octets that end where their allocation ends, so that a read behind them is noticed.
struct Input {
    explicit Input(const QByteArray& octets) : bytes(octets.begin(), octets.end()) {}
    unsigned int size() const { return static_cast<unsigned int>(bytes.size()); }
    std::vector<unsigned char> bytes;
};

int read(const QByteArray& octets, Part& part) {
    Input input(octets);
    LinearBuffer buffer(input.bytes.data(), static_cast<int>(input.size()));
    return Multipart_Entry::readFrom(&buffer, &part);
}

int decode(const QByteArray& octets, MMS_COMP_SMILMultipart& body) {
    Input input(octets);
    return MMS_UA_MultiPart_CODEC::decodeMultipart(true, input.bytes.data(), input.size(), &body);
}

QByteArray written(Part& part, int result = CODEC_WRITTEN, int room = 4096) {
    std::vector<unsigned char> octets(static_cast<size_t>(room));
    LinearBuffer out(octets.data(), room);
    EXPECT_EQ(Multipart_Entry::writeTo(&out, part), result);
    return QByteArray(reinterpret_cast<char*>(octets.data()), out.getPosition());
}

QByteArray utf16(const QByteArray& mark, const char16_t* text) {
    QByteArray octets = mark;
    for (; *text; ++text)
        octets += QByteArray(1, static_cast<char>(*text & 0xFF)) + static_cast<char>(*text >> 8);
    return octets;
}

} // namespace

TEST(MultipartWriting, Heads) {
    const QByteArray jpeg = "a.jpg";
    const struct {
        const char *name, *type, *charset, *id, *location;
        QByteArray octets;
    } rows[] = {
        {"number and location", "image/jpeg", "", "", "a.jpg",
         octets("10 00 08 9E 85", jpeg) + octets("00 8E", jpeg) + '\0'},
        {"bare id", "image/jpeg", "", "c1", "", octets("06 00 01 9E C0", "c1") + '\0'},
        {"bracketed id", "image/jpeg", "", "<c1>", "", octets("09 00 01 9E C0 22", "<c1>") + '\0'},
        {"text without charset", "text/plain", "", "", "", octets("04 00 03 83 81 EA")},
        {"text with any charset", "text/plain", "utf-8", "", "", octets("04 00 03 83 81 83")},
        {"unknown type", "image/x", "", "", "", octets("09 00 08", "image/x") + '\0'},
        {"melody", "AUDIO/iMelody", "", "", "", octets("10 00 0F", "text/x-iMelody") + '\0'},
        {"high number spelt out", "application/vnd.syncml.notification", "", "", "",
         octets("26 00 1F 24", "application/vnd.syncml.notification") + '\0'},
        {"beyond ASCII", "image/gif", "", "", "\xC3\xA9",
         octets("0C 00 06 9D 85 7F C3 A9 00 8E 7F C3 A9 00")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Part part;
        part.setContentType(Part::getTypePartFromFormat(row.type));
        part.setContentSubType(Part::getSubTypePartFromFormat(row.type));
        part.setCharset(row.charset);
        part.setContentID(row.id);
        part.setContentLocation(row.location);
        EXPECT_EQ(written(part), row.octets);
    }
}

TEST(MultipartWriting, NoRoomIsRefused) {
    Part part;
    part.setContentType("image");
    part.setContentSubType("gif");
    part.setBodyData("12345", 5);
    const QByteArray whole = written(part);
    EXPECT_EQ(whole, octets("02 05 01 9D", "12345"));
    for (int room = 0; room < whole.size(); ++room)
        EXPECT_TRUE(whole.startsWith(written(part, CODEC_REFUSED, room))) << room;
    part.setContentLocation(QString(2000, 'x')); // more than the headers of a part may take
    EXPECT_EQ(written(part), octets("06 05 03 9D 85 00 8E 00", "12345"));
}

TEST(MultipartWriting, SubBodiesCountButAreNotSent) {
    Part part;
    part.setContentSubType("x");
    part.setBodyData("ab", 2);
    part.setSubBody(new Part, -1);
    part.getSubBody(0)->setBodyData("cdefg", 5);
    EXPECT_EQ(written(part), octets("04 07 03", "/x") + '\0' + "ab");
}

TEST(MultipartWriting, Bodies) {
    MMS_COMP_SMILMultipart body;
    const auto encoded = [&body] {
        unsigned char* out = nullptr;
        unsigned int length = 0;
        EXPECT_EQ(MMS_UA_MultiPart_CODEC::encodeMultipart(true, &body, &out, &length), CODEC_WRITTEN);
        const std::unique_ptr<unsigned char[]> owned(out);
        return QByteArray(reinterpret_cast<char*>(out), length);
    };
    EXPECT_EQ(encoded(), octets("00"));
    for (int i = 0; i < 258; ++i) {
        body.appendBodypart(new Part);
        body.getBodypartByIndex(i, false)->setContentType("x");
    }
    EXPECT_EQ(encoded(), octets("02") + octets("04 00 03", QByteArray("x/\0", 3)).repeated(258));

    // headers that do not fit beside the payloads
    qputenv("LUM_MMS_MAX_SIZE_KB", "1");
    for (int i = 0; i < 258; ++i)
        body.getBodypartByIndex(i, false)->setContentID(QString(100, 'i'));
    unsigned char* out = nullptr;
    unsigned int length = 7;
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::encodeMultipart(true, &body, &out, &length), CODEC_REFUSED);
    EXPECT_NE(out, nullptr);
    EXPECT_EQ(length, 7u);
    delete[] out;
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
}

TEST(MultipartReading, ContentTypes) {
    const struct {
        const char* name;
        QByteArray head;
        const char *format, *location, *boundary;
    } rows[] = {
        {"number", octets("9E"), "image/jpeg", "", ""},
        {"text", QByteArray("image/x;a=b\0", 12), "image/x", "", ""},
        {"quoted text", octets("7F", QByteArray("a/b\0", 4)), "a/b", "", ""},
        {"melody", QByteArray("text/X-iMelody\0", 15), "audio/imelody", "", ""},
        {"no slash", QByteArray("image\0", 6), "/", "", ""},
        {"3gp", QByteArray("video/3GP\0", 10), "video/3gpp", "", ""},
        {"general", octets("01 9E"), "image/jpeg", "", ""},
        {"general, long length", octets("1F 80 01 9E"), "image/jpeg", "", ""},
        {"general text", octets("04", QByteArray("a/b\0", 4)), "a/b", "", ""},
        {"name", octets("05 9E 85 61 62 00"), "image/jpeg", "ab", ""},
        {"name up to the value's end", octets("04 9E 85 61 62"), "image/jpeg", "ab", ""},
        {"strange name", octets("17 9E 85", QByteArray(")&&locStr.endsWith(a\0", 21)), "image/jpeg",
         "&&locStr.endsWith(", ""},
        {"boundary", octets("0D 9E", QByteArray("xboundary\0b\0", 12)), "image/jpeg", "", "b"},
        {"between name and value", octets("0E 9E", QByteArray("boundary\0\x85z\0b\0", 14)), "image/jpeg", "z",
         "b"},
        {"boundary as value", octets("0E 9E", QByteArray("a\0boundary\0\x81\xEA", 13)), "image/jpeg", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Part part;
        EXPECT_EQ(read(entry(row.head, "data"), part), CODEC_READ);
        EXPECT_EQ(part.getMimeFormat(), row.format);
        EXPECT_EQ(part.getContentLocation(), row.location);
        EXPECT_EQ(part.getBoundary(), row.boundary);
        EXPECT_EQ(QByteArray(part.getBodyData()), "data");
    }
}

TEST(MultipartReading, Headers) {
    const QByteArray prompt("X-Mms-UserPrompt\0", 17);
    const struct {
        const char* name;
        QByteArray headers;
        const char *id, *location;
        unsigned int flags;
    } rows[] = {
        {"location", octets("8E 7F C3 A9 00"), "", "\xC3\xA9", 5},
        {"ids", octets("C0 22 3C 61 3E 00"), "<a>", "", 5},
        {"bare id", octets("C0 61 00"), "a", "", 5},
        {"prompt", prompt + octets("80"), "", "", 5},
        {"quoted prompt", octets("7F") + prompt + octets("80"), "", "", 5},
        {"no prompt", prompt + octets("81"), "", "", 4},
        {"prompt in other letters", prompt.toLower() + octets("81"), "", "", 5},
        {"in an unknown header", octets("58 8E 62 00 00"), "", "b", 5},
        {"unknown, not closed", octets("58 59 5A"), "", "", 5},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Part part;
        part.setPartFlags(5);
        EXPECT_EQ(read(entry(octets("9E") + row.headers, "data"), part), CODEC_READ);
        EXPECT_EQ(part.getContentID(), row.id);
        EXPECT_EQ(part.getContentLocation(), row.location);
        EXPECT_EQ(part.getPartFlags(), row.flags);
        EXPECT_EQ(QByteArray(part.getBodyData()), "data");
    }
}

TEST(MultipartReading, LongestLocation) {
    for (const int length : {1024, 1025}) {
        Part part;
        const QByteArray location(length, 'a');
        EXPECT_EQ(read(octets("88 03 00 9E 8E") + location + '\0', part),
                  length == 1024 ? CODEC_READ : CODEC_MALFORMED);
        EXPECT_EQ(part.getContentLocation().size(), length == 1024 ? 1024 : 0);
    }
}

TEST(MultipartReading, Data) {
    const QByteArray le = octets("FF FE"), be = octets("FE FF");
    const auto charset = [](const char* mib, const char* media = "83") {
        const QByteArray value = octets(media) + octets("81") + octets(mib);
        return QByteArray(1, static_cast<char>(value.size())) + value;
    };
    const struct {
        const char* name;
        QByteArray head, data, stored;
    } rows[] = {
        {"closing NUL of a text", octets("83"), QByteArray("ab\0", 3), "ab"},
        {"NUL alone", octets("83"), QByteArray(1, 0), QByteArray(1, 0)},
        {"NUL of another type", octets("9E"), QByteArray("ab\0", 3), QByteArray("ab\0", 3)},
        {"NUL of a type spelt out", QByteArray("text/plain\0", 11), QByteArray("a\0", 2),
         QByteArray("a\0", 2)},
        {"UTF-8", charset("EA"), "\xC3\xA9", "\xC3\xA9"},
        {"Latin-1", charset("84"), "\xE9z", "\xC3\xA9z"},
        {"Latin-1 up to NUL", charset("84"), QByteArray("a\0b", 3), "a"},
        {"no such charset", charset("02 7F FF"), "\xE9", "\xE9"},
        {"UTF-16, little-endian mark", charset("02 03 F7"), utf16(le, u"\u00E9bc"),
         "\xC3\xA9"
         "bc"},
        {"UTF-16, big-endian mark", charset("02 03 F7"), utf16(be, u"abcde"), "badce"},
        {"UTF-16, no mark", charset("02 03 F7"), utf16("", u"abcd"), "badc"},
        {"UCS-2, no mark", charset("02 03 E8"), utf16("", u"ab"), "ba"},
        {"UTF-16BE", charset("02 03 F5"), utf16("", u"ab"), "ba"},
        {"UTF-16LE", charset("02 03 F6"), utf16("", u"abc"), "abc"},
        {"UTF-16LE with the other mark", charset("02 03 F6"), utf16(be, u"abc"), "abc"},
        {"UTF-16LE, half a unit left", charset("02 03 F6"), utf16("", u"ab") + 'c', "ab"},
        {"UTF-16LE up to NUL", charset("02 03 F6"), utf16("", u"ab") + octets("00 00 63 00"), "ab"},
        {"UTF-16LE, a pair", charset("02 03 F6"), utf16("", u"\U0001F600"), "\xF0\x9F\x98\x80"},
        {"UTF-16LE, half a pair", charset("02 03 F6"), octets("3D D8"), "?"},
        {"a mark alone", charset("02 03 F7"), be, ""},
        {"nothing", charset("02 03 F7"), "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Part part;
        EXPECT_EQ(read(entry(row.head, row.data), part), CODEC_READ);
        EXPECT_EQ(QByteArray(part.getBodyData()), row.stored);
    }
}

TEST(MultipartReading, LongTextIsConvertedWhole) {
    // pairs at every place where the text may be cut for conversion, and a result longer than its units
    std::u16string text = u"x";
    while (text.size() < 20000)
        text += u"\U0001F600\u20AC";
    QByteArray data = utf16("", text.c_str());
    QByteArray head = octets("05 83 81 02 03 F6");
    Part part;
    ASSERT_EQ(read(octets("06 82 B8") + char(data.size() & 0x7F) + head + data, part), CODEC_READ);
    EXPECT_EQ(QByteArray(part.getBodyData()), QString::fromStdU16String(text).toUtf8());
}

TEST(MultipartReading, MalformedEntries) {
    const struct {
        const char* name;
        QByteArray octets;
    } rows[] = {
        {"nothing", ""},
        {"headers longer than all", octets("7F 00 9E")},
        {"data longer than all", octets("01 7F 9E")},
        {"negative length", octets("8F FF FF FF 7F 00 9E")},
        {"data longer than what is left", octets("01 03 9E 61 62")},
        {"no content type", octets("00 00")},
        {"value longer than what is left", octets("03 00 05 9E")},
        {"negative value length", octets("03 00 1F 8F FF FF FF 7F 9E")},
        {"empty value", octets("01 00 00 9E")},
        {"charset ends with the value", octets("03 00 02 9E 81 EA")},
        {"text type not closed", octets("03 00 61 2F 62")},
        {"name not closed", octets("04 00 03 9E 85 61")},
        {"location not closed", octets("03 00 9E 8E 61")},
        {"id not closed", octets("04 00 9E C0 22 61")},
        {"id without text", octets("02 00 9E C0")},
        {"prompt without value", octets("12 00 9E", QByteArray("X-Mms-UserPrompt\0", 17))},
        {"headers end early", octets("03 00 9E 41")},
        {"empty nested body", octets("01 00 C8")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Part part;
        EXPECT_EQ(read(row.octets, part), CODEC_MALFORMED);
    }
}

TEST(MultipartReading, Bodies) {
    const QByteArray good = entry(octets("9E"), "a"), bad = octets("01 7F 9E");
    const struct {
        const char* name;
        QByteArray octets;
        int result, parts;
    } rows[] = {
        {"empty input", "", CODEC_MALFORMED, 0},
        {"no entries", octets("00"), CODEC_READ, 0},
        {"two", octets("02") + good + good, CODEC_READ, 2},
        {"more behind them", octets("01") + good + good, CODEC_READ, 1},
        {"one missing", octets("02") + good, CODEC_MALFORMED, 1},
        {"the second bad", octets("03") + good + bad + good, CODEC_MALFORMED, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MMS_COMP_SMILMultipart body;
        EXPECT_EQ(decode(row.octets, body), row.result);
        EXPECT_EQ(body.getPartCount(), row.parts);
        Part part;
        Input input(row.octets);
        EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeBodyMultipart(false, input.bytes.data(), input.size(), &part),
                  row.result);
        EXPECT_EQ(part.getSubBodyCount(), row.parts);
    }
}

TEST(MultipartReading, NestedBodies) {
    for (const int depth : {1, 16, 17}) {
        SCOPED_TRACE(depth);
        QByteArray octetsOfBody = octets("01") + entry(octets("9E"), "a");
        for (int i = 0; i < depth; ++i)
            octetsOfBody = octets("01") + entry(octets("C8"), octetsOfBody);
        MMS_COMP_SMILMultipart body;
        const bool isRead = depth <= 16;
        EXPECT_EQ(decode(octetsOfBody, body), isRead ? CODEC_READ : CODEC_MALFORMED);
        ASSERT_EQ(body.getPartCount(), isRead ? 1 : 0);
        Part* part = body.getBodypartByIndex(0, false);
        int levels = 0;
        for (; part && part->getSubBodyCount(); part = part->getSubBody(0), ++levels)
            EXPECT_TRUE(part->getBodyData().isEmpty());
        EXPECT_EQ(levels, isRead ? depth : 0);
    }
    Part withBoundary; // a textual multipart is no binary one
    EXPECT_EQ(read(entry(octets("0C C8", QByteArray("boundary\0b\0", 11)), "data"), withBoundary),
              CODEC_READ);
    EXPECT_EQ(QByteArray(withBoundary.getBodyData()), "data");
    EXPECT_EQ(withBoundary.getSubBodyCount(), 0);
}

TEST(MultipartReading, UnknownHeadersTakeLinearTime) {
    // half a million octets that each might open a header name, and no NUL: seconds, if each searched
    const QByteArray headers(0x7FFFE, 'X');
    Part part;
    EXPECT_EQ(read(octets("9F FF 7F 00 9E") + headers, part), CODEC_READ);
}
