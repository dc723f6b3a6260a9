#pragma once

#include "qt2/qarray.h"

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// A media type: type and sub-type, such as "image" and "jpeg".
struct MediaType {
    QString type;
    QString subType;
};

/// The file name with "_" for unprintable and for `unwanted` characters.
QString cleanName(const QString& name, QStringView unwanted);

/// The media type of a file: by its signature if it has one, like most pictures, else by its name and octets.
MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets);

/// The file name with the usual extension of the type, if the type has a signature: added, or in place of an
/// extension of another type.
QString nameWithExtension(const QString& fileName, const MediaType& type);
