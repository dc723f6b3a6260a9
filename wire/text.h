#pragma once

#include "multipart/body_text.h"

#include <QByteArrayView>
#include <QString>

// Texts and their charsets, known by MIBenum numbers (IANA character sets); 0 stands for an unknown one.

constexpr int charsetUsAscii = 3;
constexpr int charsetUnknown = 0;
constexpr int largestCharset = 0xFFFF; ///< larger numbers are no charset's

/// Octets of one character's smallest unit: 2 for UTF-16 and UCS-2, 4 for UTF-32, else 1.
int unitSize(int charset);
/// Whether there is such a charset.
bool isKnownCharset(int charset, Charsets& charsets);
/// The IANA name of a charset; empty for an unknown one.
QString charsetName(int charset, Charsets& charsets);
/// The charset of that IANA name; charsetUnknown for one that is not in the table.
int charsetByName(QByteArrayView name);

/// Whether octets are a text without flaw in that charset. True when there is none to go by.
bool isValidText(QByteArrayView octets, int charset, Charsets& charsets);
/// Whether all octets are below 128.
bool isAsciiText(QByteArrayView octets);
/// The text that the octets are. In an unknown charset, and in US-ASCII with octets beyond it, UTF-8 if they
/// are that, else ISO-8859-1. What the charset does not have becomes U+FFFD.
QString decodedText(QByteArrayView octets, int charset, Charsets& charsets);
