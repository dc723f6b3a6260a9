#include "octets.h"

#include "smil/model/presentation.h"

#include <QDomDocument>

#include <limits>
#include <random>

namespace {

QDomElement element(QDomDocument& document, const char* xml) {
    EXPECT_TRUE(document.setContent(QString::fromUtf8(xml))) << xml;
    return document.documentElement();
}

TEST(Region, FitWordIsComparedExactly) {
    const struct {
        const char* word;
        int fit;
    } rows[] = {{"hidden", 0}, {"fill", 1}, {"meet", 2},  {"scroll", 3},
                {"slice", 4},  {"Fill", 5}, {"fill ", 5}, {"", 5}};
    for (const auto& row : rows) {
        MMS_COMP_SMILRegion region;
        EXPECT_TRUE(region.setFit(QString(row.word)));
        EXPECT_EQ(region.getFit(), row.fit) << row.word;
    }
}

TEST(RootLayout, ReadsItsElement) {
    const struct {
        const char* xml;
        int width, height, colorKind;
    } rows[] = {
        {"<root-layout width=' 176PX ' height='208px'/>", 176, 208, 0},
        {"<root-layout height='abc'/>", -1, 0, 0},
        {"<root-layout width='px100' height='px' background-color=' red '/>", 0, -1, 1},
        {"<root-layout width='100 px' height='+5' background-color='#ff8000'/>", 100, 5, 2},
        {"<root-layout width='50%' height='1.5' background-color='Red'/>", 0, 0, 3},
        {"<root-layout width='4294967297' height='-99999999999999999999'/>", 2147483647, -2147483647 - 1, 0},
        {"<root-layout width='-' height='-7'/>", 0, -7, 0},
    };
    for (const auto& row : rows) {
        QDomDocument document;
        QDomElement root = element(document, row.xml);
        MMS_COMP_SMILLayout layout;
        EXPECT_EQ(layout.setRootLayout(&root), 0);
        EXPECT_EQ(layout.getRootLayout()->getWidth(), row.width) << row.xml;
        EXPECT_EQ(layout.getRootLayout()->getHeight(), row.height) << row.xml;
        EXPECT_EQ(layout.getRootLayout()->getBackgroundColor()->kind, row.colorKind) << row.xml;
    }
    MMS_COMP_SMILLayout layout;
    EXPECT_EQ(layout.setRootLayout(nullptr), -7);
}

TEST(Layout, TakesRegionMeasuresAsTexts) {
    constexpr float most = std::numeric_limits<float>::max();
    const struct {
        const char* text;
        float value;
    } rows[] = {{"", -1},
                {" PX ", -1},
                {"12px", 12},
                {" 12.5 ", 12.5f},
                {"50%", 50},
                {"7em", 7},
                {"1e2x", 100},
                {"-.5", -0.5f},
                {"5.", 5},
                {".", 0},
                {"1e999", most},
                {"-1e999", -most},
                {"1e-999", 0},
                {"nan", 0},
                {"-inf", 0},
                {"abc", 0},
                {"+3", 3},
                {"--3", 0},
                {"1e99999999999", most},
                {"1e39", most}};
    for (const auto& row : rows) {
        MMS_COMP_SMILData data(nullptr);
        const MMS_COMP_SMILRegion* region = data.appendRegion(QString(row.text), "1", "2", "3", "fill", "a");
        EXPECT_EQ(region->getLeft(), row.value) << row.text;
        EXPECT_EQ(region->getTop(), 1.0f);
        EXPECT_EQ(region->getWidth(), 2.0f);
        EXPECT_EQ(region->getHeight(), 3.0f);
    }
    MMS_COMP_SMILData data(nullptr);
    EXPECT_EQ(data.appendRegion("0", "0", "100%", "50%", "", "a")->getHeight(), 50.0f);
    data.appendRegion("0", "0", "1", "2", "", "b");
    EXPECT_EQ(data.getLayoutMeasureUnit(), MMS_COMP_SMIL_UNIT_PERCENT) << "stays per cent";
}

TEST(Layout, NeverHoldsARegionTwice) {
    MMS_COMP_SMILLayout layout;
    MMS_COMP_SMILRegion* image = layout.appendRegion(0, 0, 120, 80, "meet", "Image");
    EXPECT_EQ(layout.appendRegion(-0.0f, 0, 120, 80, "meet", "Image"), image);
    EXPECT_NE(layout.appendRegion(0, 0, 120, 80, "meet", "Text"), image);
    layout.appendRegion(image);
    layout.appendRegion(nullptr);
    MMS_COMP_SMILRegion copy(*image);
    layout.appendRegion(&copy); // refused, so it stays ours
    MMS_COMP_SMILLayout other;
    other.appendRegion(image);
    MMS_COMP_SMILRegion* odd =
        layout.appendRegion(std::numeric_limits<float>::quiet_NaN(), 0, 1, 1, "", "nan");
    layout.appendRegion(odd);
    EXPECT_EQ(layout.getRegionCount(), 3);
    EXPECT_EQ(other.getRegionCount(), 0);
    EXPECT_EQ(layout.getRegion(3), nullptr);
    EXPECT_EQ(layout.getRegion(std::numeric_limits<unsigned int>::max()), nullptr);

    MMS_COMP_SMILRegion* found = image;
    EXPECT_FALSE(layout.isRegionExist(nullptr, &found));
    EXPECT_EQ(found, image);
    copy.setTop(1);
    EXPECT_FALSE(layout.isRegionExist(&copy, &found));
    EXPECT_EQ(found, nullptr);
}

// Regions change under the layout's hands; it must answer as a walk over them would.
TEST(Layout, FindsTheFirstEqualRegionWhateverChanged) {
    std::mt19937 random(1);
    const auto small = [&random] { return static_cast<float>(random() % 3); };
    MMS_COMP_SMILLayout layout;
    for (int step = 0; step < 3000; ++step) {
        MMS_COMP_SMILRegion wanted;
        wanted.setLeft(small());
        wanted.setTop(small());
        wanted.setId(QString::number(random() % 3));
        MMS_COMP_SMILRegion* expected = nullptr;
        for (MMS_COMP_SMILRegion* region : layout.getRegionList())
            if (!expected && region->getLeft() == wanted.getLeft() && region->getTop() == wanted.getTop() &&
                region->getId() == wanted.getId() && region->getFit() == 0 && region->getWidth() == 120)
                expected = region;
        MMS_COMP_SMILRegion* found = nullptr;
        ASSERT_EQ(layout.isRegionExist(&wanted, &found), expected != nullptr);
        ASSERT_EQ(found, expected);
        if (!expected && layout.getRegionCount() < 40)
            layout.appendRegion(new MMS_COMP_SMILRegion(wanted)); // leaks, and so fails, if it is refused
        MMS_COMP_SMILRegion* any = layout.getRegion(static_cast<unsigned int>(random()) %
                                                    static_cast<unsigned int>(layout.getRegionCount()));
        switch (random() % 8) {
        case 0:
            any->setLeft(small());
            break;
        case 1:
            any->setId(QString::number(random() % 3));
            break;
        case 2:
            any->setTop(small());
            break;
        default:
            break;
        }
    }
}

TEST(Layout, HoldsVeryManyRegions) {
    MMS_COMP_SMILLayout layout;
    for (int i = 0; i < 200000; ++i)
        layout.appendRegion(0, 0, 1, 1, "fill", QString::number(i));
    EXPECT_EQ(layout.getRegionCount(), 200000);
}

} // namespace
