#include "octets.h"

#include "multipart/multipart.h"
#include "smil/model/presentation.h"
#include "smil/parser/smil_parser.h"

#include <QDomDocument>
#include <QTemporaryDir>

namespace {

using Parser = MMS_COMP_SMILParser;

const char TEXT_REGION[] =
    "<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" fit=\"hidden\" />";

/// A message body with three parts, and a document to read into.
class Reader : public testing::Test {
protected:
    Reader() : data(&body) {
        for (const char* location : {"i", "t", "a"}) {
            auto* part = new MMS_COMP_SMILMultipartBodypart;
            part->setContentLocation(location);
            part->setDispFileType(1);
            body.appendBodypart(part);
        }
    }
    int parse(const QByteArray& smil) {
        QArray<char> octets(smil);
        return parser.parse(octets, &body, &data);
    }
    int parseFile(const QByteArray& smil) {
        QTemporaryDir directory;
        QFile file(directory.filePath("a.smil"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(smil) == smil.size());
        file.close();
        return parser.parse(file.fileName(), &body, &data);
    }
    /// Every slide as "duration:src,src;".
    QString slides() const {
        QString text;
        for (int slide = 0; slide < data.getTotalSlidesNum(); ++slide) {
            QStringList sources;
            for (const MMS_COMP_SMILMediaObject* object : *data.getSlide(slide))
                sources += object->getSrc();
            text += QString("%1:%2;").arg(data.getSlide(slide)->getDur()).arg(sources.join(','));
        }
        return text;
    }

    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData data;
    Parser parser;
};

QByteArray nested(const char* tag, int depth) {
    const QByteArray name(tag);
    return ("<" + name + ">").repeated(depth) + ("</" + name + ">").repeated(depth);
}

TEST_F(Reader, FormsSlides) {
    const QByteArray img = "<img src='i'/>", text = "<text src='t'/>", audio = "<audio src='a'/>";
    const struct {
        const char* name;
        QByteArray body;
        int status, warning;
        QString slides;
    } rows[] = {
        {"bare elements", img + text + "<!-- -->x" + audio, 0, 0, "5000:i;5000:t;5000:a;"},
        {"seq", "<seq dur='3s'>" + img + img + "</seq>", 0, 0, "3000:i;3000:i;"},
        {"par", "<par dur='4s'>" + img + text + "</par>", 0, 0, "4000:i,t;"},
        {"par without duration", "<par>" + img + "</par>", 0, 0, "-1:i;"},
        {"indefinite par", "<par dur='indefinite'/>", 0, 0, "-2:;"},
        {"unreadable duration", "<par dur='5'/><seq dur='x'>" + img + "</seq>", 0, 0, "5000:;5000:i;"},
        {"two pictures in a par", "<par dur='1s'>" + img + img + text + "</par>", 0, 0, "1000:i;1000:i,t;"},
        {"behind a nested seq", "<par dur='1s'><seq dur='2s'>" + img + "</seq>" + text + audio + "</par>", 0,
         0, "1000:;2000:i;1000:t,a;"},
        {"behind a nested seq, one missing",
         "<par dur='1s'><seq dur='2s'>" + img + "</seq><img src='no'/>" + text + "</par>", 0, 3,
         "1000:;2000:i,t;"},
        {"seq in seq", "<seq dur='1s'><seq dur='2s'>" + img + "</seq>" + text + "</seq>", 0, 0,
         "2000:i;1000:t;"},
        {"unknown elements", "<a/><par><b/>" + img + "<IMG/></par><switch>" + img + "</switch>", 0, 0,
         "-1:i;"},
        {"children of an object", "<img src='i'><param/><!-- --></img><img src='t'><area/></img>", 0, 1,
         "5000:i;5000:t;"},
        {"content missing", "<par dur='1s'><img src='no'/>" + text + "</par>", 0, 3, "1000:t;"},
        {"ten pars", nested("par", 10), 0, 0, QString("-1:;").repeated(10)},
        {"eleven pars", nested("par", 11), -16, 0, QString("-1:;").repeated(10)},
        {"ten seqs, twice", (nested("seq", 10)).repeated(2), 0, 0, ""},
        {"eleven seqs", nested("seq", 11), -16, 0, ""}};
    for (const auto& row : rows) {
        data.clean();
        EXPECT_EQ(parse("<smil><body>" + row.body + "</body></smil>"), row.status) << row.name;
        EXPECT_EQ(parser.getLastWarning(), row.warning) << row.name;
        EXPECT_EQ(slides(), row.slides) << row.name;
    }
}

TEST_F(Reader, ChecksTheFrame) {
    const struct {
        const char* smil;
        int status, warning;
    } rows[] = {{"<smil/>", 0, 0},
                {"<smil><x/></smil>", 0, 1},
                {"<smil>text<!-- --></smil>", 0, 0},
                {"<smil><head/><body/></smil>", 0, 0},
                {"<smil><body/><head/></smil>", -10, 0},
                {"<smil><head/><body/><head/></smil>", -10, 0},
                {"<smil><body/><body/></smil>", -11, 0},
                {"<smil><head/><head/></smil>", -12, 0},
                {"<smile/>", -9, 0},
                {"<SMIL/>", -9, 0},
                {"<a><smil/></a>", -8, 0},
                {"<smil>", -8, 0},
                {"<smil a=b/>", -8, 0},
                {"<smil/><smil/>", -8, 0},
                {"x", -8, 0},
                {"", -6, 0},
                {"\xFF\xFE<?xml?> stray <smil/>", 0, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(parse(row.smil), row.status) << row.smil;
        EXPECT_EQ(parser.getLastWarning(), row.warning) << row.smil;
    }
    EXPECT_EQ(parse(QByteArray("<smil/>\0", 8)), 0);
    EXPECT_EQ(parse(QByteArray("<smil/>\0\0", 9)), -8);
    EXPECT_EQ(parse(QByteArray("\0", 1)), -8);
    QArray<char> octets(QByteArray("<smil/>"));
    EXPECT_EQ(parser.parse(octets, &body, nullptr), -6);
    EXPECT_EQ(parser.parse(octets, nullptr, &data), 0);
    EXPECT_EQ(parser.parseSmil(nullptr, &body, &data), -6);
    EXPECT_EQ(parser.parseMediaObjectParam(nullptr, nullptr), -6);
}

TEST_F(Reader, TakesFilesAsTheyStand) {
    const QString umlaut = QString::fromUtf8("<smil><head><meta name='\xC3\xBC'/></head></smil>");
    const QByteArray latin = "<?xml version='1.0' encoding='ISO-8859-1'?>" + umlaut.toLatin1();
    const QByteArray wide(reinterpret_cast<const char*>(umlaut.utf16()), umlaut.size() * 2);
    EXPECT_EQ(parser.parse(QString("/nonexistent/a.smil"), &body, &data), -1);
    EXPECT_EQ(parseFile(""), -8);
    EXPECT_EQ(parseFile("stray <smil/>"), -8);
    EXPECT_EQ(parseFile("<?xml version='1.0' encoding='klingon'?><smil/>"), -8);
    EXPECT_EQ(parseFile(umlaut.toLatin1()), -8) << "not UTF-8";
    for (const QByteArray& file : {umlaut.toUtf8(), latin, "\xFF\xFE" + wide, wide})
        EXPECT_EQ(parseFile(file), 0);
    ASSERT_EQ(data.getMetaCount(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(data.getMeta(i)->getName(), QString(QChar(0xFC))) << i;
}

TEST_F(Reader, ReadsHeadAndLayout) {
    const QByteArray a = "<region id='a'/>", b = "<region id='b' width='1'/>", c = "<region id='c'/>";
    const QByteArray root = "<root-layout width='7' height='8'/>";
    const struct {
        const char* name;
        QByteArray head;
        int warning, metas, rootWidth, regions;
    } rows[] = {
        {"in order", "<meta/><layout>" + a + root + b + "</layout><meta/><meta/>", 0, 3, 7, 2},
        {"stops at an unknown element", "<meta/><title/><meta/><layout>" + a + "</layout>", 0, 1, 120, 0},
        {"stops at a second layout", "<layout/><layout>" + a + "</layout><meta/>", 0, 0, 120, 0},
        {"no root layout", "<layout>" + a + b + c + "</layout>", 0, 0, 120, 3},
        {"unknown at the end", "<layout>" + a + root + b + "<x/></layout>", 1, 0, 7, 2},
        {"behind an unknown element", "<layout>" + a + "<x/>" + b + root + c + "</layout>", 1, 0, 7, 2},
        {"second root layout", "<layout>" + root + "<root-layout width='9'/>" + a + "</layout>", 1, 0, 7, 1}};
    for (const auto& row : rows) {
        MMS_COMP_SMILData document(&body);
        QDomDocument dom;
        ASSERT_TRUE(dom.setContent("<smil><head>" + row.head + "</head></smil>")) << row.name;
        QDomElement element = dom.documentElement();
        Parser reader;
        EXPECT_EQ(reader.parseSmil(&element, &body, &document), 0) << row.name;
        EXPECT_EQ(reader.getLastWarning(), row.warning) << row.name;
        EXPECT_EQ(document.getMetaCount(), row.metas) << row.name;
        EXPECT_EQ(document.getRootLayout()->getWidth(), row.rootWidth) << row.name;
        EXPECT_EQ(document.getRegionCount(), row.regions) << row.name;
    }
}

TEST_F(Reader, DropsOneDuplicateAndNormalises) {
    const QByteArray both = QByteArray(TEXT_REGION) + "<region id='o' left='7'/>";
    const QByteArray smil = "<smil><head><layout>" + both.repeated(3) + "</layout></head></smil>";
    EXPECT_EQ(parse(smil), 0);
    ASSERT_EQ(data.getRegionCount(), 2);
    EXPECT_EQ(data.getRegion(0)->getFit(), MMS_COMP_SMIL_FIT_OTHER) << "the first copy was dropped";
    EXPECT_EQ(data.getRegion(0)->getId(), "text");
    EXPECT_EQ(data.getRegion(1)->getId(), "image");
    EXPECT_EQ(parse("<smil><head><layout>" + both + "</layout></head><body/><body/></smil>"), -11);
    EXPECT_EQ(data.getRegion(3)->getId(), "o") << "not normalised after a failure";
}

TEST_F(Reader, KeepsDuplicatesInFiles) {
    const QByteArray both = QByteArray(TEXT_REGION) + "<region id='o' left='7'/>";
    EXPECT_EQ(parseFile("<smil><head><layout>" + both.repeated(2) + "</layout></head></smil>"), 0);
    ASSERT_EQ(data.getRegionCount(), 2);
    EXPECT_EQ(data.getRegion(0)->getFit(), MMS_COMP_SMIL_FIT_HIDDEN);
}

TEST_F(Reader, KnowsKindsOfMedia) {
    const char* words[] = {"audio", "video", "text", "image", "", ""};
    for (int type = 0; type < 6; ++type) {
        const auto kind = static_cast<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE>(type);
        EXPECT_EQ(Parser::getMimeTypeStr(kind), words[type]);
        EXPECT_EQ(Parser::getTypeEnum(words[type]), type < 4 ? type : 5);
    }
    for (const char* word : {"img", "ref", "application", "Text"})
        EXPECT_EQ(Parser::getTypeEnum(word), 5) << word;
}

TEST_F(Reader, WithstandsHostileTexts) {
    static int printed;
    printed = 0;
    const auto former = qInstallMessageHandler([](auto, const auto&, const QString&) { ++printed; });
    const auto smil = [](const QByteArray& inner) { return "<smil>" + inner + "</smil>"; };
    const auto dtd = [](const QByteArray& declarations, const QByteArray& inner) {
        return "<!DOCTYPE smil [" + declarations + "]><smil>" + inner + "</smil>";
    };
    QByteArray attributes, namespaces, laughs = "<!ENTITY a0 ''>";
    for (int i = 0; i < 100000; ++i) {
        attributes += " a" + QByteArray::number(i) + "=''";
        namespaces += " xmlns:a" + QByteArray::number(i) + "='x'";
    }
    for (char i = '1'; i <= '9'; ++i)
        laughs +=
            QByteArray("<!ENTITY a") + i + " '" + (QByteArray("&a") + char(i - 1) + ";").repeated(50) + "'>";
    const QByteArray many(100000, 'x');
    const struct {
        const char* name;
        QByteArray smil;
        int status;
    } rows[] = {
        {"128 levels", smil(nested("a", 127)), 0},
        {"129 levels", smil(nested("a", 128)), -16},
        {"the last of 129 levels empty", smil(QByteArray("<a>").repeated(127) + "<a/>"), -16},
        {"129 levels in the body", "<smil><body>" + nested("x", 127) + "</body></smil>", -16},
        {"40,000 levels", smil(nested("par", 40000)), -16},
        {"40,000 levels, never closed", QByteArray("<smil>").repeated(40000), -16},
        {"quotes and signs in values", smil(QByteArray("<a b='/>\"' c=\"/a>'>\"/>").repeated(200)), 0},
        {"self-closing", smil(QByteArray("<a b=\"/\"></a><a/><a b='c'/>").repeated(200)), 0},
        {"levels in comments", smil("<!--" + QByteArray("<a>").repeated(200) + "\"-->" + nested("a", 9)), 0},
        {"levels in CDATA", smil("<![CDATA[" + QByteArray("<a '>").repeated(200) + "]]>"), 0},
        {"levels in instructions", smil("<?a " + QByteArray("<a '>").repeated(200) + "?>"), 0},
        {"levels behind a comment", smil("<!-- \" ' -->" + nested("a", 200) + "<!-- \" -->"), -16},
        {"levels behind a mistake", "<smil><a \">" + nested("a", 200), -8},
        {"levels in an entity", dtd("<!ENTITY e '" + nested("a", 200) + "'>", "&e;"), -16},
        {"levels behind a DTD", dtd("<!ELEMENT a (b|'\")><!-- ]> -->", nested("a", 200)), -8},
        {"levels behind a good DTD", dtd("<!ELEMENT a (b|c)><!-- ]>\" -->", nested("a", 200)), -16},
        {"entity", dtd("<!ENTITY e '<head/>'><!ATTLIST a b CDATA 'c'>", "&e;"), 0},
        {"nested entities", dtd(laughs, "&a9;"), -8},
        {"entity built from pieces", dtd("<!ENTITY % p \"<!ENTITY e 'x\">%p;'>", "&e;"), -8},
        {"entity of 4,000, used often", dtd("<!ENTITY e '" + many.first(4000) + "'>", "&e;&e;&e;"), 0},
        {"entity used 100,000 times", dtd("<!ENTITY e 'x'>", QByteArray("&e;").repeated(100000)), -8},
        {"100,000 attributes", "<smil" + attributes + "/>", -8},
        {"100,000 attributes and a comment", "<!-- ' --><smil" + attributes + "/>", -8},
        {"100,000 namespaces", "<smil" + namespaces + "/>", -8},
        {"megabyte attribute", "<smil a='" + many.repeated(10) + "'/>", 0},
        {"megabyte name", "<smil " + many.repeated(10), -8},
        {"megabyte of starts", QByteArray("<smil ").repeated(170000), -8},
        {"100,000 slides", smil("<body>" + QByteArray("<par/>").repeated(100000) + "</body>"), 0},
        {"invalid UTF-8", smil("\xC3\x28\xFF"), 0},
        {"control character", smil("\x01"), -8}};
    for (const auto& row : rows) {
        data.clean();
        EXPECT_EQ(parseFile(QString::fromUtf8(row.smil).toUtf8()), row.status) << row.name;
        if (row.smil.startsWith("<!DOCTYPE"))
            continue; // octets are read from "<smil" on
        EXPECT_EQ(parse(row.smil), row.status) << row.name;
    }
    EXPECT_EQ(parse("<!DOCTYPE a [" + laughs + "]><a>&a9;</a>"), -8);
    qInstallMessageHandler(former);
    EXPECT_EQ(printed, 0) << "nothing of a message is printed";
}

} // namespace
