// The header of a PDU as a whole: record, decoder, encoder.

#include "tests/testing.h"

namespace {

using Msg = MMS_UA_UAMsg;

/// Decodes octets that end at the end of their allocation, and keeps them for the body.
struct Decoded {
    explicit Decoded(const QByteArray& bytes) : octets(bytes.begin(), bytes.end()) {
        auto length = static_cast<unsigned int>(octets.size());
        result = MMS_UA_Decoder().decodeHeader(octets.data(), length, &msg);
    }
    std::vector<unsigned char> octets;
    Msg msg;
    int result;
};

QByteArray encoded(Msg& msg) {
    unsigned char* out = nullptr;
    int length = -1;
    MMS_UA_Encoder encoder;
    EXPECT_EQ(encoder.encodeHeader(&msg, &out, &length), CODEC_WRITTEN);
    EXPECT_EQ(encoder.sizeOfEncodedHeader(&msg), length);
    const std::unique_ptr<unsigned char[]> owned(out);
    return QByteArray(reinterpret_cast<const char*>(out), length);
}

/// A retrieved message with every field.
const char everyField[] =
    "8C 84 98 54 31 00 8D 91 8B 49 00 85 04 50 00 00 00 89 07 80 2B 31 2F 78 40 00"
    "97 31 2F 54 59 50 45 3D 50 4C 4D 4E 00 97 61 40 62 00 82 32 00 81 33 00 96 05 EA 61 62 63 00"
    "8A 81 88 04 81 02 0E 10 87 06 80 04 50 00 00 00 8F 82 94 80 86 80 90 81 91 80 92 E0"
    "93 6F 6B 00 95 81 8E 02 61 C7 83 68 3A 00 B1 80 84 0B B3 8A 3C 73 3E 00 89 61 2F 62 00";

} // namespace

TEST(HeaderRecord, SettersGivenNothingMarkNothing) {
    MMS_UTIL_Entry entry("n", 1, "1");
    QPtrList<MMS_UTIL_Entry> one;
    one.append(&entry);
    Msg msg;
    msg.setFrom(MMS_UTIL_Entry("n", 1, ""));
    msg.setTo({});
    msg.setCc({});
    msg.setBcc({});
    for (const QTime time : {QTime(), QTime(0, 0)}) { // empty times
        msg.setSendTime(QDateTime(QDate(), time));
        msg.setDeliveryTime(QDateTime(QDate(), time));
    }
    msg.setContentType({"", "b", "c"});
    msg.setFlags(0xFF);
    msg.setAttachmentInc(true);
    EXPECT_EQ(msg.present, 0u);
    msg.setDistributionInd(false);
    msg.setAudioInc(false);
    EXPECT_EQ(msg.getFlags(), 0xF6u);
    msg.setTo(one);
    entry.setAddress("changed"); // the message has copies of the entries
    msg.setTo(msg.getTo());
    EXPECT_EQ(msg.getTo().count(), 1);
    EXPECT_EQ(msg.getTo().first()->getAddress(), "1");
    msg.setPromptInd(true);
    EXPECT_EQ(msg.present, 0x3400000u);
}

TEST(HeaderRecord, PositionsVersionsAndMandatoryFields) {
    Msg msg;
    for (const auto& [code, place, kept] : {std::tuple{0, 25, 25}, {25, 1, 1}, {26, 3, 0}, {12, 26, 0}}) {
        msg.setFieldPosition(static_cast<unsigned char>(code), static_cast<unsigned char>(place));
        EXPECT_EQ(msg.getFieldPosition(static_cast<unsigned char>(code)), kept) << code << ' ' << place;
    }
    for (const auto& [version, major, minor] : {std::tuple{0x11, true, false}, {0x20, false, true}}) {
        msg.version = static_cast<unsigned char>(version);
        EXPECT_EQ(msg.isMMSVersionCorrect(), major) << version;
        EXPECT_EQ(msg.isMMSMinorVersionCorrect(), minor) << version;
    }
    const std::pair<unsigned char, unsigned int> rows[] = {
        {0x80, 0u},      {0x81, 0x821800u}, {0x82, 0x803A84u}, {0x83, 0u},
        {0x84, 0x1818u}, {0x85, 0u},        {0x86, 0x501C10u}, {0x87, 0u}};
    for (const auto& [type, mask] : rows) {
        msg.messageType = type;
        msg.present = mask;
        EXPECT_TRUE(msg.mandatoryFldsPresentInPDU()) << type;
        for (unsigned int bit = 1; bit; bit <<= 1) {
            msg.present = ~bit;
            EXPECT_EQ(msg.mandatoryFldsPresentInPDU(), !(mask & bit)) << type << ' ' << bit;
        }
    }
}

TEST(HeaderRecord, OrderOfDecodedFields) {
    const QByteArray type = octets("8C 84"), id = octets("98 31 00"), version = octets("8D 90"),
                     date = octets("85 04 3F 00 00 00"), subject = octets("96 61 00"),
                     content = octets("84 A3");
    const std::tuple<const char*, QByteArray, bool> rows[] = {
        {"as it should be", type + id + version + date + content, true},
        {"no transaction id", type + version + date + content, true},
        {"no content type", type + id + version + subject, true},
        {"version before id", type + version + id + content, false},
        {"type not first", id + type + version + content, false},
        {"date first", date + type + version + content, false},
        {"repeated subject", type + version + subject + subject + content, true},
        {"subject twice", type + version + subject + date + subject + content, false},
    };
    for (const auto& [name, header, inOrder] : rows)
        EXPECT_EQ(Decoded(header).msg.pduOrderCheck(), inOrder) << name;
}

TEST(Decoder, EveryField) {
    Decoded d(octets(everyField) + "abc");
    ASSERT_EQ(d.result, CODEC_READ);
    const Msg& m = d.msg;
    EXPECT_EQ(m.present, 0x1FFFFFFu);
    const auto age = m.getSendTime().secsTo(QDateTime::currentDateTime());
    EXPECT_TRUE(age >= 0 && age < 60) << "the send time is the moment of decoding";
    ASSERT_EQ(m.getTo().count(), 2);
    const MMS_UTIL_Entry &to = *m.getTo().at(0), &second = *m.getTo().at(1);
    EXPECT_EQ(m.getFrom().getAddress() + '|' + to.getAddress() + '|' + second.getAddress() + '|' +
                  m.getCc().first()->getAddress() + '|' + m.getBcc().first()->getAddress(),
              "+1/x@|1|a@b|2|3");
    EXPECT_EQ(m.transactionId + '|' + m.getMsgID() + '|' + m.getSubject() + '|' + m.responseText + '|' +
                  m.getMsgURI() + '|' + m.getContentType().parameters,
              "T1|I|abc|ok|h:|type=a/b;start=<s>");
    EXPECT_TRUE(to.getType() == MMS_UTIL_Entry::PLMN && second.getType() == MMS_UTIL_Entry::EMAIL);
    const std::vector<qint64> numbers = {m.messageType,    m.version,
                                         m.messageClass,   m.getPriority(),
                                         m.responseStatus, m.status,
                                         m.reportAllowed,  m.getExpireTime(),
                                         m.getMsgSize(),   m.getDeliveryTime().toSecsSinceEpoch()};
    EXPECT_EQ(numbers, (std::vector<qint64>{132, 0x11, 129, 130, 0xE0, 129, 1, 3600, 0x61C7, 0x50000000}));
    EXPECT_TRUE(m.getSenderVisibility() && m.getDeliveryReportNecessity() && m.getDistributionInd());
    EXPECT_FALSE(m.getReadReplyNecessity());
    EXPECT_EQ(m.getFieldPosition(FIELD_CC), 8); // consecutive repetitions share a position
    EXPECT_EQ(m.bodyLength, 3u);
    EXPECT_EQ(m.bodyStart, d.octets.data() + d.octets.size() - 3);
}

TEST(Decoder, OverriddenSettersSeeTheFields) {
    struct : Msg {
        void setFrom(MMS_UTIL_Entry from) override {
            seen += from.getName() + from.getAddress() + '|';
            Msg::setFrom(from);
        }
        void setSendTime(QDateTime time) override {
            seen += time.timeSpec() == Qt::LocalTime ? "now|" : "?";
            Msg::setSendTime(time);
        }
        QString seen;
    } msg;
    QByteArray header = octets("89 05 80 61 40 62 00 89 01 81 85 04 50 00 00 00");
    auto length = static_cast<unsigned int>(header.size());
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(header.data()), length, &msg),
              CODEC_READ);
    EXPECT_EQ(msg.seen, "NoBody|a@b|NoBody|now|");
    EXPECT_EQ(msg.getFrom().getAddress(), ""); // the later field's placeholder
}

TEST(Decoder, HeadersGivenByName) {
    // The code is read as an integer first: in a name, 'X' (88) takes 88 octets. A small count in front lets
    // the name be read from its second octet.
    const auto named = [](const char* rest) { return octets("01 58", zeroed(rest)); };
    const QByteArray indicator = named("-Mms-Distribution-Indicator"), subject = octets("96 61 00");
    const std::tuple<const char*, QByteArray, int, bool, QString> rows[] = {
        {"distribution", indicator + octets("80"), CODEC_READ, true, ""},
        {"older name", named("-Mms-Distribution-Allowed") + octets("80", subject), CODEC_READ, true, "a"},
        {"passed over", named("-Other") + zeroed("value") + subject, CODEC_READ, false, "a"},
        {"a count", "X-" + QByteArray(86, 'z') + zeroed("z") + zeroed("v") + subject, CODEC_READ, false, "a"},
        {"unknown code", octets("BD 01 00 00", subject), CODEC_READ, false, "a"},
        {"count beyond the end", zeroed("X-Mms-Other") + zeroed("v"), CODEC_MALFORMED, false, ""},
        {"name without end", octets("01 58 59"), CODEC_MALFORMED, false, ""},
        {"name without value", octets("01 58 59 00"), CODEC_MALFORMED, false, ""},
        {"indicator without value", indicator, CODEC_MALFORMED, false, ""},
    };
    for (const auto& [name, header, result, distributed, shown] : rows) {
        const Decoded d(header);
        EXPECT_EQ(d.result, result) << name;
        EXPECT_EQ(d.msg.getDistributionInd(), distributed) << name;
        EXPECT_EQ(d.msg.getSubject(), shown) << name;
        EXPECT_EQ(d.msg.bodyStart != nullptr, result == CODEC_READ) << name;
    }
    const Decoded both(octets("8C 80", indicator) + octets("80 B1 81 8D 90"));
    EXPECT_EQ(both.msg.getFieldPosition(FIELD_MMS_VERSION), 3); // by name and by code count as one
}

TEST(Decoder, AbsentAndOddValues) {
    for (const char* noSender : {"89 01 81", "89 01 80"}) { // the second is too short for an address
        const Decoded d(octets(noSender));
        EXPECT_EQ(d.msg.getFrom().getName(), "NoBody");
        EXPECT_TRUE(d.msg.getFrom().getType() == 2 && d.msg.getFrom().isEmpty());
        EXPECT_TRUE(d.msg.fieldsPresent(0x100));
    }
    EXPECT_EQ(Decoded(octets("89 1F 8F FF FF FF 7F 81")).result, CODEC_MALFORMED); // a negative count
    for (const char* absent : {"8E 00", "8E 80", "98 00", "93 00", "96 00", "8B 00", "83 00"}) {
        const Decoded d(octets(absent));
        EXPECT_EQ(d.result, CODEC_READ) << absent;
        EXPECT_EQ(d.msg.present, 0u) << absent;
    }
    const auto past = static_cast<unsigned int>(time(nullptr) - 0x50000000);
    EXPECT_LE(Decoded(octets("88 06 80 04 50 00 00 00")).msg.getExpireTime() + past, 60u); // wraps around
    Decoded start(octets("8C 80"));
    EXPECT_EQ(start.msg.bodyLength, 0u);
    EXPECT_EQ(start.msg.bodyStart, start.octets.data() + 2);
    unsigned int length = 2;
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(start.octets.data(), length, nullptr), CODEC_NO_MESSAGE);
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(nullptr, length, &start.msg), CODEC_READ);
    EXPECT_TRUE(!start.msg.bodyStart && !start.msg.bodyLength);
}

TEST(Decoder, InputThatEndsInsideAValueKeepsWhatWasRead) {
    const QByteArray values = "81|82 61|83 61|84|84 19|85|85 04 01|86|87 06 80 04 01|88|88 03 81|89|89 05|"
                              "89 05 80|8A|8B 61|8C|8D|8E 02 01|8F|90|91|92|93 05 EA|94|95|96 05 EA 61|"
                              "97 61|98 61|B1|04";
    for (const QByteArray& value : values.split('|')) {
        const Decoded d(octets("96 61 00", octets(value)));
        EXPECT_EQ(d.result, CODEC_MALFORMED) << value.data();
        EXPECT_EQ(d.msg.bodyStart, nullptr) << value.data();
        EXPECT_EQ(d.msg.getSubject(), "a") << value.data();
    }
    EXPECT_EQ(Decoded(octets("98 61 62")).msg.transactionId, "ab"); // without its zero
    EXPECT_EQ(Decoded(octets("97 61 62")).msg.getTo().count(), 1);
    EXPECT_EQ(Decoded(octets("97")).msg.getTo().count(), 0);
    Decoded whole(octets("96 61 00"));
    unsigned int length = 2; // decoding into a used message drops its former body
    EXPECT_EQ(MMS_UA_Decoder().decodeHeader(whole.octets.data(), length, &whole.msg), CODEC_MALFORMED);
    EXPECT_EQ(whole.msg.bodyStart, nullptr);
}

TEST(Encoder, ValuesOfFields) {
    const auto present = [](unsigned int bits) { return [bits](Msg& m) { m.present = bits; }; };
    const auto to = [](int type, std::vector<const char*> addresses) {
        return [=](Msg& m) {
            for (const char* address : addresses)
                m.addToRecipient(new MMS_UTIL_Entry("", type, address));
            m.present |= 0x400000;
        };
    };
    const QByteArray nothing = octets("8D 80 89 01 81");
    const MMS_UTIL_Entry sender("n", 0, "a@b");
    const QDateTime late = QDateTime::fromSecsSinceEpoch(0xF0000000LL);
    const std::tuple<const char*, unsigned char, std::function<void(Msg&)>, QByteArray> rows[] = {
        {"nothing present", 128, present(0), nothing},
        {"type not known", 127, present(~0u), ""},
        {"expiry", 130, [](Msg& m) { m.setExpireTime(3600); }, nothing + octets("88 04 81 02 0E 10")},
        {"largest", 130, [](Msg& m) { m.setExpireTime(~0u); }, nothing + octets("88 06 81 04 FF FF FF FF")},
        {"sender hidden", 128, [](Msg& m) { m.setSenderVisibility(true); }, nothing + octets("94 81")},
        {"sender shown", 128, [](Msg& m) { m.setSenderVisibility(false); }, nothing + octets("94 80")},
        {"flag", 133, [](Msg& m) { m.setReportAllowed(false); }, octets("8D 80 91 81")},
        {"from", 128, [&](Msg& m) { m.setFrom(sender); }, octets("8D 80 89 05 80 61 40 62 00")},
        {"recipients", 128, to(0, {"1", "2"}), nothing + octets("97 31 00 97 32 00")},
        {"empty list marked present", 128, to(0, {}), nothing},
        {"an address that cannot be sent", 134, to(2, {"1"}), octets("8D 80 97")},
        {"version", 131, [](Msg& m) { m.version = 0x12; }, octets("8D 92")},
        {"date after 2038", 134, [&](Msg& m) { m.setSendTime(late); }, octets("8D 80 85 04 F0 00 00 00")},
        {"distribution is never written", 128, present(0x1000000), nothing},
    };
    for (const auto& [name, type, set, bytes] : rows) {
        Msg msg;
        msg.messageType = type;
        set(msg);
        EXPECT_EQ(encoded(msg), bytes) << name; // the result is that of the last field
    }
    Msg msg;
    msg.present = 0x1000000;
    MMS_UA_Encoder encoder;
    EXPECT_EQ(encoder.sizeOfEncodedHeader(&msg), 5);
    EXPECT_EQ(encoder.encodeField(FIELD_DISTRIBUTION_INDICATOR), CODEC_REFUSED);
    EXPECT_EQ(encoder.encodeField(FIELD_SUBJECT), CODEC_WRITTEN); // absent
    unsigned char* out = nullptr;
    int length = 0;
    EXPECT_EQ(MMS_UA_Encoder().encodeHeader(nullptr, nullptr, nullptr), CODEC_NO_MESSAGE);
    EXPECT_EQ(MMS_UA_Encoder().encodeHeader(&msg, nullptr, &length), CODEC_REFUSED);
    EXPECT_EQ(MMS_UA_Encoder().encodeHeader(&msg, &out, nullptr), CODEC_REFUSED);
    for (const int code : {INT_MIN, -1, 0, 25, 50, 300})
        EXPECT_TRUE(!MMS_UA_Decoder().selectReader(code) && !encoder.selectWriter(code)) << code;
    for (int code = 1; code <= 24; ++code) {
        const std::unique_ptr<FieldBase> reader(MMS_UA_Decoder().selectReader(code));
        const std::unique_ptr<FieldBase> writer(encoder.selectWriter(code));
        EXPECT_TRUE(reader && writer) << code;
    }
    EXPECT_TRUE(std::unique_ptr<FieldBase>(MMS_UA_Decoder().selectReader(FIELD_DISTRIBUTION_INDICATOR)));
    EXPECT_FALSE(encoder.selectWriter(FIELD_DISTRIBUTION_INDICATOR));
}

TEST(Encoder, OrderOfEachTypeAndBackAgain) {
    const std::pair<unsigned char, std::vector<int>> rows[] = {
        {128, {12, 24, 13, 5, 9, 23, 2, 1, 22, 10, 8, 7, 15, 20, 6, 16, 4}},
        {129, {12, 24, 13, 18, 19, 11}},
        {130, {12, 24, 13, 9, 22, 10, 14, 8, 3}},
        {131, {12, 24, 13, 21, 17}},
        {132, {12, 24, 13, 11, 5, 9, 23, 2, 1, 22, 10, 15, 6, 16, 4}},
        {133, {12, 24, 13, 17}},
        {134, {12, 13, 24, 23, 5, 21}},
    };
    for (const auto& [type, order] : rows) {
        SCOPED_TRACE(type);
        Decoded d(octets(everyField));
        d.msg.messageType = type;
        const Decoded again(encoded(d.msg));
        ASSERT_EQ(again.result, CODEC_READ);
        unsigned int bits = 0, place = 0;
        for (const int code : order) {
            bits |= presenceBit(code);
            EXPECT_EQ(again.msg.getFieldPosition(static_cast<unsigned char>(code)), ++place) << code;
        }
        EXPECT_EQ(again.msg.present, bits);
        EXPECT_EQ(again.msg.bodyLength, 0u);
        EXPECT_EQ(again.msg.getTo().count(), bits & presenceBit(FIELD_TO) ? 2 : 0);
        EXPECT_EQ(again.msg.getSubject(), bits & presenceBit(FIELD_SUBJECT) ? "abc" : "");
        EXPECT_EQ(again.msg.getDeliveryTime().isNull(), !(bits & presenceBit(FIELD_DELIVERY_TIME)));
    }
}
