#include "tools/lummms/reading.h"

#include "tools/lummms/command.h"

QCommandLineOption phoneOption() {
    return {"phone", "Reads the message as the phone does, not as it was sent."};
}

READING readingAskedFor(const CommandLine& line) {
    return line.options.isSet("phone") ? READING_PHONE : READING_SENT;
}
