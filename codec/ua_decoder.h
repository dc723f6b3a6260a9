#pragma once

#include "platform/export.h"

class FieldBase;
class MMS_UA_UAMsg;

/// Reads the header of an MMS PDU.
class LUM_EXPORT MMS_UA_Decoder {
public:
    /// Reads fields from `length` octets at `data` into `msg`, up to the end of the input or the end of
    /// Content-Type, and sets bodyStart and bodyLength to what follows. The caller owns the octets and keeps
    /// them while bodyStart is in use. `length` is not changed.
    ///
    /// Fields are added to those already in `msg`, recipients to its lists. A field of an unknown code is
    /// skipped as two zero-terminated texts that begin with the code, which may skip the fields behind it as
    /// well. Of a field given by its name the first octet is taken as the length of a number: that many
    /// octets are skipped (unless they are a known code), and the two texts begin with the last of them. The
    /// distribution indicator is read where the first text is its name.
    ///
    /// Returns CODEC_READ; CODEC_NO_MESSAGE when `msg` is null; CODEC_MALFORMED when the input ends inside a
    /// field or a value is invalid: `msg` then has the fields read before, and no body. The decoder does not
    /// check for mandatory fields and their order: see MMS_UA_UAMsg::mandatoryFldsPresentInPDU() and
    /// MMS_UA_UAMsg::pduOrderCheck().
    unsigned char decodeHeader(unsigned char* data, unsigned int& length, MMS_UA_UAMsg* msg);

    /// A new codec for a field code; null for a code that has none. The caller deletes it.
    FieldBase* selectReader(int code);
};
