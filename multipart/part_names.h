#pragma once

#include "multipart/body_part_list.h"

#include <QHash>
#include <QSet>
#include <QString>

/// The names that the parts of a container have, for finding one that none of them has. Gathered
/// once, it answers for any number of candidates.
class PartNames {
public:
    /// With a `prefix`, only the names that begin with it (in any case, the prefix in lower case) are
    /// gathered, and only such names may be asked for.
    explicit PartNames(const BodypartList& parts, QStringView prefix = QStringView());

    /// Adds the names of one more part.
    void add(const MMS_COMP_SMILMultipartBodypart& part);
    /// Adds the new Content-Location of a part whose Content-ID is known.
    void addLocation(const QString& location);
    /// Whether a part would be found by that reference.
    bool contains(const QString& name) const;

    /// What MMS_COMP_SMILMultipart::createUniqueLocation() gives.
    QString uniqueLocation(const QString& name) const;
    /// What all names of uniqueAttachmentLocation() begin with.
    static constexpr QStringView attachmentPrefix = u"file";
    /// What MMS_COMP_SMILMultipart::createUniqueAttchmentLocation() gives, for an extension with its dot.
    QString uniqueAttachmentLocation(const QString& suffix);

private:
    const QStringView prefix_;
    QSet<QString> contentIds_;     // bare and in lower case
    QSet<QString> locations_;      // in lower case
    QHash<QString, int> nextFile_; // by what follows the number: where the search for a free one goes on
};
