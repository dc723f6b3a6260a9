#pragma once

#include "codec/field_code.h"

#include <QString>

#include <span>

/// A number of the encoding or the library, and its meaning.
struct Word {
    int number;
    const char* text;
};

/// Results of the header codecs.
extern const std::span<const Word> codecResultWords;
/// Statuses of the body, and statuses and warnings of the SMIL reader.
extern const std::span<const Word> bodyStatusWords;
extern const std::span<const Word> smilStatusWords;
extern const std::span<const Word> smilWarningWords;

/// The word for a number of a header field, or "unknown (NUMBER)".
QString fieldWord(FIELD_CODE code, int number);
/// "WORD (what NUMBER)", such as "not well-formed XML (status -8)".
QString explained(std::span<const Word> words, const char* what, int number);

/// A duration for the user: "1 h 30 min", "2.5 s".
QString spanOfTime(qint64 milliseconds);
/// A number and its noun: "1 octet", "3 octets".
QString counted(qint64 number, const char* noun);
