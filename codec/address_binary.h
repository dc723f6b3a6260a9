#pragma once

#include "platform/export.h"
#include "platform/utility/entry.h"

class LinearBuffer;

/// One address as an Encoded-string-value. A phone number carries the suffix "/TYPE=PLMN" on the
/// wire and none in the entry.
class LUM_EXPORT AddressBinary {
public:
    /// A number with the suffix or a text without "@" is of type PLMN. A text with "@" is of type
    /// EMAIL; "name <address>" is split before the "<", so that the name keeps its blank. CODEC_MALFORMED
    /// when the input ends first; `out` then holds what was there, if anything was.
    static unsigned char readFrom(LinearBuffer* buffer, MMS_UTIL_Entry* out);
    /// Writes the address without its display name, with a charset only when it is not plain ASCII or begins
    /// with a control character. CODEC_WRITTEN; CODEC_REFUSED, and nothing written, for an address of neither
    /// type.
    static unsigned char writeTo(LinearBuffer* buffer, const MMS_UTIL_Entry& entry);
    /// Octets that writeTo() writes.
    static int sizeOf(const MMS_UTIL_Entry& entry);
};
