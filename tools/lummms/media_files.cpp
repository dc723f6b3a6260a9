#include "tools/lummms/media_files.h"

#include "multipart/body_part.h"
#include "platform/mime/am_mime_type.h"
#include "tools/lummms/terminal.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

/// A type with a signature.
struct ToldType {
    const char* mimeId;
    const char* extension;
};

constexpr ToldType TOLD_TYPES[] = {
    {"image/jpeg", "jpg"},  {"image/png", "png"}, {"image/gif", "gif"},    {"image/bmp", "bmp"},
    {"image/webp", "webp"}, {"audio/amr", "amr"}, {"audio/amr-wb", "awb"}, {"audio/midi", "mid"},
};

const ToldType* findTold(const QString& mimeId) {
    const auto found =
        std::find_if(std::begin(TOLD_TYPES), std::end(TOLD_TYPES),
                     [&mimeId](const ToldType& type) { return mimeId == QLatin1String(type.mimeId); });
    return found == std::end(TOLD_TYPES) ? nullptr : found;
}

} // namespace

QString cleanName(const QString& name, QStringView unwanted) {
    QString clean = name;
    for (qsizetype i = 0; i < name.size(); ++i)
        if (isUnprintable(name, i) || unwanted.contains(name.at(i)))
            clean[i] = u'_';
    return clean;
}

MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets) {
    const AM_MimeType* registry = AM_MimeType::instance();
    const QByteArrayView view(octets.data(), octets.size());
    QString name = registry->getMimeIdByFile(QString(), view);
    if (!findTold(name))
        name = registry->getMimeIdByFile(fileName, view);
    return {MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(name),
            MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(name)};
}

QString nameWithExtension(const QString& fileName, const MediaType& type) {
    const QString name = type.type + u'/' + type.subType;
    const ToldType* told = findTold(name);
    const QString extension = QFileInfo(fileName).suffix();
    if (!told || AM_MimeType::instance()->getExtListByMimeId(name).contains(extension, Qt::CaseInsensitive))
        return fileName;
    return fileName.chopped(extension.isEmpty() ? 0 : extension.size() + 1) + u'.' +
           QLatin1String(told->extension);
}
