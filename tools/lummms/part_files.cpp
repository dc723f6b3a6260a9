#include "tools/lummms/part_files.h"

#include "multipart/body_part.h"
#include "tools/lummms/files.h"
#include "tools/lummms/media_files.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "util/mms_comp_util.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr qsizetype LONGEST_NAME = 200; // octets; file systems allow 255, and a number may be added

/// The n-th name made from a name.
QString numberedName(const QString& name, const QString& extension, int n) {
    const QString dotted = extension.isEmpty() ? QString() : u'.' + extension;
    if (name.isEmpty())
        return QStringLiteral("file%1").arg(n) + dotted;
    if (n == 0)
        return name;
    const QString base = MMS_COMP_Util::getNoExtName(name);
    return base + QStringLiteral("_%1").arg(n - 1) + name.mid(base.size());
}

} // namespace

QString safeFileName(const QString& path) {
    QString name = cleanName(MMS_COMP_Util::stripePath(path), u"/\\");
    for (qsizetype i = 0; i < name.size() && name.at(i) == u'.'; ++i)
        name[i] = u'_';
    if (name.count(u'_') == name.size())
        return QString();
    if (name.startsWith(u'-'))
        name.prepend(u'_');
    QString base = MMS_COMP_Util::getNoExtName(name);
    const QString extension = name.mid(base.size());
    if (extension.size() > LONGEST_NAME)
        return QString();
    base.truncate(LONGEST_NAME + 1); // the rest is cut one by one, so that no surrogate pair is halved
    while (!base.isEmpty() && (base + extension).toUtf8().size() > LONGEST_NAME)
        base.chop(base.back().isLowSurrogate() ? 2 : 1);
    return (base + extension).toUtf8().size() > LONGEST_NAME ? QString() : base + extension;
}

QString FreeNames::next(const QString& name, const QString& extension) {
    int& number = nextNumbers_[name.isEmpty() ? u'.' + extension : name];
    QString free;
    do {
        free = numberedName(name, extension, number++);
    } while (given_.contains(free));
    given_.insert(free);
    return free;
}

QString PartFiles::nextPath(const MMS_COMP_SMILMultipartBodypart& part) {
    const QString name = safeFileName(part.getContentLocation());
    const QString extension =
        name.isEmpty()
            ? MMS_COMP_Util::getFirstSupportExtNameByMIMEType(part.getContentType(), part.getSubType())
            : QString();
    // not QDir::filePath(), which takes ":x" for a resource
    return directory_ + u'/' + names_.next(name, extension);
}

/// Writes a new file; never opens an existing file or link.
bool PartFiles::writeNew(const MMS_COMP_SMILMultipartBodypart& part, QString& path, QString& cause) {
    QFile file;
    bool isOpen = false;
    QFileInfo there;
    do {
        path = nextPath(part);
        file.setFileName(path);
        isOpen = file.open(QIODevice::WriteOnly | QIODevice::NewOnly);
        there.setFile(path);
    } while (!isOpen && (there.exists() || there.isSymLink()));
    const QArray<char>& octets = part.getBodyData();
    if (isOpen && file.write(octets.data(), octets.size()) == octets.size() && file.flush())
        return true;
    cause = file.errorString();
    if (isOpen)
        file.remove(); // incomplete
    return false;
}

/// Replaces an existing file, or a link itself, by a file that was written completely.
bool PartFiles::replace(const MMS_COMP_SMILMultipartBodypart& part, QString& path, QString& cause) {
    QFileInfo there;
    do {
        path = nextPath(part);
        there.setFile(path);
    } while (!there.isSymLink() && there.exists() && !there.isFile());
    if (there.isSymLink())
        QFile::remove(path);
    return saveFile(path, part.getBodyData(), IfThere::REPLACE, cause);
}

bool PartFiles::write(const MMS_COMP_SMILMultipartBodypart& part) {
    QString path;
    QString cause;
    if (!(replaces_ ? replace(part, path, cause) : writeNew(part, path, cause))) {
        complain(path, cause);
        return false;
    }
    print(QStringLiteral("%1  %2  %3\n")
              .arg(printable(path), typeOf(part), counted(part.getBodyData().size(), "octet")));
    return true;
}
