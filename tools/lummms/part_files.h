#pragma once

#include <QHash>
#include <QSet>
#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// A name from outside as one that can be given to a new file: nothing that leads out of a directory, hides
/// the file, looks like an option or steers a terminal, in 200 octets at most. Empty if nothing remains.
QString safeFileName(const QString& name);

/// Gives each name once: photo.jpg, then photo_0.jpg, photo_1.jpg, ...; of an empty name file0.jpg,
/// file1.jpg, ...
class FreeNames {
public:
    /// The next name that was not given before; the extension is for an empty name.
    QString next(const QString& name, const QString& extension = QString());

private:
    QHash<QString, int> nextNumbers_; // by name: a thousand parts of one name must not take long
    QSet<QString> given_;
};

/// Writes the parts of one message into a directory.
class PartFiles {
public:
    /// With `replaces`, a file or link that was in the directory before gives way to a part of its name;
    /// else the part gets a number.
    PartFiles(const QString& directory, bool replaces) : directory_(directory), replaces_(replaces) {}
    /// Writes the part's own payload into a new file and prints a line about it. False after a complaint.
    bool write(const MMS_COMP_SMILMultipartBodypart& part);

private:
    QString nextPath(const MMS_COMP_SMILMultipartBodypart& part);
    bool writeNew(const MMS_COMP_SMILMultipartBodypart& part, QString& path, QString& cause);
    bool replace(const MMS_COMP_SMILMultipartBodypart& part, QString& path, QString& cause);

    QString directory_;
    bool replaces_;
    FreeNames names_;
};
