// lummms unpack: the parts of a message as files.

#include "multipart/body_part.h"
#include "tools/lummms/command.h"
#include "tools/lummms/media_files.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/mms_comp_util.h"

#include <QDir>
#include <QFile>
#include <QHash>

namespace {

constexpr qsizetype LONGEST_NAME = 200; // octets; file systems allow 255, and numbers need some

/// Writes parts into a directory, each into a new file.
class Unpacker {
public:
    explicit Unpacker(const QString& directory) : dir_(directory) {}
    /// Writes the part, or the parts that it is made of. False after a complaint.
    bool write(const MMS_COMP_SMILMultipartBodypart& part);

private:
    bool openNew(const MMS_COMP_SMILMultipartBodypart& part, QFile& file);

    QDir dir_;
    QHash<QString, int> nextNumbers_; // by name: a thousand parts of one name must not take long
};

/// The name for a part in a file system: nothing that leads out of the directory, hides the file, or
/// steers a terminal. Empty if there is nothing to make a name from.
QString fileNameOf(const MMS_COMP_SMILMultipartBodypart& part) {
    QString name = cleanName(MMS_COMP_Util::stripePath(part.getContentLocation()), u"/\\");
    for (qsizetype i = 0; i < name.size() && name.at(i) == u'.'; ++i)
        name[i] = u'_';
    if (name.count(u'_') == name.size())
        return QString();
    QString base = MMS_COMP_Util::getNoExtName(name);
    const QString extension = name.mid(base.size());
    if (extension.size() > LONGEST_NAME)
        return QString();
    base.truncate(LONGEST_NAME + 1); // the rest goes one by one, and with it half of a pair
    while (!base.isEmpty() && (base + extension).toUtf8().size() > LONGEST_NAME)
        base.chop(base.back().isLowSurrogate() ? 2 : 1);
    return (base + extension).toUtf8().size() > LONGEST_NAME ? QString() : base + extension;
}

/// The n-th name of the row photo.jpg, photo_0.jpg, photo_1.jpg, ...; for a part without a name of the row
/// file0.jpg, file1.jpg, ...
QString numberedName(const QString& name, const QString& extension, int n) {
    const QString dotted = extension.isEmpty() ? QString() : u'.' + extension;
    if (name.isEmpty())
        return QStringLiteral("file%1").arg(n) + dotted;
    if (n == 0)
        return name;
    const QString base = MMS_COMP_Util::getNoExtName(name);
    return base + QStringLiteral("_%1").arg(n - 1) + name.mid(base.size());
}

bool Unpacker::openNew(const MMS_COMP_SMILMultipartBodypart& part, QFile& file) {
    const QString name = fileNameOf(part);
    const QString extension =
        name.isEmpty()
            ? MMS_COMP_Util::getFirstSupportExtNameByMIMEType(part.getContentType(), part.getSubType())
            : QString();
    int& next = nextNumbers_[name.isEmpty() ? u'.' + extension : name];
    for (;;) {
        file.setFileName(dir_.filePath(numberedName(name, extension, next++)));
        // a file that is there, or a link to wherever, is never opened
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return true;
        const QFileInfo there(file.fileName());
        if (!there.exists() && !there.isSymLink())
            return false;
    }
}

bool Unpacker::write(const MMS_COMP_SMILMultipartBodypart& part) {
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        if (!write(*part.getSubBody(static_cast<unsigned int>(i))))
            return false;
    const QArray<char>& octets = part.getBodyData();
    if (part.getSubBodyCount() && octets.isEmpty())
        return true; // nothing but the parts in it
    QFile file;
    if (!openNew(part, file) || file.write(octets.data(), octets.size()) != octets.size() || !file.flush()) {
        complain(file.fileName(), file.errorString());
        return false;
    }
    print(QStringLiteral("%1  %2  %3\n")
              .arg(printable(file.fileName()), typeOf(part), counted(octets.size(), "octet")));
    return true;
}

int unpack(const CommandLine& line) {
    const QString path = line.files.at(0);
    const QString directory = line.files.at(1);
    Message message(readingAskedFor(line));
    QString cause;
    if (!message.read(path, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    if (!QDir().mkpath(directory)) {
        complain(directory, QStringLiteral("cannot be made a directory"));
        return EXIT_UNUSABLE;
    }
    Unpacker unpacker(directory);
    for (int i = 0; i < message.body.getPartCount(); ++i)
        if (!unpacker.write(*message.body.getBodypartByIndex(i, false)))
            return EXIT_UNUSABLE;
    return message.verdict(path);
}

} // namespace

Command unpackCommand() {
    return {
        "unpack",
        "Writes the parts of a message into a directory.",
        {"[--phone] FILE DIR"},
        "Every part becomes a new file in DIR, which is made if need be, under the file name of its\n"
        "Content-Location, parts within parts too. A name that is taken gets a number (photo_0.jpg);\n"
        "no file that is there is overwritten. Prints a line for each file.\n",
        {phoneOption()},
        {"FILE", "DIR"},
        {},
        unpack,
    };
}
