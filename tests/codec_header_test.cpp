// The header of a PDU as a whole: record, decoder, encoder.

#include "codec/codec_result.h"
#include "codec/header_fields.h"
#include "codec/message_kinds.h"
#include "codec/ua_decoder.h"
#include "codec/ua_encoder.h"
#include "codec/ua_msg.h"
#include "tests/octets.h"

#include <functional>
#include <memory>
#include <vector>

namespace {

/// Decodes octets that end exactly at the end of their allocation, and keeps them for the body.
struct Decoded {
    explicit Decoded(const QByteArray& bytes) : octets(bytes.begin(), bytes.end()) {
        auto length = static_cast<unsigned int>(octets.size());
        result = MMS_UA_Decoder().decodeHeader(octets.data(), length, &msg);
    }
    std::vector<unsigned char> octets;
    MMS_UA_UAMsg msg;
    int result;
};

QByteArray encoded(MMS_UA_UAMsg& msg) {
    unsigned char* out = nullptr;
    int length = -1;
    MMS_UA_Encoder encoder;
    EXPECT_EQ(encoder.encodeHeader(&msg, &out, &length), CODEC_WRITTEN);
    EXPECT_EQ(encoder.sizeOfEncodedHeader(&msg), length);
    const std::unique_ptr<unsigned char[]> owned(out);
    return QByteArray(reinterpret_cast<const char*>(out), length);
}

QByteArray text(const char* octetsOfText) {
    return QByteArray(octetsOfText) + '\0';
}

} // namespace

TEST(HeaderRecord, NewMessage) {
    MMS_UA_UAMsg msg;
    EXPECT_EQ(msg.messageType, 128);
    EXPECT_EQ(msg.messageClass, 128);
    EXPECT_EQ(msg.status, 128);
    EXPECT_EQ(msg.responseStatus, 128);
    EXPECT_EQ(msg.version, 0);
    EXPECT_EQ(msg.present, 0u);
    EXPECT_TRUE(msg.mandatoryFldsPresentInPDU());
    EXPECT_TRUE(msg.fieldsPresent(0));
}

TEST(HeaderRecord, SettersMarkTheirBitUnlessGivenNothing) {
    MMS_UTIL_Entry entry("n", 1, "1"), none("n", 1, "");
    QPtrList<MMS_UTIL_Entry> one, empty;
    one.append(&entry);
    const QDateTime now = QDateTime::currentDateTime();
    struct Row {
        unsigned int bit;
        std::function<void(MMS_UA_UAMsg&)> set, setNothing;
    };
    const auto nothing = [](MMS_UA_UAMsg&) {};
    for (const Row& row : std::vector<Row>{
             {0x1, [&](auto& m) { m.setBcc(one); }, [&](auto& m) { m.setBcc(empty); }},
             {0x1, [&](auto& m) { m.addBccRecipient(entry); },
              [&](auto& m) { m.addBccRecipient(new MMS_UTIL_Entry(entry)); }},
             {0x2, [&](auto& m) { m.setCc(one); }, [&](auto& m) { m.setCc(empty); }},
             {0x2, [&](auto& m) { m.addCcRecipient(entry); },
              [&](auto& m) { m.addCcRecipient(new MMS_UTIL_Entry(entry)); }},
             {0x4, [](auto& m) { m.setMsgURI("u"); }, [](auto& m) { m.setMsgURI(""); }},
             {0x8,
              [](auto& m) {
                  m.setContentType({"a", "", ""});
              },
              [](auto& m) {
                  m.setContentType({"", "b", "c"});
              }},
             {0x10, [&](auto& m) { m.setSendTime(now); }, [](auto& m) { m.setSendTime({}); }},
             {0x20, [](auto& m) { m.setDeliveryReportNecessity(false); }, nothing},
             {0x40, [&](auto& m) { m.setDeliveryTime(now); }, [](auto& m) { m.setDeliveryTime({}); }},
             {0x80, [](auto& m) { m.setExpireTime(0); }, nothing},
             {0x100, [&](auto& m) { m.setFrom(entry); }, [&](auto& m) { m.setFrom(none); }},
             {0x400, [](auto& m) { m.setMsgID("i"); }, [](auto& m) { m.setMsgID({}); }},
             {0x4000, [](auto& m) { m.setPriority(130); }, nothing},
             {0x8000, [](auto& m) { m.setReadReplyNecessity(true); }, nothing},
             {0x80000, [](auto& m) { m.setSenderVisibility(true); }, nothing},
             {0x200000, [](auto& m) { m.setSubject("s"); }, [](auto& m) { m.setSubject(""); }},
             {0x400000, [&](auto& m) { m.setTo(one); }, [&](auto& m) { m.setTo(empty); }},
             {0x400000, [&](auto& m) { m.addToRecipient(entry); },
              [&](auto& m) { m.addToRecipient(new MMS_UTIL_Entry(entry)); }},
             {0x1000000, [](auto& m) { m.setDistributionInd(true); },
              [](auto& m) { m.setAttachmentInc(true); }},
             {0x2000000, [](auto& m) { m.setPromptInd(true); }, [](auto& m) { m.setVideoInc(true); }}}) {
        MMS_UA_UAMsg msg;
        row.setNothing(msg);
        EXPECT_EQ(msg.present, 0u) << std::hex << row.bit;
        row.set(msg);
        EXPECT_EQ(msg.present, row.bit);
    }
    MMS_UA_UAMsg msg;
    msg.setFlags(0xFF);
    msg.setDistributionInd(false);
    msg.setAudioInc(false);
    EXPECT_EQ(msg.getFlags(), 0xF6u);
    msg.setTo(one);
    entry.setAddress("changed"); // the caller's entry is not the message's
    EXPECT_EQ(msg.getTo().first()->getAddress(), "1");
    msg.setTo(msg.getTo());
    EXPECT_EQ(msg.getTo().count(), 1);
}

TEST(HeaderRecord, PositionsAndVersions) {
    MMS_UA_UAMsg msg;
    for (const auto& [code, position, kept] : {std::tuple{12, 0, 0},
                                               {12, 26, 0},
                                               {12, 25, 25},
                                               {0, 1, 1},
                                               {25, 7, 7},
                                               {26, 3, 0},
                                               {49, 3, 0},
                                               {255, 1, 0}}) {
        msg.setFieldPosition(static_cast<unsigned char>(code), static_cast<unsigned char>(position));
        EXPECT_EQ(msg.getFieldPosition(static_cast<unsigned char>(code)), kept) << code << ' ' << position;
    }
    for (const auto& [version, major, minor] :
         {std::tuple{0x10, true, true}, {0x11, true, false}, {0x20, false, true}, {0x90, true, true}}) {
        msg.version = static_cast<unsigned char>(version);
        EXPECT_EQ(msg.isMMSVersionCorrect(), major) << version;
        EXPECT_EQ(msg.isMMSMinorVersionCorrect(), minor) << version;
    }
}

TEST(HeaderRecord, MandatoryFields) {
    for (const auto& [type, mask] : {std::pair{0x80, 0u},
                                     {0x81, 0x821800u},
                                     {0x82, 0x803A84u},
                                     {0x83, 0u},
                                     {0x84, 0x1818u},
                                     {0x85, 0u},
                                     {0x86, 0x501C10u},
                                     {0x87, 0u}}) {
        MMS_UA_UAMsg msg;
        msg.messageType = static_cast<unsigned char>(type);
        msg.present = mask;
        EXPECT_TRUE(msg.mandatoryFldsPresentInPDU()) << type;
        for (unsigned int bit = 1; bit; bit <<= 1)
            if (mask & bit) {
                msg.present = ~bit;
                EXPECT_FALSE(msg.mandatoryFldsPresentInPDU()) << type << ' ' << bit;
            }
    }
}

TEST(HeaderRecord, OrderOfDecodedFields) {
    const QByteArray type = octets("8C 84"), id = octets("98 31 00"), version = octets("8D 90"),
                     date = octets("85 04 3F 00 00 00"), subject = octets("96 61 00"),
                     content = octets("84 A3");
    struct Row {
        const char* name;
        QByteArray header;
        bool inOrder;
    };
    for (const Row& row :
         std::vector<Row>{{"as it should be", type + id + version + date + content, true},
                          {"no transaction id", type + version + date + content, true},
                          {"nothing", "", true},
                          {"no content type", type + id + version + subject, true},
                          {"version before id", type + version + id + content, false},
                          {"type not first", id + type + version + content, false},
                          {"date first", date + type + version + content, false},
                          {"repeated subject", type + version + subject + subject + content, true},
                          {"subject twice", type + version + subject + date + subject + content, false}}) {
        Decoded decoded(row.header);
        EXPECT_EQ(decoded.result, CODEC_READ);
        EXPECT_EQ(decoded.msg.pduOrderCheck(), row.inOrder) << row.name;
    }
}

TEST(Decoder, EveryField) {
    Decoded d(
        octets("8C 84 98 54 31 00 8D 91 8B 49 00 85 04 50 00 00 00 89 07 80 2B 31 2F 78 40 00"
               "97 31 2F 54 59 50 45 3D 50 4C 4D 4E 00 97 61 40 62 00 82 32 00 81 33 00 96 05 EA 61 62 63 00"
               "8A 81 88 04 81 02 0E 10 87 06 80 04 50 00 00 00 8F 82 94 80 86 80 90 81 91 80 92 E0"
               "93 6F 6B 00 95 81 8E 02 61 C7 83 68 3A 00 B1 80 84 A3 01 02 03"));
    ASSERT_EQ(d.result, CODEC_READ);
    const MMS_UA_UAMsg& msg = d.msg;
    EXPECT_EQ(msg.present, 0x1FFFFFFu);
    EXPECT_EQ(msg.messageType, MESSAGE_RETRIEVE_CONF);
    EXPECT_EQ(msg.transactionId, "T1");
    EXPECT_EQ(msg.version, 0x11);
    EXPECT_EQ(msg.getMsgID(), "I");
    const auto age = msg.getSendTime().secsTo(QDateTime::currentDateTime());
    EXPECT_TRUE(age >= 0 && age < 60) << "the send time is the moment of decoding";
    EXPECT_EQ(msg.getFrom().getAddress(), "+1/x@");
    ASSERT_EQ(msg.getTo().count(), 2);
    EXPECT_EQ(msg.getTo().at(0)->getAddress(), "1");
    EXPECT_EQ(msg.getTo().at(0)->getType(), MMS_UTIL_Entry::PLMN);
    EXPECT_EQ(msg.getTo().at(1)->getAddress(), "a@b");
    EXPECT_EQ(msg.getTo().at(1)->getType(), MMS_UTIL_Entry::EMAIL);
    EXPECT_EQ(msg.getCc().first()->getAddress(), "2");
    EXPECT_EQ(msg.getBcc().first()->getAddress(), "3");
    EXPECT_EQ(msg.getSubject(), "abc");
    EXPECT_EQ(msg.messageClass, 129);
    EXPECT_EQ(msg.getExpireTime(), 3600u);
    EXPECT_EQ(msg.getDeliveryTime().toSecsSinceEpoch(), 0x50000000);
    EXPECT_EQ(msg.getPriority(), 130);
    EXPECT_TRUE(msg.getSenderVisibility());
    EXPECT_TRUE(msg.getDeliveryReportNecessity());
    EXPECT_FALSE(msg.getReadReplyNecessity());
    EXPECT_TRUE(msg.reportAllowed);
    EXPECT_EQ(msg.responseStatus, 0xE0);
    EXPECT_EQ(msg.responseText, "ok");
    EXPECT_EQ(msg.status, 129);
    EXPECT_EQ(msg.getMsgSize(), 0x61C7);
    EXPECT_EQ(msg.getMsgURI(), "h:");
    EXPECT_TRUE(msg.getDistributionInd());
    EXPECT_EQ(msg.getContentType().subType, "vnd.wap.multipart.mixed");
    EXPECT_EQ(msg.getFieldPosition(FIELD_MESSAGE_TYPE), 1);
    EXPECT_EQ(msg.getFieldPosition(FIELD_TO), 7); // two in a row share a place
    EXPECT_EQ(msg.getFieldPosition(FIELD_CC), 8);
    EXPECT_EQ(msg.getFieldPosition(FIELD_CONTENT_TYPE), 25);
    EXPECT_EQ(msg.bodyLength, 3u);
    EXPECT_EQ(msg.bodyStart, d.octets.data() + d.octets.size() - 3);
}

TEST(Decoder, HeadersGivenByName) {
    // The code is first read as an integer: of a name, 'X' (88) takes 88 octets with it. A short count
    // in front lets the name through from its second octet on.
    const QByteArray filler(86, 'z');
    struct Row {
        const char* name;
        QByteArray header;
        int result;
        bool indicator;
        QString subject;
    };
    const QByteArray subject = octets("96 61 00");
    for (const Row& row : std::vector<Row>{
             {"distribution by name", octets("01 58") + text("-Mms-Distribution-Indicator") + octets("80"),
              CODEC_READ, true, ""},
             {"older name of it",
              octets("01 58") + text("-Mms-Distribution-Allowed") + octets("80") + subject, CODEC_READ, true,
              "a"},
             {"passed over", octets("01 58") + text("-Other") + text("value") + subject, CODEC_READ, false,
              "a"},
             {"name taken as a count", QByteArray("X-") + filler + text("z") + text("v") + subject,
              CODEC_READ, false, "a"},
             {"unknown code", octets("BD 01 00 00") + subject, CODEC_READ, false, "a"},
             {"count beyond the end", text("X-Mms-Other") + text("v"), CODEC_MALFORMED, false, ""},
             {"name without end", octets("01 58 59"), CODEC_MALFORMED, false, ""},
             {"name without value", octets("01 58 59 00"), CODEC_MALFORMED, false, ""},
             {"indicator without value", octets("01 58") + text("-Mms-Distribution-Indicator"),
              CODEC_MALFORMED, false, ""}}) {
        SCOPED_TRACE(row.name);
        Decoded d(row.header);
        EXPECT_EQ(d.result, row.result);
        EXPECT_EQ(d.msg.getDistributionInd(), row.indicator);
        EXPECT_EQ(d.msg.getSubject(), row.subject);
        EXPECT_EQ(d.msg.bodyStart != nullptr, row.result == CODEC_READ);
    }
    Decoded named(octets("8C 80 01 58") + text("-Mms-Distribution-Indicator") + octets("80 B1 81 8D 90"));
    EXPECT_EQ(named.msg.getFieldPosition(FIELD_MMS_VERSION), 3); // by name and by code count as one
}

TEST(Decoder, AbsentAndOddValues) {
    Decoded placeholder(octets("89 01 81"));
    EXPECT_EQ(placeholder.msg.getFrom().getName(), "NoBody");
    EXPECT_EQ(placeholder.msg.getFrom().getType(), 2);
    EXPECT_TRUE(placeholder.msg.getFrom().isEmpty());
    EXPECT_TRUE(placeholder.msg.fieldsPresent(0x100));
    EXPECT_EQ(Decoded(octets("89 01 80")).msg.getFrom().getName(), "NoBody");      // too short for an address
    EXPECT_EQ(Decoded(octets("89 1F 8F FF FF FF 7F 81")).result, CODEC_MALFORMED); // a count below zero
    for (const char* absent : {"8E 00", "8E 80", "98 00", "93 00", "96 00", "8B 00", "83 00"}) {
        Decoded d(octets(absent));
        EXPECT_EQ(d.result, CODEC_READ) << absent;
        EXPECT_EQ(d.msg.present, 0u) << absent;
    }
    const auto past = static_cast<unsigned int>(time(nullptr) - 0x50000000);
    Decoded expired(octets("88 06 80 04 50 00 00 00"));
    EXPECT_LE(expired.msg.getExpireTime() + past, 60u); // seconds that have passed wrap
    Decoded start(octets("8C 80 8D 90"));
    EXPECT_EQ(start.msg.version, 0x10);
    EXPECT_EQ(start.msg.bodyLength, 0u);
    EXPECT_EQ(start.msg.bodyStart, start.octets.data() + 4);
    unsigned int length = 4;
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(start.octets.data(), length, nullptr), CODEC_NO_MESSAGE);
    MMS_UA_UAMsg msg;
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(nullptr, length, &msg), CODEC_READ);
    EXPECT_EQ(msg.bodyStart, nullptr);
    EXPECT_EQ(msg.bodyLength, 0u);
}

TEST(Decoder, InputThatEndsInsideAValueKeepsWhatWasRead) {
    for (const char* value : {"81",       "82 61",    "83 61",
                              "84",       "84 19",    "85",
                              "85 04 01", "86",       "87 06 80 04 01",
                              "88",       "88 03 81", "89",
                              "89 05",    "89 05 80", "8A",
                              "8B 61",    "8C",       "8D",
                              "8E 02 01", "8F",       "90",
                              "91",       "92",       "93 05 EA",
                              "94",       "95",       "96 05 EA 61",
                              "97 61",    "98 61",    "B1",
                              "04"}) {
        Decoded d(octets("96 61 00") + octets(value));
        EXPECT_EQ(d.result, CODEC_MALFORMED) << value;
        EXPECT_EQ(d.msg.bodyStart, nullptr) << value;
        EXPECT_EQ(d.msg.getSubject(), "a") << value;
    }
    EXPECT_EQ(Decoded(octets("98 61 62")).msg.transactionId, "ab"); // a text keeps what there was
    EXPECT_EQ(Decoded(octets("97 61 62")).msg.getTo().count(), 1);
    EXPECT_EQ(Decoded(octets("97")).msg.getTo().count(), 0);
}

TEST(Encoder, ValuesOfFields) {
    struct Row {
        const char* name;
        unsigned char type;
        std::function<void(MMS_UA_UAMsg&)> set;
        QByteArray bytes;
    };
    const auto present = [](unsigned int bits) { return [bits](MMS_UA_UAMsg& m) { m.present = bits; }; };
    for (const Row& row :
         std::vector<Row>{{"nothing present", 128, present(0), octets("8D 80 89 01 81")},
                          {"type not known", 127, present(~0u), ""},
                          {"type not known", 135, present(~0u), ""},
                          {"expiry", 130, [](auto& m) { m.setExpireTime(3600); },
                           octets("8D 80 89 01 81 88 04 81 02 0E 10")},
                          {"largest expiry", 130, [](auto& m) { m.setExpireTime(~0u); },
                           octets("8D 80 89 01 81 88 06 81 04 FF FF FF FF")},
                          {"sender hidden", 128, [](auto& m) { m.setSenderVisibility(true); },
                           octets("8D 80 89 01 81 94 81")},
                          {"sender shown", 128, [](auto& m) { m.setSenderVisibility(false); },
                           octets("8D 80 89 01 81 94 80")},
                          {"distribution is never written", 128, [](auto& m) { m.setDistributionInd(true); },
                           octets("8D 80 89 01 81")},
                          {"flags", 133, [](auto& m) { m.setReportAllowed(false); }, octets("8D 80 91 81")},
                          {"from", 128,
                           [](auto& m) {
                               m.setFrom({"n", 0, "a@b"});
                           },
                           octets("8D 80 89 05 80 61 40 62 00")},
                          {"three recipients", 128,
                           [](auto& m) {
                               for (const char* address : {"1", "2", "3"}) {
                                   MMS_UTIL_Entry entry("", 0, address);
                                   m.addToRecipient(entry);
                               }
                           },
                           octets("8D 80 89 01 81 97 31 00 97 32 00 97 33 00")},
                          {"an address that cannot be sent", 134,
                           [](auto& m) {
                               MMS_UTIL_Entry entry("", 2, "1");
                               m.addToRecipient(entry);
                           },
                           octets("8D 80 97")},
                          {"version", 131, [](auto& m) { m.version = 0x12; }, octets("8D 92")},
                          {"date after 2038", 134,
                           [](auto& m) { m.setSendTime(QDateTime::fromSecsSinceEpoch(0xF0000000LL)); },
                           octets("8D 80 85 04 F0 00 00 00")},
                          {"empty list marked present", 128, present(0x400000), octets("8D 80 89 01 81")}}) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        msg.messageType = row.type;
        row.set(msg);
        EXPECT_EQ(encoded(msg), row.bytes); // only the last field's result is told
    }
    MMS_UA_UAMsg msg;
    msg.setDistributionInd(true);
    MMS_UA_Encoder encoder;
    EXPECT_EQ(encoder.sizeOfEncodedHeader(&msg), 5);
    EXPECT_EQ(encoder.encodeField(FIELD_DISTRIBUTION_INDICATOR), CODEC_REFUSED);
    const std::unique_ptr<FieldBase> readOnly(MMS_UA_Decoder().selectReader(FIELD_DISTRIBUTION_INDICATOR));
    EXPECT_EQ(readOnly->writeField(nullptr, &msg), CODEC_READ);
    EXPECT_EQ(readOnly->fieldSize(&msg), 0);
    EXPECT_EQ(encoder.encodeField(FIELD_SUBJECT), CODEC_WRITTEN); // absent
    EXPECT_EQ(MMS_UA_Encoder().encodeHeader(nullptr, nullptr, nullptr), CODEC_NO_MESSAGE);
}

TEST(Encoder, OrderOfEachTypeAndBackAgain) {
    struct Row {
        unsigned char type;
        std::vector<int> order;
    };
    for (const Row& row : {Row{128, {12, 24, 13, 5, 9, 23, 2, 1, 22, 10, 8, 7, 15, 20, 6, 16, 4}},
                           {129, {12, 24, 13, 18, 19, 11}},
                           {130, {12, 24, 13, 9, 22, 10, 14, 8, 3}},
                           {131, {12, 24, 13, 21, 17}},
                           {132, {12, 24, 13, 11, 5, 9, 23, 2, 1, 22, 10, 15, 6, 16, 4}},
                           {133, {12, 24, 13, 17}},
                           {134, {12, 13, 24, 23, 5, 21}}}) {
        SCOPED_TRACE(row.type);
        Decoded d(octets("8C 80 98 54 31 00 8D 90 8B 49 00 85 04 50 00 00 00 89 05 80 61 40 62 00"
                         "97 31 00 97 61 40 62 00 82 32 00 81 33 00 96 05 EA 61 62 63 00 8A 81"
                         "88 04 81 02 0E 10 87 06 80 04 50 00 00 00 8F 82 94 80 86 80 90 81 91 80 92 E0"
                         "93 6F 6B 00 95 81 8E 02 61 C7 83 68 3A 00 B1 80"
                         "84 0B B3 8A 3C 73 3E 00 89 61 2F 62 00"));
        ASSERT_EQ(d.result, CODEC_READ);
        d.msg.messageType = row.type;
        Decoded again(encoded(d.msg));
        ASSERT_EQ(again.result, CODEC_READ);
        for (size_t i = 0; i < row.order.size(); ++i)
            EXPECT_EQ(again.msg.getFieldPosition(static_cast<unsigned char>(row.order[i])), i + 1)
                << row.order[i];
        unsigned int bits = 0;
        for (int code : row.order)
            bits |= presenceBit(code);
        EXPECT_EQ(again.msg.present, bits);
        EXPECT_EQ(again.msg.bodyLength, 0u);
        if (bits & presenceBit(FIELD_TO)) {
            ASSERT_EQ(again.msg.getTo().count(), 2);
            EXPECT_EQ(again.msg.getTo().at(1)->getAddress(), "a@b");
        }
        if (bits & presenceBit(FIELD_SUBJECT)) {
            EXPECT_EQ(again.msg.getSubject(), "abc");
        }
        if (bits & presenceBit(FIELD_DELIVERY_TIME)) {
            EXPECT_EQ(again.msg.getDeliveryTime(), d.msg.getDeliveryTime());
        }
    }
}

TEST(FieldTable, ReadersAndWriters) {
    MMS_UA_Decoder decoder;
    MMS_UA_Encoder encoder;
    for (int code = -1; code <= 300; ++code) {
        const bool known = (code >= 1 && code <= 24) || code == 49;
        const std::unique_ptr<FieldBase> reader(decoder.selectReader(code)),
            writer(encoder.selectWriter(code));
        EXPECT_EQ(reader != nullptr, known) << code;
        EXPECT_EQ(writer != nullptr, known && code != 49) << code;
        EXPECT_EQ(headerField(code) != nullptr, known) << code;
    }
}
