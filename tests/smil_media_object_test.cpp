#include "tests/testing.h"

#include <QDomDocument>

namespace {

using Object = MMS_COMP_SMILMediaObject;

int fill(Object& object, const QByteArray& xml, MMS_COMP_SMILMultipart* container) {
    QDomDocument document;
    EXPECT_TRUE(document.setContent(xml)) << xml.constData();
    QDomElement element = document.documentElement();
    return object.setObjectElem(&element, container);
}

TEST(MediaObject, KindDecidesTypesAndContent) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"audio", "", "audio"}, {"video", "", "video"},     {"text", "txt", "text"},
        {"img", "", "image"},   {"ref", "", "application"}, {"IMG", "", "application"}};
    for (const auto& [tag, mediaType, contentType] : rows) {
        MMS_COMP_SMILMultipart container;
        addPart(container, "a");
        Object object(&container), made(nullptr);
        EXPECT_EQ(fill(object, QByteArray("<") + tag + " src='a'/>", &container), 0);
        EXPECT_EQ(object.getMediaType(), mediaType) << tag;
        EXPECT_TRUE(
            made.setData("r", "dir/b.x", object.getMediaElementType(), "3GP", QByteArray("xyz"), &container));
        ASSERT_EQ(container.getPartCount(), 2);
        const Part* part = container.getBodypartByIndex(1, false);
        EXPECT_EQ(made.getData(), part);
        EXPECT_EQ(part->getMimeFormat() + '|' + part->getContentLocation() + '|' + part->getDispFileName() +
                      '|' + QByteArray(part->getBodyData()) + '|' + made.getAlt(),
                  contentType + QString("/3gpp|dir/b.x|b.x|xyz|dir/b.x"));
        EXPECT_TRUE(made.setData("r", "c", MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("q"), &container));
        EXPECT_EQ(container.getPartCount(), 2) << "the part is filled anew";
    }
}

TEST(MediaObject, LinksItselfToItsContent) {
    MMS_COMP_SMILMultipart container;
    Part* linked = addPart(container, "A.jpg", 0);
    Part* fresh = addPart(container, "a.jpg");
    const char* xml = "<img src=' a.JPG ' alt=' x ' region=' r ' begin=' 2s ' end='id(t)(end)'>"
                      "<param name='n' value='v' valuetype='ref' type='image/gif'/><x><param name='no'/></x>"
                      "<param name='m' value=' w '/></img>";
    Object object(&container), second(&container), lost(&container), alone(nullptr);
    ASSERT_EQ(fill(object, xml, &container), 0);
    EXPECT_EQ(object.getData(), fresh) << "ordinary parts come first";
    EXPECT_TRUE(fresh->getRefCount() == 1 && fresh->getDispFileType() == 0);
    EXPECT_EQ(object.getBeginTimeLength(), 2000);
    ASSERT_EQ(object.getParamCount(), 2);
    EXPECT_EQ(object.getAlt() + '|' + object.getRegionId() + '|' + object.getEndTimeEvent() + '|' +
                  object.getParam(0)->getRefValueType() + '|' + object.getParamValueByName("m"),
              "x|r|t|image/gif| w ");
    EXPECT_EQ(object.getParam(0)->getValueType(), MMS_COMP_SMIL_PARAM_REF);
    EXPECT_EQ(object.getParam(1)->getValueType(), MMS_COMP_SMIL_PARAM_OTHER);

    ASSERT_EQ(fill(second, xml, &container), 0);
    EXPECT_EQ(second.getData(), linked);
    EXPECT_EQ(linked->getRefCount(), 2);

    for (Object* missing : {&lost, &alone}) {
        EXPECT_EQ(fill(*missing, "<text src='b' begin='2s'><param name='n'/></text>", &container), 3);
        EXPECT_EQ(missing->getBeginTimeType(), MMS_COMP_SMIL_TIME_UNSPECIFIED);
        EXPECT_EQ(missing->getParamCount(), 0);
    }
}

TEST(MediaObject, CopyBeginsAtTheEndOfTheSource) {
    MMS_COMP_SMILMultipart container, other;
    addPart(container, "a");
    Object object(&container), copy(nullptr);
    const char* xml = "<img src='a' alt='x' begin='1s' end='id(t)(3s)'><param name='n' value='v'/></img>";
    ASSERT_EQ(fill(object, xml, nullptr), 0);
    copy.setEndTimeLength(77);
    addPart(other, "a");
    EXPECT_FALSE(object.copyTo(&copy, &other)) << "only linked parts are found";
    Part* part = addPart(other, "A", 0);
    EXPECT_FALSE(object.copyTo(nullptr, &other) || object.copyTo(&copy, nullptr) ||
                 object.copyTo(&object, &container));
    ASSERT_TRUE(object.copyTo(&copy, &other));
    EXPECT_TRUE(copy.getData() == part && copy.getMultiPart() == &other && part->getRefCount() == 1);
    EXPECT_EQ(copy.getBeginTimeEvent() + copy.getParamValueByName("n"), "tv");
    EXPECT_TRUE(copy.getBeginTimeLength() == 3000 && copy.getEndTimeLength() == 77);
}

TEST(MediaObject, ParamsAreFoundByTheFirstOfTheirName) {
    Object object(nullptr);
    object.updateParamByName("loop", "1");
    EXPECT_EQ(object.appendParamElem("loop", "2", QString("object"), "t"), 0);
    EXPECT_EQ(object.getParam(1)->getValueType(), MMS_COMP_SMIL_PARAM_OBJECT);
    object.updateParamByName("loop", "3");
    EXPECT_EQ(object.getParamValueByName("loop"), "3");
    object.removeParamByName("Loop");
    object.removeParamByName("loop");
    EXPECT_EQ(object.getParamValueByName("loop"), "2");
    EXPECT_FALSE(object.deleteParamElem(1));
    EXPECT_TRUE(object.deleteParamElem(0));
}

TEST(MediaObject, RecordKeepsEverything) {
    Released<Object> object, back;
    QByteArray endless = recordOf(object);
    EXPECT_EQ(endless, octets("00000005 00000000 00000000 00000000 00000000"
                              "00000002 00000000 00000000 00000002 00000000 00000000"
                              "00000000 00000000 00000000"));
    EXPECT_TRUE(object.setData("r", "s", MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("hi"), nullptr));
    object.setAlt(QString());
    object.setMimeType("m");
    *object.getBegin() = {MMS_COMP_SMIL_TIME_EVENT, "e", -1};
    object.setEndTimeLength(9);
    object.appendParamElem("n", "v", MMS_COMP_SMIL_PARAM_REF, "t");
    const QByteArray record = recordOf(object);
    EXPECT_TRUE(
        record.startsWith(octets("00000002 00000006007400780074 000000020073 000000020072 00000002006D"
                                 "00000001 000000020065 FFFFFFFF 00000002 00000000 00000009"
                                 "FFFFFFFF 00000001")));
    EXPECT_TRUE(record.endsWith(octets("00000001 00000002006E 000000020076 00000001 000000020074")));

    ASSERT_TRUE(read(back, record));
    EXPECT_EQ(recordOf(back), record);
    endless.replace(endless.size() - 4, 4, octets("7FFFFFFF"));
    read(back, endless);
    EXPECT_LE(back.getParamCount(), 2);
    EXPECT_EQ(back.getData(), nullptr) << "the former part is gone";
}

TEST(MediaObject, NeverDeletesAPartWhenItGoesAway) {
    MMS_COMP_SMILMultipart container;
    for (const bool fromRecord : {false, true}) {
        MMS_COMP_SMILTimingContainer slide(nullptr);
        EXPECT_TRUE(
            slide.updateData("r", "a", MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("hi"), true, nullptr));
        const std::unique_ptr<Part> made(slide.getMediaObject(0)->getData());
        EXPECT_TRUE(!fromRecord || read(slide, recordOf(slide)));
        Part* part = slide.getMediaObject(fromRecord)->getData();
        ASSERT_NE(part, nullptr);
        const BodypartLink link(part);
        EXPECT_TRUE(slide.remove(fromRecord));
        ASSERT_EQ(link.get(), part);
        container.appendBodypart(fromRecord ? part : new Part(*part));
    }

    Part elsewhere;
    Object cleared(&container); // the container does not have the part
    cleared.setData(&elsewhere);
    cleared.clear();
    EXPECT_EQ(cleared.getData(), nullptr);
    container.deletePart(0);
    ASSERT_EQ(container.getPartCount(), 1);
    Object homeless(nullptr);
    homeless.setData(container.getBodypartByIndex(0, false));
    homeless.clear();
    EXPECT_EQ(container.getPartCount(), 0) << "without a container the part itself is deleted";
}

} // namespace
