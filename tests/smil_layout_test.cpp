#include "tests/testing.h"

#include <QDomDocument>

namespace {

using Parser = MMS_COMP_SMILParser;

TEST(RootLayout, ReadsItsElement) {
    // width, height and colour; the measures read, and the kind of colour
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {" 176PX ", "208px", "", "176 208 0"},
        {"", "abc", " red ", "-1 0 1"},
        {"px100", "px", "#ff8000", "0 -1 2"},
        {"100 px", "+5", "Red", "100 5 3"},
        {"50%", "1.5", "", "0 0 0"},
        {"-", "-7", "", "0 -7 0"},
        {"4294967297", "-99999999999999999999", "", "2147483647 -2147483648 0"},
    };
    for (const auto& [width, height, color, expected] : rows) {
        QDomDocument document;
        const char* text = "<root-layout width='%1' height='%2' background-color='%3'/>";
        ASSERT_TRUE(document.setContent(QString(text).arg(width, height, color)));
        QDomElement element = document.documentElement();
        MMS_COMP_SMILLayout layout;
        EXPECT_EQ(layout.setRootLayout(&element), 0);
        MMS_COMP_SMILRootLayout& root = *layout.getRootLayout();
        const int kind = root.getBackgroundColor()->kind;
        EXPECT_EQ(QString("%1 %2 %3").arg(root.getWidth()).arg(root.getHeight()).arg(kind), expected);
    }
    EXPECT_EQ(MMS_COMP_SMILLayout().setRootLayout(nullptr), -7);
}

TEST(Layout, TakesRegionMeasuresAsTexts) {
    const QString rows =
        " = -1,  PX  = -1, 12px = 12,  12.5  = 12.5, 50% = 50, 7em = 7, 1e2x = 100, -.5 = -0.5, "
        "5. = 5, +3 = 3, 1e39 = 3.40282e+38, 1e999 = 3.40282e+38, 1e99999999999 = 3.40282e+38, "
        "-1e999 = -3.40282e+38, . = 0, 1e-999 = 0, nan = 0, -inf = 0, abc = 0, --3 = 0";
    expectRows(rows.split(", "), [](const QString& text) {
        MMS_COMP_SMILData data(nullptr);
        return QString::number(double(data.appendRegion(text, "", "", "", "", "")->getLeft()));
    });
    MMS_COMP_SMILData data(nullptr);
    data.appendRegion("0", "1", "100%", "50%", "fill", "a");
    data.appendRegion("0", "0", "1", "2", "", "b");
    EXPECT_EQ(data.getLayoutMeasureUnit(), MMS_COMP_SMIL_UNIT_PERCENT) << "stays per cent";
}

TEST(Layout, NeverHoldsARegionTwice) {
    MMS_COMP_SMILLayout layout, other;
    MMS_COMP_SMILRegion* image = layout.appendRegion(0, 0, 120, 80, "meet", "Image");
    EXPECT_EQ(layout.appendRegion(-0.0f, 0, 120, 80, "meet", "Image"), image);
    EXPECT_NE(layout.appendRegion(0, 0, 120, 80, "meet", "Text"), image);
    layout.appendRegion(image);
    layout.appendRegion(nullptr);
    MMS_COMP_SMILRegion copy(*image);
    layout.appendRegion(&copy); // refused, so the caller keeps it
    other.appendRegion(image);
    layout.appendRegion(layout.appendRegion(std::numeric_limits<float>::quiet_NaN(), 0, 1, 1, "", "nan"));
    EXPECT_EQ(layout.getRegionCount(), 3);
    EXPECT_EQ(other.getRegionCount(), 0);

    MMS_COMP_SMILRegion* found = image;
    EXPECT_FALSE(layout.isRegionExist(nullptr, &found));
    EXPECT_EQ(found, image);
    copy.setTop(1);
    EXPECT_FALSE(layout.isRegionExist(&copy, &found));
    EXPECT_EQ(found, nullptr);
}

TEST(Layout, FindsTheFirstEqualRegionWhateverChanged) {
    using Region = MMS_COMP_SMILRegion;
    MMS_COMP_SMILLayout layout;
    Region* first = layout.appendRegion(0, 0, 1, 1, "fill", "a");
    Region* second = layout.appendRegion(0, 0, 1, 1, "fill", "b");
    Region* found = nullptr;
    const std::function<void(Region&)> changes[] = {
        [](Region& region) { region.setLeft(2); },     [](Region& region) { region.setTop(3); },
        [](Region& region) { region.setWidth(4); },    [](Region& region) { region.setHeight(5); },
        [](Region& region) { region.setFit("meet"); }, [](Region& region) { region.setId("c"); },
    };
    for (const auto& change : changes) {
        Region before(*first);
        change(*first);
        EXPECT_FALSE(layout.isRegionExist(&before, &found));
        EXPECT_EQ(found, nullptr);
        EXPECT_TRUE(layout.isRegionExist(first, &found));
        EXPECT_EQ(found, first);
    }
    for (const auto& change : changes)
        change(*second);
    EXPECT_TRUE(layout.isRegionExist(second, &found));
    EXPECT_EQ(found, first);
}

/// Regions written "id left,top,width,height;" each, with a slide and an object for each.
void fill(MMS_COMP_SMILData& data, const QString& regions) {
    MMS_COMP_SMILTimingContainer* slide = data.appendSlide();
    for (const QString& region : regions.split(';', Qt::SkipEmptyParts)) {
        const QString id = region.section(' ', 0, 0);
        const QStringList place = region.section(' ', 1).split(',');
        data.appendRegion(place[0], place[1], place[2], place[3], "meet", id);
        auto* object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setRegionId(id);
        slide->appendObject(object);
    }
}

QString regionsOf(const MMS_COMP_SMILData& data) {
    QString text;
    for (int i = 0; i < data.getRegionCount(); ++i) {
        const MMS_COMP_SMILRegion& region = *data.getRegion(static_cast<unsigned int>(i));
        QStringList place;
        for (const float measure : {region.getLeft(), region.getTop(), region.getWidth(), region.getHeight()})
            place << QString::number(double(measure));
        text += region.getId() + ' ' + place.join(',') + ';';
    }
    return text;
}

QString referencesOf(const MMS_COMP_SMILData& data, int slide = 0) {
    QString text;
    for (const MMS_COMP_SMILMediaObject* object : *data.getSlide(slide))
        text += object->getRegionId() + ';';
    return text;
}

TEST(Normaliser, Layouts) {
    const char* inOrder = "text 0,0,120,160;image 0,160,120,160;";
    const char* swapped = "image 0,160,120,160;text 0,0,120,160;";
    using Text = const char*;
    const std::tuple<Text, Text, Text, Text> rows[] = {
        {"none", "", inOrder, ""},
        {"one stays", "Main 10,20,50,40;", "text 10,20,120,160;image 0,160,120,160;", "text;"},
        {"second to the right", "A 0,0,60,160;B 60,0,60,160;", inOrder, "text;image;"},
        {"second below", "A 0,0,120,80;B 0,80,120,80;", inOrder, "text;image;"},
        {"second to the left", "A 60,0,60,160;B 0,0,60,160;", swapped, "image;text;"},
        {"second above", "A 0,80,120,80;B 0,0,120,80;", inOrder, "text;image;"},
        {"second below to the left", "A 60,0,60,80;B 0,80,60,80;", inOrder, "text;image;"},
        {"overlapping", "A 10,10,60,60;B 0,0,60,60;", inOrder, "text;image;"},
        {"left within tolerance", "A 59.995,0,60,99;B 0,0,60,99;", swapped, "image;text;"},
        {"left beyond tolerance", "A 59.98,0,60,99;B 0,0,60,99;", inOrder, "text;image;"},
        {"right beats left", "A 0,0,0,99;B 0,0,0,99;", inOrder, "text;image;"},
        {"names crossed", "image 0,0,120,80;text 0,80,120,80;", inOrder, "image;image;"},
        {"three by name", "Top 0,0,1,1;Pic1 2,2,1,1;Pic2 3,3,1,1;",
         "text 0,0,1,1;image 2,2,1,1;Pic2 3,3,1,1;", "text;image;Pic2;"},
        {"text region last", "x 0,0,1,1;y 2,2,1,1;TextArea 3,3,1,1;", "x 0,0,1,1;image 2,2,1,1;text 3,3,1,1;",
         "x;image;text;"},
        {"named in any case", "myIMAGE 0,0,1,1;b 2,2,1,1;aTxt 3,3,1,1;img2 4,4,1,1;",
         "image 0,0,1,1;b 2,2,1,1;text 3,3,1,1;img2 4,4,1,1;", "image;b;text;img2;"},
        {"one name for both", "imgtext 0,0,1,1;b 2,2,1,1;c 3,3,1,1;", "text 0,0,1,1;image 2,2,1,1;c 3,3,1,1;",
         "text;image;c;"}};
    for (const auto& [name, regions, normalised, references] : rows) {
        MMS_COMP_SMILData data(nullptr);
        fill(data, regions);
        EXPECT_EQ(Parser::updateToVarnelioRegion(&data), 1);
        EXPECT_EQ(regionsOf(data), normalised) << name;
        EXPECT_EQ(referencesOf(data), references) << name;
        EXPECT_EQ(data.getRegion(0)->getFit(), *regions ? MMS_COMP_SMIL_FIT_MEET : MMS_COMP_SMIL_FIT_HIDDEN);
    }
    EXPECT_EQ(Parser::updateToVarnelioRegion(nullptr), 0);
}

TEST(Normaliser, RenamesReferencesInEverySlideExactly) {
    MMS_COMP_SMILData data(nullptr);
    fill(data, "a 0,0,1,1;A 0,0,1,1;");
    fill(data, "a 0,0,1,1;");
    Parser::updateObjectRegionId(&data, "a", "b");
    EXPECT_EQ(referencesOf(data), "b;A;");
    EXPECT_EQ(referencesOf(data, 1), "b;");
    EXPECT_EQ(data.getRegion(0)->getId(), "a");
    data.setRootLayout(176, 208);
    Parser::updateToVarnelioRootLayout(&data);
    EXPECT_TRUE(data.getRootLayout()->getWidth() == 120 && data.getRootLayout()->getHeight() == 160);
    Parser::updateToVarnelioRootLayout(nullptr);
}

} // namespace
