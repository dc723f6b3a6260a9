#include "tests/tool_runner.h"

#include <QJsonArray>

#include <sys/stat.h>

namespace {

using ShowTest = ToolTest;

const QByteArray HEADER = octets("8C 84 98") + zeroed("T1") + octets("8D 90 85 04 50 00 00 00") +
                          octets("89 10 80") + zeroed("+123/TYPE=PLMN") + octets("97") +
                          zeroed("Ann <a@b.c>") + octets("96") + zeroed("Hi") +
                          octets("8A 80 8F 82 86 80 90 81");

const QByteArray SMIL = "<smil><body><par dur=\"3s\"><text src=\"a.txt\" region=\"T\"/>"
                        "<img src=\"cid:none\"/></par></body></smil>";

/// A message with a presentation, its text and a picture that no slide shows.
QByteArray message() {
    return HEADER + related(SMIL, {entry(octets("83 81 EA"), octets("8E") + zeroed("a.txt"), "Hello\nyou"),
                                   entry(octets("9E"), octets("8E") + zeroed("p.jpg"), "\xFF\xD8")});
}

TEST_F(ShowTest, ShowsAMessageToAPerson) {
    expectShown({"--phone", write("m.mms", message())}, "message.txt");
}

TEST_F(ShowTest, ShowsAMessageToAProgram) {
    const Outcome run = lummms({"show", "--json", "--phone", write("m.mms", message())});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.json(), QJsonDocument::fromJson(contents(SHOWN + "message.json")).object())
        << run.out.constData();
}

TEST_F(ShowTest, TellsWhatIsWrongAndShowsTheRest) {
    // the fault; the phone's result for the header, the parts that it reads and those there are; and what
    // both readings report
    const QByteArray cut = HEADER.left(HEADER.indexOf("Hi") + 1);
    const QByteArray swallowed = octets("8C 84 98") + zeroed("T1") + octets("99 80 8B 61 00 96 62 00 8F");
    const std::tuple<const char*, QByteArray, int, int, int, const char*, const char*> rows[] = {
        {"cut in the subject", cut, 9, -1, 0,
         "header: Subject at octet 45 is malformed or cut short (result 9)", "octet 45: Subject: "},
        {"an unknown field", swallowed, 9, -1, 0,
         "header: field 0x99 at octet 6 is not known to the phone; header: Priority at octet 14 is ",
         "octet 14: X-Mms-Priority: "},
        {"cut in the last part", message().chopped(1), 0, 2, 3,
         "body: part 3 is malformed or cut short (status -19)", "octet 230: DataLen: "},
        {"presentation not well-formed", message().replace("<body>", "\n<bod>"), 0, 3, 3,
         "presentation: not well-formed XML (status -8), line 2, column ",
         "presentation: not well-formed XML (status -8), line 2, column "},
        {"nothing", "", 0, 0, 0, "the file is empty", "the file is empty"},
    };
    for (const auto& [name, octets, result, parts, sentParts, cause, sentCause] : rows) {
        const QString file = write("m.mms", octets);
        for (const bool asPhone : {true, false}) {
            const QStringList show = asPhone ? QStringList{"show", "--phone"} : QStringList("show");
            const Outcome run = lummms(show + QStringList{"--json", file});
            EXPECT_EQ(run.status, 1) << name;
            EXPECT_TRUE(run.err.startsWith("lummms: " + file.toUtf8() + ": " + (asPhone ? cause : sentCause)))
                << run.err.constData();
            EXPECT_EQ(run.err.count('\n'), 1) << name;
            EXPECT_EQ(run.json()["result"].toInt(-1), asPhone ? result : -1) << name;
            EXPECT_EQ(run.json()["header"].toObject()["transactionId"].toString("T1"), "T1") << name;
            EXPECT_EQ(run.json().contains("bodyOffset"), !asPhone || parts >= 0) << name;
            EXPECT_EQ(run.json()["body"].toObject()["parts"].toArray().size(),
                      asPhone ? std::max(parts, 0) : sentParts)
                << name;
            EXPECT_EQ(lummms(show + QStringList(file)).status, 1) << name;
        }
    }
}

TEST_F(ShowTest, WhatIsRepeatedIsShortened) {
    const QByteArray type = QByteArray(20000, 't') + "/x", name(1000, 'n');
    const QByteArray part = entry(octets("1F") + uintvar(type.size() + 1) + zeroed(type) + octets("C0 22") +
                                  zeroed("<b>") + octets("8E") + zeroed(name));
    const QByteArray smil =
        "<smil><body><par>" + QByteArray("<ref src='cid:b'/>").repeated(1000) + "</par></body></smil>";
    write("m.mms", HEADER + related(smil, {part}));
    for (const QStringList& arguments : {QStringList{"show", path("m.mms")},
                                         {"show", "--json", path("m.mms")},
                                         {"render", path("m.mms"), "-o", path("m.html")}}) {
        const Outcome run = lummms(arguments);
        EXPECT_EQ(run.status, 0) << run.err.constData();
        EXPECT_LT(run.out.size() + read("m.html").size(), 1000000) << arguments[0].toStdString();
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
    const std::pair<QStringList, const char*> rows[] = {
        {{}, "no command"},
        {{"dance"}, "dance: no such command"},
        {{"--version", "show"}, "'show'"},
        {{"help", "show", "me"}, "'me'"},
        {{"show", ""}, "file name is empty"},
        {{"show", "--loud", "x"}, "unknown option '--loud'"},
        {{"show"}, "FILE is missing"},
        {{"smil", "a", "b"}, "'b'"},
        {{"show", ":x"}, ":x: no such file"},
        {{"show", "/dev/zero"}, "64 MiB"},
        {{"show", path("")}, "is a directory"},
        {{"show", path("\x1B[2J")}, "\\u001b[2J: no such file"},
        {{"smil", write("s.smil", SMIL), "--parts", path("missing")}, "missing: no such directory"},
        {{"unpack", file, file}, "m.mms: the directory cannot be created"},
        {{"render", file, "-o", path("s.gif")}, "s.gif"},
        {{"render", file, "-o", path("s.png"), "--scale", "0"}, "'0'"},
        {{"render", file, "-o", path("no/s.png")}, "no/s.png: No such file"},
        {{"render", write("n.mms", octets("8C 82 8D 90")), "-o", path("s.png")}, "nothing to draw"},
    };
    for (const auto& [arguments, cause] : rows)
        expectRefused(arguments, cause);
    EXPECT_FALSE(QFileInfo::exists(path("s.png")));
    for (const QStringList& arguments :
         {QStringList{"help"}, {"help", "help"}, {"show", "--help"}, {"help", "smil"}}) {
        EXPECT_EQ(lummms(arguments).status, 0);
        EXPECT_TRUE(lummms(arguments).out.contains("Usage:"));
    }
}

TEST_F(ShowTest, ReadsPipesAndStandardInputToTheirEnd) {
    const QByteArray large = message().replace("Hello", QByteArray(300'000, 'x')); // larger than a pipe
    const QString file = write("m.mms", large);
    const QByteArray expected = lummms({"show", "--json", file}).out;
    EXPECT_EQ(lummms({"show", "--json", "-"}, {}, large).out, expected);
    EXPECT_EQ(lummms({"show", "--json", "/dev/stdin"}, {}, large).out, expected);
    ASSERT_EQ(mkfifo(qPrintable(path("fifo")), 0600), 0);
    QProcess writer;
    writer.start("/bin/sh", {"-c", "cat \"$1\" >\"$2\"", "sh", file, path("fifo")});
    EXPECT_EQ(lummms({"show", "--json", path("fifo")}).out, expected);
    EXPECT_TRUE(writer.waitForFinished());
}

TEST_F(ShowTest, ALineOfJsonAnswersEachLine) {
    const QByteArray good = message().toBase64(), cut = message().chopped(1).toBase64();
    // the line, the key or number in its answer, and the error in it
    const std::tuple<QByteArray, const char*, const char*> rows[] = {
        {"k1\t" + good, "k1", ""},
        {good + "\r", "2", ""},
        {"", "3", "no message"},
        {"k 4\t", "k 4", "no message"},
        {"\t" + good, "", ""},
        {"k\xC2\x85\t" + good.chopped(3), "k\xC2\x85", "status -19"}, // a line end for some readers
        {"no base64!", "7", "base64"},
        {QByteArray("\0\xFF\xFE\t\0", 5), nullptr, "base64"},
        {"k\ta\tb", "k", "base64"},
        {"cut\t" + cut, "cut", "status -19"},
        {"AA==", "11", "result 9"},
        {good.chopped(0) + "====", "12", "base64"},
        {"last\t" + good, "last", ""},
    };
    QByteArrayList lines;
    for (const auto& [line, key, error] : rows)
        lines += line;
    for (const QStringList& reading : {QStringList{}, {"--phone"}}) {
        const Outcome run = lummms(QStringList{"show", "--json", "--lines"} + reading, {}, lines.join('\n'));
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.err, "");
        QByteArrayList answers = run.out.split('\n');
        EXPECT_EQ(answers.takeLast(), "") << "every line is ended";
        ASSERT_EQ(answers.size(), lines.size());
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const auto& [line, key, error] = rows[i];
            QJsonParseError wrong;
            const QJsonObject json = QJsonDocument::fromJson(answers[i], &wrong).object();
            EXPECT_EQ(wrong.error, QJsonParseError::NoError) << line.constData();
            EXPECT_EQ(json["error"].toString().isEmpty(), !*error) << answers[i].constData();
            const bool isPhones = reading.contains("--phone"); // the reading as sent has other error texts
            EXPECT_TRUE(!isPhones || json["error"].toString().contains(error)) << answers[i].constData();
            const QString number = QString::number(json["line"].toInt());
            EXPECT_TRUE(!key || (json.contains("line") ? number : json["key"].toString()) == key) << i;
            EXPECT_TRUE(*error || json["body"]["parts"].toArray().size() == 3) << answers[i].constData();
            EXPECT_FALSE(answers[i].contains("\xC2\x85")) << answers[i].constData();
        }
    }
    const QString file = write("m.mms", message()), missing = path("missing");
    const Outcome files = lummms({"show", "--json", "--lines", file, missing, file});
    EXPECT_TRUE(files.status == 2 && files.err.count('\n') == 1 && files.out.count('\n') == 3);
    EXPECT_TRUE(files.out.contains("\"file\":\"" + missing.toUtf8())) << files.out.constData();
    expectRefused({"show", "--lines", file}, "--json");
}

TEST_F(ShowTest, LinesAreAnsweredAtOnceAndHeldInPart) {
    QProcess filter;
    filter.start(QStringLiteral(LUMMMS), {"show", "--json", "--lines"});
    const QByteArray line = "key\t" + message().toBase64() + '\n';
    for (int i = 0; i < 3; ++i) { // each is sent after the answer to the one before
        filter.write(line);
        while (!filter.canReadLine())
            ASSERT_TRUE(filter.waitForReadyRead(30'000)) << "no answer to line " << i;
        EXPECT_TRUE(filter.readLine().contains("\"key\":\"key\""));
    }
    const QByteArray million(1 << 20, 'A');
    filter.write("long\t");
    for (int i = 0; i < 65; ++i)
        filter.write(million);
    filter.write('\n' + line);
    filter.closeWriteChannel();
    EXPECT_TRUE(filter.waitForFinished(60'000));
    EXPECT_TRUE(
        filter.readLine().startsWith("{\"error\":\"the line is longer than 64 MiB\",\"key\":\"long\"}"));
    EXPECT_TRUE(filter.readLine().contains("\"key\":\"key\""));
}

TEST_F(ShowTest, OfManyFilesTheWorstGivesTheStatus) {
    const QString sound = write("m.mms", message()), cut = write("cut.mms", message().chopped(1));
    const std::pair<QStringList, int> rows[] = {
        {{sound, sound}, 0}, {{sound, cut, sound}, 1}, {{path("no"), cut, sound}, 2}};
    for (const auto& [files, status] : rows) {
        const Outcome run = lummms(QStringList("show") + files);
        EXPECT_EQ(run.status, status);
        EXPECT_TRUE(run.out.contains("==> " + sound.toUtf8() + " <==\nHeader")) << run.out.constData();
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
    const Outcome cut = lummms({"smil", write("c.smil", "<smil>\n<body>\n</smil>")});
    EXPECT_TRUE(cut.err.contains("not well-formed XML (status -8), line 3, column ")) << cut.err.constData();
}

} // namespace
