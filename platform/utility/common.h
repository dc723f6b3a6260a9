#pragma once

#include "platform/export.h"

#include <QString>

/// The temporary directory and the WSP numbers of media types.
class LUM_EXPORT MMS_UTIL_Common {
public:
    /// The system's temporary directory with a closing "/": TMPDIR, or "/tmp/" when TMPDIR is no directory or
    /// is the root directory.
    static QString getTmpDir();

    /// The well-known number (0x00 to 0x4B, WSP assigned numbers, content types) of a media type,
    /// compared in lower case; 0x7F for a type that has none.
    static unsigned char mimeTypeGetValue(const QString& type, const QString& subType);

    /// The media type of a well-known number, in lower case; "application" and "octet-stream" for an
    /// unassigned number.
    static void mimeTypeGetName(unsigned char code, QString& type, QString& subType);
};
