// Records as stored by phones, one of each kind in tests/data/stored, with a distinct value in each field.

#include "tests/testing.h"

namespace {

/// Deletes the parts of a record, which its reader owns.
template <class Recorded>
void release(Recorded& object) {
    if constexpr (requires { object.clear(); })
        object.clear();
}

/// Reads a stored record and expects that it is written again octet by octet, in the other byte order too.
template <class Recorded>
void restore(const char* name, Recorded& object, std::unique_ptr<Recorded> another) {
    const QByteArray record = contents(QString(SOURCES) + "/tests/data/stored/" + name);
    ASSERT_FALSE(record.isEmpty());
    ASSERT_TRUE(read(object, record));
    EXPECT_EQ(recordOf(object), record);

    QByteArray swapped;
    QDataStream out(&swapped, QIODevice::WriteOnly), in(&swapped, QIODevice::ReadOnly);
    for (QDataStream* stream : {&out, &in})
        stream->setByteOrder(QDataStream::LittleEndian);
    EXPECT_TRUE(object.writeToStream(out) && another->readFromStream(in));
    EXPECT_TRUE(in.atEnd() && swapped != record);
    EXPECT_EQ(recordOf(*another), record);
    release(*another);
}

void expectPart(const Part& part) {
    EXPECT_EQ(part.getMimeFormat(), "image/jpeg");
    EXPECT_TRUE(part.getCharset().isNull());
    EXPECT_EQ(part.getDispFileName(), QStringLiteral("фото \U0001F600.jpg"));
    EXPECT_EQ(part.getDescription() + part.getContentLocation(), QStringLiteral("写真d/é.jpg"));
    EXPECT_EQ(part.getContentID() + part.getContentXferEncoding(), "<i>binary");
    EXPECT_EQ(part.getBodyData(), octets("00 FF 80 7F D8"));
    EXPECT_EQ(part.getExtHeader(), QStringLiteral("X-Ext: ü"));
    EXPECT_TRUE(part.getDispFileType() == -2 && part.getPartFlags() == 1);
    ASSERT_EQ(part.getSubBodyCount(), 2);
    EXPECT_EQ(part.getSubBody(0)->getBoundary(), "--b");
    EXPECT_EQ(QString(part.getSubBody(0)->getSubBody(0)->getBodyData()), QStringLiteral("שלום"));
}

void expectObject(const MMS_COMP_SMILMediaObject& object) {
    EXPECT_TRUE(object.getMediaElementType() == MMS_COMP_SMIL_MEDIA_IMG && object.getAlt().isNull());
    EXPECT_EQ(object.getMediaType() + object.getSrc() + object.getRegionId() + object.getMimeType(),
              "piccid:iImageimage/jpeg");
    EXPECT_TRUE(object.getBegin()->type == MMS_COMP_SMIL_TIME_EVENT && object.getBegin()->id == "e");
    EXPECT_TRUE(object.getBegin()->value == -1 && object.getEnd()->value == INT_MAX);
    ASSERT_EQ(object.getParamCount(), 2);
    EXPECT_EQ(object.getParam(1)->getName() + object.getParam(1)->getRefValueType(),
              QStringLiteral("ΟΛΑtext/plain"));
    EXPECT_EQ(object.getParam(1)->getValueType(), MMS_COMP_SMIL_PARAM_OTHER);
    ASSERT_NE(object.getData(), nullptr);
    expectPart(*object.getData());
}

TEST(StoredRecord, Part) {
    Part part;
    restore("part", part, std::make_unique<Part>());
    expectPart(part);
}

TEST(StoredRecord, Object) {
    MMS_COMP_SMILMediaObject object(nullptr);
    restore("object", object, std::make_unique<MMS_COMP_SMILMediaObject>(nullptr));
    expectObject(object);
    release(object);
}

TEST(StoredRecord, Slide) {
    MMS_COMP_SMILTimingContainer slide(nullptr);
    restore("slide", slide, std::make_unique<MMS_COMP_SMILTimingContainer>(nullptr));
    ASSERT_TRUE(slide.getDur() == -5000 && slide.count() == 2);
    expectObject(*slide.getMediaObject(0));
    EXPECT_EQ(slide.getMediaObject(1)->getMediaElementType(), INT_MIN);
    release(slide);
}

} // namespace
