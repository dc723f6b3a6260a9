#pragma once

#include "codec/field_code.h"

#include <QString>

#include <span>

/// A number of the wire or of the library, and what it means.
struct Word {
    int number;
    const char* text;
};

/// What the codecs of the header answer.
extern const std::span<const Word> codecResultWords;
/// The statuses of the body, and of the presentation's reader.
extern const std::span<const Word> bodyStatusWords;
extern const std::span<const Word> smilStatusWords;
extern const std::span<const Word> smilWarningWords;

/// The word for a number of a header field, or "unknown (NUMBER)".
QString fieldWord(FIELD_CODE code, int number);
/// "WORD (what NUMBER)", such as "not well-formed XML (status -8)".
QString explained(std::span<const Word> words, const char* what, int number);

/// A span of time in the units that people use: "1 h 30 min", "2.5 s".
QString spanOfTime(qint64 milliseconds);
/// A number and its noun: "1 octet", "3 octets".
QString counted(qint64 number, const char* noun);
