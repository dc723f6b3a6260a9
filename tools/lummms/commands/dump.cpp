// lummms dump: every item of a message with its place.

#include "tools/lummms/command.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"

namespace {

int dump(const CommandLine& line) {
    const QString path = line.files.first();
    Message message(READING_SENT);
    QString cause;
    if (!message.read(path, cause)) {
        complain(path, cause);
        return EXIT_UNUSABLE;
    }
    print(line.options.isSet("json") ? printableLines(QString::fromUtf8(itemsForProgram(message)))
                                     : itemsForPerson(message));
    return message.verdict(path);
}

} // namespace

Command dumpCommand() {
    return {
        "dump",
        "Prints every item of a message with its place.",
        {"[--json] FILE"},
        "A line for each header field, length, parameter and payload, in the order of the octets, with what\n"
        "is inside a field or a part indented below it: offset, the first sixteen octets, name and value;\n"
        "in brackets what is wrong. The message is read as it was sent, and nothing is left out: what is\n"
        "not understood is an item, too.\n",
        {{"json", "Prints all of it as JSON, for a program."}},
        {"FILE"},
        {},
        dump,
    };
}
