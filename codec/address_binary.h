#pragma once

#include "platform/export.h"
#include "platform/utility/entry.h"

class LinearBuffer;

/// One address as an Encoded-string-value. A phone number has the suffix "/TYPE=PLMN" on the wire, but not in
/// the entry.
class LUM_EXPORT AddressBinary {
public:
    /// A text with the suffix, or without "@", becomes type PLMN; a text with "@" becomes type EMAIL.
    /// "name <address>" is split before the "<": the name keeps its trailing blank. CODEC_MALFORMED when the
    /// input ends first; `out` then holds what was read, if anything was.
    static unsigned char readFrom(LinearBuffer* buffer, MMS_UTIL_Entry* out);
    /// Writes the address without its display name. It has a charset only if it is not plain ASCII or begins
    /// with a control character. CODEC_WRITTEN; CODEC_REFUSED for an address of neither type, which writes
    /// nothing.
    static unsigned char writeTo(LinearBuffer* buffer, const MMS_UTIL_Entry& entry);
    /// Octets that writeTo() writes.
    static int sizeOf(const MMS_UTIL_Entry& entry);
};
