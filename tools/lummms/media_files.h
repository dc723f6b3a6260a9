#pragma once

#include "qt2/qarray.h"

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// A media type as a message carries it, such as "image" and "jpeg".
struct MediaType {
    QString type;
    QString subType;
};

/// A file name that can stand everywhere: "_" for what is unprintable and for each of the
/// `unwanted` characters.
QString cleanName(const QString& name, QStringView unwanted);

/// The media type of a file, by its name and its octets.
MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets);
