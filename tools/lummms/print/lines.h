#pragma once

#include "tools/lummms/reading.h"

#include <QByteArray>

struct CommandLine;

// Messages by the million: one line of JSON for each.

/// The answer to a line that holds a message in base64, with a key and a tab before it or not: its JSON with
/// "key", or with "line", the line's number; and "error" when the message is malformed or there is none.
/// `status` becomes the EXIT_STATUS that the line deserves.
QByteArray answerToLine(const QByteArray& line, qint64 number, READING reading, int& status);

/// Prints an answer for each file, with "file" in it, or without files for each line of the standard input.
/// Gives the worst EXIT_STATUS of all.
int printLines(const CommandLine& line);
