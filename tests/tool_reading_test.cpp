#include "tests/tool_runner.h"

#include <QJsonArray>

// The two readings of a message, its items, and what lummms check finds.

namespace {

using ReadingTest = ToolTest;

const QByteArray SMIL =
    "<smil><head><layout><root-layout width='100' height='200'/>"
    "<region id='Pic' width='100%' height='50%'/><region id='Txt' top='100' height='100'/>"
    "</layout></head><body><par dur='3s'><text src='a.txt' region='Txt'/>"
    "<img src='cid:pic' region='Pic'/></par></body></smil>";
const QByteArray TEXT = entry(octets("83 81 EA"), octets("8E") + zeroed("a.txt"), "Hello");
const QByteArray PICTURE =
    entry(octets("9E"), octets("8E") + zeroed("p.jpg") + octets("C0 22") + zeroed("<pic>"), "\xFF\xD8");
const QByteArray FRONT = octets("8C 84 98") + zeroed("T1") + octets("8D 92");
const QByteArray DATE = octets("85 04 53 70 78 AC");
const QByteArray BODY = related(SMIL, {TEXT, PICTURE});

/// A message with what only the reading as it was sent has.
QByteArray rich() {
    const QByteArray base64 = entry(
        octets("83 81 84"),
        octets("8E") + zeroed("b.txt") + octets("C8") + zeroed("base64") + octets("AE 01 81"), "R3L832U=");
    const QByteArray nested = entry(octets("A3"), octets("8E") + zeroed("n"), char(1) + TEXT);
    return FRONT + DATE + octets("88 06 80 04 53 79 B3 2C 87 04 81 02 0E 10 94 81 99 C2 A0 0F 81") +
           zeroed("+46/TYPE=PLMN") + zeroed("X-Colour") + zeroed("blue") + octets("97") +
           zeroed("+1/TYPE=PLMN") + related(SMIL, {TEXT, PICTURE, base64, nested});
}

/// What both readings can say alike: all but Date, times that are moments or spans, names of charsets and
/// layout, and without the keys that only one has.
QJsonValue common(const QJsonValue& value) {
    static const QStringList own{"reading",     "result",   "present", "positions",   "date",
                                 "otherFields", "problems", "charset", "disposition", "wireSize",
                                 "expiryTime",  "expiry",   "regions", "region",      "transferEncoding"};
    if (value.isArray()) {
        QJsonArray array;
        for (const QJsonValue item : value.toArray())
            array += common(item);
        return array;
    }
    if (!value.isObject())
        return value;
    QJsonObject object;
    const QJsonObject all = value.toObject();
    for (auto member = all.begin(); member != all.end(); ++member)
        if (!own.contains(member.key()))
            object[member.key()] = common(*member);
    return object;
}

TEST_F(ReadingTest, ReadsAMessageAsItWasSent) {
    const QString file = write("m.mms", rich());
    const Outcome run = lummms({"show", "--json", file});
    EXPECT_EQ(run.json(), QJsonDocument::fromJson(contents(SHOWN + "sent.json")).object())
        << run.out.constData();
    expectShown({file}, "sent.txt");
    EXPECT_TRUE(run.status == 0 && run.err.isEmpty()) << run.err.constData();
}

TEST_F(ReadingTest, BothReadingsSayTheSameOfSoundMessages) {
    const QByteArray addresses = octets("89 10 80") + zeroed("+123/TYPE=PLMN") + octets("97") +
                                 zeroed("a@b.c") + octets("97") + zeroed("Ann <a@b.c>") + octets("82 07 EA") +
                                 zeroed("x\xC3\xA9@y");
    const QByteArray rows[] = {
        FRONT + DATE + addresses + octets("96") + zeroed("Hi") +
            octets("8A 80 8F 82 86 80 90 81 88 05 81 03 01 51 80") + BODY,
        FRONT + DATE + octets("89 01 81 84 A3 02") + TEXT + PICTURE,
        octets("8C 81 98") + zeroed("T") + octets("8D 90 92 86 93 05 EA") + zeroed("N\xC3\xB6") +
            octets("8B") + zeroed("id"),
        octets("8C 82 98") + zeroed("T") + octets("8D 90 8A 82 8E 02 12 34 88 03 81 01 09 83") +
            zeroed("http://x/y"),
        octets("8C 83 98") + zeroed("T") + octets("8D 90 95 83 91 81"),
        octets("8C 86 8D 91 8B") + zeroed("id") + octets("97") + zeroed("+2/TYPE=PLMN") + DATE +
            octets("95 81"),
        octets("8C 80 98") + zeroed("T") + octets("8D 90 89 01 81 97") + zeroed("+2/TYPE=PLMN") +
            octets("84 83") + "Hello",
    };
    int number = 0;
    for (const QByteArray& octets : rows) {
        const QString file = write("m.mms", octets);
        const Outcome sent = lummms({"show", "--json", file});
        const Outcome phone = lummms({"show", "--json", "--phone", file});
        QJsonObject both = common(sent.json()).toObject();
        if (!phone.json().contains("body")) // the phone has parts only for a multipart
            both.remove("body");
        EXPECT_EQ(QJsonDocument(both).toJson(), QJsonDocument(common(phone.json()).toObject()).toJson())
            << number;
        EXPECT_TRUE(sent.status == 0 && phone.status == 0) << sent.err.constData() << phone.err.constData();
        const Outcome check = lummms({"check", file});
        EXPECT_TRUE(check.status == 0 && check.out.isEmpty()) << number << check.out.constData();
        ++number;
    }
}

TEST_F(ReadingTest, ShowsReadReports) {
    for (const auto& [type, name] : {std::pair{"8C 87", "rec"}, std::pair{"8C 88", "orig"}}) {
        const Outcome run =
            lummms({"show", write("m.mms", octets(type) + octets("8D 92 8B") + zeroed("id7") + octets("97") +
                                               zeroed("+1/TYPE=PLMN") + octets("89 0E 80") +
                                               zeroed("+2/TYPE=PLMN") + DATE + octets("9B 81"))});
        EXPECT_EQ(run.out, QByteArray("Header\n  Message-Type            m-read-") + name +
                               "-ind\n  MMS-Version             1.2\n  Message-ID              id7\n"
                               "  Date                    2014-05-12 07:30:52\n"
                               "  From                    +2 (phone number)\n"
                               "  To                      +1 (phone number)\n"
                               "  Read-Status             Deleted without being read\n");
        EXPECT_EQ(run.status, 0) << run.err.constData();
    }
}

TEST_F(ReadingTest, DumpsEveryItem) {
    const QString file = write("m.mms", rich());
    const Outcome text = lummms({"dump", file});
    EXPECT_EQ(QString(text.out), contents(SHOWN + "dump.txt")) << text.out.constData();
    const QJsonObject json = lummms({"dump", "--json", file}).json();
    EXPECT_EQ(json["length"], rich().size());
    EXPECT_EQ(json["problems"].toArray().size(), 0);
    qint64 end = 0; // the leaves follow each other without gaps
    qsizetype items = 0;
    const std::function<void(const QJsonArray&)> walk = [&](const QJsonArray& level) {
        for (const QJsonValue item : level) {
            ++items;
            if (item["items"].isArray())
                walk(item["items"].toArray());
            else
                EXPECT_EQ(item["offset"].toInteger(), std::exchange(end, end + item["length"].toInteger()));
        }
    };
    walk(json["items"].toArray());
    EXPECT_EQ(end, rich().size());
    EXPECT_EQ(items, text.out.count('\n'));
    EXPECT_EQ(text.status, 0);
}

TEST_F(ReadingTest, ChecksFindEachThingOnce) {
    const auto smil = [](const QByteArray& was, const QByteArray& is) {
        return FRONT + DATE + related(QByteArray(SMIL).replace(was, is), {TEXT, PICTURE});
    };
    const QByteArray named = zeroed("a.txt");
    // message, exit status, findings
    const std::tuple<QByteArray, int, const char*> rows[] = {
        {FRONT + DATE + BODY, 0, ""},
        {FRONT + DATE + octets("88 06 80 04 53 70 7A 8C") + BODY, 0, ""}, // past in both readings
        {smil("<layout>", "<layout><root-layout/>"), 0, ""},              // no screen is known
        {smil("<body>", "<body><x:y/>"), 0, ""},
        {octets("8C 96 98") + zeroed("T"), 1,
         "error    MMS-Version is missing, which an m-cancel-req must have"},
        {FRONT + DATE + octets("95 05") + BODY, 1, "error    octet 14: X-Mms-Status: "},
        {FRONT + DATE + octets("96 E9 00") + BODY, 1, "warning  octet 14: Subject: "},
        {FRONT + BODY, 1, "error    Date is missing, which an m-retrieve-conf must have\n"},
        {octets("8C 80 98") + zeroed("T") + octets("8D 90 89 01 81") + BODY, 1,
         "error    a recipient (To, Cc or Bcc) is missing, which an m-send-req must have\n"},
        {octets("98") + zeroed("T") + octets("8D 90"), 1, "error    Message-Type is missing\n"},
        {DATE + FRONT + BODY, 1, "warning  octet 0: Date is in the place of Message-Type: "},
        {FRONT + DATE + octets("84 83 96") + zeroed("Hi"), 0, ""},
        {FRONT + DATE + octets("84 A3 96") + zeroed("Hi"), 1,
         "error    octet 16: Content-Type is not the last field: Subject follows\n"},
        {FRONT + DATE + octets("84 A3"), 1,
         "error    octet 16: nEntries: the octets end inside the number\n"},
        {smil("cid:pic", "no.jpg"), 1,
         "error    presentation, line 1: no part is \"no.jpg\"\nwarning  octet 350: nothing refers to part "
         "3, \"p.jpg\"\n"},
        {FRONT + DATE + related(SMIL, {TEXT, PICTURE, TEXT}), 1,
         "warning  octet 372: parts 2 and 4 have the same name, \"a.txt\"\nwarning  octet 372: nothing "
         "refers to "
         "part 4, "
         "\"a.txt\"\n"},
        {smil("top='100'", "top='101'"), 1,
         "warning  presentation, line 1: region \"Txt\" reaches beyond the screen of 100 x 200\n"},
        {smil("<body>", "\n<bod>"), 1,
         "error    presentation: not well-formed XML (status -8), line 2, column "},
        {FRONT + DATE + octets("84 83") + QByteArray(400 * 1024, 'x'), 1,
         "error    the message has 409616 octets, more than the limit of 307200\n"},
        {FRONT + DATE + octets("99 80 8B") + zeroed("id") + octets("96") + zeroed("Hi") + octets("8F 81") +
             BODY,
         0,
         "phone    octet 14: the phone does not know X-Mms-Retrieve-Status\n"
         "phone    octet 16: the phone does not see Message-ID: field 0x99 before it is unknown to it\n"
         "phone    octet 20: the phone does not see Subject: field 0x99 before it is unknown to it\n"},
        {FRONT + DATE + octets("96 05 84") + "\xE4\xF6\xFC" + '\0' + BODY, 0,
         "phone    octet 14: the phone reads Subject as \""},
        {FRONT + DATE + octets("84 A3 01") + entry(octets("83 81 84"), octets("8E") + named, "\xE4"), 0, ""},
        {FRONT + DATE + octets("84 A3 01") +
             entry(octets("83"), octets("8E") + named + octets("C8") + zeroed("base64"), "SGk="),
         0, "phone    octet 17: the phone reads the data of part 1 differently: it does not decode base64\n"},
        {FRONT + DATE +
             related(SMIL, {TEXT, entry(octets("9E"), zeroed("Content-ID") + zeroed("\"<pic>"), "x")}),
         0,
         "phone    octet 351: the phone reads the Content-ID of part 3 as \"\", not \"<pic>\"\n"
         "phone    the phone reads slide 1 as \"a.txt (part 2)\", not \"a.txt (part 2), cid:pic (part "
         "3)\"\n"},
        {FRONT + DATE + octets("8F") + zeroed("Low") + BODY, 1,
         "error    octet 14: X-Mms-Priority: the value does not have the form that it must have here\n"
         "phone    octet 14: the phone reads Priority as \""},
        {"", 1, "error    the file is empty\n"},
    };
    for (const auto& [octets, status, found] : rows) {
        const QString file = write("m.mms", octets);
        const Outcome run = lummms({"check", file});
        EXPECT_EQ(run.status, status) << octets.left(200).toHex(' ').constData() << run.err.constData();
        const bool isWhole = QByteArray(found).endsWith('\n') || !*found;
        EXPECT_TRUE(isWhole ? run.out == found : run.out.startsWith(found)) << found << run.out.constData();
        const QJsonArray json = lummms({"check", "--json", file}).json()["findings"].toArray();
        EXPECT_EQ(json.size(), run.out.count('\n')) << found;
        for (const QJsonValue finding : json)
            EXPECT_TRUE(run.out.contains(finding["severity"].toString().toUtf8()) &&
                        run.out.contains(finding["what"].toString().toUtf8()));
    }
}

TEST_F(ReadingTest, JsonIsForStrictReadersAndInProportion) {
    const QByteArray half = QByteArray(SMIL).replace("region='Txt'/>", "region='Txt' alt='&#xD800;'/>");
    const Outcome run =
        lummms({"show", "--json", write("m.mms", FRONT + DATE + related(half, {TEXT, PICTURE}))});
    EXPECT_FALSE(run.out.contains("\\ud8")) << run.out.constData();

    QByteArray nested; // for the phone, then as it was sent
    for (const char* type : {"C8", "A3"}) {
        nested = entry(octets(type), "", char(120) + entry(octets("83"), "", "").repeated(120));
        for (int depth = 0; depth < 12; ++depth)
            nested =
                entry(octets(type), "", char(1 + 20) + nested + entry(octets("83"), "", "").repeated(20));
        nested = FRONT + DATE + octets("84 A3") + char(60) + nested.repeated(60);
        const QString file = write("m.mms", nested);
        for (const QStringList& arguments :
             {QStringList{"show", "--json"}, {"show", "--json", "--phone"}, {"dump", "--json"}, {"dump"}})
            EXPECT_LT(lummms(arguments + QStringList(file)).out.size(), 300 * nested.size()) << nested.size();
    }
}

} // namespace
