// The whole way of a received message, as lummms shows it.

#include "fuzz/input.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"

namespace {

void requirePrintable(const QString& text) {
    for (qsizetype i = 0; i < text.size(); ++i)
        require(text.at(i) == u'\n' || !isUnprintable(text, i),
                "nothing of a message reaches the terminal raw");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ExactInput input(data, size);
    {
        Message message;
        message.read(input.array());
        require(message.bodyOffset() >= 0 && message.bodyOffset() <= qint64(size),
                "the body is in the input");
        requirePrintable(headerForPerson(message.header) + partsForPerson(message));
        message.readPresentationWithGaps();
        requirePrintable(slidesForPerson(message));
        touched(message.causeOfMalformation());
    }
    static InputFile file;
    file.fill(data, size);
    Message message;
    QString cause;
    require(message.read(file.path(), cause), "a file is read");
    touched(QString::fromUtf8(messageForProgram(message)));
    return 0;
}
