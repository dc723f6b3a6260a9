// Reads and prints a message like lummms show.

#include "fuzz/input.h"
#include "tools/lummms/check/findings.h"
#include "tools/lummms/message.h"
#include "tools/lummms/phone_steps.h"
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
    for (const READING reading : {READING_SENT, READING_PHONE}) {
        Message message(reading);
        message.read(input.array());
        require(message.bodyOffset() >= 0 && message.bodyOffset() <= qint64(size),
                "the body is in the input");
        requirePrintable(headerForPerson(message) + partsForPerson(message));
        message.readPresentationWithGaps();
        requirePrintable(slidesForPerson(message));
        touched(message.causeOfMalformation());
        Message other(reading); // with the parts as they were before readPresentation()
        other.read(input.array());
        touched(QString::fromUtf8(messageForProgram(other)));
    }
    const auto steps = phoneSteps(input.array());
    Message phone(READING_PHONE);
    phone.read(input.array());
    require(phone.result ? !steps.isEmpty() && !steps.last().isRead
                         : phone.bodyOffset() == (steps.isEmpty() ? 0 : steps.last().end),
            "the way of the phone is that of its decoder");
    static InputFile file;
    file.fill(data, size);
    Message message;
    QString cause;
    require(message.read(file.path(), cause), "a file is read");
    requirePrintable(itemsForPerson(message));
    touched(QString::fromUtf8(itemsForProgram(message)));
    const QList<Finding> findings = findingsIn(message);
    requirePrintable(findingsForPerson(findings));
    touched(QString::fromUtf8(findingsForProgram(findings)));
    return 0;
}
