#pragma once

#include <QCommandLineOption>

struct CommandLine;

/// The two readings of a message.
enum READING : int {
    READING_SENT,  ///< everything in the octets, as the sender meant it
    READING_PHONE, ///< what the phone makes of them
};

/// The option --phone of commands that read a message.
QCommandLineOption phoneOption();
/// The reading selected by the options.
READING readingAskedFor(const CommandLine& line);
