#include "tests/tool_runner.h"

#include <QBuffer>
#include <QImage>
#include <QJsonArray>
#include <QRandomGenerator>

#include <set>

namespace {

using ComposeTest = ToolTest;

QJsonObject addressShown(int type, const char* address) {
    return {{"name", ""}, {"type", type}, {"address", address}};
}

TEST_F(ComposeTest, EverythingAskedForIsThere) {
    const QStringList options = QString("--from +1 --to +2 --to a@b.c --cc 3 --bcc é@x.y --priority high "
                                        "--delivery-report --read-reply --expiry 3600")
                                    .split(' ');
    const QStringList slides{"--slide", "2.5",        "text:Hello",           write("p.png", "png"),
                             "--slide", "indefinite", write("s.amr", "#!AMR")};
    const Outcome made = lummms(QStringList{"compose", "-o", path("m.mms"), "--subject", "Grüße <b>"} +
                                options + slides + QStringList{"--attach", write("card.vcf", "BEGIN:VCARD")});
    ASSERT_EQ(made.status, 0) << made.err.constData();
    expectShown({path("m.mms")}, "composed.txt");
    const QJsonValue header = lummms({"show", "--json", path("m.mms")}).json()["header"];
    EXPECT_TRUE(header["fieldOrderCorrect"].toBool() && header["mandatoryFieldsPresent"].toBool());
    const Outcome check = lummms({"check", path("m.mms")});
    EXPECT_TRUE(check.status == 0 && check.out.isEmpty()) << check.out.constData();
}

TEST_F(ComposeTest, WhatCannotBeSentIsRefusedAndNothingWritten) {
    const QString picture = write("p.png", "png");
    const QString large = write("large.jpg", QByteArray(301 * 1024, 'x'));
    const QString half = write("half.jpg", QByteArray(200 * 1024, 'x')), empty = write("empty.jpg", "");
    const std::pair<QStringList, const char*> rows[] = {
        {{"--slide", "5", "text:a"}, "--to"},
        {{"--to", ""}, "empty"},
        {{"--to", "my mum", "--slide", "5", "text:a"}, "neither a phone number"},
        {{"--to", "+12\n", "--slide", "5", "text:a"}, "neither a phone number"},
        {{"--to", "a@b.c/TYPE=PLMN", "--slide", "5", "text:a"}, "neither a phone number"},
        {{"--to", "1"}, "nothing to send"},
        {{"--to", "1", "--slide", "0.0001s", "text:a"}, "0.0001s"},
        {{"--to", "1", "--slide", "1", "text: "}, "is empty"},
        {{"--to", "1", "--slide", "1", empty}, "is empty"},
        {{"--to", "1", "--subject", ""}, "is empty"},
        {{"--to", "1", "--subject", "a", "--kind", "letter"}, "send-conf, notification,"},
        {{"--kind", "notification", "--expiry", "60", "--size", "1"}, "--class, --content-location"},
        {{"--kind", "acknowledge", "--slide", "5", "text:a"}, "no body"},
        {{"--kind", "acknowledge", "--attach", picture}, "no body"},
        {{"--kind", "acknowledge", "--report-allowed", "perhaps"}, "perhaps"},
        {{"--kind", "acknowledge", "--transaction-id", "é"}, "ASCII"},
        {{"--kind", "acknowledge", "--version", "2"}, "'2'"},
        {{"--kind", "notification", "--size", "2147483648"}, "2147483647"},
        {{"--kind", "delivery", "--status", "127"}, "forwarded, unreachable, and no"},
        {{"--kind", "notifyresp"}, "--transaction-id, --status"},
        {{"--kind", "acknowledge"}, "--transaction-id"},
        {{"--kind", "delivery"}, "--to, --status"},
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
        {{"--to", "1", "--attach", large}, "the picture cannot be decoded"},
        {{"--to", "1", "--attach", half, "--attach", half, "--attach", empty},
         "half.jpg: the picture cannot"},
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
        "lummms: LUM_MMS_MAX_SIZE_KB: 'many' is not a number of kilobytes\n");
    ASSERT_TRUE(QFile::link("/dev/null", path("null"))); // a device is not replaced either
    expectRefused({"compose", "-o", path("null"), "--force", "--to", "1", "--slide", "5", "text:a"}, "null");
    write("m.mms", "before");
    expectRefused({"compose", "-o", path("m.mms"), "--to", "1", "--attach", picture},
                  "m.mms: exists already (--force");
    EXPECT_EQ(lummms({"compose", "-o", path("m.mms"), "--force", "--to", "1", "--slide", "5",
                      "text:" + QString(2000, 'x')},
                     {"LUM_MMS_MAX_SIZE_KB=1"})
                  .status,
              2);
    EXPECT_EQ(read("m.mms"), "before");
}

constexpr const char* MOMENT = "2094-05-06T07:08:09Z";

QString localMoment() {
    return QDateTime::fromString(MOMENT, Qt::ISODate).toLocalTime().toString("yyyy-MM-ddTHH:mm:ss");
}

/// A header field as requested and as shown.
const struct {
    FIELD_CODE field;
    const char* option;
    const char* value; ///< null for an option without a value
    const char* key;
    QJsonValue shown; ///< in the phone's reading
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
    {FIELD_DELIVERY_TIME, "delivery-time", MOMENT, "deliveryTime", localMoment()},
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
    {FIELD_DATE, "date", MOMENT, "date", QJsonValue::Undefined}, // the phone does not store it
};

TEST_F(ComposeTest, EachKindCarriesItsFieldsAndNoOther) {
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
        const QByteArray pdu = read("m.mms");
        MMS_WIRE_Reader sent;
        const bool isReport = type == MESSAGE_DELIVERY_IND; // without a Message-ID, the version first
        EXPECT_TRUE(sent.read(pdu) && sent.marks().isEmpty()) << kind.name;
        EXPECT_EQ(sent.missingFields(), isReport ? QList<int>{FIELD_MESSAGE_ID} : QList<int>()) << kind.name;
        EXPECT_EQ(sent.isFieldOrderCorrect(), !isReport) << kind.name;
        MMS_UA_UAMsg meant;
        sent.fill(&meant);
        const QDateTime moment = QDateTime::fromString(MOMENT, Qt::ISODate);
        EXPECT_TRUE(!order.count(FIELD_DATE) || meant.getSendTime() == moment) << kind.name;
        EXPECT_TRUE(!order.count(FIELD_DELIVERY_TIME) || meant.getDeliveryTime() == moment) << kind.name;
        EXPECT_FALSE(meant.getSenderVisibility()) << "hidden, or not said";
        const QJsonObject header =
            lummms({"show", "--json", "--phone", path("m.mms")}).json()["header"].toObject();
        EXPECT_EQ(header["messageType"].toInt(), type);
        for (const auto& row : FIELDS) {
            if (order.count(row.field)) {
                EXPECT_EQ(header[row.key], row.shown) << kind.name << ' ' << row.key;
            }
        }
    }
}

TEST_F(ComposeTest, ASubjectAloneIsAMessageToo) {
    const Outcome made = lummms({"compose", "-o", path("m.mms"), "--to", "1", "--subject", "a"});
    EXPECT_TRUE(made.status == 0 && made.err.contains("subject only")) << made.err.constData();
    EXPECT_EQ(lummms({"show", "--json", path("m.mms")}).json()["header"].toObject()["subject"], "a");
}

/// A picture that compresses badly: red noise on the left, blue noise on the right.
QByteArray photo(QSize size, const char* format) {
    QImage image(size, QImage::Format_ARGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) {
            const int noise = random.bounded(120);
            image.setPixelColor(
                x, y, x < size.width() / 2 ? QColor(135 + noise, noise, 0) : QColor(0, noise, 135 + noise));
        }
    QByteArray octets;
    QBuffer buffer(&octets);
    image.save(&buffer, format, 95);
    return octets;
}

/// A JPEG as stored by a phone held upright: its left side is shown on top.
QByteArray turned(const QByteArray& jpeg) {
    return jpeg.first(2) + octets("FFE1 0022") + QByteArray("Exif\0\0MM\0*\0\0\0\x08", 14) +
           octets("0001 0112 0003 00000001 0006 0000 00000000") + jpeg.mid(2);
}

class PictureTest : public ToolTest {
protected:
    /// Composes a message of one slide and an attachment, and returns its parts.
    QJsonArray partsOf(const QString& slide, const QString& attachment, const QStringList& environment,
                       QByteArray& said) {
        const Outcome made = lummms({"compose", "--force", "-o", path("m.mms"), "--to", "1", "--slide", "5",
                                     slide, "--attach", attachment},
                                    environment);
        EXPECT_EQ(made.status, 0) << made.err.constData();
        said = made.err;
        return lummms({"show", "--json", path("m.mms")}).json()["body"].toObject()["parts"].toArray();
    }
};

TEST_F(PictureTest, OnesTooLargeAreMadeSmallerUntilTheMessageFits) {
    const QString upright = write("up.jpeg", turned(photo({1600, 1000}, "jpeg")));
    const QString wide = write("wide.png", photo({900, 300}, "png"));
    QByteArray said;
    const QJsonArray parts = partsOf(upright, wide, {}, said);
    EXPECT_LE(QFileInfo(path("m.mms")).size(), 300 * 1024);
    EXPECT_EQ(said.count('\n'), 2);
    EXPECT_TRUE(said.contains("up.jpeg: made smaller: a JPEG of 400 x 640 pixels")) << said.constData();
    EXPECT_TRUE(said.contains("from 900 x 300 and")) << said.constData();
    EXPECT_EQ(parts[1]["contentLocation"], "up.jpeg");
    EXPECT_EQ(parts[2]["contentLocation"], "wide.jpg");
    EXPECT_EQ(parts[2]["subType"], "jpeg");
    ASSERT_EQ(lummms({"unpack", path("m.mms"), path("out")}).status, 0);
    const QImage shown(path("out/up.jpeg"));
    EXPECT_EQ(shown.size(), QSize(400, 640));
    EXPECT_TRUE(shown.pixelColor(200, 20).red() > 100 && shown.pixelColor(200, 620).blue() > 100);
    EXPECT_EQ(QImage(path("out/wide.jpg")).size(), QSize(640, 213));
}

TEST_F(PictureTest, StepsGoOnWhileTheMessageIsTooLarge) {
    const QString picture = write("p.png", photo({200, 320}, "png"));
    QByteArray said;
    EXPECT_LE(partsOf(picture, write("a", "a"), {"LUM_MMS_MAX_SIZE_KB=6"}, said).at(1)["size"].toInt(),
              6 * 1024);
    EXPECT_TRUE(said.contains("a JPEG of 100 x 160 pixels")) << said.constData();
    expectRefused({"compose", "-o", path("n.mms"), "--to", "1", "--keep-pictures", "--attach",
                   write("l.png", photo({400, 400}, "png"))},
                  "octets are more");
    EXPECT_EQ(lummms({"compose", "-o", path("n.mms"), "--to", "1", "--slide", "1", picture},
                     {"LUM_MMS_MAX_SIZE_KB=1"})
                  .status,
              2);
}

TEST_F(PictureTest, MovingOnesStayAsTheyAre) {
    const QByteArray frame = octets("2C 0000 0000 0100 0100 00 02 02 4C01 00");
    const QByteArray comment = octets("21 FE FF") + QByteArray(255, 'c') + char(0);
    const QByteArray gif =
        "GIF89a" + octets("0100 0100 80 00 00 000000 FFFFFF") + frame + frame + comment.repeated(5) + ";";
    const Outcome run =
        lummms({"compose", "-o", path("m.mms"), "--to", "1", "--slide", "5", write("cat.gif", gif)},
               {"LUM_MMS_MAX_SIZE_KB=1"});
    EXPECT_TRUE(run.status == 2 && run.err.contains("cat.gif") && run.err.contains("animation"))
        << run.err.constData();
}

TEST_F(PictureTest, TheirOctetsSayWhatTheyAre) {
    const QByteArray png = photo({8, 8}, "png"), jpeg = photo({8, 8}, "jpeg");
    QByteArray said;
    const QJsonArray parts = partsOf(write("a.jpg", png), write("b", jpeg), {}, said);
    EXPECT_TRUE(parts[1]["subType"] == "png" && parts[1]["contentLocation"] == "a.png" &&
                parts[1]["size"] == png.size());
    EXPECT_TRUE(parts[2]["subType"] == "jpeg" && parts[2]["contentLocation"] == "b.jpg");
    EXPECT_EQ(said, "");
}

} // namespace
