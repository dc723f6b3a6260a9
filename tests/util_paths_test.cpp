#include "tests/testing.h"

#include <QScopeGuard>
#include <QTemporaryDir>

namespace {

TEST(Util, takesNamesApart) {
    // path, file name, extension, and the name without extension
    const std::tuple<const char*, const char*, const char*, const char*, const char*> rows[] = {
        {"  a\\b/c.txt ", "a\\b/", "c.txt", "txt", "  a\\b/c"},
        {"C:\\pics/x\\c. t.JPG ", "C:\\pics/x\\", "c. t.JPG", "JPG", "C:\\pics/x\\c. t"},
        {"\n/dir/sub/\t", "/dir/sub/", "", "", "\n/dir/sub/\t"},
        {"a/ b. c", "a/", " b. c", "c", "a/ b"},
        {" photo ", "", "photo", "", " photo "},
        {"photo.", "", "photo.", "", "photo"},
        {".jpg", "", ".jpg", "jpg", ""},
    };
    for (const auto& [name, path, file, ext, noExt] : rows) {
        EXPECT_EQ(MMS_COMP_Util::getPath(name), path) << name;
        EXPECT_EQ(MMS_COMP_Util::stripePath(name), file) << name;
        EXPECT_EQ(MMS_COMP_Util::getExtName(name), ext) << name;
        EXPECT_EQ(MMS_COMP_Util::getNoExtName(name), noExt) << name;
    }
}

TEST(Util, choosesAnExtension) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"TEXT", "Plain", "txt"},    {"text", "html", ""},       {"application", "pdf", ""},
        {"image", "GIF", "gif"},     {"image", "no such", ""},   {"IMAGE", "", ""},
        {"Audio", "imelody", "imy"}, {"audio", "amr-wb", "awb"}, {"video", "3gpp", "3gp"},
        {"video", "x-msvideo", ""},  {"audio", "mpeg", "mp3"},   {"", "", ""}};
    for (const auto& [type, subType, extension] : rows)
        EXPECT_EQ(MMS_COMP_Util::getFirstSupportExtNameByMIMEType(type, subType), extension)
            << type << "/" << subType;
    // the registry's order decides: its first extension of a JPEG picture is a supported one
    const QString first = AM_MimeType::instance()->getExtListByMimeId("image/jpeg").first();
    EXPECT_EQ(MMS_COMP_Util::getFirstSupportExtNameByMIMEType("image", "jpeg"), first.toLower());
}

TEST(Util, testsTheCharactersOfNames) {
    EXPECT_TRUE(MMS_COMP_Util::isOnlyLetterOrNumber(""));
    const QString allowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789.-_ \\/";
    for (char16_t c = 0; c < 0x400; ++c)
        EXPECT_EQ(MMS_COMP_Util::isOnlyLetterOrNumber(QString("a") + QChar(c) + 'z'), allowed.contains(c))
            << int(c);
}

TEST(Util, loadsFilesUpToTheLimit) {
    const auto restore = qScopeGuard([] { qunsetenv("LUM_MMS_MAX_SIZE_KB"); });
    const QTemporaryDir dir;
    ASSERT_TRUE(QFile::link("/dev/zero", dir.filePath("device")));
    const std::tuple<const char*, const char*, int, bool, int> rows[] = {
        {"empty", "1", 0, true, 0},
        {"at the limit", "1", 1024, true, 0},
        {"above the limit", "1", 1025, true, -4},
        {"unchecked", "1", 1025, false, 0},
        {"limit far beyond 32 bits of octets", "2147483647", 1, true, 0},
        {"missing", "1", -1, true, -1},
        {".", "1", -1, false, -1},
        {"device", "1", -1, true, -2},
    };
    for (const auto& [name, limit, size, checkSize, status] : rows) {
        SCOPED_TRACE(name);
        qputenv("LUM_MMS_MAX_SIZE_KB", limit);
        const QByteArray octets(qMax(size, 0), '\xA5');
        const QString path = dir.filePath(name);
        if (size >= 0)
            put(path, octets);
        QArray<char> data(QByteArray("before"));
        const QArray<char> sharer = data;
        EXPECT_EQ(MMS_COMP_Util::getQByteArraySrcByFileName(data, path, checkSize), status);
        EXPECT_EQ(data, status == 0 ? octets : QByteArray("before"));
        EXPECT_EQ(sharer, QByteArray("before"));
    }
}

} // namespace
