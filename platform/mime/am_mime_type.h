#pragma once

#include "platform/export.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

/// The registry of MIME types and their file extensions.
class LUM_EXPORT AM_MimeType {
public:
    /// The registry, owned by the library.
    static const AM_MimeType* instance();

    /// The file extensions (without a dot) of a type given as "type/subtype" in any case, the preferred one
    /// first; empty for an unknown type.
    QStringList getExtListByMimeId(const QString& mimeId) const;

    /// The MIME type for sending a file with that name and content, in lower case; "application/octet-stream"
    /// for an unknown one.
    QString getMimeIdByFile(const QString& fileName, QByteArrayView octets) const;

private:
    AM_MimeType() = default;
};
