#include "tests/testing.h"

namespace {

using Parser = MMS_COMP_SMILParser;

std::string written(MMS_COMP_SMILData& data) {
    return Parser::convertToSMILLang(&data).toStdString();
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

TEST(Writer, Documents) {
    MMS_COMP_SMILData data(nullptr);
    data.appendMeta("title", "a \"b\" <c> & d");
    data.appendMeta("", "");
    data.setRootLayout(-1, 208);
    data.appendRegion(0, 160, 120, 160, "hidden", "image");
    data.appendRegion(-1, -1, -1, -1, "Fill", "");
    data.appendRegion(1e6F, 123456.7F, 0, 0.00001F, "scroll", "b");
    for (const int duration : {0, -1, -2, -3, 2147483647})
        data.appendSlide()->setDur(duration);
    MMS_COMP_SMILTimingContainer* slide = data.appendSlide();
    for (MMS_COMP_SMILMediaObject* each :
         {object(0, "a.amr", "", "r"), object(1, "a", "b", "r"), object(2, "", "", " text "),
          object(3, "", "\"<&", "  "), object(4, "", "", "", "0s", "-5ms"),
          object(4, "", "", "", "", "unreadable"), object(3, "", "", "", "id( t )(end)", "id(t)(7ms)"),
          object(3, "", "", "", "id()(0s)", "id(t)(-2ms)"), object(5, "a", "b", "c")})
        slide->appendObject(each);
    MMS_COMP_SMILMediaObject* ref = object(4, "", "", "");
    const std::tuple<const char*, const char*, int, const char*> params[] = {
        {"n", "v", 0, ""},   {"", "v", 3, ""},    {"n", "", 0, ""},
        {"n", "", 2, "a/b"}, {"n", "", 3, "a/b"}, {"n", "v", 1, "a/b"}};
    for (const auto& [name, value, valueType, refValueType] : params)
        ref->appendParamElem(name, value, static_cast<MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE>(valueType),
                             refValueType);
    data.appendSlide()->appendObject(ref);
    slide = data.appendSlide();
    slide->appendObject(object(6, "a", "b", "c")); // ends the slide: no kind has this number
    slide->appendObject(object(2, "a", "b", "c"));
    const QString expected = contents(QString(SOURCES) + "/tests/data/written/document.smil");
    EXPECT_EQ(written(data), expected.toStdString());
    EXPECT_EQ(Parser::convertToSMILLang(nullptr), "");
}

TEST(Writer, MeasuresInPerCent) {
    MMS_COMP_SMILData data(nullptr);
    data.setLayoutMeasureUnit(MMS_COMP_SMIL_UNIT_PERCENT);
    data.appendRegion(10, 1.0F / 3.0F, 100, 33.5F, "slice", "a");
    const char* region =
        R"(<region id="a"  height="33.5%"  width="100%" left="10%" top="0.333333%" fit="slice" />)";
    EXPECT_NE(written(data).find(region), std::string::npos) << written(data);
}

TEST(Writer, BackgroundLeavesTheWidthOpen) {
    // a colour, its text, and the status of reading that
    const std::tuple<const char*, const char*, int> rows[] = {{"#ff0800", " background-color=\"#ff0800", -8},
                                                              {"navy", " background-color=\"#000080", -8},
                                                              {"#fff", " background-color=\"#0f0f0f", -8},
                                                              {"", "", 0},
                                                              {"Navy", "", 0}};
    for (const auto& [color, attribute, status] : rows) {
        MMS_COMP_SMILData data(nullptr);
        data.getRootLayout()->setBackgroundColor(color);
        const std::string root =
            std::string("<root-layout height=\"160\" width=\"120") + attribute + "\" />\n";
        EXPECT_NE(written(data).find(root), std::string::npos) << color;
        QArray<char> octets(QByteArray::fromStdString(written(data)));
        EXPECT_EQ(Parser().parse(octets, nullptr, &data), status) << color;
    }
}

} // namespace
