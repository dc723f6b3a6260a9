// lummms dump: prints every item of a message with its position.

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
        "Prints every item of a message with its position.",
        {"[--json] FILE"},
        "Prints a line for each header field, length, parameter and payload, in the order of the octets:\n"
        "offset, the first sixteen octets, name and value, and in brackets what is wrong. Items inside a\n"
        "field or a part are indented. Every octet of the message belongs to an item, also octets that\n"
        "are not understood.\n",
        {{"json", "Prints the items as JSON."}},
        {"FILE"},
        {},
        dump,
    };
}
