#include "tests/tool_runner.h"

#include <QRandomGenerator>
#include <QSet>

namespace {

/// A PDU as read by a receiving application.
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
    /// The contents of a slide: text, picture and sound.
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

/// A text as the header codec reads it back: one beginning beyond ASCII keeps its closing zero.
QString readBack(const QString& text) {
    return text.at(0).unicode() < 0x80 ? text : text + QChar::Null;
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
        const QString folder = QString::number(files_++); // the same names in different folders
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
    QList<QList<QByteArray>> slides_; ///< text, picture and sound of each slide
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
    attachments_.clear(); // a new text part comes after them
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
    const QByteArray nested = entry(octets("A3"), "", char(2) + located("inner.txt", "i") + located("", "j"));
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
    const QByteArray nested = entry(octets("A3"), "", char(1) + located("inner.txt", "i"));
    const QByteArray pdu = octets("8C 84 8D 90 84 A3 04") + located("a.txt", "first") +
                           located("a.txt", "2nd") + nested +
                           entry(octets("83"), octets("C0 22") + zeroed("<id>"), "by id");
    const QString file = write("m.mms", pdu);
    const std::tuple<const char*, int, const char*> rows[] = {
        {"2", 0, "2nd"},  {"3.1", 0, "i"}, {"inner.txt", 0, "i"}, {"id", 0, "by id"},
        {"a.txt", 2, ""}, {"5", 2, ""},    {"none.txt", 2, ""},   {"", 2, ""},
    };
    for (const auto& [part, status, octets] : rows) {
        const Outcome run = lummms({"unpack", "--part", part, "-o", "-", file});
        EXPECT_EQ(run.status, status) << part;
        EXPECT_EQ(run.out, octets) << part;
        EXPECT_EQ(run.err.count('\n'), status ? 1 : 0) << run.err.constData();
    }
    EXPECT_EQ(lummms({"unpack", "--list", file}).out,
              "1  text/plain  5 octets  a.txt\n"
              "2  text/plain  3 octets  a.txt\n"
              "3  application/vnd.wap.multipart.mixed  0 octets  file0\n"
              "3.1  text/plain  1 octet  inner.txt\n"
              "4  text/plain  5 octets  file0.txt\n");
    expectRefused({"unpack", file}, "DIR is missing");
    expectRefused({"unpack", "-o", "-", file}, "one --part");

    ASSERT_TRUE(QDir(path("")).mkpath("out/a.txt")); // not replaced; the others are written
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
