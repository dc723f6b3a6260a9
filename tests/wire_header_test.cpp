// The header of a message as it was sent.

#include "tests/wire.h"

namespace {

/// Reads a header that ends with a Priority behind the octets; returns its items as text.
QString headerLines(const QString& hex) {
    return lines(Sent(octets(qPrintable(hex)) + "\x8F\x81").reader.message())
        .replace(" | X-Mms-Priority: Normal", " | +");
}

QByteArray encoded(MMS_UA_UAMsg& header) {
    unsigned char* out = nullptr;
    int length = 0;
    MMS_UA_Encoder().encodeHeader(&header, &out, &length);
    const std::unique_ptr<unsigned char[]> owned(out);
    return QByteArray(reinterpret_cast<const char*>(out), length);
}

TEST(WireHeader, EveryFieldTypeAndWord) {
    const QString rows = QString::fromUtf8(contents(QStringLiteral(SOURCES "/tests/data/wire_fields.txt")));
    for (const QString& row : rows.split('\n', Qt::SkipEmptyParts).mid(1)) {
        const Sent sent(octets(qPrintable(row.section(" = ", 0, 0))));
        const MMS_WIRE_Item field = *sent.reader.message().begin();
        EXPECT_EQ(field.name() + ": " + field.valueText(), row.section(" = ", 1));
        EXPECT_TRUE(sent.isSound && field.length() == sent.reader.message().length()) << qPrintable(row);
        EXPECT_EQ(wireField(field.code())->name, field.name());
    }
}

TEST(WireHeader, ValuesThatDoNotFitAreSteppedOver) {
    expectRows(
        {
            // a length that is too small leaves its rest to be read on
            "96 02 EA 61 62 00 80 = Subject: a {Text: a ?} | b: 128 | +",
            "88 03 81 02 0E 10 = X-Mms-Expiry {Time !} | Octets ! | +",
            "85 02 53 70 78 00 80 = Date: 1970-01-01T05:56:00Z | x: 128 | +",
            "89 02 80 61 62 00 80 = From: a {Address: a ?} | b: 128 | +",
            // one that is too large, for the value or for what is left
            "88 05 81 02 0E 10 8A 80 = X-Mms-Expiry: 3600 {Octets !} | 0x80: 143 ! | Bcc !",
            "96 1E EA 61 62 00 = Subject: ab {Length: 30 !} {Octets !}",
            "88 1F 20 81 02 0E 10 = X-Mms-Expiry: 3600 {Length: 32 !} {Octets !}",
            "85 1E 53 70 78 AC = Date !",
            "89 1E 80 61 00 = From: a {Length: 30 !} {Octets !}",
            // none at all
            "88 00 = X-Mms-Expiry ! | +",
            "85 00 = Date ! | +",
            "89 00 = From ! | +",
            "84 00 = Content-Type ! | Body",
            "8E 00 = X-Mms-Message-Size ! | +",
            "96 00 = Subject | +",
            "9F 1F 00 = X-Mms-Reply-Charging-Size ! | +",
            // another form
            "8C 04 01 02 03 04 = X-Mms-Message-Type ! | +",
            "8D 31 2E 30 00 = X-Mms-MMS-Version ! | +",
            "86 82 = X-Mms-Delivery-Report ! | +",
            "8B 02 01 02 = Message-ID ! | +",
            "85 31 00 = Date ! | +",
            "88 80 = X-Mms-Expiry ! | +",
            "88 03 82 01 05 = X-Mms-Expiry ! | +",
            "89 02 82 61 = From ! | +",
            "A0 03 82 01 61 = X-Mms-Previously-Sent-By {Address !} | +",
            "AA 02 7F 85 = X-Mms-Mbox-Totals {Unit !} | +",
            "99 C8 = X-Mms-Retrieve-Status: 200 ! | +",
            "8C F0 = X-Mms-Message-Type: 240 ! | +",
            "A8 FF = X-Mms-Attributes: 255 ! | +",
            // off the rules, and read all the same
            "96 C3 A4 00 = Subject: \u00E4 ? | +",
            "8B E4 00 = Message-ID: \u00E4 ? | +",
            "8E 85 = X-Mms-Message-Size: 5 ? | +",
            "96 7F C3 A4 00 = Subject: \u00E4 | +",
            // what is larger than any number
            "8E 09 01 00 00 00 00 00 00 00 00 = X-Mms-Message-Size: 18446744073709551615 | +",
            "85 08 FF FF FF FF FF FF FF FF = Date: 18446744073709551615 | +",
            // counted answers of two types of message
            "8C 92 83 03 82 61 00 = X-Mms-Message-Type: m-mbox-delete-conf | X-Mms-Content-Location: 2; a | "
            "+",
            "8C 95 93 05 81 03 EA 62 00 = X-Mms-Message-Type: m-delete-conf | X-Mms-Response-Text: 1; b | +",
        },
        headerLines);
}

TEST(WireHeader, WhatIsNotKnownIsSteppedOver) {
    expectRows({"D4 03 01 02 03 = 0xD4 ! | +", "D4 1F 02 01 02 = 0xD4 ! | +", "D4 61 62 00 = 0xD4: ab ! | +",
                "D4 C8 = 0xD4: 200 ! | +", "D4 00 = 0xD4 ! | +", "80 81 = 0x80: 129 ! | +",
                "58 2D 41 00 62 00 = X-A: b | +", "58 00 80 = X: 128 | +", "58 00 02 01 02 = X | +",
                "01 1F 7F = Octets ! | +", "00 8A 80 = Octets ! | X-Mms-Message-Class: Personal | +"},
               headerLines);
}

TEST(WireHeader, CharsetsOfTexts) {
    const auto subject = [](const QString& hex) {
        const QByteArray text = octets(qPrintable(hex));
        const Sent sent('\x96' + QByteArray(1, char(text.size())) + text + "\x8F\x81");
        return lines(sent.reader.message()).replace(" | X-Mms-Priority: Normal", "");
    };
    expectRows(
        {
            "EA 61 62 00 63 = Subject: ab {Octets !}",
            "EA C3 00 = Subject: \uFFFD {Text: \uFFFD !}",
            "83 61 E4 00 = Subject: a\u00E4 {Text: a\u00E4 ?}",
            "83 C3 A4 00 = Subject: \u00E4 {Text: \u00E4 ?}",
            "84 E4 00 = Subject: \u00E4",
            "91 83 65 83 58 83 67 00 = Subject: \u30C6\u30B9\u30C8",
            "91 80 00 = Subject: \uFFFD {Text: \uFFFD !}",
            "02 07 EA A4 A4 A4 E5 00 = Subject: \u4E2D\u6587",
            "02 0F FF 61 00 = Subject: a {Charset: 4095 ?}",
            "09 01 02 03 04 05 06 07 08 09 C3 A4 00 = Subject: \u00E4 {Charset: 18446744073709551615 ?}",
            // 16-bit texts: with and without a mark, closed by two zeros, one or none
            "02 03 F7 00 61 30 C6 00 00 = Subject: a\u30C6",
            "02 03 F7 FE FF 00 61 00 00 = Subject: a",
            "02 03 F7 FF FE 61 00 00 00 = Subject: a",
            "02 03 F6 61 00 00 00 = Subject: a",
            "02 03 E8 00 61 00 00 = Subject: a",
            "02 03 F7 7F FE FF 00 61 00 00 = Subject: a",
            "02 03 F7 7F 00 61 00 00 = Subject: a",
            "02 03 F7 7F 4E 00 61 00 00 = Subject: \u7F4Ea",
            "02 03 F7 00 61 00 = Subject: a {Text: a ?}",
            "02 03 F7 00 61 = Subject: a {Text: a ?}",
            "02 03 F7 00 61 62 = Subject: a\uFFFD {Text: a\uFFFD !}",
            "02 03 F7 D8 00 00 00 = Subject: \uFFFD {Text: \uFFFD !}",
            "02 03 F7 00 61 00 00 00 62 = Subject: a {Octets !}",
        },
        subject);
}

TEST(WireHeader, FieldsAndMarksAreFound) {
    const Sent sent(octets("8C 84 98 74 00 8D 93 88 00 88 03 81 01 05 88 03 81 01 06 01 96 61 00"));
    const MMS_WIRE_Reader& reader = sent.reader;
    EXPECT_FALSE(sent.isSound || reader.isSound());
    EXPECT_EQ(reader.messageType(), 132);
    EXPECT_EQ(reader.field(FIELD_EXPIRY).number(), 5u) << "the first that fits";
    EXPECT_EQ(reader.field(FIELD_EXPIRY).kind(), MMS_WIRE_Item::SECONDS);
    EXPECT_TRUE(reader.field(FIELD_DATE).isNull() && reader.body().isNull() && reader.parts().isEmpty());
    QList<qsizetype> offsets;
    for (const MMS_WIRE_Mark& mark : reader.marks())
        offsets += mark.what.isEmpty() ? -1 : mark.item.offset();
    EXPECT_EQ(offsets, (QList<qsizetype>{7, 19}));
    EXPECT_EQ(reader.missingFields(), (QList<int>{FIELD_DATE, FIELD_CONTENT_TYPE}));
    const struct {
        const char* octets;
        QList<int> missing;
        bool isOrdered;
    } rows[] = {
        {"8C 80 98 74 00 8D 90 89 01 81 82 61 00 84 A3", {}, true},
        {"8C 80 98 74 00 8D 90 89 01 81 84 A3", {FIELD_TO}, true},
        {"8C 82 8D 90 98 74 00",
         {FIELD_MESSAGE_CLASS, FIELD_MESSAGE_SIZE, FIELD_EXPIRY, FIELD_CONTENT_LOCATION},
         false},
        {"8C 88 8D 90 8B 61 00 97 61 00 89 01 81 85 01 05 9B 80", {}, true},
        {"8D 90", {FIELD_MESSAGE_TYPE}, true},
        {"86 80 8C 97 8D 90", {}, false},
    };
    for (const auto& row : rows) {
        const Sent message(octets(row.octets));
        EXPECT_EQ(message.reader.missingFields(), row.missing) << row.octets;
        EXPECT_EQ(message.reader.isFieldOrderCorrect(), row.isOrdered) << row.octets;
    }
    const Sent none("");
    EXPECT_TRUE(none.isSound && none.reader.messageType() == -1 && none.reader.parts().isEmpty());
    EXPECT_TRUE(MMS_WIRE_Item().text().isEmpty() && MMS_WIRE_Part(MMS_WIRE_Item()).payload().isEmpty());
    EXPECT_EQ(MMS_WIRE_Part(MMS_WIRE_Item()).mediaType(), "application/octet-stream");
}

TEST(WireHeader, FilledAndEncodedAgain) {
    const char* const messages[] = {
        // each carries all that the order list of its type does
        "8C 80 98 74 00 8D 90 85 04 53 70 78 AC 89 05 80 61 40 62 00 97 31 2F 54 59 50 45 3D 50 4C 4D 4E "
        "00"
        "97 61 40 62 00 82 63 40 64 00 81 65 40 66 00 96 07 EA 7F C3 A4 62 63 00 8A 81 88 04 81 02 0E 10"
        "87 06 80 04 53 70 78 AC 8F 82 94 81 86 80 90 81 84 09 B3 8A 73 00 89 61 2F 62 00",
        "8C 81 98 74 00 8D 92 92 C2 93 04 EA 6E 6F 00 8B 6D 00",
        "8C 82 98 74 00 8D 90 89 01 81 96 03 EA 73 00 8A 80 8E 02 61 C7 88 04 81 02 0E 10 83 68 3A 00",
        "8C 83 98 74 00 8D 90 95 81 91 80",
        "8C 85 98 74 00 8D 90 91 81",
        "8C 86 8D 90 98 74 00 97 61 40 62 00 85 04 53 70 78 AC 95 81",
    };
    for (const char* hex : messages) {
        const QByteArray pdu = octets(hex);
        const Sent sent(pdu);
        MMS_UA_UAMsg header;
        EXPECT_TRUE(sent.reader.fill(&header).isEmpty()) << hex;
        EXPECT_EQ(encoded(header), pdu);
        EXPECT_EQ(header.pduOrderCheck(), pdu.at(1) != '\x86');
    }
}

TEST(WireHeader, WhatTheRecordHasNoPlaceFor) {
    const auto filled = [](const QString& hex) {
        const Sent sent(octets(qPrintable(hex)));
        MMS_UA_UAMsg header;
        QStringList others;
        for (const MMS_WIRE_Item& item : sent.reader.fill(&header))
            others += line(item);
        return QString::number(header.present, 16) + ' ' + others.join(" | ");
    };
    expectRows(
        {
            "99 C2 96 61 00 96 62 00 = 200000 X-Mms-Retrieve-Status: Error-transient-network-problem | "
            "Subject: b",
            "97 61 00 97 62 00 97 00 = 400000 ",
            "96 00 98 00 89 02 80 00 = 0 ",
            "85 05 01 00 00 00 00 = 0 Date: 2106-02-07T06:28:16Z",
            "8E 04 80 00 00 00 8E 04 7F FF FF FF = 0 X-Mms-Message-Size: 2147483648 | X-Mms-Message-Size: "
            "2147483647",
            "8A 6F 77 6E 00 = 0 X-Mms-Message-Class: own",
            "88 00 88 02 82 85 = 0 X-Mms-Expiry ! | X-Mms-Expiry !",
            "86 82 94 82 B1 80 = 1000000 X-Mms-Delivery-Report ! | X-Mms-Sender-Visibility: 130 !",
            "8C 92 83 03 82 61 00 = 804 X-Mms-Content-Location: 2; a",
            "58 00 80 D4 61 00 = 0 X: 128 | 0xD4: a !",
        },
        filled);

    const Sent sent(octets("94 80 8D 93 97 2B 31 2F 54 59 50 45 3D 49 50 56 34 00 97 4D 65 3C 61 40 62 3E 00"
                           "88 06 80 04 00 00 00 05 89 01 81 84 83 61 62"));
    MMS_UA_UAMsg header;
    sent.reader.fill(&header);
    EXPECT_EQ(header.version, 0x13);
    EXPECT_FALSE(header.getSenderVisibility()) << "Hide";
    EXPECT_EQ(header.getFrom().getName(), "NoBody");
    EXPECT_EQ(header.getTo().at(0)->getAddress(), "+1/TYPE=IPV4");
    EXPECT_EQ(header.getTo().at(1)->getName() + ' ' + header.getTo().at(1)->getAddress(), "Me a@b");
    EXPECT_EQ(header.getExpireTime(), 0u) << "long over";
    EXPECT_EQ(header.getContentType().subType, "plain");
    EXPECT_EQ(header.bodyLength, 2u);
    EXPECT_EQ(*header.bodyStart, 'a');
}

} // namespace
