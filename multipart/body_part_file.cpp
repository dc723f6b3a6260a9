#include "multipart/body_part.h"
#include "platform/utility/common.h"

#include <QFile>
#include <QVarLengthArray>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The directories from the one it begins with down to the present one, kept open.
class Descent {
public:
    explicit Descent(const QByteArray& root) { open(AT_FDCWD, root, O_PATH | O_DIRECTORY | O_CLOEXEC); }
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;
    ~Descent() {
        for (const int fd : fds_)
            ::close(fd);
    }

    /// The number of the present directory.
    int fd() const { return fds_.last(); }
    bool isOpen() const { return !fds_.isEmpty(); }

    /// Follows one step of a path, but no symbolic link. False when there is no such directory, or ".."
    /// would leave the first one.
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

/// An ordinary file without a second hard link, which might be anywhere.
bool isPlainFile(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_nlink == 1;
}

/// Opens the file for writing and empties it; -1 for anything but a plain file. Does not wait for pipes
/// and devices of that name, and does not write to them.
int openPlainFile(const Descent& directory, const QByteArray& name) {
    const int fd = ::openat(directory.fd(), name.constData(),
                            O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
    if (fd < 0)
        return -1;
    // Only the name's own status counts its names at a moment at which this one is still among them.
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

/// Writes the file `name` below the directory `root`. False, with the file removed, when it cannot be
/// written; false, with nothing touched, when the name leads out of `root`.
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
