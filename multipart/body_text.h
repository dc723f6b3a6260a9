#pragma once

#include "qt2/qarray.h"

#include <QHash>

#include <optional>

class QTextCodec;

/// The charset of bodies that do not name one: UTF-8 (IANA MIBenum number).
constexpr int mibUtf8 = 106;

/// The charsets of one message, each looked up once: a codec look-up gets slower with each charset used
/// before, and a message can have many parts.
class Charsets {
public:
    /// The charset with that MIBenum number, or null for an unknown one.
    const QTextCodec* find(int mib);

private:
    QHash<int, const QTextCodec*> found_;
};

/// A text in the charset with that MIBenum number, converted to UTF-8 up to its first NUL. Nothing when the
/// charset is UTF-8 or unknown: take the octets unchanged.
std::optional<QArray<char>> bodyTextAsUtf8(const unsigned char* octets, int length, int mib,
                                           Charsets& charsets);
