#pragma once

#include "multipart/body_text.h"

#include <QByteArrayView>
#include <QString>

// Texts and their charsets by MIBenum number (IANA character sets); 0 is an unknown charset.

constexpr int charsetUsAscii = 3;
constexpr int charsetUnknown = 0;
constexpr int largestCharset = 0xFFFF; ///< no charset has a larger number

/// Octets of a code unit: 2 for UTF-16 and UCS-2, 4 for UTF-32, else 1.
int unitSize(int charset);
/// Whether the number is a charset's.
bool isKnownCharset(int charset, Charsets& charsets);
/// The IANA name of a charset; empty for an unknown one.
QString charsetName(int charset, Charsets& charsets);
/// The charset with that IANA name; charsetUnknown when it is not in the table.
int charsetByName(QByteArrayView name);

/// Whether octets are valid text in that charset; true for an unknown one.
bool isValidText(QByteArrayView octets, int charset, Charsets& charsets);
/// Whether all octets are below 128.
bool isAsciiText(QByteArrayView octets);
/// Decodes octets. In an unknown charset, and for octets above 127 in US-ASCII: as UTF-8 if they are valid,
/// else as ISO-8859-1. Invalid octets become U+FFFD.
QString decodedText(QByteArrayView octets, int charset, Charsets& charsets);
