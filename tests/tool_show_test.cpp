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
    expectShown(write("m.mms", message()), "message.txt");
}

TEST_F(ShowTest, ShowsAMessageToAProgram) {
    const Outcome run = lummms({"show", "--json", "--phone", write("m.mms", message())});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.json(), QJsonDocument::fromJson(contents(SHOWN + "message.json")).object())
        << run.out.constData();
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
        {{"show", "--loud", "x"}, "unknown option '--loud'"},
        {{"show"}, "FILE is missing"},
        {{"smil", "a", "b"}, "'b'"},
        {{"show", ":x"}, ":x: no such file"},
        {{"show", "/dev/zero"}, "64 MiB"},
        {{"show", path("")}, "is a directory"},
        {{"show", path("\x1B[2J")}, "\\u001b[2J: no such file"},
        {{"smil", write("s.smil", SMIL), "--parts", path("missing")}, "missing: no such directory"},
        {{"unpack", file, file}, "m.mms: cannot be made"},
        {{"render", file, "-o", path("s.gif")}, "s.gif"},
        {{"render", file, "-o", path("s.png"), "--scale", "0"}, "'0'"},
        {{"render", file, "-o", path("no/s.png")}, "no/s.png: No such file"},
        {{"render", write("n.mms", octets("8C 82 8D 90")), "-o", path("s.png")}, "nothing to draw"},
    };
    for (const auto& [arguments, cause] : rows)
        expectRefused(arguments, cause);
    EXPECT_FALSE(QFileInfo::exists(path("s.png")));
    for (const QStringList& arguments : {QStringList{"help"}, {"show", "--help"}, {"help", "smil"}}) {
        EXPECT_EQ(lummms(arguments).status, 0);
        EXPECT_TRUE(lummms(arguments).out.contains("Usage:"));
    }
}

TEST_F(ShowTest, ReadsPipesAndStandardInputToTheirEnd) {
    const QByteArray large = message().replace("Hello", QByteArray(300'000, 'x')); // more than a pipe holds
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
}

} // namespace
