#pragma once

#include <QHash>
#include <QSet>
#include <QString>

class MMS_COMP_SMILMultipartBodypart;

/// A name from a message made safe for a new file: without path, hidden name, leading "-" or control
/// characters, and at most 200 octets long. Empty if nothing remains.
QString safeFileName(const QString& name);

/// Gives out each name once: photo.jpg, then photo_0.jpg, photo_1.jpg, ...; for an empty name file0.jpg,
/// file1.jpg, ...
class FreeNames {
public:
    /// The next name not given out before; the extension is for an empty name.
    QString next(const QString& name, const QString& extension = QString());

private:
    QHash<QString, int> nextNumbers_; // where the search for a free name continues, by name
    QSet<QString> given_;
};

/// Writes the parts of one message into a directory.
class PartFiles {
public:
    /// With `replaces`, a part replaces a file or link of its name that was there before; else the part gets
    /// a number.
    PartFiles(const QString& directory, bool replaces) : directory_(directory), replaces_(replaces) {}
    /// Writes the part's payload to a new file and prints a line about it. On failure reports it and returns
    /// false.
    bool write(const MMS_COMP_SMILMultipartBodypart& part);

private:
    QString nextPath(const MMS_COMP_SMILMultipartBodypart& part);
    bool writeNew(const MMS_COMP_SMILMultipartBodypart& part, QString& path, QString& cause);
    bool replace(const MMS_COMP_SMILMultipartBodypart& part, QString& path, QString& cause);

    QString directory_;
    bool replaces_;
    FreeNames names_;
};
