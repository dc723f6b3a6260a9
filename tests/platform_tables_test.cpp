#include "tests/testing.h"

#include <QLoggingCategory>
#include <QMimeDatabase>
#include <QTemporaryDir>

namespace {

QString nameOf(int code) {
    QString type, subType;
    MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(code), type, subType);
    return type + '/' + subType;
}

int codeOf(const QString& name) {
    return MMS_UTIL_Common::mimeTypeGetValue(name.section('/', 0, 0), name.section('/', 1));
}

TEST(MediaNumbers, areTheAssignedOnes) {
    const std::pair<int, const char*> rows[] = {
        {0x00, "*/*"},
        {0x33, "application/vnd.wap.multipart.related"},
        {0x4B, "application/vnd.oma.drm.rights+wbxml"},
    };
    for (const auto& [code, name] : rows)
        EXPECT_EQ(nameOf(code), name);
    for (int code = 0; code < 0x4C; ++code)
        EXPECT_EQ(codeOf(nameOf(code).toUpper()), code);
    for (const int code : {0x4C, 0x7F, 0x80, 0xFF})
        EXPECT_EQ(nameOf(code), "application/octet-stream") << code;
    for (const char16_t* name : {u"/", u"image/", u"image/jpe", u"image/plain", u"\u0131mage/gif"})
        EXPECT_EQ(codeOf(QString::fromUtf16(name)), 0x7F) << testing::PrintToString(name);
    // letters that are ASCII only in lower case are found too
    EXPECT_EQ(codeOf(QStringLiteral("application/p\u212Acs7-mime")), 0x37);
}

TEST(EmailCodes, goBothWays) {
    EXPECT_EQ(EMAIL_Util::typeStrToEnum("Application"), 4);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("VND.wap.multipart.related"), 70);
    const std::tuple<bool (*)(int, QCString&), int (*)(const QCString&), const char*> rows[] = {
        {EMAIL_Util::typeEnumToStr, EMAIL_Util::typeStrToEnum, "IMAGE"},
        {EMAIL_Util::subTypeEnumToStr, EMAIL_Util::subTypeStrToEnum, "3GPP"},
        {EMAIL_Util::charsetEnumToStr, EMAIL_Util::charsetStrToEnum, "UTF-8"}};
    for (const auto& [byCode, byName, upper] : rows) {
        SCOPED_TRACE(upper);
        QCString name("untouched");
        EXPECT_FALSE(byCode(-1, name) || byCode(100000, name));
        EXPECT_EQ(name, "untouched");
        EXPECT_TRUE(byCode(byName(upper), name));
        EXPECT_EQ(name, QCString(upper).toLower());
        for (int code = 0; code < 3000; ++code)
            EXPECT_TRUE(!byCode(code, name) || byName(name) == code) << name.constData();
        for (const QCString& unknown : {QCString(), QCString("no such"), QCString("text\0", 5)})
            EXPECT_EQ(byName(unknown), -1);
    }
    EXPECT_EQ(EMAIL_Util::cteEnumToStr(EMAIL_Util::cteStrToEnum("Base64")), "base64");
    EXPECT_EQ(EMAIL_Util::cteStrToEnum("base65"), -1);
    EXPECT_TRUE(EMAIL_Util::cteEnumToStr(-1).isEmpty());
}

TEST(Setting, largestMessageSizeAndTemporaryDirectory) {
    const std::pair<const char*, int> rows[] = {{"", 300},
                                                {"0", 300},
                                                {"-5", 300},
                                                {"many", 300},
                                                {"0x10", 300},
                                                {"1", 1},
                                                {"0400", 400},
                                                {"99999999999", INT_MAX},
                                                {"99999999999999999999", INT_MAX}};
    for (const auto& [value, size] : rows) {
        qputenv("LUM_MMS_MAX_SIZE_KB", value);
        EXPECT_EQ(MMS_UTIL_Setting::getMaxiumMOMMSSize(0), size) << value;
    }
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
    EXPECT_EQ(MMS_UTIL_Setting::getMaxiumMOMMSSize(), 300);
    const QTemporaryDir dir;
    const std::pair<QString, QString> directories[] = {{dir.path(), dir.path() + '/'},
                                                       {dir.path() + "//.", dir.path() + '/'},
                                                       {dir.path() + "/none", "/tmp/"},
                                                       {put(dir.path() + "/file", "x"), "/tmp/"},
                                                       {"/", "/tmp/"},
                                                       {"", "/tmp/"}};
    for (const auto& [named, used] : directories) {
        qputenv("TMPDIR", named.toLocal8Bit());
        EXPECT_EQ(MMS_UTIL_Common::getTmpDir(), used) << qPrintable(named);
    }
    qunsetenv("TMPDIR");
}

TEST(MimeTypes, areFoundWhateverTheirCase) {
    int withCapitals = 0;
    for (const QMimeType& type : QMimeDatabase().allMimeTypes())
        for (const QString& name : QStringList(type.name()) + type.aliases())
            if (name != name.toLower() && !type.suffixes().isEmpty()) {
                ++withCapitals;
                EXPECT_EQ(AM_MimeType::instance()->getExtListByMimeId(name), type.suffixes())
                    << qPrintable(name);
            }
    EXPECT_GT(withCapitals, 0);
}

TEST(OctetLog, saysNothingUnasked) {
    const Log log;
    MMS_UTIL_Tool::logOut("secret", 6);
    EXPECT_TRUE(Log::lines.isEmpty());
    QLoggingCategory::setFilterRules("lum.mms.octets.debug=true");
    MMS_UTIL_Tool::logOut("a\0b", 3);
    MMS_UTIL_Tool::logOut(nullptr, 3);
    MMS_UTIL_Tool::logOut("a", -1);
    QLoggingCategory::setFilterRules(QString());
    EXPECT_EQ(Log::lines.join('|'), "61 00 62");
}

} // namespace
