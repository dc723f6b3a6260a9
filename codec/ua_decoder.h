#pragma once

#include "platform/export.h"

class FieldBase;
class MMS_UA_UAMsg;

/// Reads the header of an MMS PDU.
class LUM_EXPORT MMS_UA_Decoder {
public:
    /// Reads fields from `length` octets at `data` into `msg` until the input ends or Content-Type has
    /// been read, and sets the message's bodyStart and bodyLength to what follows. The octets stay
    /// the caller's and are needed as long as bodyStart is used.
    ///
    /// Fields are added to what the message has already, recipients to its lists. A field whose code is
    /// not known, or that is given by its name (but for the distribution indicator), is passed over as two
    /// texts up to their zeros, which may take its neighbours with it. `length` is not changed.
    ///
    /// CODEC_READ; CODEC_NO_MESSAGE when `msg` is null; CODEC_MALFORMED when the input ends inside a
    /// field, or a field does not hold what it should: the message keeps the fields read by then and has no
    /// body. Whether mandatory fields are there and in order is for the message to tell
    /// (MMS_UA_UAMsg::mandatoryFldsPresentInPDU(), pduOrderCheck()).
    unsigned char decodeHeader(unsigned char* data, unsigned int& length, MMS_UA_UAMsg* msg);

    /// A new codec for a field code, which the caller deletes; null for a code that has none.
    FieldBase* selectReader(int code);
};
