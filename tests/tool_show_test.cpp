#include "tests/tool_runner.h"

#include <QCryptographicHash>
#include <QJsonArray>

#include <tuple>

namespace {

using ShowTest = ToolTest;

const QByteArray HEADER = octets("8C 84 98") + zeroed("T1") + octets("8D 90 85 04 50 00 00 00") +
                          octets("89 10 80") + zeroed("+123/TYPE=PLMN") + octets("97") +
                          zeroed("Ann <a@b.c>") + octets("96") + zeroed("Hi") +
                          octets("8A 80 8F 82 86 80 90 81");

const QByteArray RELATED = octets("84 18 B3 8A") + zeroed("<s>") + octets("89") + zeroed("application/smil");

const QByteArray SMIL = "<smil><body><par dur=\"3s\"><text src=\"a.txt\" region=\"T\"/>"
                        "<img src=\"cid:none\"/></par></body></smil>";

/// A message with a presentation, its text and a picture that no slide shows.
QByteArray message() {
    return HEADER + RELATED + char(3) +
           entry(zeroed("application/smil"), octets("C0 22") + zeroed("<s>"), SMIL) +
           entry(octets("83 81 EA"), octets("8E") + zeroed("a.txt"), QByteArray("Hello\nyou")) +
           entry(octets("9E"), octets("8E") + zeroed("p.jpg"), QByteArray("\xFF\xD8"));
}

TEST_F(ShowTest, ShowsAMessageToAPerson) {
    const Outcome run = lummms({"show", write("m.mms", message())});
    EXPECT_EQ(run.status, 0) << run.err.constData();
    EXPECT_EQ(run.err, QByteArray());
    const char* lines[] = {
        "  Message-Type            m-retrieve-conf\n",
        "  From                    +123 (phone number)\n",
        "  To                      Ann <a@b.c> (e-mail address)\n",
        "  Message-Class           Personal\n",
        "  Priority                High\n",
        "(moment of reading)\n",
        "  3   image/jpeg        p.jpg       2\n",
        "      \"Hello ...\"\n",
        "  Slide 1, 3 s\n",
        "    text     in region \"T\"      \"Hello ...\" (a.txt)\n",
        "  Note: a media element was left out because its content is missing (warning 3)\n",
    };
    for (const char* line : lines)
        EXPECT_TRUE(run.out.contains(line)) << line << "is missing in\n" << run.out.constData();
}

TEST_F(ShowTest, ShowsAMessageToAProgram) {
    const Outcome run = lummms({"show", "--json", write("m.mms", message())});
    EXPECT_EQ(run.status, 0);
    const QJsonObject json = run.json();
    EXPECT_EQ(json["result"], 0);
    EXPECT_EQ(json["bodyOffset"].toInt() + json["bodyLength"].toInt(), message().size());

    const QJsonObject header = json["header"].toObject();
    const QStringList keys = {
        "contentType",  "deliveryReport", "fieldOrderCorrect", "from",      "mandatoryFieldsPresent",
        "messageClass", "messageType",    "messageTypeName",   "positions", "present",
        "priority",     "readReply",      "subject",           "to",        "transactionId",
        "version"};
    EXPECT_EQ(header.keys(), keys) << "absent fields are left out, the Date always";
    EXPECT_EQ(header["messageTypeName"], "m-retrieve-conf");
    EXPECT_EQ(header["positions"].toObject()["Content-Type"], 12);
    EXPECT_EQ(header["from"], (QJsonObject{{"name", ""}, {"type", 1}, {"address", "+123"}}));
    EXPECT_EQ(header["to"].toArray()[0], (QJsonObject{{"name", "Ann "}, {"type", 0}, {"address", "a@b.c"}}));
    EXPECT_EQ(header["contentType"].toObject()["parameters"], "type=application/smil;start=<s>");

    const QJsonObject body = json["body"].toObject();
    EXPECT_EQ(body["start"], "<s>");
    const QJsonObject text = body["parts"].toArray()[1].toObject();
    EXPECT_EQ(text["displayFileType"], 1)
        << "the parts are shown as they were before the presentation was read";
    EXPECT_EQ(text["sha256"].toString().toLatin1(),
              QCryptographicHash::hash("Hello\nyou", QCryptographicHash::Sha256).toHex());

    const QJsonObject presentation = json["presentation"].toObject();
    EXPECT_EQ(presentation["warning"], 3);
    EXPECT_EQ(presentation["rootLayout"].toObject()["background"], QJsonValue(QJsonValue::Null));
    const QJsonObject slide = presentation["slides"].toArray()[0].toObject();
    EXPECT_EQ(slide["duration"], 3000);
    EXPECT_EQ(slide["objects"].toArray().size(), 1);
    EXPECT_EQ(slide["objects"].toArray()[0].toObject()["part"], 1);
}

TEST_F(ShowTest, TellsWhatIsWrongAndShowsTheRest) {
    // what is wrong, the result of the header, the parts that are there, and what is told
    const std::tuple<const char*, QByteArray, int, int, const char*> rows[] = {
        {"cut in the subject", HEADER.left(HEADER.indexOf("Hi") + 1), 9, -1, "result 9"},
        {"cut in the last part", message().chopped(1), 0, 2, "status -19"},
        {"presentation not well-formed", message().replace("<body>", "<bodi>"), 0, 3, "status -8"},
    };
    for (const auto& [name, octets, result, parts, cause] : rows) {
        const QString file = write("m.mms", octets);
        const Outcome run = lummms({"show", "--json", file});
        EXPECT_EQ(run.status, 1) << name;
        EXPECT_TRUE(run.err.contains(file.toUtf8()) && run.err.contains(cause)) << run.err.constData();
        EXPECT_EQ(run.err.count('\n'), 1) << name;
        EXPECT_EQ(run.json()["result"], result) << name;
        EXPECT_EQ(run.json()["header"].toObject()["transactionId"], "T1") << name;
        EXPECT_EQ(run.json().contains("bodyOffset"), parts >= 0) << name;
        EXPECT_EQ(run.json()["body"].toObject()["parts"].toArray().size(), std::max(parts, 0)) << name;
        EXPECT_EQ(lummms({"show", file}).status, 1) << name;
    }
}

TEST_F(ShowTest, NothingOfAMessageReachesTheTerminalRaw) {
    const QByteArray hostile = "\x1B[2J\xC2\x9B\x7F\xE2\x80\xAE"
                               "end\0";
    const QByteArray subject = octets("96", char(hostile.size() + 2) + octets("EA") + hostile + '\0');
    const QString file = write("m.mms", octets("8C 84 8D 90") + subject);
    const Outcome person = lummms({"show", file});
    EXPECT_TRUE(person.out.contains("\\u001b[2J\\u009b\\u007f\\u202eend\n")) << person.out.constData();
    const Outcome program = lummms({"show", "--json", file});
    for (const QByteArray raw : {"\x1B", "\xC2\x9B", "\x7F", "\xE2\x80\xAE"}) {
        EXPECT_FALSE(person.out.contains(raw));
        EXPECT_FALSE(program.out.contains(raw));
    }
    EXPECT_EQ(program.json()["header"].toObject()["subject"], QString::fromUtf8(hostile));
}

TEST_F(ShowTest, WrongUseIsToldInOneLine) {
    const QString file = write("m.mms", message());
    const QStringList rows[] = {
        {},
        {"dance"},
        {"show"},
        {"show", "--loud", "x"},
        {"show", "a", "b"},
        {"show", path("missing")},
        {"show", path("")},
        {"smil", path("missing")},
        {"smil", write("s.smil", SMIL), "--parts", path("missing")},
        {"unpack", file, file},
        {"render", file},
        {"render", file, "-o", path("s.gif")},
        {"render", file, "-o", path("s.png"), "--scale", "0"},
        {"render", file, "-o", path("no/s.png")},
        {"render", write("n.mms", octets("8C 82 8D 90")), "-o", path("s.png")}, // nothing to draw
    };
    for (const QStringList& arguments : rows) {
        const Outcome run = lummms(arguments);
        EXPECT_EQ(run.status, 2) << qPrintable(arguments.join(' '));
        EXPECT_EQ(run.out, QByteArray());
        EXPECT_EQ(run.err.count('\n'), 1) << run.err.constData();
    }
    EXPECT_FALSE(QFileInfo::exists(path("s.png")));
    for (const QStringList& arguments : {QStringList{"help"}, {"show", "--help"}, {"help", "smil"}}) {
        EXPECT_EQ(lummms(arguments).status, 0);
        EXPECT_TRUE(lummms(arguments).out.contains("Usage:"));
    }
}

TEST_F(ShowTest, SmilIsReadNormalisedAndWritten) {
    const QString smil = write("s.smil", SMIL);
    write("a.txt", "Hello");
    const Outcome run = lummms({"smil", smil, "--parts", path("")});
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(
        run.out.contains("<region id=\"image\"  height=\"160\"  width=\"120\" left=\"0\" top=\"160\""));
    EXPECT_TRUE(run.out.endsWith("<par dur=\"3000ms\">\n<text src=\"a.txt\" region=\"T\" >\n</text>\n</par>\n"
                                 "</body>\n</smil>\n"))
        << run.out.constData();
    EXPECT_TRUE(run.err.contains("warning 3")) << "the picture is not there";

    const Outcome broken = lummms({"smil", write("b.smil", "<smil><body/><body/></smil>")});
    EXPECT_EQ(broken.status, 1);
    EXPECT_TRUE(broken.err.contains("a second body (status -11)")) << broken.err.constData();
}

} // namespace
