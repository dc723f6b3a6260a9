#pragma once

#include "platform/export.h"

#include <QDateTime>

class LinearBuffer;

/// A date on the wire: seconds since 1970-01-01 00:00 UTC as an integer, read as an unsigned 32-bit
/// number so that dates up to 2106 pass.
class LUM_EXPORT SecondsBinary {
public:
    /// The seconds of a date-time, which is read as local time whatever its time zone, with the system's
    /// daylight saving; -1 when there is no such time.
    static qint64 of(const QDateTime& time);

    /// Reads the seconds unchanged. CODEC_READ, or CODEC_MALFORMED when the input ends first.
    static unsigned char readFrom(LinearBuffer* buffer, unsigned int* out);
    /// Writes seconds up to 2038-01-19 as IntegerBinary does, later ones as the four octets of the
    /// unsigned value, at most 0xFFFFFFFF (in 2106). Always CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, qint64 seconds);
    /// Octets that writeTo() writes.
    static int sizeOf(qint64 seconds);
    /// Octets of the seconds of a date-time.
    static int sizeOf(const QDateTime& time);
};

/// A time as Delivery-Time and Expiry have it (MMS encapsulation, WAP-209, sections 7.2.7 and 7.2.10): a
/// Value-length, a token (128 absolute, 129 relative) and seconds.
class LUM_EXPORT TimeBinary {
public:
    /// The token before seconds since 1970.
    static constexpr unsigned char ABSOLUTE = 128;
    /// The token before seconds from now.
    static constexpr unsigned char RELATIVE = 129;

    /// Reads token and seconds unchanged. CODEC_MALFORMED for another token and when the input
    /// ends first.
    static unsigned char readFrom(LinearBuffer* buffer, unsigned char* token, unsigned int* seconds);
    /// The same as a local date-time; a relative time counts from now. Unchanged on failure.
    static unsigned char readFrom(LinearBuffer* buffer, QDateTime* out);

    /// Writes token and seconds unchanged. Always CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, unsigned char token, qint64 seconds);
    /// Writes the absolute form of a date-time, which is read as local time.
    static unsigned char writeTo(LinearBuffer* buffer, const QDateTime& time);

    /// Octets of a time with a token; the Value-length is always one octet.
    static int sizeOf(qint64 seconds);
    /// The same for the absolute form of a date-time.
    static int sizeOf(const QDateTime& time);
};
