#include "tests/tool_runner.h"

#include <QJsonArray>
#include <QRandomGenerator>
#include <QSet>

#include <set>

namespace {

/// A PDU as a receiving application reads it.
struct Received {
    explicit Received(QByteArray pdu) : octets(std::move(pdu)) {
        auto length = static_cast<unsigned int>(octets.size());
        EXPECT_EQ(
            MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(octets.data()), length, &header),
            0);
        if (!header.bodyStart)
            return;
        const QArray<char> rest(QByteArray(reinterpret_cast<char*>(header.bodyStart), header.bodyLength));
        EXPECT_EQ(MMS_COMP_SMILMultipartParser::parse(rest, &header, &body), 0);
        smilPart = body.getSmilPart();
        if (smilPart) {
            MMS_COMP_SMILParser parser;
            EXPECT_EQ(parser.parse(smilPart->getBodyData(), &body, &presentation), 0);
            EXPECT_EQ(parser.getLastWarning(), 0) << "every object has its content";
        }
    }

    QByteArray payload(int part) { return body.getBodypartByIndex(part, false)->getBodyData(); }
    /// What a slide shows: its text, its picture and its sound.
    QList<QByteArray> payloads(int slide) {
        QList<QByteArray> shown;
        for (const auto kind :
             {MMS_COMP_SMIL_MEDIA_TEXT, MMS_COMP_SMIL_MEDIA_IMG, MMS_COMP_SMIL_MEDIA_AUDIO}) {
            const MMS_COMP_SMILMediaObject* object = presentation.getSlide(slide)->getElem(kind);
            shown +=
                object && object->getData() ? QByteArray(object->getData()->getBodyData()) : QByteArray();
        }
        return shown;
    }

    QByteArray octets;
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILMultipartBodypart* smilPart = nullptr;
    MMS_COMP_SMILData presentation{&body};
};

/// A text as the header codec reads back what it wrote: one that begins beyond ASCII keeps the zero that
/// closed it.
QString readBack(const QString& text) {
    return text.at(0).unicode() < 0x80 ? text : text + QChar::Null;
}

QJsonObject addressShown(int type, const char* address) {
    return {{"name", ""}, {"type", type}, {"address", address}};
}

TEST_F(ToolTest, EverythingAskedForIsThere) {
    const QStringList options = QString("--from +1 --to +2 --to a@b.c --cc 3 --bcc é@x.y --priority high "
                                        "--delivery-report --read-reply --expiry 3600")
                                    .split(' ');
    const QStringList slides{"--slide", "2.5",        "text:Hello",           write("p.png", "png"),
                             "--slide", "indefinite", write("s.amr", "#!AMR")};
    const Outcome made = lummms(QStringList{"compose", "-o", path("m.mms"), "--subject", "Grüße <b>"} +
                                options + slides + QStringList{"--attach", write("card.vcf", "BEGIN:VCARD")});
    ASSERT_EQ(made.status, 0) << made.err.constData();
    expectShown(path("m.mms"), "composed.txt");
    const QJsonValue header = lummms({"show", "--json", path("m.mms")}).json()["header"];
    EXPECT_TRUE(header["fieldOrderCorrect"].toBool() && header["mandatoryFieldsPresent"].toBool());
}

TEST_F(ToolTest, WhatCannotBeSentIsRefusedAndNothingWritten) {
    const QString picture = write("p.png", "png");
    const QString large = write("large.jpg", QByteArray(301 * 1024, 'x'));
    const std::pair<QStringList, const char*> rows[] = {
        {{"--slide", "5", "text:a"}, "--to"},
        {{"--to", ""}, "empty"},
        {{"--to", "my mum", "--slide", "5", "text:a"}, "neither a phone number"},
        {{"--to", "a@b.c/TYPE=PLMN", "--slide", "5", "text:a"}, "neither a phone number"},
        {{"--to", "1"}, "nothing to send"},
        {{"--to", "1", "--slide", "0.0001s", "text:a"}, "0.0001s"},
        {{"--to", "1", "--slide", "1", "text: "}, "is empty"},
        {{"--to", "1", "--slide", "1", write("empty.jpg", "")}, "is empty"},
        {{"--to", "1", "--subject", ""}, "is empty"},
        {{"--to", "1", "--subject", "a", "--kind", "letter"}, "send-conf, notification,"},
        {{"--kind", "notification", "--expiry", "60", "--size", "1"}, "--class, --content-location"},
        {{"--kind", "acknowledge", "--slide", "5", "text:a"}, "no body"},
        {{"--kind", "acknowledge", "--attach", picture}, "no body"},
        {{"--kind", "acknowledge", "--report-allowed", "perhaps"}, "perhaps"},
        {{"--kind", "acknowledge", "--transaction-id", "é"}, "ASCII"},
        {{"--kind", "acknowledge", "--version", "2"}, "'2'"},
        {{"--kind", "notification", "--size", "2147483648"}, "2147483647"},
        {{"--kind", "delivery", "--status", "127"}, "127"},
        {{"--to", "1", "--date", "1969-12-31T23:59:59Z"}, "1970"},
        {{"--to", "1", "--date", "yesterday"}, "yesterday"},
        {{"--to", "1", "--delivery-time", "2020-01-01"}, "past"},
        {{"--to", "1", "--expiry", "2106-01-01"}, "too far"},
        {{"--to", "1", "--priority", "urgent"}, "urgent"},
        {{"--to", "1", "--expiry", "-1"}, "-1"},
        {{"--to", "1", "--slide", "5"}, "at least one item"},
        {{"--to", "1", "--slide", "soon", "text:a"}, "soon"},
        {{"--to", "1", "--slide", "5", path("missing.png")}, "missing.png: no such file"},
        {{"--to", "1", "--slide", "5", picture, write("v.3gp", "3gp")}, "p.png' and '"},
        {{"--to", "1", "--slide", "5", write("x.zip", "PK")}, "--attach"},
        {{"--to", "1", "--slide", "5", write("l.txt", "\xE9t\xE9")}, "UTF-8"},
        {{"--to", "1", "--attach", large}, "308224 octets are more than the 307200"},
        {{"--to", "1", "stray"}, "stray"},
        {{"--to", "1", "--slide", "-5", "text:a"}, "'-5'"},
        {{"--to", "1", "--slide", "5", "-p.png"}, "'-p.png'"},
        {{"--to", "1", "--slide", "5", "--p.png=1"}, "'--p.png=1'"},
    };
    for (const auto& [arguments, cause] : rows) {
        expectRefused(QStringList{"compose", "-o", path("m.mms")} + arguments, cause);
        EXPECT_FALSE(QFileInfo::exists(path("m.mms"))) << cause;
    }
    EXPECT_EQ(
        lummms({"compose", "-o", path("m.mms"), "--to", "1", "--subject", "a"}, {"LUM_MMS_MAX_SIZE_KB=many"})
            .err,
        "lummms: LUM_MMS_MAX_SIZE_KB: 'many' is no number of kilobytes\n");
    ASSERT_TRUE(QFile::link("/dev/null", path("null"))); // neither is a device replaced
    expectRefused({"compose", "-o", path("null"), "--force", "--to", "1", "--slide", "5", "text:a"}, "null");
    write("m.mms", "before");
    expectRefused({"compose", "-o", path("m.mms"), "--to", "1", "--attach", picture},
                  "m.mms: is there already (--force");
    EXPECT_EQ(lummms({"compose", "-o", path("m.mms"), "--force", "--to", "1", "--slide", "5",
                      "text:" + QString(2000, 'x')},
                     {"LUM_MMS_MAX_SIZE_KB=1"})
                  .status,
              2);
    EXPECT_EQ(read("m.mms"), "before");
}

/// A header field as it is asked for, and as it is shown.
const struct {
    FIELD_CODE field;
    const char* option;
    const char* value; ///< null for an option that has none
    const char* key;
    QJsonValue shown;
} FIELDS[] = {
    {FIELD_TRANSACTION_ID, "transaction-id", "T-1", "transactionId", "T-1"},
    {FIELD_MMS_VERSION, "version", "1.2", "version", "1.2"},
    {FIELD_FROM, "from", "+1.555", "from", addressShown(1, "+1.555")},
    {FIELD_TO, "to", "a@b.c", "to", QJsonArray{addressShown(0, "a@b.c")}},
    {FIELD_CC, "cc", "*100#", "cc", QJsonArray{addressShown(1, "*100#")}},
    {FIELD_BCC, "bcc", "3", "bcc", QJsonArray{addressShown(1, "3")}},
    {FIELD_SUBJECT, "subject", "Hello", "subject", "Hello"},
    {FIELD_MESSAGE_CLASS, "class", "Auto", "messageClass", 131},
    {FIELD_EXPIRY, "expiry", "86400", "expiry", 86400},
    {FIELD_DELIVERY_TIME, "delivery-time", "2094-05-06T07:08:09", "deliveryTime", "2094-05-06T07:08:09"},
    {FIELD_PRIORITY, "priority", "low", "priority", 128},
    {FIELD_SENDER_VISIBILITY, "sender-visibility", "hide", "senderVisibility", true},
    {FIELD_DELIVERY_REPORT, "delivery-report", nullptr, "deliveryReport", true},
    {FIELD_READ_REPLY, "read-reply", nullptr, "readReply", true},
    {FIELD_RESPONSE_STATUS, "response-status", "error-network-problem", "responseStatus", 134},
    {FIELD_RESPONSE_TEXT, "response-text", "No", "responseText", "No"},
    {FIELD_MESSAGE_ID, "message-id", "id@mmsc", "messageId", "id@mmsc"},
    {FIELD_MESSAGE_SIZE, "size", "2147483647", "messageSize", 2147483647},
    {FIELD_CONTENT_LOCATION, "content-location", "http://mmsc/1", "contentLocation", "http://mmsc/1"},
    {FIELD_STATUS, "status", "129", "status", 129},
    {FIELD_REPORT_ALLOWED, "report-allowed", "no", "reportAllowed", false},
    {FIELD_DATE, "date", "2001-02-03T04:05:06Z", "date", QJsonValue::Undefined}, // the phone does not keep it
};

TEST_F(ToolTest, EachKindCarriesItsFieldsAndNoOther) {
    for (int type = MESSAGE_SEND_REQ; type <= MESSAGE_DELIVERY_IND; ++type) {
        const MessageKind& kind = *messageKind(static_cast<unsigned char>(type));
        const std::set<int> order(kind.order.begin(), kind.order.end());
        const QStringList start{"compose", "--force", "-o", path("m.mms"), "--kind", kind.name};
        QStringList arguments = start, other;
        size_t known = order.count(FIELD_MESSAGE_TYPE) + order.count(FIELD_CONTENT_TYPE);
        for (const auto& row : FIELDS) {
            (order.count(row.field) ? arguments : other = start) += QString("--") + row.option;
            if (row.value)
                (order.count(row.field) ? arguments : other) += row.value;
            known += order.count(row.field);
        }
        EXPECT_EQ(known, order.size()) << kind.name << " has an option for every field";
        expectRefused(other, kind.name);
        if (order.count(FIELD_CONTENT_TYPE))
            arguments += {"--slide", "1", "text:a"};
        const Outcome made = lummms(arguments);
        EXPECT_TRUE(made.status == 0 && made.err.isEmpty()) << made.err.constData();
        const QJsonValue header = lummms({"show", "--json", "--phone", path("m.mms")}).json()["header"];
        EXPECT_EQ(header["messageType"].toInt(), type);
        for (const auto& row : FIELDS) {
            if (order.count(row.field)) {
                EXPECT_EQ(header[row.key], row.shown) << kind.name << ' ' << row.key;
            }
        }
    }
}

TEST_F(ToolTest, ASubjectAloneIsAMessageToo) {
    const Outcome made = lummms({"compose", "-o", path("m.mms"), "--to", "1", "--subject", "a"});
    EXPECT_TRUE(made.status == 0 && made.err.contains("subject alone")) << made.err.constData();
    EXPECT_EQ(Received(read("m.mms")).header.getSubject(), "a");
}

constexpr const char* TEXTS[] = {"Hello", "Grüße, ça va?", "Привет & <пока>", "日本語のテキスト", "مرحبا",
                                 "😀🎉",    "\"]]>"};
constexpr const char* NAMES[] = {"photo",   "a b",    "it's \"<>&", "слайд",    "x;start=y", "ファイル",
                                 "100%25#", "cid:me", "slides",     ".dot.dot", "text"};

class GeneratedMessages : public ToolTest, public testing::WithParamInterface<int> {
protected:
    QString file(QRandomGenerator& random, const QString& extension, QByteArray& octets) {
        octets.resize(random.bounded(1, 3000));
        for (char& octet : octets)
            octet = char(random.bounded(256));
        QString name = QString::fromUtf8(NAMES[random.bounded(int(std::size(NAMES)))]);
        if (random.bounded(5) == 0)
            name += QString(random.bounded(60, 110), 'n');
        const QString folder = QString::number(files_++); // the same names again and again
        EXPECT_TRUE(QDir(path("")).mkpath(folder));
        return write(folder + '/' + name + extension, octets);
    }
    void makeUp(QRandomGenerator& random) {
        slides_.fill(QList<QByteArray>(3), random.bounded(11));
        for (QList<QByteArray>& slide : slides_) {
            arguments_ += {"--slide", QString::number(random.bounded(1, 9000)) + "ms"};
            const int kinds = random.bounded(1, 8); // a bit for each kind of object
            if (kinds & 1) {
                slide[0] = TEXTS[random.bounded(int(std::size(TEXTS)))];
                arguments_ += "text:" + QString::fromUtf8(slide[0]);
            }
            if (kinds & 2)
                arguments_ += file(random, random.bounded(2) ? ".jpg" : ".PNG", slide[1]);
            if (kinds & 4)
                arguments_ += file(random, ".mid", slide[2]);
        }
        attachments_.resize(random.bounded(8));
        for (QByteArray& attachment : attachments_)
            arguments_ += {"--attach", file(random, random.bounded(2) ? ".vcf" : "", attachment)};
    }
    void expectAll(Received& message) const {
        ASSERT_EQ(message.presentation.getTotalSlidesNum(), slides_.size());
        for (int i = 0; i < slides_.size(); ++i)
            EXPECT_EQ(message.payloads(i), slides_[i]);
        const int first = message.body.getPartCount() - int(attachments_.size());
        for (int i = 0; i < attachments_.size(); ++i)
            EXPECT_EQ(message.payload(first + i), attachments_[i]);
        QSet<QString> names;
        for (int i = 0; i < message.body.getPartCount(); ++i)
            names += message.body.getBodypartByIndex(i, false)->getContentLocation().toLower();
        EXPECT_EQ(names.size(), message.body.getPartCount()) << "every part has a name of its own";
        EXPECT_EQ(message.smilPart != nullptr, !slides_.isEmpty());
    }

    QStringList arguments_;
    QList<QList<QByteArray>> slides_; ///< of each its text, its picture and its sound
    QList<QByteArray> attachments_;
    int files_ = 0;
};

TEST_P(GeneratedMessages, ArriveAsTheyWereMadeAndStayWhenOneSlideIsEdited) {
    QRandomGenerator random(static_cast<quint32>(GetParam()));
    makeUp(random);
    const QString subject = QString::fromUtf8(TEXTS[random.bounded(3)]);
    const Outcome outcome = lummms(
        QStringList{"compose", "-o", path("m.mms"), "--to", "+49123", "--subject", subject} + arguments_);
    ASSERT_EQ(outcome.status, 0) << outcome.err.constData();
    const QByteArray pdu = read("m.mms");
    Received received(pdu);
    EXPECT_EQ(received.header.getSubject(), readBack(subject));
    expectAll(received);
    if (slides_.isEmpty())
        return;

    const int edited = random.bounded(int(slides_.size()));
    slides_[edited][0] = "another text";
    attachments_.clear(); // a new text part comes behind them
    ASSERT_TRUE(received.presentation.getSlide(edited)->updateData(
        MMS_COMP_SMILData::getTextRegionId(), received.presentation.createUniqueSrc("text.txt"),
        MMS_COMP_SMIL_MEDIA_TEXT, "plain", slides_[edited][0], false, &received.body));
    received.smilPart->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(&received.presentation).toUtf8());
    const QByteArray header = pdu.chopped(received.header.bodyLength);
    Received again(header + MMS_COMP_SMILMultipartParser::assembleBody(&received.body, &received.header));
    expectAll(again);
}

INSTANTIATE_TEST_SUITE_P(Seeds, GeneratedMessages, testing::Range(1, 31));

QByteArray located(const QByteArray& location, const QByteArray& data) {
    return entry(octets("83"), octets("8E") + zeroed(location), data);
}

TEST_F(ToolTest, UnpackStaysInItsDirectoryAndOverwritesNothing) {
    const QByteArray nested = entry(octets("C8"), "", char(2) + located("inner.txt", "i") + located("", "j"));
    const QByteArrayList parts = {
        located("../evil.txt", "a"),
        located("/etc/passwd", "b"),
        located("..", "c"),
        located("x\\y.txt", "d"),
        located("dup.txt", "e"),
        located("dup.txt", "f"),
        located("dup.txt", "g"),
        located(".profile", "h"),
        located("link.txt", "k"),
        located("mine.txt", "l"),
        located("e\x1B[2J.txt", "m"),
        located(":x", "n"),
        located("-x.txt", "o"),
        located(QByteArray(900, 'y') + ".txt", "p"),
        nested,
    };
    write("m.mms", octets("8C 84 8D 90 84 A3") + char(parts.size()) + parts.join());
    ASSERT_TRUE(QDir(path("")).mkpath("out"));
    write("out/mine.txt", "before");
    ASSERT_TRUE(QFile::link(path("target.txt"), path("out/link.txt")));

    const Outcome outcome = lummms({"unpack", path("m.mms"), path("out")});
    EXPECT_EQ(outcome.status, 0) << outcome.err.constData();
    const std::pair<const char*, const char*> files[] = {
        {"evil.txt", "a"},   {"passwd", "b"},     {"file0.txt", "c"}, {"y.txt", "d"},
        {"dup.txt", "e"},    {"dup_0.txt", "f"},  {"dup_1.txt", "g"}, {"_profile", "h"},
        {"link_0.txt", "k"}, {"mine_0.txt", "l"}, {"e_[2J.txt", "m"}, {"inner.txt", "i"},
        {"file1.txt", "j"},  {":x", "n"},         {"_-x.txt", "o"},   {"mine.txt", "before"},
    };
    for (const auto& [name, octets] : files)
        EXPECT_EQ(read(QString("out/") + name), octets) << name;
    EXPECT_EQ(read("out/" + QString(196, 'y') + ".txt"), "p");
    EXPECT_EQ(QDir(path("out")).entryList(QDir::Files | QDir::Hidden | QDir::System).size(),
              qsizetype(std::size(files)) + 2)
        << "the files, the one with the long name and the link";
    EXPECT_EQ(outcome.out.count('\n'), qsizetype(std::size(files))) << outcome.out.constData();
    EXPECT_FALSE(outcome.out.contains('\x1B'));
    EXPECT_EQ(QDir(path("")).entryList(QDir::Files), QStringList("m.mms")) << "nothing beside the directory";
}

TEST_F(ToolTest, UnpackTakesWhatIsAskedFor) {
    const QByteArray nested = entry(octets("C8"), "", char(1) + located("inner.txt", "i"));
    const QByteArray pdu = octets("8C 84 8D 90 84 A3 04") + located("a.txt", "first") +
                           located("a.txt", "2nd") + nested +
                           entry(octets("83"), octets("C0 22") + zeroed("<id>"), "by id");
    const QString file = write("m.mms", pdu);
    const std::tuple<const char*, int, const char*> rows[] = {
        {"2", 0, "2nd"},  {"3.1", 0, "i"}, {"inner.txt", 0, "i"}, {"id", 0, "by id"},
        {"a.txt", 2, ""}, {"5", 2, ""},    {"none.txt", 2, ""},
    };
    for (const auto& [part, status, octets] : rows) {
        const Outcome run = lummms({"unpack", "--part", part, "-o", "-", file});
        EXPECT_EQ(run.status, status) << part;
        EXPECT_EQ(run.out, octets) << part;
        EXPECT_EQ(run.err.count('\n'), status ? 1 : 0) << run.err.constData();
    }
    EXPECT_EQ(lummms({"unpack", "--phone", "--list", file}).out,
              "1  text/plain  5 octets  a.txt\n"
              "2  text/plain  3 octets  a.txt\n"
              "3  application/vnd.oma.drm.message  0 octets  file0\n"
              "3.1  text/plain  1 octet  inner.txt\n"
              "4  text/plain  5 octets  file0.txt\n");
    expectRefused({"unpack", file}, "DIR is missing");
    expectRefused({"unpack", "-o", "-", file}, "one --part");

    ASSERT_TRUE(QDir(path("")).mkpath("out/a.txt")); // never replaced, and the others are written
    write("target.txt", "before");
    ASSERT_TRUE(QFile::link(path("target.txt"), path("out/a_0.txt")));
    write("out/inner.txt", "before");
    EXPECT_EQ(lummms({"unpack", "--force", file, path("out")}).status, 0);
    EXPECT_EQ(read("out/inner.txt"), "i");
    EXPECT_EQ(read("out/a_0.txt") + read("out/a_1.txt"), "first2nd");
    EXPECT_EQ(read("target.txt"), "before") << "a link is replaced, not what it points to";

    ASSERT_TRUE(QDir(path("")).mkpath("b") && QFile::copy(file, path("b/m.mms")));
    EXPECT_EQ(lummms({"unpack", file, path("missing"), path("b/m.mms"), path("many")}).status, 2);
    EXPECT_EQ(read("many/m.mms/a.txt") + read("many/m_0.mms/a_0.txt"), "first2nd");
}

} // namespace
