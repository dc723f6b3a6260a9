#include "octets.h"

#include "smil/model/presentation.h"
#include "smil/parser/smil_parser.h"

#include <tuple>

namespace {

using Parser = MMS_COMP_SMILParser;

/// Regions written "id left,top,width,height;" each, and one slide more with an object for each.
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
        {"second above to the left", "A 60,80,60,80;B 0,0,60,80;", swapped, "image;text;"},
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
}

TEST(Normaliser, RootLayout) {
    MMS_COMP_SMILData data(nullptr);
    data.setRootLayout(176, 208);
    Parser::updateToVarnelioRootLayout(&data);
    EXPECT_EQ(data.getRootLayout()->getWidth(), 120);
    EXPECT_EQ(data.getRootLayout()->getHeight(), 160);
}

} // namespace
