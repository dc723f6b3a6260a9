#include "octets.h"

#include "smil/model/presentation.h"

#include <QDomDocument>

#include <functional>
#include <limits>
#include <tuple>

namespace {

TEST(RootLayout, ReadsItsElement) {
    // width, height and colour; the measures read, and the kind of the colour
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
        QDomElement element = document.createElement("root-layout");
        element.setAttribute("width", width);
        element.setAttribute("height", height);
        element.setAttribute("background-color", color);
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
    for (const QString& row : rows.split(", ")) {
        const QString text = row.section(" = ", 0, 0);
        MMS_COMP_SMILData data(nullptr);
        const double left = double(data.appendRegion(text, "", "", "", "", "")->getLeft());
        EXPECT_EQ(text + " = " + QString::number(left), row);
    }
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
    layout.appendRegion(&copy); // refused, so it stays ours
    other.appendRegion(image);
    layout.appendRegion(layout.appendRegion(std::numeric_limits<float>::quiet_NaN(), 0, 1, 1, "", "nan"));
    EXPECT_EQ(layout.getRegionCount(), 3);
    EXPECT_EQ(other.getRegionCount(), 0);

    MMS_COMP_SMILRegion* found = image;
    EXPECT_FALSE(layout.isRegionExist(nullptr, &found));
    EXPECT_EQ(found, image);
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

} // namespace
