#include "tools/lummms/media_type.h"

#include "multipart/body_part.h"
#include "platform/mime/am_mime_type.h"

MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets) {
    const QString name =
        AM_MimeType::instance()->getMimeIdByFile(fileName, QByteArrayView(octets.data(), octets.size()));
    return {MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(name),
            MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(name)};
}
