#pragma once

#include "platform/export.h"

class LinearBuffer;

// The integer forms of the WAP Wireless Session Protocol (WSP, WAP-230, section 8.4.2).
//
// readFrom() takes the value at the cursor: CODEC_READ, or CODEC_MALFORMED when the input ends first;
// what it had read by then stays read. writeTo() always answers CODEC_WRITTEN and drops what does
// not fit, so the caller makes room for sizeOf() octets first.

/// Short-integer (one octet, top bit set) or Long-integer (a count, then that many octets, most
/// significant first).
class LUM_EXPORT IntegerBinary {
public:
    /// Any count up to 127 is taken, 0 giving 0; the value is the last four octets as an unsigned number.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Short up to 127 (of a negative value the low seven bits), long above.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};

/// Uintvar: seven bits an octet, most significant first, the top bit set on all but the last.
class LUM_EXPORT UIntBinary {
public:
    /// Any number of octets is taken; the value is the lowest 32 bits.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Writes the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};

/// Value-length: one octet below 31, or the octet 31 (Length-quote) and a uintvar.
class LUM_EXPORT ValueLengthBinary {
public:
    /// An octet of 32 or more is taken as the length as it stands.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Writes the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};

/// A well-known charset (IANA MIBenum number), written as an integer: UTF-8 is 106, octet 0xEA.
class LUM_EXPORT CharsetBinary {
public:
    /// Any number is taken, assigned or not.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Writes the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};
