#pragma once

#include "platform/export.h"

class LinearBuffer;
class MMS_UA_UAMsg;

/// The codec of one header field. Codecs have no state; which one serves a field code is said by the
/// table in codec/header_fields.h.
class LUM_EXPORT FieldBase {
public:
    virtual ~FieldBase() = default;

    /// Reads the value behind the field code and stores it in the message. A CODEC_RESULT.
    virtual unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const = 0;
    /// Writes field code and value. A CODEC_RESULT; this one writes nothing and answers CODEC_READ.
    virtual unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const;
    /// Octets that writeField() writes, the field code included.
    virtual int fieldSize(MMS_UA_UAMsg* msg) const;
};
