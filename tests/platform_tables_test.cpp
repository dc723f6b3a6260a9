#include "platform/mime/am_mime_type.h"
#include "platform/mime/email_util.h"
#include "platform/mime/util_mime_type.h"
#include "platform/utility/common.h"
#include "platform/utility/setting.h"
#include "platform/utility/tool.h"
#include "tests/octets.h"

#include <QDir>
#include <QLoggingCategory>
#include <QScopeGuard>

namespace {

TEST(MediaNumbers, areTheAssignedOnes) {
    const struct {
        unsigned char code;
        const char* type;
        const char* subType;
    } rows[] = {{0x00, "*", "*"},
                {0x03, "text", "plain"},
                {0x06, "text", "x-vcalendar"},
                {0x07, "text", "x-vcard"},
                {0x0C, "multipart", "mixed"},
                {0x1D, "image", "gif"},
                {0x1E, "image", "jpeg"},
                {0x20, "image", "png"},
                {0x21, "image", "vnd.wap.wbmp"},
                {0x23, "application", "vnd.wap.multipart.mixed"},
                {0x26, "application", "vnd.wap.multipart.alternative"},
                {0x33, "application", "vnd.wap.multipart.related"},
                {0x3E, "application", "vnd.wap.mms-message"},
                {0x45, "application", "vnd.wap.xhtml+xml"},
                {0x48, "application", "vnd.oma.drm.message"},
                {0x4B, "application", "vnd.oma.drm.rights+wbxml"}};
    for (const auto& row : rows) {
        EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(row.type, row.subType), row.code) << row.subType;
        QString type, subType;
        MMS_UTIL_Common::mimeTypeGetName(row.code, type, subType);
        EXPECT_EQ(type, row.type);
        EXPECT_EQ(subType, row.subType);
    }
    for (unsigned char code = 0; code < 0x4C; ++code) {
        QString type, subType;
        MMS_UTIL_Common::mimeTypeGetName(code, type, subType);
        EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(type.toUpper(), subType.toUpper()), code);
    }
}

TEST(MediaNumbers, unknownOnes) {
    for (int code : {0x4C, 0x7F, 0x80, 0xB3, 0xFF}) {
        QString type, subType;
        MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(code), type, subType);
        EXPECT_EQ(type, "application") << code;
        EXPECT_EQ(subType, "octet-stream") << code;
    }
    const char* const types[][2] = {{"", ""},
                                    {"image", ""},
                                    {"image", "jpe"},
                                    {"image", "plain"},
                                    {"application", "octet-stream"},
                                    {"audio", "amr"},
                                    {"\xC4\xB1mage", "gif"}};
    for (const auto& [type, subType] : types)
        EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(QString::fromUtf8(type), subType), 0x7F)
            << type << subType;
    // what is plain ASCII only in lower case is found like everything else
    EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue("application", QString::fromUtf8("p\xE2\x84\xAA"
                                                                                 "cs7-mime")),
              0x37);
}

TEST(EmailCodes, goBothWays) {
    EXPECT_EQ(EMAIL_Util::typeStrToEnum("Application"), 4);
    EXPECT_EQ(EMAIL_Util::subTypeStrToEnum("VND.wap.multipart.related"), 70);
    const struct {
        const char* name;
        bool (*byCode)(int, QCString&);
        int (*byName)(const QCString&);
        const char* upper;
    } rows[] = {{"type", EMAIL_Util::typeEnumToStr, EMAIL_Util::typeStrToEnum, "IMAGE"},
                {"3gpp", EMAIL_Util::subTypeEnumToStr, EMAIL_Util::subTypeStrToEnum, "3GPP"},
                {"smil", EMAIL_Util::subTypeEnumToStr, EMAIL_Util::subTypeStrToEnum, "SMIL"},
                {"charset", EMAIL_Util::charsetEnumToStr, EMAIL_Util::charsetStrToEnum, "UTF-8"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        QCString name("untouched");
        EXPECT_FALSE(row.byCode(-1, name));
        EXPECT_FALSE(row.byCode(100000, name));
        EXPECT_EQ(name, "untouched");
        EXPECT_TRUE(row.byCode(row.byName(row.upper), name));
        EXPECT_EQ(name, QCString(row.upper).toLower());
        for (int code = 0; code < 3000; ++code) {
            const bool known = row.byCode(code, name);
            EXPECT_TRUE(!known || row.byName(name) == code) << name.constData();
        }
        for (const QCString& unknown : {QCString(), QCString(""), QCString("no such"), QCString("text\0", 5)})
            EXPECT_EQ(row.byName(unknown), -1);
    }
    EXPECT_EQ(EMAIL_Util::cteEnumToStr(EMAIL_Util::cteStrToEnum("Base64")), "base64");
    EXPECT_EQ(EMAIL_Util::cteStrToEnum("base65"), -1);
    EXPECT_TRUE(EMAIL_Util::cteEnumToStr(-1).isEmpty());
}

TEST(MimeRegistry, knowsThePhoneTypes) {
    const struct {
        const char* type;
        const char* extension;
    } rows[] = {{"IMAGE/Jpeg", "jpeg"},       {"image/jpg", "jpg"},

                {"audio/AMR", "amr"},         {"audio/amr-wb", "awb"},

                {"text/x-iMelody", "imy"},    {"audio/mid", "mid"},
                {"audio/sp-midi", "mid"},

                {"application/smil", "smil"}, {"text/x-vcard", "vcf"},
                {"text/x-vCalendar", "vcs"},  {"application/vnd.oma.drm.message", "dm"}};
    for (const auto& row : rows)
        EXPECT_TRUE(AM_MimeType::instance()->getExtListByMimeId(row.type).contains(row.extension))
            << row.type;
    for (const char* unknown : {"", "/", "image/", "no such/type"})
        EXPECT_TRUE(AM_MimeType::instance()->getExtListByMimeId(unknown).isEmpty()) << unknown;
}

TEST(MediaPlayer, addsItsExtensions) {
    QStringList extensions = {"first"};
    UTIL_MimeType::queryMpSupportedExtensions(extensions, 2);
    EXPECT_EQ(extensions.join(' '), "first");
    UTIL_MimeType::queryMpSupportedExtensions(extensions, 1);
    EXPECT_EQ(extensions.join(' '), "first 3gp 3gpp 3g2 mp4 m4v mpeg mpg");
    extensions.clear();
    UTIL_MimeType::queryMpSupportedExtensions(extensions, 0);
    EXPECT_EQ(extensions.join(' '), "amr awb mid midi imy mp3 m4a aac 3gp wav ogg");
}

TEST(Setting, largestMessageSize) {
    const auto restore = qScopeGuard([] { qunsetenv("LUM_MMS_MAX_SIZE_KB"); });
    const struct {
        const char* value;
        int size;
    } rows[] = {{"", 300}, {"0", 300},  {"-5", 300}, {"many", 300}, {"99999999999", 300},
                {"1", 1},  {"600", 600}};
    for (const auto& row : rows) {
        qputenv("LUM_MMS_MAX_SIZE_KB", row.value);
        EXPECT_EQ(MMS_UTIL_Setting::getMaxiumMOMMSSize(0), row.size) << row.value;
    }
    qunsetenv("LUM_MMS_MAX_SIZE_KB");
    EXPECT_EQ(MMS_UTIL_Setting::getMaxiumMOMMSSize(), 300);
}

TEST(TemporaryDirectory, endsWithItsSeparator) {
    EXPECT_EQ(MMS_UTIL_Common::getTmpDir(), QDir::tempPath() + '/');
}

TEST(OctetLog, saysNothingUnasked) {
    static QStringList lines;
    const auto former = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& line) { lines += line; });
    const auto restore = qScopeGuard([former] {
        qInstallMessageHandler(former);
        QLoggingCategory::setFilterRules(QString());
    });
    MMS_UTIL_Tool::logOut("secret", 6);
    EXPECT_TRUE(lines.isEmpty());
    QLoggingCategory::setFilterRules("lum.mms.octets.debug=true");
    MMS_UTIL_Tool::logOut("a\0b", 3);
    MMS_UTIL_Tool::logOut(nullptr, 3);
    MMS_UTIL_Tool::logOut("a", -1);
    EXPECT_EQ(lines.join('|'), "61 00 62");
}

} // namespace
