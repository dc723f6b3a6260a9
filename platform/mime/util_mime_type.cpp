#include "platform/mime/util_mime_type.h"

void UTIL_MimeType::queryMpSupportedExtensions(QStringList& extensions, int kind) {
    static const QStringList audio = {"amr", "awb", "mid", "midi", "imy", "mp3",
                                      "m4a", "aac", "3gp", "wav",  "ogg"};
    static const QStringList video = {"3gp", "3gpp", "3g2", "mp4", "m4v", "mpeg", "mpg"};
    if (kind == AUDIO)
        extensions += audio;
    else if (kind == VIDEO)
        extensions += video;
}
