#include "util/mms_comp_util.h"

#include "platform/mime/am_mime_type.h"
#include "platform/mime/util_mime_type.h"
#include "platform/utility/setting.h"
#ifdef LUM_BUILD_UI
#include "platform/ui/icon_reader.h"
#include "platform/ui/message_box.h"
#endif

#include <QDebug>
#include <QFile>
#include <QObject>
#include <QStringList>

#include <algorithm>
#include <string_view>
#include <sys/time.h>
#include <utility>

namespace {

struct TextExtension {
    const char* subType;
    const char* extension;
};

/// Text types with a fixed extension, whatever the phone's registry has.
constexpr TextExtension TEXT_EXTENSIONS[] = {
    {"plain", "txt"},
    {"x-vcalendar", "vcs"},
    {"x-vcard", "vcf"},
};

/// The extensions of the files that the phone can show or play, for a top-level type in lower case.
QStringList supportedExtensions(const QString& type) {
    QStringList extensions;
    if (type == u"video")
        UTIL_MimeType::queryMpSupportedExtensions(extensions, UTIL_MimeType::VIDEO);
    else if (type == u"audio")
        UTIL_MimeType::queryMpSupportedExtensions(extensions, UTIL_MimeType::AUDIO);
    else if (type == u"image")
        extensions = {"gif", "png", "jpg", "jpeg", "bmp", "wbmp"};
    return extensions;
}

/// The translation of a text id; `fallback` when there is none.
QString translated(const char* id, const char* fallback) {
    const QString text = QObject::tr(id, fallback);
    return text == QLatin1String(id) ? QString::fromLatin1(fallback) : text;
}

} // namespace

QString MMS_COMP_Util::getPath(const QString& path) {
    const QString stripped = path.trimmed();
    return stripped.left(stripped.size() - stripePath(stripped).size());
}

QString MMS_COMP_Util::stripePath(const QString& path) {
    const QString stripped = path.trimmed();
    // both separators, because names from other systems can contain "\"
    return stripped.mid(std::max(stripped.lastIndexOf(u'/'), stripped.lastIndexOf(u'\\')) + 1);
}

QString MMS_COMP_Util::getExtName(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString("") : name.mid(dot + 1).trimmed();
}

QString MMS_COMP_Util::getNoExtName(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? name : name.left(dot); // white space is kept, unlike in getExtName()
}

QString MMS_COMP_Util::getFirstSupportExtNameByMIMEType(const QString& type, const QString& subType) {
    const QString lowType = type.toLower();
    if (lowType == u"text") {
        const QString lowSubType = subType.toLower();
        for (const TextExtension& text : TEXT_EXTENSIONS)
            if (lowSubType == QLatin1String(text.subType))
                return QString::fromLatin1(text.extension);
    }
    const QStringList supported = supportedExtensions(lowType);
    if (supported.isEmpty())
        return QString("");
    // in the order of the registry
    const QStringList candidates = AM_MimeType::instance()->getExtListByMimeId(type + u'/' + subType);
    for (const QString& candidate : candidates)
        if (supported.contains(candidate, Qt::CaseInsensitive))
            return candidate.toLower();
    return QString("");
}

bool MMS_COMP_Util::isOnlyLetterOrNumber(const QString& text) {
    // The characters of file names and paths, more than the function's name says.
    constexpr std::u16string_view others = u".-_ \\/";
    return std::all_of(text.begin(), text.end(), [others](QChar character) {
        const char16_t c = character.unicode();
        return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') ||
               others.find(c) != others.npos;
    });
}

int MMS_COMP_Util::getQByteArraySrcByFileName(QArray<char>& data, const QString& fileName, bool checkSize) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return FILE_NOT_OPENED;
    const qint64 size = file.isSequential() ? -1 : file.size(); // of a pipe size() is 0
    if (checkSize && size > qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024)
        return FILE_TOO_LARGE;
    if (size < 0)
        return FILE_NO_SIZE;
    if (!std::in_range<qsizetype>(size))
        return FILE_NO_MEMORY;
    QArray<char> contents{
        qsizetype(size)}; // private: others that share the caller's array keep what they have
    if (contents.isNull() || file.read(contents.data(), size) != size)
        return FILE_NO_MEMORY;
    data = contents;
    return FILE_READ;
}

int MMS_COMP_Util::printTimeStamp(const QString&, int) {
    timeval now;
    return gettimeofday(&now, nullptr);
}

void MMS_COMP_Util::noFlashMsgBox() {
    const QString notice = translated("TXT_RID_CONTENT_ICON_MEMORY_IS_FULL_ACTION_IS_NOT_ALLOWED",
                                      "Memory is full, Action is not allowed!");
#ifdef LUM_BUILD_UI
    LumMessageBox::information(nullptr, RES_ICON_Reader::getIcon("Dialog_Error.gif", true), notice,
                               translated("TXT_RID_D1BUTTON_OK", "ok"), QString(), QString(), 1);
#else
    qCritical().noquote() << notice;
#endif
}
