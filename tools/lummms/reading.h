#pragma once

#include <QCommandLineOption>

struct CommandLine;

/// Which of the two readings of a message is wanted.
enum READING : int {
    READING_SENT,  ///< all that is in the octets, as the sender meant it
    READING_PHONE, ///< what the phone makes of them
};

/// The option --phone of the commands that read a message.
QCommandLineOption phoneOption();
/// The reading that the user asked for.
READING readingAskedFor(const CommandLine& line);
