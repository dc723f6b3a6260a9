#pragma once

#include "platform/export.h"

class LinearBuffer;
class MMS_UA_UAMsg;

/// The codec of one header field; it has no state. headerField() returns the codec of a field code.
class LUM_EXPORT FieldBase {
public:
    virtual ~FieldBase() = default;

    /// Reads the value behind the field code and stores it in the message. Returns a CODEC_RESULT.
    virtual unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const = 0;
    /// Writes field code and value. Returns a CODEC_RESULT; the base writes nothing and returns CODEC_READ.
    virtual unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const;
    /// Octets that writeField() writes, the field code included.
    virtual int fieldSize(MMS_UA_UAMsg* msg) const;
};
