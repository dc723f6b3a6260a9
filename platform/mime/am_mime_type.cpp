#include "platform/mime/am_mime_type.h"

#include <QFileInfo>
#include <QHash>
#include <QMimeDatabase>

#include <algorithm>
#include <iterator>

namespace {

struct PhoneType {
    const char* mimeId;
    const char* extensions; ///< the preferred one first, apart by blanks
};

/// Types that phones send and that the system's MIME database lacks, or may lack.
constexpr PhoneType PHONE_TYPES[] = {
    {"application/smil", "smil smi"},
    {"application/vnd.oma.dd+xml", "dd"},
    {"application/vnd.oma.drm.content", "dcf"},
    {"application/vnd.oma.drm.message", "dm"},
    {"application/vnd.oma.drm.rights+wbxml", "drc"},
    {"application/vnd.oma.drm.rights+xml", "dr"},
    {"application/vnd.wap.mms-message", "mms"},
    {"application/vnd.wap.wmlc", "wmlc"},
    {"application/vnd.wap.wmlscriptc", "wmlsc"},
    {"application/vnd.wap.xhtml+xml", "xhtml"},
    {"audio/3gpp", "3gp 3gpp"},
    {"audio/3gpp2", "3g2 3gp2"},
    {"audio/aac", "aac"},
    {"audio/aacp", "aac"},
    {"audio/amr", "amr"},
    {"audio/amr-wb", "awb"},
    {"audio/imelody", "imy"},
    {"audio/mid", "mid midi"},
    {"audio/midi", "mid midi"},
    {"audio/mobile-xmf", "mxmf"},
    {"audio/mp3", "mp3"},
    {"audio/mp4", "m4a"},
    {"audio/mpeg", "mp3"},
    {"audio/ogg", "ogg oga"},
    {"audio/qcelp", "qcp"},
    {"audio/sp-midi", "mid midi"},
    {"audio/wav", "wav"},
    {"audio/wave", "wav"},
    {"audio/x-amr", "amr"},
    {"audio/x-imelody", "imy"},
    {"audio/x-mid", "mid midi"},
    {"audio/x-midi", "mid midi"},
    {"audio/x-wav", "wav"},
    {"image/bmp", "bmp"},
    {"image/gif", "gif"},
    {"image/jpeg", "jpg jpeg"},
    {"image/jpg", "jpg jpeg"},
    {"image/png", "png"},
    {"image/vnd.wap.wbmp", "wbmp"},
    {"image/wbmp", "wbmp"},
    {"image/x-ms-bmp", "bmp"},
    {"text/html", "html htm"},
    {"text/plain", "txt"},
    {"text/x-imelody", "imy"},
    {"text/x-vcalendar", "vcs"},
    {"text/x-vcard", "vcf"},
    {"video/3gpp", "3gp 3gpp"},
    {"video/3gpp2", "3g2 3gp2"},
    {"video/mp4", "mp4 m4v"},
    {"video/mpeg", "mpeg mpg"},
};

struct PhoneFile {
    const char* extension;
    const char* mimeId;
};

/// Files that the system's MIME database does not know, or whose type has another name in messages.
constexpr PhoneFile PHONE_FILES[] = {
    {"dcf", "application/vnd.oma.drm.content"},
    {"dm", "application/vnd.oma.drm.message"},
    {"imy", "audio/imelody"},
    {"mms", "application/vnd.wap.mms-message"},
    {"qcp", "audio/qcelp"},
    {"smi", "application/smil"},
    {"smil", "application/smil"},
    {"vcf", "text/x-vcard"},
    {"vcs", "text/x-vcalendar"},
};

/// The system's type that has this name, in lower case. The database is case-sensitive and names nearly all
/// types in lower case; the few other names are listed at the first failed look-up.
QMimeType systemType(const QString& id) {
    const QMimeDatabase system;
    const QMimeType known = system.mimeTypeForName(id);
    if (known.isValid())
        return known;
    static const QHash<QString, QString> withCapitals = [&system] {
        QHash<QString, QString> names;
        for (const QMimeType& type : system.allMimeTypes())
            for (const QString& name : QStringList(type.name()) + type.aliases())
                if (const QString lowered = name.toLower(); lowered != name)
                    names.insert(lowered, name);
        return names;
    }();
    return system.mimeTypeForName(withCapitals.value(id));
}

} // namespace

const AM_MimeType* AM_MimeType::instance() {
    static const AM_MimeType registry;
    return &registry;
}

QStringList AM_MimeType::getExtListByMimeId(const QString& mimeId) const {
    const QString id = mimeId.toLower();
    const QStringList known = systemType(id).suffixes();
    if (!known.isEmpty())
        return known;
    const auto found =
        std::find_if(std::begin(PHONE_TYPES), std::end(PHONE_TYPES),
                     [&id](const PhoneType& type) { return id == QLatin1String(type.mimeId); });
    return found == std::end(PHONE_TYPES) ? QStringList()
                                          : QString::fromLatin1(found->extensions).split(u' ');
}

QString AM_MimeType::getMimeIdByFile(const QString& fileName, QByteArrayView octets) const {
    const QString extension = QFileInfo(fileName).suffix().toLower();
    for (const PhoneFile& file : PHONE_FILES)
        if (extension == QLatin1String(file.extension))
            return QString::fromLatin1(file.mimeId);
    const QMimeDatabase system;
    if (octets.isEmpty()) // the system has a type of its own for empty files
        return system.mimeTypeForFile(fileName, QMimeDatabase::MatchExtension).name().toLower();
    constexpr qsizetype looked = 16 * 1024; // as far as the database's signatures reach
    const QByteArray begin = octets.first(std::min(octets.size(), looked)).toByteArray();
    return system.mimeTypeForFileNameAndData(fileName, begin).name().toLower();
}
