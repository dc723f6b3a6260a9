#include "tools/lummms/media_files.h"

#include "multipart/body_part.h"
#include "platform/mime/am_mime_type.h"
#include "tools/lummms/terminal.h"

QString cleanName(const QString& name, QStringView unwanted) {
    QString clean = name;
    for (qsizetype i = 0; i < name.size(); ++i)
        if (isUnprintable(name, i) || unwanted.contains(name.at(i)))
            clean[i] = u'_';
    return clean;
}

MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets) {
    const QString name =
        AM_MimeType::instance()->getMimeIdByFile(fileName, QByteArrayView(octets.data(), octets.size()));
    return {MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(name),
            MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(name)};
}
