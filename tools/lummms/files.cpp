#include "tools/lummms/files.h"

#include "tools/lummms/terminal.h"
#include "util/mms_comp_util.h"

#include <QFileInfo>
#include <QSaveFile>

#include <limits>
#include <unistd.h>

namespace {

/// The most that is read from a pipe, whose size is unknown.
constexpr qsizetype MOST_OF_PIPE = 64 * 1024 * 1024;

QString whyNotOpened(const QString& path) {
    if (path.isEmpty())
        return QStringLiteral("a file name is empty");
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("no such file");
    if (info.isDir())
        return QStringLiteral("is a directory");
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QStringLiteral("cannot be opened") : file.errorString();
}

/// Reads a file of unknown size to its end.
bool loadToEnd(QFile& file, QArray<char>& octets, QString& cause) {
    constexpr qint64 step = 1024 * 1024;
    QByteArray all;
    for (QByteArray piece; !(piece = file.read(step)).isEmpty();) {
        all += piece;
        if (all.size() > MOST_OF_PIPE) {
            cause = QStringLiteral("more than the 64 MiB that are read from a pipe");
            return false;
        }
    }
    if (file.error() != QFileDevice::NoError) {
        cause = file.errorString();
        return false;
    }
    octets = all;
    return true;
}

bool loadOrdinary(const QString& path, QArray<char>& octets, QString& cause) {
    const int status = MMS_COMP_Util::getQByteArraySrcByFileName(octets, path, false);
    if (status == MMS_COMP_Util::FILE_NOT_OPENED)
        cause = whyNotOpened(path);
    else if (status != MMS_COMP_Util::FILE_READ)
        cause = QStringLiteral("cannot be read");
    else if (octets.size() > std::numeric_limits<int>::max())
        cause = QStringLiteral("larger than any message");
    else
        return true;
    return false;
}

} // namespace

QString filePathOf(const QString& path) {
    return path.startsWith(u':') ? QStringLiteral("./") + path : path;
}

bool loadFile(const QString& path, QArray<char>& octets, QString& cause) {
    constexpr auto mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    if (path == STANDARD_STREAM) {
        QFile input;
        if (input.open(STDIN_FILENO, mode))
            return loadToEnd(input, octets, cause);
        cause = input.errorString();
        return false;
    }
    const QString name = filePathOf(path);
    const QFileInfo there(name);
    QFile file(name);
    if (!there.isFile() && !there.isDir() && file.open(mode))
        return loadToEnd(file, octets, cause);
    return loadOrdinary(name, octets, cause);
}

bool saveFile(const QString& path, const QByteArray& octets, IfThere ifThere, QString& cause) {
    if (path == STANDARD_STREAM) {
        if (printOctets(octets) && printedAll())
            return true;
        cause = QStringLiteral("standard output cannot be written");
        return false;
    }
    const QString name = filePathOf(path);
    const QFileInfo there(name);
    QSaveFile file(name);
    if (there.exists() && !there.isFile())
        cause = QStringLiteral("is not an ordinary file");
    else if (there.exists() && ifThere == IfThere::REFUSE)
        cause = QStringLiteral("exists already (--force replaces it)");
    else if (!file.open(QIODevice::WriteOnly) || file.write(octets) != octets.size() || !file.commit())
        cause = file.errorString();
    else
        return true;
    return false;
}
