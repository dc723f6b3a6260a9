#pragma once

#include "tools/lummms/reading.h"

#include <QByteArray>

struct CommandLine;

// Filter for large numbers of messages: one line of JSON for each.

/// The answer to a line with a message in base64, optionally after a key and a tab: its JSON with "key", or
/// with "line", the line's number; and "error" when the message is malformed or missing. `status` is set to
/// the EXIT_STATUS for the line.
QByteArray answerToLine(const QByteArray& line, qint64 number, READING reading, int& status);

/// Prints an answer for each file with "file", or without files for each line of standard input. Returns the
/// worst EXIT_STATUS.
int printLines(const CommandLine& line);
