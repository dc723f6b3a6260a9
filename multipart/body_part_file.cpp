#include "multipart/body_part.h"
#include "platform/utility/common.h"

#include <QFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// An open directory, by its number; closed with the object.
class Directory {
public:
    explicit Directory(int fd) : fd_(fd) {}
    Directory(const Directory&) = delete;
    Directory& operator=(const Directory&) = delete;
    ~Directory() { close(); }

    int fd() const { return fd_; }
    bool isOpen() const { return fd_ >= 0; }
    /// Goes down into one of its directories, links not followed.
    void enter(const QByteArray& name) {
        const int below = ::openat(fd_, name.constData(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        close();
        fd_ = below;
    }

private:
    void close() {
        if (fd_ >= 0)
            ::close(fd_);
    }

    int fd_;
};

/// An ordinary file with no second name, which might lie anywhere.
bool isPlainFile(const struct stat& status) {
    return S_ISREG(status.st_mode) && status.st_nlink == 1;
}

/// Opens the file for writing, empty; -1 for anything but a plain file. Devices and pipes that wait
/// under that name are neither waited for nor written to.
int openPlainFile(const Directory& directory, const QByteArray& name) {
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

void removePlainFile(const Directory& directory, const QByteArray& name) {
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
    if (std::any_of(steps.begin(), steps.end(), [](const QByteArray& s) { return s == "." || s == ".."; }))
        return false;
    const QByteArray fileName = steps.takeLast();
    if (fileName.isEmpty())
        return false;

    Directory directory(::open(QFile::encodeName(root).constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (const QByteArray& step : steps)
        if (directory.isOpen() && !step.isEmpty())
            directory.enter(step);
    if (!directory.isOpen())
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
