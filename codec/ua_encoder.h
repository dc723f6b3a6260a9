#pragma once

#include "codec/linear_buffer.h"
#include "platform/export.h"

class FieldBase;
class MMS_UA_UAMsg;
struct HeaderField;

/// Writes the header of an MMS PDU: the present fields, in the order that messageKind() has for the type.
/// MMS-Version and From are written whether or not they are present.
class LUM_EXPORT MMS_UA_Encoder {
public:
    /// Encodes the header into a new array, stored in `*out` with its size in `*outLength`. The caller
    /// deletes the array with `delete[]`.
    ///
    /// Returns the result of the last field, which is never an address: CODEC_WRITTEN. A recipient that
    /// AddressBinary refuses is therefore not reported; it leaves its bare field code in the header, which
    /// nobody can read then. Use addresses of the types PLMN and EMAIL only. A type outside 128 to 134 gives
    /// CODEC_WRITTEN and no octets. Returns CODEC_NO_MESSAGE without a message, and CODEC_REFUSED without
    /// `out`, `outLength` or memory; nothing is stored then.
    unsigned char encodeHeader(MMS_UA_UAMsg* msg, unsigned char** out, int* outLength);

    /// Octets that encodeHeader() writes for the message; 0 for a type outside 128 to 134.
    int sizeOfEncodedHeader(MMS_UA_UAMsg* msg);
    /// Octets of one field of the message last passed to encodeHeader() or sizeOfEncodedHeader(); 0 when it
    /// is absent or has no writer.
    int sizeOfField(int code) const;

    /// Writes all fields of a message type into the array of the current encodeHeader(). Returns the result
    /// of the last one.
    unsigned char encodeByType(unsigned char type);
    /// Writes one field if it is present. CODEC_WRITTEN, also when it is absent; CODEC_REFUSED when the code
    /// has no writer.
    unsigned char encodeField(int code);

    /// A new codec for a field code from 1 to 24; null for any other, also for the distribution indicator,
    /// which is never written. The caller deletes it.
    FieldBase* selectWriter(int code);

private:
    bool isWritten(int code) const;

    MMS_UA_UAMsg* msg_ = nullptr;
    unsigned int present_ = 0;
    LinearBuffer buffer_{nullptr, 0};
};
