#pragma once

#include "octets.h"

#include "multipart/multipart.h"

#include <QDataStream>
#include <QIODevice>

using Part = MMS_COMP_SMILMultipartBodypart;

/// Appends a part of this name, an ordinary one or, with 0, one that is linked already.
inline Part* addPart(MMS_COMP_SMILMultipart& container, const QString& location, int fileType = 1) {
    auto* part = new Part;
    part->setContentLocation(location);
    part->setDispFileType(fileType);
    container.appendBodypart(part);
    return part;
}

/// Gives a part a type written as "type/sub-type".
inline void setType(Part& part, const QString& type) {
    part.setContentType(Part::getTypePartFromFormat(type));
    part.setContentSubType(Part::getSubTypePartFromFormat(type));
}

/// What an object is stored as.
template <class Recorded>
QByteArray recordOf(const Recorded& object) {
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    EXPECT_TRUE(object.writeToStream(stream));
    return octets;
}

/// Restores an object from its record.
template <class Recorded>
bool read(Recorded& object, const QByteArray& octets) {
    QDataStream stream(octets);
    return object.readFromStream(stream);
}
