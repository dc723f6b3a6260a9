// The whole way of a received message, as lummms shows it.

#include "fuzz/input.h"
#include "tools/lummms/message.h"
#include "tools/lummms/show.h"

namespace {

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
        message.readPresentationWithGaps();
        requirePrintable(slidesForPerson(message));
        touched(message.causeOfMalformation());
    }
    Message message;
    require(message.read(file.path(), cause), "a file is read");
    touched(QString::fromUtf8(messageForProgram(message)));
    return 0;
}
