#include "octets.h"

#include "smil/model/presentation.h"
#include "smil/parser/smil_parser.h"

namespace {

using Parser = MMS_COMP_SMILParser;

struct Rectangle {
    const char* id;
    float left, top, width, height;
};

/// A document of these regions, with one slide of an object for each.
void fill(MMS_COMP_SMILData& data, const QList<Rectangle>& regions) {
    MMS_COMP_SMILTimingContainer* slide = data.appendSlide();
    for (const Rectangle& region : regions) {
        data.appendRegion(region.left, region.top, region.width, region.height, "meet", region.id);
        auto* object = new MMS_COMP_SMILMediaObject(nullptr);
        object->setRegionId(region.id);
        slide->appendObject(object);
    }
}

/// The regions as text, "id left,top,width,height;" each.
QString regionsOf(const MMS_COMP_SMILData& data) {
    QString text;
    for (int i = 0; i < data.getRegionCount(); ++i) {
        const MMS_COMP_SMILRegion& region = *data.getRegion(static_cast<unsigned int>(i));
        text += QString("%1 %2,%3,%4,%5;")
                    .arg(region.getId())
                    .arg(double(region.getLeft()))
                    .arg(double(region.getTop()))
                    .arg(double(region.getWidth()))
                    .arg(double(region.getHeight()));
    }
    return text;
}

QString referencesOf(const MMS_COMP_SMILData& data) {
    QString text;
    for (int i = 0; i < data.getMediaObjectCount(0); ++i)
        text += data.getMediaObject(0, i)->getRegionId() + ';';
    return text;
}

TEST(Normaliser, Layouts) {
    const QString standard = "text 0,0,120,160;image 0,160,120,160;";
    const QString swapped = "image 0,160,120,160;text 0,0,120,160;";
    const struct {
        const char* name;
        QList<Rectangle> regions;
        QString normalised;
        QString references;
    } rows[] = {
        {"no region", {}, standard, ""},
        {"one keeps its place",
         {{"Main", 10, 20, 50, 40}},
         "text 10,20,120,160;image 0,160,120,160;",
         "text;"},
        {"second to the right", {{"A", 0, 0, 60, 160}, {"B", 60, 0, 60, 160}}, standard, "text;image;"},
        {"second below", {{"A", 0, 0, 120, 80}, {"B", 0, 80, 120, 80}}, standard, "text;image;"},
        {"second to the left", {{"A", 60, 0, 60, 160}, {"B", 0, 0, 60, 160}}, swapped, "image;text;"},
        {"second above", {{"A", 0, 80, 120, 80}, {"B", 0, 0, 120, 80}}, standard, "text;image;"},
        {"second above to the left", {{"A", 60, 80, 60, 80}, {"B", 0, 0, 60, 80}}, swapped, "image;text;"},
        {"second below to the left", {{"A", 60, 0, 60, 80}, {"B", 0, 80, 60, 80}}, standard, "text;image;"},
        {"overlapping", {{"A", 10, 10, 60, 60}, {"B", 0, 0, 60, 60}}, standard, "text;image;"},
        {"left within tolerance", {{"A", 59.995F, 0, 60, 99}, {"B", 0, 0, 60, 99}}, swapped, "image;text;"},
        {"left beyond tolerance", {{"A", 59.98F, 0, 60, 99}, {"B", 0, 0, 60, 99}}, standard, "text;image;"},
        {"right beats left", {{"A", 0, 0, 0, 99}, {"B", 0, 0, 0, 99}}, standard, "text;image;"},
        {"names crossed", {{"image", 0, 0, 120, 80}, {"text", 0, 80, 120, 80}}, standard, "image;image;"},
        {"three by name",
         {{"Top", 0, 0, 1, 1}, {"Pic1", 2, 2, 1, 1}, {"Pic2", 3, 3, 1, 1}},
         "text 0,0,1,1;image 2,2,1,1;Pic2 3,3,1,1;",
         "text;image;Pic2;"},
        {"three without names",
         {{"a", 0, 0, 1, 1}, {"b", 2, 2, 1, 1}, {"c", 3, 3, 1, 1}},
         "text 0,0,1,1;image 2,2,1,1;c 3,3,1,1;",
         "text;image;c;"},
        {"text region last",
         {{"x", 0, 0, 1, 1}, {"y", 2, 2, 1, 1}, {"TextArea", 3, 3, 1, 1}},
         "x 0,0,1,1;image 2,2,1,1;text 3,3,1,1;",
         "x;image;text;"},
        {"named in any case",
         {{"myIMAGE", 0, 0, 1, 1}, {"b", 2, 2, 1, 1}, {"aTxt", 3, 3, 1, 1}, {"img2", 4, 4, 1, 1}},
         "image 0,0,1,1;b 2,2,1,1;text 3,3,1,1;img2 4,4,1,1;",
         "image;b;text;img2;"},
        {"one name for both",
         {{"imgtext", 0, 0, 1, 1}, {"b", 2, 2, 1, 1}, {"c", 3, 3, 1, 1}},
         "text 0,0,1,1;image 2,2,1,1;c 3,3,1,1;",
         "text;image;c;"}};
    for (const auto& row : rows) {
        MMS_COMP_SMILData data(nullptr);
        fill(data, row.regions);
        EXPECT_EQ(Parser::updateToVarnelioRegion(&data), 1);
        EXPECT_EQ(regionsOf(data), row.normalised) << row.name;
        EXPECT_EQ(referencesOf(data), row.references) << row.name;
        const bool made = row.regions.isEmpty();
        EXPECT_EQ(data.getRegion(0)->getFit(), made ? MMS_COMP_SMIL_FIT_HIDDEN : MMS_COMP_SMIL_FIT_MEET);
    }
    EXPECT_EQ(Parser::updateToVarnelioRegion(nullptr), 0);
}

TEST(Normaliser, RenamesReferencesInEverySlideExactly) {
    MMS_COMP_SMILData data(nullptr);
    fill(data, {{"a", 0, 0, 1, 1}, {"A", 0, 0, 1, 1}});
    fill(data, {{"a", 0, 0, 1, 1}});
    Parser::updateObjectRegionId(&data, "a", "b");
    EXPECT_EQ(referencesOf(data), "b;A;");
    EXPECT_EQ(data.getMediaObject(1, 0)->getRegionId(), "b");
    EXPECT_EQ(data.getRegion(0)->getId(), "a");
}

TEST(Normaliser, RootLayout) {
    MMS_COMP_SMILData data(nullptr);
    data.setRootLayout(176, 208);
    Parser::updateToVarnelioRootLayout(&data);
    EXPECT_EQ(data.getRootLayout()->getWidth(), 120);
    EXPECT_EQ(data.getRootLayout()->getHeight(), 160);
    Parser::updateToVarnelioRootLayout(nullptr);
}

} // namespace
