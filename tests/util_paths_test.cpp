#include "platform/mime/am_mime_type.h"
#include "tests/octets.h"
#include "util/mms_comp_util.h"

#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>

namespace {

TEST(Util, takesNamesApart) {
    using Cut = QString (*)(const QString&);
    const Cut path = MMS_COMP_Util::getPath, file = MMS_COMP_Util::stripePath;
    const Cut ext = MMS_COMP_Util::getExtName, noExt = MMS_COMP_Util::getNoExtName;
    const struct {
        const char* name;
        Cut cut;
        const char* text;
        const char* result;
    } rows[] = {{"file: both separators", file, "  a\\b/c.txt ", "c.txt"},
                {"file: both, the other way round", file, "a/b\\c.txt", "c.txt"},
                {"file: other system", file, "dir\\x.gif", "x.gif"},
                {"file: alone", file, " x.gif\n", "x.gif"},
                {"file: none", file, "/dir/sub/ ", ""},
                {"file: blank behind the separator", file, "a/ b", " b"},
                {"path: absolute", path, "/a/b.jpg", "/a/"},
                {"path: stripped", path, "  /dir/sub/a.jpg\t", "/dir/sub/"},
                {"path: other system", path, "C:\\pics\\a.jpg", "C:\\pics\\"},
                {"path: blank behind the separator", path, "a/ b", "a/"},
                {"path: alone", path, "b.jpg", ""},
                {"path: directory", path, "/a/", "/a/"},
                {"ext: stripped", ext, "photo.JPG ", "JPG"},
                {"ext: last dot", ext, "a.b. c", "c"},
                {"ext: none", ext, "photo", ""},
                {"ext: empty", ext, "photo.", ""},
                {"no ext: last dot", noExt, "a.b.c", "a.b"},
                {"no ext: none", noExt, " photo ", " photo "},
                {"no ext: blanks stay", noExt, " a . b", " a "},
                {"no ext: nothing before the dot", noExt, ".jpg", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(row.cut(row.text), row.result) << row.name;
}

TEST(Util, choosesAnExtension) {
    const struct {
        const char* type;
        const char* subType;
        const char* extension;
    } rows[] = {{"TEXT", "Plain", "txt"},
                {"text", "x-vCalendar", "vcs"},
                {"text", "X-VCARD", "vcf"},
                {"text", "html", ""},
                {"application", "pdf", ""},

                {"", "", ""},
                {"image", "GIF", "gif"},
                {"image", "vnd.wap.wbmp", "wbmp"},

                {"Audio", "AMR", "amr"},
                {"audio", "imelody", "imy"},
                {"audio", "mpeg", "mp3"},
                {"video", "3gpp", "3gp"},
                {"video", "MP4", "mp4"},
                {"video", "x-msvideo", ""},
                {"image", "no-such", ""}};
    for (const auto& row : rows)
        EXPECT_EQ(MMS_COMP_Util::getFirstSupportExtNameByMIMEType(row.type, row.subType), row.extension)
            << row.type << "/" << row.subType;
    // the registry's order decides: its first extension of a JPEG picture is a supported one
    const QString first = AM_MimeType::instance()->getExtListByMimeId("image/jpeg").first();
    EXPECT_EQ(MMS_COMP_Util::getFirstSupportExtNameByMIMEType("image", "jpeg"), first.toLower());
}

TEST(Util, testsTheCharactersOfNames) {
    EXPECT_TRUE(MMS_COMP_Util::isOnlyLetterOrNumber(""));
    EXPECT_TRUE(MMS_COMP_Util::isOnlyLetterOrNumber("my_file-1.txt"));
    for (char16_t c = 0; c < 0x400; ++c) {
        const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        const bool other = QString(".-_ \\/").contains(c);
        EXPECT_EQ(MMS_COMP_Util::isOnlyLetterOrNumber(QString("a") + QChar(c) + 'z'), letter || other)
            << int(c);
    }
}

TEST(Util, loadsFilesUpToTheLimit) {
    qputenv("LUM_MMS_MAX_SIZE_KB", "1");
    const auto restore = qScopeGuard([] { qunsetenv("LUM_MMS_MAX_SIZE_KB"); });
    const QTemporaryDir dir;
    const struct {
        const char* name;
        int size;
        bool checkSize;
        int status;
    } rows[] = {{"empty", 0, true, 0},
                {"at the limit", 1024, true, 0},
                {"above the limit", 1025, true, -4},
                {"unchecked", 1025, false, 0},
                {"missing", -1, true, -1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const QByteArray contents(qMax(row.size, 0), '\xA5');
        QFile file(dir.filePath(row.name));
        if (row.size >= 0) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(contents);
            file.close();
        }
        QArray<char> data(QByteArray("before"));
        const QArray<char> sharer = data;
        EXPECT_EQ(MMS_COMP_Util::getQByteArraySrcByFileName(data, file.fileName(), row.checkSize),
                  row.status);
        EXPECT_EQ(data, row.status == 0 ? contents : QByteArray("before"));
        EXPECT_EQ(sharer, QByteArray("before"));
    }
    QArray<char> data;
    EXPECT_EQ(MMS_COMP_Util::getQByteArraySrcByFileName(data, dir.path(), false), -1);
}

TEST(Util, limitDoesNotWrap) {
    qputenv("LUM_MMS_MAX_SIZE_KB", "2147483647"); // in octets far beyond 32 bits
    const auto restore = qScopeGuard([] { qunsetenv("LUM_MMS_MAX_SIZE_KB"); });
    QArray<char> data;
    EXPECT_EQ(MMS_COMP_Util::getQByteArraySrcByFileName(data, "/dev/null", true), 0);
    EXPECT_TRUE(data.isEmpty());
}

TEST(Util, readsTheClock) {
    EXPECT_EQ(MMS_COMP_Util::printTimeStamp("label", 7), 0);
}

} // namespace
