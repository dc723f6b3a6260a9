#pragma once

#include "qt2/qarray.h"

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// A media type as a message carries it, such as "image" and "jpeg".
struct MediaType {
    QString type;
    QString subType;
};

/// The media type of a file, by its name and its octets.
MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets);
