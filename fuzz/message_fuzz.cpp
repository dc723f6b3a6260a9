// The whole way of a received message, as lummms shows it.

#include "fuzz/input.h"
#include "tools/lummms/message.h"
#include "tools/lummms/show.h"

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file in memory that holds one input after the other.
class InputFile {
public:
    InputFile() : fd_(::memfd_create("input", MFD_CLOEXEC)) {}

    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(fd_); }
    void fill(const uint8_t* data, size_t size) {
        require(::ftruncate(fd_, 0) == 0 && ::pwrite(fd_, data, size, 0) == ssize_t(size),
                "a file in memory");
    }

private:
    int fd_;
};

void requirePrintable(const QString& text) {
    for (const QChar c : text)
        require(c == u'\n' || (c.unicode() >= 0x20 && (c.unicode() < 0x7F || c.unicode() >= 0xA0)),
                "nothing of a message reaches the terminal raw");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static InputFile file;
    file.fill(data, size);
    QString cause;
    {
        Message message;
        require(message.read(file.path(), cause), "a file is read");
        require(message.bodyOffset() >= 0 && message.bodyOffset() <= qint64(size),
                "the body is in the input");
        requirePrintable(headerForPerson(message.header) + partsForPerson(message));
        message.readPresentation();
        requirePrintable(slidesForPerson(message));
        touched(message.causeOfMalformation());
    }
    Message message;
    require(message.read(file.path(), cause), "a file is read");
    touched(QString::fromUtf8(messageForProgram(message)));
    return 0;
}
