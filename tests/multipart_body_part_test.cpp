// Body parts: types by name and code, payload, records, files, and ownership.

#include "tests/testing.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <unistd.h>

namespace {

Part* partAt(const QString& location) {
    auto* part = new Part;
    part->setContentLocation(location);
    return part;
}

} // namespace

TEST(BodyPart, TypesAndTheirCodes) {
    Part part;
    EXPECT_EQ(Part::getTypePartFromFormat("a/b/c") + Part::getSubTypePartFromFormat("a/b/c"), "ac");
    EXPECT_EQ(Part::getTypePartFromFormat("image") + Part::getSubTypePartFromFormat("image"), "");
    part.setContentSubType("3GP");
    EXPECT_EQ(part.getSubType(), "3gpp");
    part.setSupport(static_cast<Part::MEDIA_SUPPORT>(2));
    EXPECT_FALSE(part.setContentType(-7) || part.setSubTypeCode(-7) || part.setCharsetByCode(-7));
    EXPECT_EQ(part.getSupport(), 2);
    EXPECT_TRUE(part.setContentType(4) && part.setSubTypeCode(70));
    EXPECT_EQ(part.getSupport(), 0);
    part.setCharset("vnd.wap.multipart.related"); // looked up as a sub-type, deliberately
    EXPECT_EQ(part.getCharsetByCode(), 70);
}

TEST(BodyPart, PayloadIsPrivateButSharedByCopies) {
    QArray<char> data(QByteArray("abc"));
    Part part;
    EXPECT_EQ(part.setBodyData(data), 0);
    data[0] = 'x';
    EXPECT_EQ(QByteArray(part.getBodyData()), "abc");
    part.setSubBody(partAt("inner"), -1);
    const Part copy(part);
    EXPECT_EQ(copy.getBodyData().data(), part.getBodyData().data());
    EXPECT_NE(copy.getSubBody(0), part.getSubBody(0));
    EXPECT_EQ(copy.getSubBody(0)->getContentLocation(), "inner");
    part.getSubBody(0)->setBodyData("12345", 5);
    EXPECT_EQ(part.getBodyDataLen(), 8);
    EXPECT_EQ(part.setBodyData(nullptr, 5), Part::ERR_NO_MEMORY);
    EXPECT_EQ(QByteArray(part.getBodyData()), "abc");
    EXPECT_EQ(part.setBodyData("x", 0), 0);
    EXPECT_TRUE(part.getBodyData().isEmpty());
}

TEST(BodyPartRecord, IsByteExact) {
    Part part, back;
    part.setContentType("a");
    part.setCharset(QString());
    part.setBodyData("xyz", 3);
    part.setPartFlags(1);
    part.setRefCount(9);
    const QByteArray record = recordOf(part);
    EXPECT_EQ(record, octets("00000002 0061 00000000 FFFFFFFF") + QByteArray(20, 0) +
                          octets("00000001 00000003 78797A 00000000 00000001 00000000 00000000"));
    EXPECT_TRUE(read(back, record));
    EXPECT_EQ(recordOf(back), record);
    EXPECT_EQ(back.getRefCount(), 1);
}

TEST(BodyPartRecord, TreesComeBackAndCutOnesStop) {
    Part part, back, claimed;
    part.setSubBody(partAt("one"), -1);
    part.setSubBody(partAt("two"), -1);
    part.getSubBody(1)->setSubBody(partAt("inner"), -1);
    const QByteArray record = recordOf(part);
    back.setSubBody(partAt("before"), -1);
    EXPECT_TRUE(read(back, record));
    EXPECT_EQ(back.getSubBodyCount(), 3);
    EXPECT_EQ(back.getSubBody(2)->getSubBody(0)->getContentLocation(), "inner");
    for (qsizetype size = 0; size < record.size(); ++size)
        EXPECT_FALSE(readWhole(*std::make_unique<Part>(), record.left(size))) << size;
    // a count of two thousand million sub-bodies without data
    EXPECT_FALSE(readWhole(claimed, QByteArray(52, 0) + octets("7FFFFFFF")));
    EXPECT_LE(claimed.getSubBodyCount(), 1);
}

class BodyPartFile : public testing::Test {
protected:
    BodyPartFile() {
        QDir().mkpath(root_ + "/sub");
        qputenv("TMPDIR", root_.toLocal8Bit());
        part_.setBodyData("\0new", 4);
    }
    ~BodyPartFile() override { qunsetenv("TMPDIR"); }

    QTemporaryDir outside_;
    const QString root_ = outside_.filePath("tmp");
    Part part_;
};

TEST_F(BodyPartFile, IsNamedAfterDisplayNameOrLocation) {
    part_.setContentLocation("dir/a.jpg");
    const QString names = "a.jpg sub/c.jpg back\\slash ./b.jpg sub/../d.jpg sub/.././sub//e.jpg";
    for (const QString& name : names.split(' ')) {
        part_.setDispFileName(name == "a.jpg" ? "" : name);
        put(root_ + '/' + name, "something longer");
        QString path;
        EXPECT_TRUE(part_.saveBodyDataToFile(path));
        EXPECT_EQ(path, MMS_UTIL_Common::getTmpDir() + name);
        EXPECT_EQ(contents(path), QByteArray("\0new", 4));
    }
    QString path = "untouched";
    EXPECT_FALSE(Part().saveBodyDataToFile(path));
    EXPECT_EQ(path, "untouched");
}

TEST_F(BodyPartFile, NeverLeavesTheTemporaryDirectory) {
    const QString victim = outside_.filePath("victim");
    put(victim, "old");
    ASSERT_TRUE(QFile::link(victim, root_ + "/link") && QFile::link(outside_.path(), root_ + "/way"));
    ASSERT_EQ(::link(QFile::encodeName(victim), QFile::encodeName(root_ + "/twin")), 0);
    ASSERT_EQ(::mkfifo(QFile::encodeName(root_ + "/pipe"), 0600), 0);
    const QString names = "../victim sub/../../victim sub/../../tmp/a no/../a link way/victim way/new "
                          "way/../a twin pipe .. . sub/ sub/.. sub/. sub no/a a";
    for (const QString& name : (names + QChar(0)).split(' ')) {
        SCOPED_TRACE(name.toStdString());
        part_.setDispFileName(name);
        QString path;
        EXPECT_FALSE(part_.saveBodyDataToFile(path));
        EXPECT_EQ(path, MMS_UTIL_Common::getTmpDir() + name);
    }
    EXPECT_EQ(contents(victim), "old");
    EXPECT_EQ(QDir(outside_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 2);
    EXPECT_EQ(QDir(root_).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size(), 5);
}
