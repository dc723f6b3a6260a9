// The body of a message as it was sent.

#include "tests/wire.h"

namespace {

const QByteArray related = octets("84 B3");

/// A message with a body of these entries.
QByteArray message(const QList<QByteArray>& entries) {
    QByteArray pdu = related + uintvar(entries.size());
    for (const QByteArray& each : entries)
        pdu += each;
    return pdu;
}

/// A part as text: type, name, id, and if present charset, encoding, disposition; then its payload.
QString partLine(const MMS_WIRE_Part& part) {
    QStringList words{part.mediaType()};
    const std::pair<const char*, QString> rows[] = {{"name ", part.name()},
                                                    {"id ", part.contentId()},
                                                    {"in ", part.charset()},
                                                    {"by ", part.transferEncoding()},
                                                    {"as ", part.disposition()}};
    for (const auto& [label, text] : rows)
        if (!text.isEmpty())
            words += label + text;
    return words.join(", ") + ": " + QString::fromUtf8(part.content());
}

/// The only part, with that head and data, followed by "?" or "!" for the worst fault in the message.
QString partOf(const QByteArray& head, const QByteArray& data) {
    const Sent sent(message({entry(head, data)}));
    const QList<MMS_WIRE_Part> parts = sent.reader.parts();
    EXPECT_EQ(parts.size(), 1);
    EXPECT_EQ(parts.first().wireSize(), data.size());
    MMS_COMP_SMILMultipart body;
    sent.reader.fill(&body);
    EXPECT_EQ(QByteArray(body.getBodypartByIndex(0, false)->getBodyData()), parts.first().content());
    return partLine(parts.first()) + (!sent.isSound ? " !" : sent.reader.marks().isEmpty() ? "" : " ?");
}

TEST(WireBody, HeadsOfParts) {
    expectRows(
        {
            "9E = image/jpeg: x",
            "D3 = application/octet-stream: x ?",
            "CC = application/vnd.wv.csp+xml: x",
            "CF = audio/*: x",
            "02 01 9E = application/octet-stream: x ?",
            "03 02 00 1E = image/jpeg: x",
            "69 6D 61 67 65 2F 67 69 66 3B 61 3D 62 00 = image/gif: x",
            " = application/octet-stream: x !",
            "00 = application/octet-stream: x !",
            // parameters: every one that is known
            "13 9E 80 81 05 82 93 83 85 87 64 00 88 81 8C 63 00 8D 64 00 = image/jpeg: x",
            "14 9E 8E 85 8F 70 00 90 00 91 81 92 6D 00 93 05 04 53 70 78 AC = image/jpeg: x",
            "05 9E 94 02 01 05 = image/jpeg: x",
            "08 9E 95 02 01 05 96 02 01 05 = image/jpeg: x !",
            "0D 9E 99 73 00 9A 69 00 9B 63 00 9C 64 00 = image/jpeg: x",
            "04 9E 84 85 = image/jpeg: x !",
            "06 9E 82 61 62 00 85 = image/jpeg: x !",
            // names and charsets
            "04 9E 85 61 00 = image/jpeg, name a: x",
            "04 9E 97 61 00 = image/jpeg, name a: x",
            "05 9E 97 22 61 00 = image/jpeg, name a: x",
            "06 9E 85 22 61 22 00 = image/jpeg, name a: x",
            "04 9E 86 66 00 = image/jpeg, name f: x",
            "07 9E 98 66 00 85 61 00 = image/jpeg, name a: x",
            "08 9E 6E 61 6D 65 00 61 00 = image/jpeg, name a: x",
            "09 9E 6E 61 6D 65 00 22 61 22 00 = image/jpeg, name a: x !",
            "9E 8E 6C 00 = image/jpeg, name l: x",
            "04 9E 85 61 00 8E 6C 00 = image/jpeg, name l: x",
            "04 9E 85 61 00 8E 00 = image/jpeg, name a: x",
            "9E AE 04 81 86 66 00 = image/jpeg, name f, as attachment: x",
            "9E C5 04 82 85 6E 00 = image/jpeg, name n, as inline: x",
            "9E C5 07 61 62 00 98 22 66 00 = image/jpeg, name f, as ab: x",
            "9E C5 01 80 = image/jpeg, as form-data: x",
            "9E C5 01 90 = image/jpeg: x !",
            "03 83 81 EA = text/plain, in UTF-8: x",
            "05 83 81 02 03 E8 = text/plain, in ISO-10646-UCS-2: \uFFFD !",
            "08 83 81 55 54 46 2D 38 00 = text/plain, in UTF-8: x",
            "04 83 81 66 00 = text/plain, in f: x ?",
            "05 83 81 02 0F FF = text/plain: x ?",
            // headers by number
            "9E C0 22 3C 69 3E 00 = image/jpeg, id <i>: x",
            "9E C0 3C 69 3E 00 = image/jpeg, id <i>: x ?",
            "9E C8 37 62 69 74 00 = image/jpeg, by 7bit: x",
            "9E C8 78 79 7A 00 = image/jpeg, by xyz: x !",
            "9E 91 83 = image/jpeg: x",
            "9E D4 02 8E 6C 8E 6D 00 = image/jpeg, name m: x",
            "9E 8E 6C = image/jpeg, name l: x !",
            "9E 01 02 8E 6C 00 = image/jpeg, name l: x !",
        },
        [](const QString& hex) { return partOf(octets(qPrintable(hex)), "x"); });

    // by name
    const auto byName = [](const QString& text) {
        return partOf("\x9E" + text.toLatin1().replace('|', '\0'), "x");
    };
    expectRows({"Content-ID|<i>| = image/jpeg, id <i>: x ?", "content-id|\"<i>| = image/jpeg, id <i>: x",
                "Content-Location|l| = image/jpeg, name l: x",
                "Content-Transfer-Encoding|binary| = image/jpeg, by binary: x",
                "Content-Disposition|attachment; filename=\"f;\"| = image/jpeg, name f;, as attachment: x",
                "Content-Disposition|inline;x=1; name= n ;| = image/jpeg, name n, as inline: x",
                "X-Other|value| = image/jpeg: x"},
               byName);
    EXPECT_EQ(partOf("\x9E" + zeroed("Content-Disposition") + octets("04 81 86 66 00"), "x"),
              "image/jpeg, name f, as attachment: x");
    const Sent prompt(message({entry("\x9E" + zeroed("X-Mms-UserPrompt") + "\x80", "x")}));
    MMS_COMP_SMILMultipart body;
    prompt.reader.fill(&body);
    EXPECT_TRUE(body.isContainUPI());
}

TEST(WireBody, PayloadsAreDecoded) {
    const QByteArray base64 = zeroed("\xC8"
                                     "BASE64"),
                     printable = zeroed("\xC8quoted-printable");
    const struct {
        QByteArray head;
        QByteArray data;
        const char* content;
        const char* mark;
    } rows[] = {
        {"\x9E" + base64, "YWJj", "abc", ""},
        {"\x9E" + base64, " YW\r\nJj\tZA==\n", "abcd", ""},
        {"\x9E" + base64, "YWJjZA", "abcd", " ?"},
        {"\x9E" + base64, "YWJjZGU", "abcde", " ?"},
        {"\x9E" + base64, "YWJjZ", "abc", " !"},
        {"\x9E" + base64, "YW.Jj", "YW.Jj", " !"},
        {"\x9E" + base64, "YQ==YQ==", "YQ==YQ==", " !"},
        {"\x9E" + base64, "", "", ""},
        {"\x9E" + printable, "a=3D=c3=A4=\r\nb=\nc", "a=\u00E4bc", ""},
        {"\x9E" + printable, "a=ZZ=", "a=ZZ=", " ?"},
        {"\x83" + base64, "5A==", "\u00E4", ""}, // invalid UTF-8 is taken as ISO-8859-1
        {octets("03 83 81 84") + base64, "5A==", "\u00E4", ""},
        {octets("83"), "a\xC3\xA4", "a\u00E4", ""},
        {octets("83"), raw("ab\0"), "ab", ""},
        {octets("03 83 81 EA"), "\xC3", "\xEF\xBF\xBD", " !"},
        {octets("03 83 81 83"), "\xE4", "\u00E4", " ?"},
        {octets("03 83 81 91"), "\x83\x65", "\xE3\x83\x86", ""},
        {octets("05 83 81 02 07 EA"), "\xA4\xA4", "\xE4\xB8\xAD", ""},
        {octets("05 83 81 02 03 F7"), octets("FF FE E4 00 41 00"),
         "\u00E4"
         "A",
         ""},
        {octets("05 83 81 02 03 F7"), octets("00 E4 00 41"),
         "\u00E4"
         "A",
         ""},
        {octets("05 83 81 02 03 F6"), octets("E4 00 41 00"),
         "\u00E4"
         "A",
         ""},
        {octets("03 9E 81 83"), "\xE4", "\xE4", ""}, // a picture has no charset
    };
    for (const auto& row : rows) {
        const Sent sent(message({entry(row.head, row.data)}));
        const MMS_WIRE_Part part = sent.reader.parts().value(0, MMS_WIRE_Part(MMS_WIRE_Item()));
        const char* worst = !sent.isSound ? " !" : sent.reader.marks().isEmpty() ? "" : " ?";
        EXPECT_EQ(part.content() + worst, QByteArray(row.content) + row.mark)
            << row.data.constData() << " behind " << row.head.toHex(' ').constData();
    }
}

TEST(WireBody, BodiesAndTheirParts) {
    const auto body = [](const QString& hex) {
        const Sent sent(octets(qPrintable(hex)));
        QStringList all{lines(sent.reader.message())};
        for (const MMS_WIRE_Part& part : sent.reader.parts())
            all += partLine(part);
        return all.join(" / ").remove("Content-Type: application/vnd.wap.multipart.related | ");
    };
    expectRows(
        {
            "84 B3 01 01 01 9E 78 = Body {nEntries: 1} {Part} / image/jpeg: x",
            "84 B3 00 = Body {nEntries: 0}",
            "84 B3 = Body {nEntries: 0 !}",
            "84 B3 02 01 01 9E 78 = Body {nEntries: 2 !} {Part} / image/jpeg: x",
            "84 B3 01 01 01 9E 78 79 = Body {nEntries: 1} {Part} {Octets !} / image/jpeg: x",
            "84 B3 01 01 = Body {nEntries: 1} {Part}",
            "84 B3 01 01 81 = Body {nEntries: 1} {Part}",
            "84 B3 01 01 03 9E 78 = Body {nEntries: 1} {Part} / image/jpeg: x",
            "84 B3 01 05 03 9E 78 = Body {nEntries: 1} {Part} / image/jpeg: ",
            "84 B3 01 00 00 = Body {nEntries: 1} {Part !} / application/octet-stream: ",
            "84 B3 01 01 FF FF FF FF FF FF FF FF FF FF 7F 9E 78 = Body {nEntries: 1} {Part} / image/jpeg: x",
            "84 A3 01 01 06 A6 01 01 02 83 61 62 = Content-Type: application/vnd.wap.multipart.mixed | Body"
            " {nEntries: 1} {Part} / application/vnd.wap.multipart.alternative: ",
            "84 83 61 62 = Content-Type: text/plain | Body / text/plain: ab",
            "84 83 = Content-Type: text/plain",
            "84 00 61 = Content-Type ! | Body / application/octet-stream: a",
            "84 04 83 85 6E 00 61 = Content-Type: text/plain; Name=n | Body / text/plain, name n: a",
        },
        body);
    const Sent sound(octets("84 B3 01 01 01 9E 78")), cut(octets("84 B3 01 01 02 9E 78"));
    EXPECT_TRUE(sound.isSound && !cut.isSound);
    EXPECT_EQ(cut.reader.marks().first().item.name(), "DataLen");
}

TEST(WireBody, BodiesWithinBodies) {
    for (const int depth : {16, 17}) {
        QByteArray body = '\1' + entry("\x83", "x");
        for (int i = 0; i < depth; ++i)
            body = '\1' + entry("\xA3" + (i ? QByteArray()
                                            : zeroed("\xC8"
                                                     "base64")),
                                body);
        const Sent sent(related + body);
        EXPECT_EQ(sent.isSound, depth == 16);
        MMS_COMP_SMILMultipart container;
        sent.reader.fill(&container);
        Part* part = container.getBodypartByIndex(0, false);
        int levels = 1;
        for (; part->getSubBodyCount() > 0; part = part->getSubBody(0))
            ++levels;
        EXPECT_EQ(levels, 17);
        EXPECT_EQ(part->getBodyDataLen(), depth == 16 ? 1 : 0);
    }
}

TEST(WireBody, FilledLikeThePhoneDoes) {
    const QByteArray pdu = contents(QStringLiteral(SOURCES "/tools/lummms/sample.mms"));
    const Sent sent(pdu);
    EXPECT_TRUE(sent.isSound && sent.reader.marks().isEmpty());
    EXPECT_TRUE(sent.reader.missingFields().isEmpty() && sent.reader.isFieldOrderCorrect());
    MMS_UA_UAMsg header, phoneHeader;
    MMS_COMP_SMILMultipart body, phoneBody;
    EXPECT_TRUE(sent.reader.fill(&header).isEmpty());
    sent.reader.fill(&body);
    QByteArray copy = pdu;
    auto length = static_cast<unsigned int>(copy.size());
    ASSERT_EQ(
        MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(copy.data()), length, &phoneHeader),
        CODEC_READ);
    const QByteArray octets(reinterpret_cast<char*>(phoneHeader.bodyStart), int(phoneHeader.bodyLength));
    ASSERT_EQ(MMS_COMP_SMILMultipartParser::parse(octets, &phoneHeader, &phoneBody), 0);
    EXPECT_EQ(header.present, phoneHeader.present);
    EXPECT_EQ(header.getContentType().parameters, phoneHeader.getContentType().parameters);
    EXPECT_EQ(header.bodyLength, phoneHeader.bodyLength);
    for (int code = 0; code < 26; ++code)
        EXPECT_EQ(header.getFieldPosition(uchar(code)), phoneHeader.getFieldPosition(uchar(code))) << code;
    EXPECT_EQ(body.getStart() + body.getExtType(), phoneBody.getStart() + phoneBody.getExtType());
    ASSERT_EQ(body.getPartCount(), phoneBody.getPartCount());
    for (int i = 0; i < body.getPartCount(); ++i)
        EXPECT_EQ(recordOf(*body.getBodypartByIndex(i, false)),
                  recordOf(*phoneBody.getBodypartByIndex(i, false)));
    EXPECT_EQ(!body.getSmilPart(), !phoneBody.getSmilPart());
}

TEST(WireBody, EveryBeginningOfAMessageIsReadWhole) {
    const QByteArray nested =
        '\1' + entry("\xA3", '\2' + entry("\x83", "x") + entry(zeroed("\x83\x85n"), "y"));
    const QByteArray messages[] = {
        contents(QStringLiteral(SOURCES "/tools/lummms/sample.mms")),
        octets("8C 84 98 74 00 8D 92 96 0B 02 03 F7 FE FF 00 61 30 C6 00 00 58 2D 41 00 05 01 02 03 04 05 A1 "
               "06 81"
               "04 53 70 78 AC B2 0A 61 62 00 85 63 00 89 9E 8E 85 D4 1F 03 61 62 63 88 04 81 02 0E 10 84 1F "
               "10 B3"
               "8A 73 00 89 61 2F 62 00 81 02 03 F7 6E 00 6D 00") +
            '\3' + entry(octets("08 83 81 02 03 F7 85 6E 00 C0 22 3C 69 3E 00 C5 04 81 86 66 00"), "FEFF") +
            entry(zeroed("\x9E\xC8"
                         "base64"),
                  "YWJjZA==") +
            entry("\xA3", nested),
    };
    for (const QByteArray& pdu : messages)
        for (qsizetype size = 0; size <= pdu.size(); ++size) {
            const Sent sent(pdu.first(size)); // which looks whether the leaves cover it
            MMS_UA_UAMsg header;
            MMS_COMP_SMILMultipart body;
            sent.reader.fill(&header);
            sent.reader.fill(&body);
            EXPECT_EQ(body.getPartCount(), sent.reader.parts().size());
        }
}

} // namespace
