#include "multipart/body_part.h"
#include "platform/utility/common.h"

#include <QFile>
#include <QVarLengthArray>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A root directory and the directories below it down to the current one, all kept open.
class Descent {
public:
    explicit Descent(const QByteArray& root) { open(AT_FDCWD, root, O_PATH | O_DIRECTORY | O_CLOEXEC); }
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;
    ~Descent() {
        for (const int fd : fds_)
            ::close(fd);
    }

    /// The file descriptor of the current directory.
    int fd() const { return fds_.last(); }
    bool isOpen() const { return !fds_.isEmpty(); }

    /// Enters the directory of one path component, without following symbolic links. False when there is
    /// none, or when ".." would leave the root.
    bool go(const QByteArray& step) {
        if (step.isEmpty() || step == ".")
            return true;
        if (step != "..")
            return open(fd(), step, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (fds_.size() == 1)
            return false;
        ::close(fd());
        fds_.removeLast();
        return true;
    }

private:
    bool open(int at, const QByteArray& name, int flags) {
        const int fd = ::openat(at, name.constData(), flags);
        if (fd >= 0)
            fds_.append(fd);
        return fd >= 0;
    }

    QVarLengthArray<int, 8> fds_;
};

/// Whether a file is a regular file with no second hard link, which could be outside the root.
bool isPlainFile(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_nlink == 1;
}

/// Opens the file for writing and truncates it; -1 for anything but a plain file. Never blocks on a pipe or
/// device of that name, nor writes to it.
int openPlainFile(const Descent& directory, const QByteArray& name) {
    const int fd = ::openat(directory.fd(), name.constData(),
                            O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (fd < 0)
        return -1;
    // The link count is taken by name: it then includes this name, so that 1 means that there is no other.
    struct stat opened, named;
    if (::fstat(fd, &opened) == 0 &&
        ::fstatat(directory.fd(), name.constData(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
        opened.st_dev == named.st_dev && opened.st_ino == named.st_ino && isPlainFile(named) &&
        ::ftruncate(fd, 0) == 0)
        return fd;
    ::close(fd);
    return -1;
}

void removePlainFile(const Descent& directory, const QByteArray& name) {
    struct stat status;
    if (::fstatat(directory.fd(), name.constData(), &status, AT_SYMLINK_NOFOLLOW) == 0 && isPlainFile(status))
        ::unlinkat(directory.fd(), name.constData(), 0);
}

/// Writes the file `name` below the directory `root`. False when it cannot be written (the file is removed),
/// and when the name leads out of `root` (nothing is changed).
bool writeBelow(const QString& root, const QString& name, const QArray<char>& data) {
    if (name.contains(QChar(0)))
        return false;
    QList<QByteArray> steps = QFile::encodeName(name).split('/');
    const QByteArray fileName = steps.takeLast();
    if (fileName.isEmpty() || fileName == "." || fileName == "..")
        return false;

    Descent directory(QFile::encodeName(root));
    const auto go = [&directory](const QByteArray& step) { return directory.go(step); };
    if (!directory.isOpen() || !std::all_of(steps.begin(), steps.end(), go))
        return false;

    QFile file;
    const int fd = openPlainFile(directory, fileName);
    if (fd >= 0 &&
        file.open(fd, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle) &&
        file.write(data.data(), data.size()) == data.size())
        return true;
    removePlainFile(directory, fileName);
    return false;
}

} // namespace

bool MMS_COMP_SMILMultipartBodypart::saveBodyDataToFile(QString& path) const {
    if (bodyData_.isEmpty())
        return false;
    const QString name =
        dispFileName_.isEmpty() ? contentLocation_.mid(contentLocation_.lastIndexOf('/') + 1) : dispFileName_;
    const QString directory = MMS_UTIL_Common::getTmpDir();
    path = directory + name;
    return writeBelow(directory, name, bodyData_);
}
