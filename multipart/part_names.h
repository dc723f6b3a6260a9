#pragma once

#include "multipart/body_part_list.h"

#include <QHash>
#include <QSet>
#include <QString>

/// The names that the parts of a container have, for finding one that none of them has. Gathered
/// once, it answers for any number of candidates.
class PartNames {
public:
    explicit PartNames(const BodypartList& parts);

    /// Adds the names of one more part.
    void add(const MMS_COMP_SMILMultipartBodypart& part);
    /// Adds the new Content-Location of a part whose Content-ID is known.
    void addLocation(const QString& location) { locations_.insert(location.toLower()); }
    /// Whether a part would be found by that reference.
    bool contains(const QString& name) const;

    /// What MMS_COMP_SMILMultipart::createUniqueLocation() gives.
    QString uniqueLocation(const QString& name) const;
    /// What MMS_COMP_SMILMultipart::createUniqueAttchmentLocation() gives.
    QString uniqueAttachmentLocation(const QString& extension);

private:
    QSet<QString> contentIds_;     // bare and in lower case
    QSet<QString> locations_;      // in lower case
    QHash<QString, int> nextFile_; // by what follows the number: where the search for a free one goes on
};
