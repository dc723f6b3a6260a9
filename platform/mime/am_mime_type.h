#pragma once

#include "platform/export.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

/// The phone's registry of MIME types and the file extensions that go with them.
class LUM_EXPORT AM_MimeType {
public:
    /// The one registry. It stays the library's.
    static const AM_MimeType* instance();

    /// The file extensions (without a dot) of the type written "type/subtype", the preferred one
    /// first; asked without regard to case; empty for an unknown type.
    QStringList getExtListByMimeId(const QString& mimeId) const;

    /// The type, in lower case, under which a file of that name and with those octets travels in a
    /// message; "application/octet-stream" for an unknown one.
    QString getMimeIdByFile(const QString& fileName, QByteArrayView octets) const;

private:
    AM_MimeType() = default;
};
