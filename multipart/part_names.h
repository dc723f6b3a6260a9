#pragma once

#include "multipart/body_part_list.h"

#include <QHash>
#include <QSet>
#include <QString>

/// The names in use in a container, for choosing one that is free. They are gathered once, for any number of
/// look-ups.
class PartNames {
public:
    /// With a `prefix` (in lower case), only names that begin with it in any case are gathered, and only such
    /// names may be looked up.
    explicit PartNames(const BodypartList& parts, QStringView prefix = QStringView());

    /// Adds the names of one more part.
    void add(const MMS_COMP_SMILMultipartBodypart& part);
    /// Adds the new Content-Location of a part whose Content-ID is known.
    void addLocation(const QString& location);
    /// Whether the reference would find a part.
    bool contains(const QString& name) const;

    /// See MMS_COMP_SMILMultipart::createUniqueLocation().
    QString uniqueLocation(const QString& name) const;
    /// The prefix of all names that uniqueAttachmentLocation() returns.
    static constexpr QStringView attachmentPrefix = u"file";
    /// See MMS_COMP_SMILMultipart::createUniqueAttchmentLocation(); `suffix` is the extension with its dot.
    /// No name is returned twice, even one that was not added.
    QString uniqueAttachmentLocation(const QString& suffix);

private:
    const QStringView prefix_;
    QSet<QString> contentIds_;     // without "cid:" and brackets, in lower case
    QSet<QString> locations_;      // in lower case
    QHash<QString, int> nextFile_; // by what follows the number, in lower case: where the next search begins
};
