#pragma once

#include "platform/export.h"

#include <QString>

class LinearBuffer;

/// Text-string (WSP section 8.4.2.1): octets and a closing zero, with the Quote 127 in front when
/// the first octet has the top bit set.
class LUM_EXPORT PlainTextBinary {
public:
    /// Takes each octet as one Latin-1 character and drops a leading Quote. CODEC_MALFORMED when
    /// the input ends before the closing zero; `out` then holds what was there.
    static unsigned char readFrom(LinearBuffer* buffer, QString* out);
    /// Writes UTF-8, so text beyond ASCII is not read back as it was: deliberately, since senders
    /// put Latin-1 on the air and receivers expect UTF-8. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, const QString& text);
    /// Octets that writeTo() writes.
    static int sizeOf(const QString& text);
};

/// Encoded-string-value (MMS encapsulation, section 7.2.9): a Text-string, or a length, a charset
/// and the text in that charset.
class LUM_EXPORT EncodedStringBinary {
public:
    /// CODEC_MALFORMED when the input ends first or the length is smaller than its charset.
    static unsigned char readFrom(LinearBuffer* buffer, QString* out);
    /// Always writes the form with length and charset, in UTF-8. Answers CODEC_WRITTEN.
    static unsigned char writeTo(LinearBuffer* buffer, const QString& text);
    /// Octets that writeTo() writes.
    static int sizeOf(const QString& text);
};
