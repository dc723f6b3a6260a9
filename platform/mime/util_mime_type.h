#pragma once

#include "platform/export.h"

#include <QStringList>

/// What the phone's media player can play.
class LUM_EXPORT UTIL_MimeType {
public:
    /// Kinds of media that queryMpSupportedExtensions() knows.
    enum KIND { AUDIO = 0, VIDEO = 1 };

    /// Adds the file extensions (without a dot) that the media player supports for the KIND `kind`;
    /// adds nothing for another number.
    static void queryMpSupportedExtensions(QStringList& extensions, int kind);
};
