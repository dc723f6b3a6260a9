#pragma once

#include "platform/export.h"

class LinearBuffer;

// The integer forms of the WAP Wireless Session Protocol (WSP, WAP-230, section 8.4.2).
//
// readFrom() reads the value at the cursor and returns CODEC_READ, or CODEC_MALFORMED when the input ends
// first; the cursor then is behind the octets that were there. writeTo() always returns CODEC_WRITTEN and
// drops what does not fit: provide room for sizeOf() octets.

/// Short-integer (one octet, top bit set) or Long-integer (a count, then that many octets, most
/// significant first).
class LUM_EXPORT IntegerBinary {
public:
    /// Accepts any count up to 127 (0 gives the value 0). The value is the last four octets, unsigned.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Short form up to 127 (of a negative value the low seven bits), long form above.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};

/// Uintvar: seven bits an octet, most significant first, the top bit set on all but the last.
class LUM_EXPORT UIntBinary {
public:
    /// Accepts any number of octets; the value is the lowest 32 bits.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Writes the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes for a value of 0 or more; 1 for any other.
    static int sizeOf(int value);
};

/// Value-length: one octet below 31, or the octet 31 (Length-quote) and a uintvar.
class LUM_EXPORT ValueLengthBinary {
public:
    /// An octet of 32 or more is itself the length.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Writes the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};

/// A well-known charset (IANA MIBenum number), written as an integer: UTF-8 is 106, octet 0xEA.
class LUM_EXPORT CharsetBinary {
public:
    /// Accepts any number, assigned or not.
    static unsigned char readFrom(LinearBuffer* buffer, int* out);
    /// Writes the value. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, int value);
    /// Octets that writeTo() writes.
    static int sizeOf(int value);
};
