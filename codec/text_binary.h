#pragma once

#include "platform/export.h"

#include <QString>

class LinearBuffer;

/// Text-string (WSP section 8.4.2.1): octets and a closing zero, preceded by the Quote 127 when the first
/// octet has the top bit set.
class LUM_EXPORT PlainTextBinary {
public:
    /// Reads each octet as one Latin-1 character and drops a leading Quote. CODEC_MALFORMED when the input
    /// ends before the closing zero; `out` then holds what was read.
    static unsigned char readFrom(LinearBuffer* buffer, QString* out);
    /// Writes UTF-8, up to the first zero. Text beyond ASCII is therefore not read back unchanged:
    /// deliberately, because senders use Latin-1 and receivers expect UTF-8. Always CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, const QString& text);
    /// Octets that writeTo() writes.
    static int sizeOf(const QString& text);
};

/// Encoded-string-value (MMS encapsulation, WAP-209, section 7.2.9): a Text-string, or a length, a
/// charset and a text.
class LUM_EXPORT EncodedStringBinary {
public:
    /// Text with the charset UTF-8 in its long form (01 EA) is read as UTF-8; with any other charset, the
    /// short form included, as 8-bit text of the locale. CODEC_MALFORMED when the input ends first or the
    /// length is smaller than its charset.
    static unsigned char readFrom(LinearBuffer* buffer, QString* out);
    /// Always writes the form with length and charset, in UTF-8. Always CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, const QString& text);
    /// Octets that writeTo() writes.
    static int sizeOf(const QString& text);
};
