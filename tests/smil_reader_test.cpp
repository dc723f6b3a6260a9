#include "tests/testing.h"

#include <QDomDocument>
#include <QStringEncoder>
#include <QTemporaryFile>

namespace {

using Parser = MMS_COMP_SMILParser;

TEST(ValueSyntax, Durations) {
    const QString rows =
        " = -1, indefinite = -2, -2.9ms = -2, 2.9ms = 2, 500ms = 500, 0.5s = 500, 0:0.500 = 500, "
        "0:01.5 = 1005, 0:01.500 = 1500, 0:01.50099 = 1500,  7s = 7000, 1:05.250 = 65250, "
        "0:75.0 = 75000, -1:00.0 = -60000, 2min = 120000, 0.1h = 360000, 16777.217s = 16777216, "
        "infs = 2147483647, 1e39s = 5000, 3e9ms = 2147483647, 2147483648ms = 2147483647, "
        "9999999h = 2147483647, 2147483647:0.0 = 2147483647, -infh = -2147483648, "
        "-1e30min = -2147483648, -2147483648:0.0 = -2147483648";
    expectRows(rows.split(", "), [](const QString& text) { return QString::number(Parser::parseDur(text)); });
    for (const char* text : {"Indefinite", "5", "7s ", "7S", "s", "1m", "nans", "0:01.5s", "1:05", "1:.5",
                             "1:05.", ":05.5", "2147483648:0.0", "0:0:05.0", "a:b:c:d"})
        EXPECT_EQ(Parser::parseDur(text), 5000) << text;
}

// a text, and the type, value and event read from it
TEST(ValueSyntax, BeginAndEndTimes) {
    const QString rows = " = 2 7 old, 0s = 0 0 , 3s = 0 3000 , 12 = 3 7 , indefinite = 3 7 , "
                         "id(t1)(end) = 1 -1 t1, id(t1)(endbegin) = 1 0 t1, id(t1)(1.5s) = 1 1500 t1, "
                         "id(t1)(-1ms) = 1 -1 t1, id(a)x1:02.003y = 1 62003 a, id()(begin) = 1 0 , "
                         "id(begin) = 3 7 begin, id(t1)( = 3 7 t1, id(t1 = 3 7 t1, ID(t1)(begin) = 3 7 ";
    expectRows(rows.split(", "), [](const QString& text) {
        MMS_COMP_SMIL_TIME time{MMS_COMP_SMIL_TIME_OFFSET, "old", 7};
        Parser::parseTime(text, &time);
        return QString("%1 %2 ").arg(time.type).arg(time.value) + time.id;
    });
    Parser::parseTime("3s", nullptr);
    MMS_COMP_SMIL_TIME own{MMS_COMP_SMIL_TIME_OFFSET, QString("id(t%1)(2s)").arg(1), 7};
    Parser::parseTime(own.id, &own);
    EXPECT_EQ(own.id + QString::number(own.value), "t12000");
}

TEST(ValueSyntax, Colours) {
    // kind, colour and name, and the texts for them
    const std::pair<const char*, QStringList> rows[] = {
        {"0 #010203 old", {"", " \t"}},
        {"1 #ffffff white", {" white "}},
        {"1 #808080 gray", {"gray"}},
        {"1 #c0c0c0 silver", {"silver"}},
        {"2 #ff8000 ", {"#FF8000"}},
        {"2 #0f0800 ", {"#f80", "\n#0f0800"}},
        {"2 #010203 ", {"#123", "#+1+2+3"}},
        {"3 #010203 ", {"#ggg", "#12345g", "#-10000", "#++0000", "rgb(1,2,3)", "rgb("}},
        {"3 #010203 old", {"White", "orange", "#", "#ff80", "rgb(1%,2%,3%)", "RGB(1,2,3)"}}};
    for (const auto& [expected, texts] : rows) {
        for (const QString& text : texts) {
            MMS_COMP_COLOR color{9, "old", QColor(1, 2, 3)};
            Parser::parseColor(text, color);
            EXPECT_EQ(QString("%1 %2 ").arg(color.kind).arg(color.color.name()) + color.text, expected)
                << qPrintable(text);
        }
    }
}

/// A message body with three parts, and a document to read into.
class Reader : public testing::Test {
protected:
    Reader() : data(&body) {
        for (const char* location : {"i", "t", "a"})
            addPart(body, location);
    }
    int parse(const QByteArray& smil) {
        return parser.parse(smil, &body, &data); // a QByteArray is a text, not a path
    }
    int parseFile(const QByteArray& smil) {
        QTemporaryFile file;
        EXPECT_TRUE(file.open() && file.write(smil) == smil.size() && file.flush());
        return parser.parse(file.fileName(), &body, &data);
    }
    /// Every slide as "duration:src,src;", and the warning if there is one.
    QString slides() const {
        QString text;
        for (int slide = 0; slide < data.getTotalSlidesNum(); ++slide) {
            QStringList sources;
            for (const MMS_COMP_SMILMediaObject* object : *data.getSlide(slide))
                sources += object->getSrc();
            text += QString("%1:%2;").arg(data.getSlide(slide)->getDur()).arg(sources.join(','));
        }
        return parser.getLastWarning() ? text + QString::number(parser.getLastWarning()) : text;
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
    const QByteArray inner = "<par dur='1s'><seq dur='2s'>" + img + "</seq>", missing = "<img src='no'/>";
    const std::pair<QByteArray, const char*> rows[] = {
        {img + text + "<!-- -->x" + audio, "5000:i;5000:t;5000:a;"},
        {"<seq dur='3s'>" + img + img + "</seq>", "3000:i;3000:i;"},
        {"<par dur='4s'>" + img + img + text + "</par>", "4000:i;4000:i,t;"},
        {"<par>" + img + "</par><par dur='indefinite'/>", "-1:i;-2:;"},
        {"<par dur='5'/><seq dur='x'>" + img + "</seq>", "5000:;5000:i;"},
        {inner + text + audio + "</par>", "1000:;2000:i;1000:t,a;"},
        {inner + missing + text + "</par>", "1000:;2000:i,t;3"},
        {"<seq dur='1s'><seq dur='2s'>" + img + "</seq>" + text + "</seq>", "2000:i;1000:t;"},
        {"<a/><par><b/>" + img + "<IMG/></par><switch>" + img + "</switch>", "-1:i;"},
        {"<img src='i'><param/><!-- --></img><img src='t'><area/></img>", "5000:i;5000:t;1"},
        {"<par dur='1s'>" + missing + text + "</par>", "1000:t;3"},
        {nested("seq", 10).repeated(2), ""}};
    for (const auto& [elements, expected] : rows) {
        data.clean();
        EXPECT_EQ(parse("<smil><body>" + elements + "</body></smil>"), 0) << elements.constData();
        EXPECT_EQ(slides(), expected) << elements.constData();
    }
    data.clean();
    EXPECT_EQ(parse("<smil><body>" + nested("par", 11) + "</body></smil>"), -16);
    EXPECT_EQ(slides(), QString("-1:;").repeated(10));
}

TEST_F(Reader, ChecksTheFrame) {
    const std::pair<int, QList<QByteArray>> rows[] = {
        {0, {"<smil>text<!-- --></smil>", "<smil><head/><body/></smil>", "\xFF\xFE<?xml?> stray <smil/>"}},
        {0, {"<smil/>", QByteArray("<smil/>\0", 8)}},
        {-6, {""}},
        {-8, {QByteArray("<smil/>\0\0", 9), QByteArray("\0", 1), "x", "<smil/><smil/>", "<a><smil/></a>"}},
        {-9, {"<smile/>", "<SMIL/>"}},
        {-10, {"<smil><body/><head/></smil>", "<smil><head/><body/><head/></smil>"}},
        {-11, {"<smil><body/><body/></smil>"}},
        {-12, {"<smil><head/><head/></smil>"}},
    };
    for (const auto& [status, texts] : rows) {
        for (const QByteArray& smil : texts) {
            EXPECT_EQ(parse(smil), status) << smil.constData();
            EXPECT_EQ(parser.getLastWarning(), 0) << smil.constData();
        }
    }
    EXPECT_EQ(parse("<smil><x/></smil>"), 0);
    EXPECT_EQ(parser.getLastWarning(), 1);
    QArray<char> octets(QByteArray("<smil/>"));
    EXPECT_EQ(parser.parse(octets, &body, nullptr), -6);
    EXPECT_EQ(parser.parse(octets, nullptr, &data), 0);
    EXPECT_EQ(parser.parseSmil(nullptr, &body, &data), -6);
    EXPECT_EQ(parser.parseMediaObjectParam(nullptr, nullptr), -6);
}

TEST_F(Reader, TellsWhereAnErrorIs) {
    const std::pair<QByteArray, const char*> rows[] = {
        {"<smil>\n <a></smil>", "2:11"}, {"stray\n x<smil>\n <bodi></body></smil>", "3:14"},
        {"ab<smil><a></smil>", "1:18"},  {"<smil><body/>\n<body/></smil>", "2:7"},
        {"<smile>\n</smile>", "1:7"},    {"<smil>\n\n<body>" + nested("par", 11) + "</body></smil>", "3:61"},
        {"<smil><x/></smil>", "0:0"},    {"", "0:0"},
    };
    for (const auto& [smil, place] : rows) {
        parse(smil);
        EXPECT_EQ(QString("%1:%2").arg(parser.getErrorLine()).arg(parser.getErrorColumn()), place)
            << smil.constData();
    }
}

TEST_F(Reader, TakesFilesAsTheyStand) {
    const QString umlaut = QString::fromUtf8("<smil><head><meta name='\xC3\xBC' content='c'/></head></smil>");
    const QByteArray latin = "<?xml version='1.0' encoding='ISO-8859-1'?>" + umlaut.toLatin1();
    const QString marked = QChar(QChar::ByteOrderMark) + umlaut; // in the machine's byte order, with a mark
    const QByteArray wide(reinterpret_cast<const char*>(marked.utf16()), marked.size() * 2);
    EXPECT_EQ(parser.parse("/nonexistent/a.smil", &body, &data), -1);
    EXPECT_EQ(parseFile(""), -8);
    EXPECT_EQ(parseFile("stray <smil/>"), -8);
    EXPECT_EQ(parseFile("<?xml version='1.0' encoding='klingon'?><smil/>"), -8);
    EXPECT_EQ(parseFile(umlaut.toLatin1()), -8) << "not UTF-8";
    for (const QByteArray& file : {umlaut.toUtf8(), latin, wide, wide.mid(2)})
        EXPECT_EQ(parseFile(file), 0);
    ASSERT_EQ(data.getMetaCount(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(data.getMeta(i)->getName() + data.getMeta(i)->getContent(), QStringLiteral("\u00FCc")) << i;
    using Encoding = QStringConverter::Encoding;
    for (const char* declared :
         {"UTF-8", "UTF-16", "UTF-16LE", "UTF-32", "ISO-8859-1", "US-ASCII", "klingon"})
        for (const auto shown :
             {Encoding::Utf8, Encoding::Utf16LE, Encoding::Utf16BE, Encoding::Utf32LE, Encoding::Latin1}) {
            const QString text = QString("<?xml version='1.0' encoding='%1'?>").arg(declared) + umlaut;
            const QByteArray file = QStringEncoder(shown)(text);
            EXPECT_EQ(parseFile(file), QDomDocument().setContent(file) ? 0 : -8) << declared << shown;
        }
}

TEST_F(Reader, ReadsHeadAndLayout) {
    const QByteArray a = "<region id='a'/>", b = "<region id='b' width='1'/>", c = "<region id='c'/>";
    const QByteArray root = "<root-layout width='7' height='8'/>";
    const auto layout = [](const QByteArray& inner) { return "<layout>" + inner + "</layout>"; };
    // what is read: the warning, the metas, the width of the root layout, the regions
    const std::pair<QByteArray, QList<int>> rows[] = {
        {"<meta/>" + layout(a + root + b) + "<meta/><meta/>", {0, 3, 7, 2}},
        {"<meta/><title/><meta/>" + layout(a), {0, 1, 120, 0}},
        {"<layout/>" + layout(a) + "<meta/>", {0, 0, 120, 0}},
        {layout(a + b + c), {0, 0, 120, 3}},
        {layout(a + "<x/>" + b + root + c), {1, 0, 7, 2}},
        {layout(root + "<root-layout width='9'/>" + a), {1, 0, 7, 1}}};
    for (const auto& [head, expected] : rows) {
        MMS_COMP_SMILData document(&body);
        QDomDocument dom;
        ASSERT_TRUE(dom.setContent("<smil><head>" + head + "</head></smil>")) << head.constData();
        QDomElement element = dom.documentElement();
        Parser reader;
        EXPECT_EQ(reader.parseSmil(&element, &body, &document), 0) << head.constData();
        EXPECT_EQ(QList<int>({reader.getLastWarning(), document.getMetaCount(),
                              document.getRootLayout()->getWidth(), document.getRegionCount()}),
                  expected)
            << head.constData();
    }
}

TEST_F(Reader, DropsOneDuplicateAndNormalises) {
    const QByteArray both =
        "<region id=\"text\"  height=\"160\"  width=\"120\" left=\"0\" top=\"0\" fit=\"hidden\" />"
        "<region id='o' left='7'/>";
    const auto smil = [&both](int times, const char* rest) {
        return "<smil><head><layout>" + both.repeated(times) + "</layout></head>" + rest + "</smil>";
    };
    EXPECT_EQ(parseFile(smil(2, "")), 0);
    ASSERT_EQ(data.getRegionCount(), 2);
    EXPECT_EQ(data.getRegion(0)->getFit(), MMS_COMP_SMIL_FIT_HIDDEN) << "a file keeps its duplicates";

    MMS_COMP_SMILData received(&body);
    QArray<char> octets(smil(3, ""));
    EXPECT_EQ(parser.parse(octets, &body, &received), 0);
    ASSERT_EQ(received.getRegionCount(), 2);
    EXPECT_EQ(received.getRegion(0)->getFit(), MMS_COMP_SMIL_FIT_OTHER) << "the first copy was dropped";
    EXPECT_EQ(received.getRegion(0)->getId(), "text");
    EXPECT_EQ(received.getRegion(1)->getId(), "image");
    octets = QArray<char>(smil(1, "<body/><body/>"));
    EXPECT_EQ(parser.parse(octets, &body, &received), -11);
    EXPECT_EQ(received.getRegion(3)->getId(), "o") << "not normalised after a failure";

    MMS_COMP_SMILData kept(&body);
    parser.setLayoutKept(true);
    octets = QArray<char>(smil(2, "<body><img src='i' region='o'/></body>"));
    EXPECT_EQ(parser.parse(octets, &body, &kept), 0);
    ASSERT_EQ(kept.getRegionCount(), 2);
    EXPECT_EQ(kept.getRegion(0)->getFit(), MMS_COMP_SMIL_FIT_HIDDEN) << "the sender's order";
    EXPECT_EQ(kept.getRegion(1)->getId(), "o");
    EXPECT_EQ(kept.getMediaObject(0, 0)->getRegionId(), "o");
}

TEST(Kinds, HaveWordsOfTheirOwn) {
    const char* words[] = {"audio", "video", "text", "image", "", ""};
    for (int type = 0; type < 6; ++type) {
        EXPECT_EQ(Parser::getMimeTypeStr(static_cast<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE>(type)), words[type]);
        EXPECT_EQ(Parser::getTypeEnum(words[type]), type < 4 ? type : 5);
    }
}

TEST_F(Reader, WithstandsHostileTexts) {
    const Log log;
    const auto smil = [](const QByteArray& inner) { return "<smil>" + inner + "</smil>"; };
    const auto dtd = [](const QByteArray& declarations, const QByteArray& inner) {
        return "<!DOCTYPE smil [" + declarations + "]><smil>" + inner + "</smil>";
    };
    const auto many = [](const QByteArray& piece) { return piece.repeated(200); };
    const auto attributes = [](int count, const QByteArray& prefix) {
        QByteArray text = "<smil";
        for (int i = 0; i < count; ++i)
            text += ' ' + prefix + QByteArray::number(i) + "=''";
        return text + "/>";
    };
    const QByteArray declared = dtd("<!ENTITY e 'x'>", "&e;");
    const QByteArray deep = nested("a", 200);
    const std::tuple<const char*, QByteArray, int> rows[] = {
        {"as many levels as allowed", smil(nested("a", 127)), 0},
        {"one more, empty", smil(QByteArray("<a>").repeated(127) + "<a/>"), -16},
        {"as many attributes as allowed", attributes(1000, "a"), 0},
        {"one more attribute", attributes(1001, "a"), -8},
        {"100,000 namespaces", attributes(100000, "xmlns:a"), -8},
        {"the longest text with declarations", declared + QByteArray(1024 - declared.size(), ' '), 0},
        {"one character more", declared + QByteArray(1025 - declared.size(), ' '), -8},
        {"declarations of declarations", dtd("<!ENTITY a 'x'><!ENTITY b '&a;&a;'>", "&b;"), -8},
        {"a declaration of itself", dtd("<!ENTITY a '&a;'>", "&a;"), -8},
        {"a declaration of levels", dtd("<!ENTITY e '" + nested("a", 130) + "'>", "&e;"), -16},
        {"declarations in a comment", smil("<!-- <!DOCTYPE <!ENTITY e '&e;'> -->" + many("          ")), 0},
        {"references to characters",
         dtd("<!ENTITY e '&#233;&#xE9;&#37;a;&#00000000000000000000065;'>", "&e;"), 0},
        {"a sign as a character", dtd("<!ENTITY e '&#38;#60;'>", "&e;"), 0},
        {"a reference made of two", dtd("<!ENTITY a 'x'><!ENTITY b '&#38;&#97;;'>", "&b;"), -8},
        {"references to a sign", dtd("<!ENTITY a 'x'><!ENTITY b '&#38;a;&#x26;a;'>", "&b;"), -8},
        {"quotes and signs in values", smil(many("<a b='/>\"' c=\"/a>'>\"/>")), 0},
        {"self-closing", smil(many("<a b=\"/\"></a><a/><a b='c'/>")), 0},
        {"levels in CDATA", smil("<![CDATA[" + many("<a '>") + "]]>"), 0},
        {"levels in instructions", smil("<?a " + many("<a '>") + "?>"), 0},
        {"levels behind a comment", smil("<!-- \" ' -->" + deep + "<!-- \" -->"), -16},
        {"levels behind a mistake", "<smil><a \">" + deep, -8},
        {"levels behind a DTD", dtd("<!ELEMENT a (b|'\")><!-- ]> -->", deep), -8},
        {"levels behind a good DTD", dtd("<!ELEMENT a (b|c)><!-- ]>\" -->", deep), -16},
        {"entity", dtd("<!ENTITY e '<head/>'><!ATTLIST a b CDATA 'c'>", "&e;"), 0},
        {"entity built from pieces", dtd("<!ENTITY % p \"<!ENTITY e 'x'\">%p;'>", "&e;"), -8},
        {"invalid UTF-8", smil("\xC3\x28\xFF"), 0}};
    for (const auto& [name, text, status] : rows) {
        data.clean();
        EXPECT_EQ(parseFile(QString::fromUtf8(text).toUtf8()), status) << name;
        if (!text.startsWith("<!DOCTYPE")) { // octets are read from "<smil" on
            EXPECT_EQ(parse(text), status) << name;
        }
    }
    EXPECT_TRUE(Log::lines.isEmpty()) << "nothing of a message is printed";
}

} // namespace
