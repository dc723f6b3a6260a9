#pragma once

#include "qt2/qarray.h"

#include <QHash>

#include <optional>

class QTextCodec;

/// The charset of bodies that do not name one: UTF-8 (IANA MIBenum number).
constexpr int mibUtf8 = 106;

/// The charsets of one body, each looked up once: a look-up takes the longer the more charsets have
/// been in use before, and a body can have many parts.
class Charsets {
public:
    /// The charset with that MIBenum number, or null for an unknown one.
    const QTextCodec* find(int mib);

private:
    QHash<int, const QTextCodec*> found_;
};

/// A text in the charset with that MIBenum number as UTF-8, up to its first NUL. Nothing when the
/// charset is UTF-8 already, or unknown: the octets are to be taken as they are.
std::optional<QArray<char>> bodyTextAsUtf8(const unsigned char* octets, int length, int mib,
                                           Charsets& charsets);
