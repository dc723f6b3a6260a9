#include "tests/testing.h"

namespace {

using Parser = MMS_COMP_SMILParser;

const QString HEAD = "<smil>\n<head>\n<layout> \n<root-layout height=\"160\" width=\"120\" />\n";
const QString BODY = "</layout> \n</head>\n<body>\n";
const QString TAIL = "</body>\n</smil>\n";

QString written(MMS_COMP_SMILData& data) {
    return Parser::convertToSMILLang(&data);
}

TEST(Writer, FrameAndSlides) {
    EXPECT_EQ(Parser::convertToSMILLang(nullptr), "");
    MMS_COMP_SMILData data(nullptr);
    data.appendMeta("title", "a \"b\" <c> & d");
    data.appendMeta("", "");
    data.setRootLayout(-1, 208);
    for (const int duration : {0, -1, -2, -3, 2147483647})
        data.appendSlide()->setDur(duration);
    EXPECT_EQ(written(data), "<smil>\n<head>\n<meta name=\"title\" content=\"a \"b\" <c> & d\" />\n"
                             "<meta name=\"\" content=\"\" />\n<layout> \n"
                             "<root-layout height=\"208\" width=\"-1\" />\n" +
                                 BODY +
                                 "<par dur=\"0ms\">\n</par>\n<par>\n</par>\n"
                                 "<par dur=\"indefinite\">\n</par>\n<par>\n</par>\n"
                                 "<par dur=\"2147483647ms\">\n</par>\n" +
                                 TAIL);
}

TEST(Writer, BackgroundLeavesTheWidthOpen) {
    // a colour, what is written, and the status when that is read
    const std::tuple<const char*, const char*, int> rows[] = {{"#ff0800", " background-color=\"#ff0800", -8},
                                                              {"navy", " background-color=\"#000080", -8},
                                                              {"#fff", " background-color=\"#0f0f0f", -8},
                                                              {"", "", 0},
                                                              {"Navy", "", 0}};
    for (const auto& [color, attribute, status] : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.getRootLayout()->setBackgroundColor(color);
        const QString root = QString("<root-layout height=\"160\" width=\"120") + attribute + "\" />\n";
        EXPECT_TRUE(written(data).contains(root)) << color;
        QArray<char> octets(written(data).toUtf8());
        EXPECT_EQ(Parser().parse(octets, nullptr, &data), status) << color;
    }
}

TEST(Writer, Regions) {
    const struct {
        float left, top, width, height;
        const char *fit, *id;
        int unit;
        const char* written;
    } rows[] = {{0, 160, 120, 160, "hidden", "image", MMS_COMP_SMIL_UNIT_PIXEL,
                 R"(<region id="image"  height="160"  width="120" left="0" top="160" fit="hidden" />)"},
                {-1, -1, -1, -1, "Fill", "", MMS_COMP_SMIL_UNIT_PIXEL, R"(<region  left="-1" top="-1" />)"},
                {10, 1.0F / 3.0F, 100, 33.5F, "slice", "a", MMS_COMP_SMIL_UNIT_PERCENT,
                 R"(<region id="a"  height="33.5%"  width="100%" left="10%" top="0.333333%" fit="slice" />)"},
                {1e6F, 123456.7F, 0, 0.00001F, "scroll", "b", MMS_COMP_SMIL_UNIT_PIXEL,
                 R"(<region id="b"  height="1e-05"  width="0" left="1e+06" top="123457" fit="scroll" />)"}};
    for (const auto& row : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.setLayoutMeasureUnit(static_cast<MMS_COMP_SMIL_UNIT_TYPE_ENUM>(row.unit));
        data.appendRegion(row.left, row.top, row.width, row.height, row.fit, row.id);
        EXPECT_EQ(written(data), HEAD + row.written + "\n" + BODY + TAIL);
    }
}

MMS_COMP_SMILMediaObject* object(int type, const char* src, const char* alt, const char* region,
                                 const char* begin = "", const char* end = "") {
    auto* made = new MMS_COMP_SMILMediaObject(nullptr);
    made->setMediaElementType(static_cast<MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE>(type));
    made->setSrc(src);
    made->setAlt(alt);
    made->setRegionId(region);
    Parser::parseTime(begin, made->getBegin());
    Parser::parseTime(end, made->getEnd());
    return made;
}

TEST(Writer, MediaObjects) {
    const std::pair<MMS_COMP_SMILMediaObject*, const char*> rows[] = {
        {object(0, "a.amr", "", "r"), "<audio src=\"a.amr\" >\n</audio>\n"},
        {object(1, "a", "b", "r"), "<video src=\"a\" alt=\"b\" >\n</video>\n"},
        {object(2, "", "", " text "), "<text region=\" text \" >\n</text>\n"},
        {object(3, "", "\"<&", "  "), "<img alt=\"\"<&\" >\n</img>\n"},
        {object(4, "", "", "", "0s", "-5ms"), "<ref begin=\"0ms\" end=\"-5ms\" >\n</ref>\n"},
        {object(4, "", "", "", "", "unreadable"), "<ref >\n</ref>\n"},
        {object(3, "", "", "", "id( t )(end)", "id(t)(7ms)"),
         "<img begin=\"id(t)(end)\" end=\"id(t)(7ms)\" >\n</img>\n"},
        {object(3, "", "", "", "id()(0s)", "id(t)(-2ms)"),
         "<img begin=\"id()(begin)\" end=\"id(t)(begin)\" >\n</img>\n"},
        {object(5, "a", "b", "c"), ""},
        {object(6, "a", "b", "c"), ""}, // behind a number that is no kind nothing is written
        {object(2, "a", "b", "c"), ""},
    };
    MMS_COMP_SMILData data(nullptr);
    MMS_COMP_SMILTimingContainer* slide = data.appendSlide();
    QString expected = HEAD + BODY + "<par dur=\"5000ms\">\n";
    for (const auto& [made, element] : rows) {
        slide->appendObject(made);
        expected += element;
        EXPECT_EQ(written(data), expected + "</par>\n" + TAIL);
    }
}

TEST(Writer, Params) {
    using Text = const char*;
    const std::tuple<Text, Text, int, Text, Text> rows[] = {
        {"n", "v", 0, "", "<param name=\"n\" value=\"v\" />\n"},
        {"", "v", 3, "", "<param name=\"\" value=\"v\" />\n"},
        {"n", "", 0, "", ""},
        {"n", "", 2, "a/b", "<param valuetype=\"object\" type=\"a/b\" />\n"},
        {"n", "", 3, "a/b", "<param type=\"a/b\" />\n"},
        {"n", "v", 1, "a/b", "<param name=\"n\" value=\"v\" valuetype=\"ref\" type=\"a/b\" />\n"}};
    MMS_COMP_SMILData data(nullptr);
    MMS_COMP_SMILMediaObject* ref = object(4, "", "", "");
    data.appendSlide()->appendObject(ref);
    QString expected = HEAD + BODY + "<par dur=\"5000ms\">\n<ref >\n";
    for (const auto& [name, value, valueType, refValueType, element] : rows) {
        const auto type = static_cast<MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE>(valueType);
        ref->appendParamElem(name, value, type, refValueType);
        expected += element;
        EXPECT_EQ(written(data), expected + "</ref>\n</par>\n" + TAIL);
    }
}

} // namespace
