#include "tools/lummms/files.h"

#include "util/mms_comp_util.h"

#include <QFileInfo>
#include <QSaveFile>

#include <limits>

QString whyNotOpened(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists())
        return QStringLiteral("no such file");
    if (info.isDir())
        return QStringLiteral("is a directory");
    return QStringLiteral("cannot be opened");
}

bool loadFile(const QString& path, QArray<char>& octets, QString& cause) {
    const int status = MMS_COMP_Util::getQByteArraySrcByFileName(octets, path, false);
    if (status == MMS_COMP_Util::FILE_NOT_OPENED)
        cause = whyNotOpened(path);
    else if (status == MMS_COMP_Util::FILE_NO_SIZE)
        cause = QStringLiteral("is a pipe or a device");
    else if (status != MMS_COMP_Util::FILE_READ)
        cause = QStringLiteral("cannot be read");
    else if (octets.size() > std::numeric_limits<int>::max())
        cause = QStringLiteral("larger than any message");
    else
        return true;
    return false;
}

bool saveFile(const QString& path, const QByteArray& octets, QString& cause) {
    const QFileInfo there(path);
    QSaveFile file(path);
    if (there.exists() && !there.isFile())
        cause = QStringLiteral("is not an ordinary file");
    else if (!file.open(QIODevice::WriteOnly) || file.write(octets) != octets.size() || !file.commit())
        cause = file.errorString();
    else
        return true;
    return false;
}
