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

/// The media type of a file: by its octets where its first ones tell what it is, as those of most pictures
/// do, whatever it is called; otherwise by its name and its octets.
MediaType mediaTypeOf(const QString& fileName, const QArray<char>& octets);

/// The file name with the usual extension of the type in place of one of another type, or of none, if the
/// type is one that octets tell.
QString nameWithExtension(const QString& fileName, const MediaType& type);
