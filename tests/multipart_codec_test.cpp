// The binary multipart: entries written and read octet by octet, nested bodies, malformed ones.

#include "codec/codec_result.h"
#include "codec/linear_buffer.h"
#include "multipart/multipart.h"
#include "multipart/multipart_codec.h"
#include "tests/octets.h"

#include <QStringList>

#include <iterator>
#include <memory>
#include <tuple>
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

/// type | location | id | boundary | flags | payload
QByteArray shown(const Part& part) {
    const QString texts[] = {part.getMimeFormat(), part.getContentLocation(), part.getContentID(),
                             part.getBoundary(), QString::number(part.getPartFlags())};
    return QStringList(std::begin(texts), std::end(texts)).join('|').toUtf8() + '|' +
           QByteArray(part.getBodyData());
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
        {"text with any", "text/plain", "utf-8", "", "", octets("04 00 03 83 81 83")},
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

TEST(MultipartWriting, OnePayloadAndWhatFits) {
    Part part;
    part.setContentType("image");
    part.setContentSubType("gif");
    part.setBodyData("12345", 5);
    const QByteArray whole = written(part);
    EXPECT_EQ(whole, octets("02 05 01 9D", "12345"));
    for (int room = 0; room < whole.size(); ++room)
        EXPECT_TRUE(whole.startsWith(written(part, CODEC_REFUSED, room))) << room;
    part.setContentLocation(QString(2000, 'x')); // more than the headers of a part may take
    part.setSubBody(new Part, -1);               // counted, but not sent
    part.getSubBody(0)->setBodyData("67", 2);
    EXPECT_EQ(written(part), octets("06 07 03 9D 85 00 8E 00", "12345"));
}

TEST(MultipartWriting, Bodies) {
    MMS_COMP_SMILMultipart body;
    unsigned int length = 7;
    const auto encoded = [&body, &length](int result) {
        unsigned char* out = nullptr;
        EXPECT_EQ(MMS_UA_MultiPart_CODEC::encodeMultipart(true, &body, &out, &length), result);
        EXPECT_NE(out, nullptr);
        const std::unique_ptr<unsigned char[]> owned(out);
        return QByteArray(reinterpret_cast<char*>(out), length);
    };
    EXPECT_EQ(encoded(CODEC_WRITTEN), octets("00"));
    for (int i = 0; i < 258; ++i)
        body.appendBodypart(new Part);
    const QByteArray one = octets("03 00 02", QByteArray("/\0", 2));
    EXPECT_EQ(encoded(CODEC_WRITTEN), octets("02") + one.repeated(258)); // the count's low octet

    qputenv("LUM_MMS_MAX_SIZE_KB", "1"); // headers that do not fit beside the payloads
    for (int i = 0; i < 258; ++i)
        body.getBodypartByIndex(i, false)->setContentID(QString(100, 'i'));
    length = 1;
    encoded(CODEC_REFUSED);
    EXPECT_EQ(length, 1u);
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
}

TEST(MultipartReading, Heads) {
    const QByteArray prompt("X-Mms-UserPrompt\0", 17);
    const struct {
        const char* name;
        QByteArray head;
        const char* part;
    } rows[] = {
        {"text", QByteArray("image/x;a=b\0", 12), "image/x||||4|data"},
        {"quoted text", octets("7F", QByteArray("a/b\0", 4)), "a/b||||4|data"},
        {"melody", QByteArray("text/X-iMelody\0", 15), "audio/imelody||||4|data"},
        {"3gp", QByteArray("video/3GP\0", 10), "video/3gpp||||4|data"},
        {"general, long length", octets("1F 80 01 9E"), "image/jpeg||||4|data"},
        {"name", octets("05 9E 85 61 62 00"), "image/jpeg|ab|||4|data"},
        {"name up to the value's end", octets("04 9E 85 61 62"), "image/jpeg|ab|||4|data"},
        {"strange name", octets("17 9E 85", QByteArray(")&&locStr.endsWith(a\0", 21)),
         "image/jpeg|&&locStr.endsWith(|||4|data"},
        {"boundary, name between", octets("0F 9E", QByteArray("xboundary\0\x85z\0b\0", 15)),
         "image/jpeg|z||b|4|data"},
        {"boundary as value", octets("0E 9E", QByteArray("a\0boundary\0\x81\xEA", 13)),
         "image/jpeg||||4|data"},
        {"location over name", octets("04 9E 85 61 00 8E 7F C3 A9 00"), "image/jpeg|\xC3\xA9|||4|data"},
        {"prompt and id", octets("9E C0 22 3C 61 3E 00") + prompt + octets("80"), "image/jpeg||<a>||5|data"},
        {"no prompt", octets("9E") + prompt + octets("80") + prompt + octets("81"), "image/jpeg||||4|data"},
        {"prompt in other letters", octets("9E") + prompt.toLower() + octets("80"), "image/jpeg||||4|data"},
        {"in an unknown header", octets("9E 58 8E 62 00 00"), "image/jpeg|b|||4|data"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Part part;
        part.setPartFlags(4);
        EXPECT_EQ(read(entry(row.head, "data"), part), CODEC_READ);
        EXPECT_EQ(shown(part), row.part);
    }
    for (const int length : {1024, 1025}) { // the longest location, and a longer one
        Part part;
        const QByteArray head = octets("88 03 00 9E 8E");
        EXPECT_EQ(read(head + QByteArray(length, 'a') + '\0', part) == CODEC_READ, length == 1024);
        EXPECT_EQ(part.getContentLocation().size(), length == 1024 ? 1024 : 0);
    }
}

TEST(MultipartReading, Data) {
    const QByteArray le = octets("FF FE"), be = octets("FE FF");
    const auto charset = [](const char* mib) {
        const QByteArray value = octets("83 81", octets(mib));
        return QByteArray(1, static_cast<char>(value.size())) + value;
    };
    const struct {
        const char* name;
        QByteArray head, data, stored;
    } rows[] = {
        {"closing NUL of a text", octets("83"), QByteArray("ab\0", 3), "ab"},
        {"NUL alone", octets("83"), QByteArray(1, 0), QByteArray(1, 0)},
        {"UTF-8", charset("EA"), "\xC3\xA9", "\xC3\xA9"},
        {"Latin-1", charset("84"), "\xE9z", "\xC3\xA9z"},
        {"Latin-1 up to NUL", charset("84"), QByteArray("a\0b", 3), "a"},
        {"no such charset", charset("02 7F FF"), "\xE9", "\xE9"},
        {"UTF-16, little-endian mark", charset("02 03 F7"), utf16(le, u"a\u00E9"), "a\xC3\xA9"},
        {"UTF-16, big-endian mark", charset("02 03 F7"), utf16(be, u"abcde"), "badce"},
        {"UTF-16BE", charset("02 03 F5"), utf16("", u"ab"), "ba"},
        {"UTF-16LE", charset("02 03 F6"), utf16("", u"abc"), "abc"},
        {"UTF-16LE with the other mark", charset("02 03 F6"), utf16(be, u"abc"), "abc"},
        {"UTF-16LE, half a unit left", charset("02 03 F6"), utf16("", u"ab") + 'c', "ab"},
        {"UTF-16LE up to NUL", charset("02 03 F6"), utf16("", u"ab") + octets("00 00 63 00"), "ab"},
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
    const QByteArray data = utf16("", text.c_str());
    Part part;
    ASSERT_EQ(read(octets("06 82 B8") + char(data.size() & 0x7F) + octets("05 83 81 02 03 F6") + data, part),
              CODEC_READ);
    EXPECT_EQ(QByteArray(part.getBodyData()), QString::fromStdU16String(text).toUtf8());
}

TEST(MultipartReading, MalformedEntries) {
    const char* rows[] = {
        "7F 00 9E",                   // headers longer than all
        "01 7F 9E",                   // data longer than all
        "8F FF FF FF 7F 00 9E",       // a negative length
        "03 00 05 9E",                // a value longer than what is left
        "03 00 1F 8F FF FF FF 7F 9E", // a negative one
        "01 00 00 9E",                // an empty one
        "03 00 02 9E 81 EA",          // a charset behind the value's end
        "03 00 9E 41",                // headers that end early
        "01 00 C8",                   // an empty nested body
    };
    for (const char* row : rows) {
        Part part;
        EXPECT_EQ(read(octets(row), part), CODEC_MALFORMED) << row;
    }
}

TEST(MultipartReading, EntriesCutAnywhereAreMalformed) {
    const QByteArray whole =
        entry(octets("09 61 2F 62 00 85 6E 00 81 EA C0 22", QByteArray("id\0\x8E\x7Fplace\0", 11)) +
                  QByteArray("X-Mms-UserPrompt\0\x80", 18),
              "data");
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        // other octets before the entry, so that its lengths look possible
        Input input(QByteArray(100, 0) + whole.left(size));
        LinearBuffer buffer(input.bytes.data(), static_cast<int>(input.size()));
        buffer.skip(100);
        Part part;
        EXPECT_EQ(Multipart_Entry::readFrom(&buffer, &part),
                  size < whole.size() ? CODEC_MALFORMED : CODEC_READ)
            << size;
    }
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
    for (const int depth : {1, 16, 17}) {
        SCOPED_TRACE(depth);
        QByteArray octetsOfBody = octets("01") + entry(octets("9E"), "a");
        for (int i = 0; i < depth; ++i)
            octetsOfBody = octets("01") + entry(octets("C8"), octetsOfBody);
        MMS_COMP_SMILMultipart body;
        EXPECT_EQ(decode(octetsOfBody, body), depth <= 16 ? CODEC_READ : CODEC_MALFORMED);
        int levels = 0;
        Part* part = body.getBodypartByIndex(0, false);
        for (; part && part->getSubBodyCount(); part = part->getSubBody(0), ++levels)
            EXPECT_TRUE(part->getBodyData().isEmpty());
        EXPECT_EQ(levels, depth <= 16 ? depth : 0);
    }
    Part part;
    Input input(octets("01") + entry(octets("9E"), "a"));
    EXPECT_EQ(MMS_UA_MultiPart_CODEC::decodeBodyMultipart(false, input.bytes.data(), input.size(), &part),
              CODEC_READ);
    EXPECT_EQ(part.getSubBodyCount(), 1);
    part.clearSubBody(); // a textual multipart is no binary one
    EXPECT_EQ(read(entry(octets("0C C8", QByteArray("boundary\0b\0", 11)), "data"), part), CODEC_READ);
    EXPECT_TRUE(shown(part).endsWith("|b|0|data"));
    EXPECT_EQ(part.getSubBodyCount(), 0);
}

TEST(MultipartReading, UnknownHeadersTakeLinearTime) {
    // half a million octets that each might open a header name, and no NUL: seconds, if each searched
    const QByteArray headers(0x7FFFE, 'X');
    Part part;
    EXPECT_EQ(read(octets("9F FF 7F 00 9E") + headers, part), CODEC_READ);
}
