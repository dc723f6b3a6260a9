#include "platform/utility/common.h"

#include "platform/utility/ascii.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace {

struct MediaType {
    std::string_view type;
    std::string_view subType;
};

/// The well-known content types, in the order of their WSP assigned numbers from 0x00 on.
constexpr MediaType MEDIA_TYPES[] = {
    {"*", "*"}, // 0x00
    {"text", "*"},
    {"text", "html"},
    {"text", "plain"},
    {"text", "x-hdml"},
    {"text", "x-ttml"},
    {"text", "x-vcalendar"},
    {"text", "x-vcard"},
    {"text", "vnd.wap.wml"}, // 0x08
    {"text", "vnd.wap.wmlscript"},
    {"text", "vnd.wap.wta-event"},
    {"multipart", "*"},
    {"multipart", "mixed"},
    {"multipart", "form-data"},
    {"multipart", "byteranges"},
    {"multipart", "alternative"},
    {"application", "*"}, // 0x10
    {"application", "java-vm"},
    {"application", "x-www-form-urlencoded"},
    {"application", "x-hdmlc"},
    {"application", "vnd.wap.wmlc"},
    {"application", "vnd.wap.wmlscriptc"},
    {"application", "vnd.wap.wta-eventc"},
    {"application", "vnd.wap.uaprof"},
    {"application", "vnd.wap.wtls-ca-certificate"}, // 0x18
    {"application", "vnd.wap.wtls-user-certificate"},
    {"application", "x-x509-ca-cert"},
    {"application", "x-x509-user-cert"},
    {"image", "*"},
    {"image", "gif"},
    {"image", "jpeg"},
    {"image", "tiff"},
    {"image", "png"}, // 0x20
    {"image", "vnd.wap.wbmp"},
    {"application", "vnd.wap.multipart.*"},
    {"application", "vnd.wap.multipart.mixed"},
    {"application", "vnd.wap.multipart.form-data"},
    {"application", "vnd.wap.multipart.byteranges"},
    {"application", "vnd.wap.multipart.alternative"},
    {"application", "xml"},
    {"text", "xml"}, // 0x28
    {"application", "vnd.wap.wbxml"},
    {"application", "x-x968-cross-cert"},
    {"application", "x-x968-ca-cert"},
    {"application", "x-x968-user-cert"},
    {"text", "vnd.wap.si"},
    {"application", "vnd.wap.sic"},
    {"text", "vnd.wap.sl"},
    {"application", "vnd.wap.slc"}, // 0x30
    {"text", "vnd.wap.co"},
    {"application", "vnd.wap.coc"},
    {"application", "vnd.wap.multipart.related"},
    {"application", "vnd.wap.sia"},
    {"text", "vnd.wap.connectivity-xml"},
    {"application", "vnd.wap.connectivity-wbxml"},
    {"application", "pkcs7-mime"},
    {"application", "vnd.wap.hashed-certificate"}, // 0x38
    {"application", "vnd.wap.signed-certificate"},
    {"application", "vnd.wap.cert-response"},
    {"application", "xhtml+xml"},
    {"application", "wml+xml"},
    {"text", "css"},
    {"application", "vnd.wap.mms-message"},
    {"application", "vnd.wap.rollover-certificate"},
    {"application", "vnd.wap.locc+wbxml"}, // 0x40
    {"application", "vnd.wap.loc+xml"},
    {"application", "vnd.syncml.dm+wbxml"},
    {"application", "vnd.syncml.dm+xml"},
    {"application", "vnd.syncml.notification"},
    {"application", "vnd.wap.xhtml+xml"},
    {"application", "vnd.wv.csp.cir"},
    {"application", "vnd.oma.dd+xml"},
    {"application", "vnd.oma.drm.message"}, // 0x48
    {"application", "vnd.oma.drm.content"},
    {"application", "vnd.oma.drm.rights+xml"},
    {"application", "vnd.oma.drm.rights+wbxml"},
};
static_assert(std::size(MEDIA_TYPES) == 0x4C);

/// The name for every number without a media type.
constexpr MediaType UNKNOWN_TYPE = {"application", "octet-stream"};
constexpr unsigned char UNKNOWN_CODE = 0x7F;

struct MediaNames {
    QString type;
    QString subType;

    MediaNames() = default;
    explicit MediaNames(const MediaType& media)
        : type(QLatin1String(media.type.data(), qsizetype(media.type.size()))),
          subType(QLatin1String(media.subType.data(), qsizetype(media.subType.size()))) {}
};

/// The names of a number, as texts that the callers share: nothing is allocated for a look-up.
const MediaNames& namesOf(unsigned char code) {
    static const MediaNames unknown(UNKNOWN_TYPE);
    static const auto known = [] {
        std::array<MediaNames, std::size(MEDIA_TYPES)> names;
        std::transform(std::begin(MEDIA_TYPES), std::end(MEDIA_TYPES), names.begin(),
                       [](const MediaType& media) { return MediaNames(media); });
        return names;
    }();
    return code < known.size() ? known[code] : unknown;
}

/// Whether a text is this name (ASCII, in lower case) once its ASCII letters are in lower case.
bool isName(const QString& text, std::string_view name) {
    return text.size() == qsizetype(name.size()) &&
           std::equal(text.begin(), text.end(), name.begin(), [](QChar unit, char wanted) {
               const char16_t c = unit.unicode();
               return (c >= u'A' && c <= u'Z' ? c + (u'a' - u'A') : +c) == wanted;
           });
}

} // namespace

QString MMS_UTIL_Common::getTmpDir() {
    const QString path = QDir::tempPath(); // empty where TMPDIR names no directory
    // never the root directory: a message would choose which file to overwrite
    const bool usable = path != u"/" && QFileInfo(path).isDir();
    return usable ? path + u'/' : QStringLiteral("/tmp/");
}

unsigned char MMS_UTIL_Common::mimeTypeGetValue(const QString& type, const QString& subType) {
    if (!isAscii(type) || !isAscii(subType)) {
        // a few letters beyond ASCII, such as the Kelvin sign, become ASCII in lower case
        const QString lowType = type.toLower(), lowSubType = subType.toLower();
        return isAscii(lowType) && isAscii(lowSubType) ? mimeTypeGetValue(lowType, lowSubType) : UNKNOWN_CODE;
    }
    const auto found =
        std::find_if(std::begin(MEDIA_TYPES), std::end(MEDIA_TYPES), [&](const MediaType& media) {
            return isName(subType, media.subType) && isName(type, media.type);
        });
    return found == std::end(MEDIA_TYPES)
               ? UNKNOWN_CODE
               : static_cast<unsigned char>(std::distance(std::begin(MEDIA_TYPES), found));
}

void MMS_UTIL_Common::mimeTypeGetName(unsigned char code, QString& type, QString& subType) {
    const MediaNames& names = namesOf(code);
    type = names.type;
    subType = names.subType;
}
