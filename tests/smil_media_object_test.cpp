#include "octets.h"

#include "multipart/multipart.h"
#include "smil/model/media_object.h"

#include <QDataStream>
#include <QDomDocument>
#include <QIODevice>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

Part* addPart(MMS_COMP_SMILMultipart& container, const QString& location, int fileType = 1) {
    auto* part = new Part;
    part->setContentLocation(location);
    part->setDispFileType(fileType);
    container.appendBodypart(part);
    return part;
}

int fill(MMS_COMP_SMILMediaObject& object, const char* xml, MMS_COMP_SMILMultipart* container) {
    QDomDocument document;
    EXPECT_TRUE(document.setContent(QString::fromUtf8(xml))) << xml;
    QDomElement element = document.documentElement();
    return object.setObjectElem(&element, container);
}

QByteArray recordOf(const MMS_COMP_SMILMediaObject& object) {
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    EXPECT_TRUE(object.writeToStream(stream));
    return octets;
}

bool read(MMS_COMP_SMILMediaObject& object, const QByteArray& octets) {
    QDataStream stream(octets);
    return object.readFromStream(stream);
}

TEST(MediaObject, KindDecidesTypesAndContent) {
    const struct {
        const char* tag;
        int type;
        const char* mediaType;
        const char* contentType;
    } rows[] = {
        {"audio", 0, "", "audio"}, {"video", 1, "", "video"},     {"text", 2, "txt", "text"},
        {"img", 3, "", "image"},   {"ref", 4, "", "application"}, {"IMG", 5, "", "application"},
    };
    for (const auto& row : rows) {
        MMS_COMP_SMILMultipart container;
        addPart(container, "a");
        MMS_COMP_SMILMediaObject object(&container);
        EXPECT_EQ(fill(object, ("<" + std::string(row.tag) + " src='a'/>").c_str(), &container), 0);
        EXPECT_EQ(object.getMediaElementType(), row.type) << row.tag;
        EXPECT_EQ(object.getMediaType(), row.mediaType) << row.tag;

        MMS_COMP_SMILMediaObject made(nullptr);
        EXPECT_TRUE(
            made.setData("r", "dir/b.x", object.getMediaElementType(), "3GP", QByteArray("xyz"), &container));
        ASSERT_EQ(container.getPartCount(), 2);
        EXPECT_EQ(made.getData(), container.getBodypartByIndex(1, false));
        EXPECT_EQ(made.getData()->getMimeFormat(), row.contentType + QString("/3gpp"));
        EXPECT_EQ(made.getData()->getContentLocation(), "dir/b.x");
        EXPECT_EQ(made.getData()->getDispFileName(), "b.x");
        EXPECT_EQ(made.getData()->getDispFileType(), 0);
        EXPECT_EQ(QByteArray(made.getData()->getBodyData()), "xyz");
        EXPECT_EQ(made.getAlt(), "dir/b.x");
        EXPECT_TRUE(made.setData("r", "c", MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("q"), &container));
        EXPECT_EQ(container.getPartCount(), 2) << "the part is filled anew";
    }
}

TEST(MediaObject, LinksItselfToItsContent) {
    MMS_COMP_SMILMultipart container;
    Part* linked = addPart(container, "A.jpg", 0);
    Part* fresh = addPart(container, "a.jpg", 1);
    const char* xml = "<img src=' a.JPG ' alt=' x ' region=' r ' begin=' 2s ' end='id(t)(end)'>"
                      "<param name='n' value='v' valuetype='ref' type='image/gif'/><x><param name='no'/></x>"
                      "<param name='m' value=' w '/></img>";
    MMS_COMP_SMILMediaObject object(&container);
    ASSERT_EQ(fill(object, xml, &container), 0);
    EXPECT_EQ(object.getData(), fresh) << "ordinary parts come first";
    EXPECT_EQ(fresh->getRefCount(), 1);
    EXPECT_EQ(fresh->getDispFileType(), 0);
    EXPECT_EQ(object.getAlt(), "x");
    EXPECT_EQ(object.getRegionId(), "r");
    EXPECT_EQ(object.getBeginTimeType(), MMS_COMP_SMIL_TIME_OFFSET);
    EXPECT_EQ(object.getBeginTimeLength(), 2000);
    EXPECT_EQ(object.getEndTimeEvent(), "t");
    ASSERT_EQ(object.getParamCount(), 2);
    EXPECT_EQ(object.getParam(0)->getValueType(), MMS_COMP_SMIL_PARAM_REF);
    EXPECT_EQ(object.getParam(0)->getRefValueType(), "image/gif");
    EXPECT_EQ(object.getParamValueByName("m"), " w ");
    EXPECT_EQ(object.getParam(1)->getValueType(), MMS_COMP_SMIL_PARAM_OTHER);

    MMS_COMP_SMILMediaObject second(&container);
    ASSERT_EQ(fill(second, xml, &container), 0);
    EXPECT_EQ(second.getData(), linked);
    EXPECT_EQ(linked->getRefCount(), 2);

    MMS_COMP_SMILMediaObject lost(&container), alone(nullptr);
    for (MMS_COMP_SMILMediaObject* missing : {&lost, &alone}) {
        EXPECT_EQ(fill(*missing, "<text src='b' begin='2s'><param name='n'/></text>", &container), 3);
        EXPECT_EQ(missing->getBeginTimeType(), MMS_COMP_SMIL_TIME_UNSPECIFIED);
        EXPECT_EQ(missing->getParamCount(), 0);
        EXPECT_EQ(missing->getSrc(), "b");
    }
}

TEST(MediaObject, CopyBeginsAtTheEndOfTheSource) {
    MMS_COMP_SMILMultipart container, other;
    addPart(container, "a");
    MMS_COMP_SMILMediaObject object(&container), copy(nullptr);
    ASSERT_EQ(fill(object,
                   "<img src='a' alt='x' begin='1s' end='id(t)(3s)'><param name='n' value='v'/></img>",
                   nullptr),
              0);
    copy.setEndTimeLength(77);
    addPart(other, "a", 1);
    EXPECT_FALSE(object.copyTo(&copy, &other)) << "only linked parts are found";
    Part* part = addPart(other, "A", 0);
    EXPECT_FALSE(object.copyTo(nullptr, &other));
    EXPECT_FALSE(object.copyTo(&copy, nullptr));
    EXPECT_FALSE(object.copyTo(&object, &container));
    ASSERT_TRUE(object.copyTo(&copy, &other));
    EXPECT_EQ(copy.getData(), part);
    EXPECT_EQ(part->getRefCount(), 1);
    EXPECT_EQ(copy.getMultiPart(), &other);
    EXPECT_EQ(copy.getAlt(), "x");
    EXPECT_EQ(copy.getBeginTimeType(), MMS_COMP_SMIL_TIME_EVENT);
    EXPECT_EQ(copy.getBeginTimeEvent(), "t");
    EXPECT_EQ(copy.getBeginTimeLength(), 3000);
    EXPECT_EQ(copy.getEndTimeType(), MMS_COMP_SMIL_TIME_UNSPECIFIED);
    EXPECT_EQ(copy.getEndTimeLength(), 77);
    EXPECT_EQ(copy.getParamValueByName("n"), "v");
}

TEST(MediaObject, ParamsAreFoundByTheFirstOfTheirName) {
    MMS_COMP_SMILMediaObject object(nullptr);
    object.updateParamByName("loop", "1");
    EXPECT_EQ(object.getParam(0)->getValueType(), MMS_COMP_SMIL_PARAM_DATA);
    EXPECT_EQ(object.appendParamElem("loop", "2", QString("object"), "t"), 0);
    EXPECT_EQ(object.getParam(1)->getValueType(), MMS_COMP_SMIL_PARAM_OBJECT);
    object.updateParamByName("loop", "3");
    EXPECT_EQ(object.getParamValueByName("loop"), "3");
    object.removeParamByName("Loop");
    object.removeParamByName("loop");
    EXPECT_EQ(object.getParamValueByName("loop"), "2");
    EXPECT_FALSE(object.deleteParamElem(1));
    EXPECT_TRUE(object.deleteParamElem(0));
    EXPECT_EQ(object.getParam(0), nullptr);
}

TEST(MediaObject, RecordKeepsEverything) {
    MMS_COMP_SMILMediaObject object(nullptr);
    EXPECT_EQ(recordOf(object), octets("00000005 00000000 00000000 00000000 00000000"
                                       "00000002 00000000 00000000 00000002 00000000 00000000"
                                       "00000000 00000000 00000000"));
    EXPECT_TRUE(object.setData("r", "s", MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("hi"), nullptr));
    object.setAlt(QString());
    object.setMimeType("m");
    object.setBeginTimeType(MMS_COMP_SMIL_TIME_EVENT);
    object.setBeginTimeEvent("e");
    object.setBeginTimeLength(-1);
    object.setEndTimeLength(9);
    object.appendParamElem("n", "v", MMS_COMP_SMIL_PARAM_REF, "t");
    const QByteArray record = recordOf(object);
    EXPECT_TRUE(
        record.startsWith(octets("00000002 00000006007400780074 000000020073 000000020072 00000002006D"
                                 "00000001 000000020065 FFFFFFFF 00000002 00000000 00000009"
                                 "FFFFFFFF 00000001")));
    EXPECT_TRUE(record.endsWith(octets("00000001 00000002006E 000000020076 00000001 000000020074")));

    MMS_COMP_SMILMediaObject back(nullptr);
    ASSERT_TRUE(read(back, record));
    EXPECT_EQ(recordOf(back), record);
    for (qsizetype length = 0; length < record.size(); ++length) {
        MMS_COMP_SMILMediaObject cut(nullptr);
        read(cut, record.left(length));
        EXPECT_LE(cut.getParamCount(), 1) << length;
    }
    QByteArray endless = recordOf(MMS_COMP_SMILMediaObject(nullptr));
    endless.replace(endless.size() - 4, 4, octets("7FFFFFFF"));
    read(back, endless);
    EXPECT_LE(back.getParamCount(), 2);
    EXPECT_EQ(back.getData(), nullptr) << "the former part is gone";
}

TEST(MediaObject, PartBelongsToOneOwnerAtATime) {
    MMS_COMP_SMILMediaObject source(nullptr);
    source.setData("r", "a", MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("hi"), nullptr);
    const QByteArray record = recordOf(source);
    MMS_COMP_SMILMultipart container;
    Part* part = nullptr;
    {
        MMS_COMP_SMILMediaObject object(nullptr);
        ASSERT_TRUE(read(object, record));
        part = object.getData();
        container.appendBodypart(part);
    }
    ASSERT_EQ(container.getPartCount(), 1) << "the container had taken the part over";

    MMS_COMP_SMILMediaObject first(&container), second(&container);
    first.setData(part);
    second.setData(part);
    part->setRefCount(2);
    first.clear();
    EXPECT_EQ(second.getData(), part) << "one reference is left";
    read(second, record); // deletes the part where it is, and brings another
    EXPECT_EQ(container.getPartCount(), 0);
    ASSERT_NE(second.getData(), nullptr);
    second.clear(); // the container does not know the part
    EXPECT_EQ(second.getData(), nullptr);

    MMS_COMP_SMILMediaObject third(nullptr);
    third.setData(addPart(container, "b"));
    third.clear();
    EXPECT_EQ(container.getPartCount(), 0) << "without a container the part itself is deleted";
    third.setData("r", "c", MMS_COMP_SMIL_MEDIA_IMG, "gif", QByteArray("x"), nullptr);
    delete third.getData();
    EXPECT_EQ(third.getData(), nullptr);
    third.clear();
}

} // namespace
