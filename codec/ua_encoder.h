#pragma once

#include "codec/linear_buffer.h"
#include "platform/export.h"

class FieldBase;
class MMS_UA_UAMsg;
struct HeaderField;

/// Writes the header of an MMS PDU: the fields of the message's type in their fixed order (see
/// messageKind()), absent ones left out. MMS-Version and From are written present or not.
class LUM_EXPORT MMS_UA_Encoder {
public:
    /// Encodes the header into a new array of exactly its size, stored with that size in `*out` and
    /// `*outLength`; the caller deletes it with `delete[]`.
    ///
    /// The result of the last field, which is never an address: CODEC_WRITTEN. A recipient that
    /// AddressBinary refuses is therefore not told here, and leaves its bare field code in the header,
    /// which nobody can read then: give addresses of the types PLMN and EMAIL only. CODEC_WRITTEN and
    /// no octets for a type outside 128 to 134. CODEC_NO_MESSAGE without a message, CODEC_REFUSED
    /// without a place to store octets and size, or without memory for the octets: nothing is stored then.
    unsigned char encodeHeader(MMS_UA_UAMsg* msg, unsigned char** out, int* outLength);

    /// Octets that encodeHeader() writes for the message; 0 for a type outside 128 to 134.
    int sizeOfEncodedHeader(MMS_UA_UAMsg* msg);
    /// Octets that one field of the message last given to encodeHeader() or sizeOfEncodedHeader()
    /// takes; 0 when it is absent or has no writer.
    int sizeOfField(int code) const;

    /// Writes all fields of a message type into the array of the encodeHeader() that is under way; the
    /// result is that of the last one.
    unsigned char encodeByType(unsigned char type);
    /// Writes one field if it is present: CODEC_WRITTEN also when it is not, CODEC_REFUSED when
    /// there is no writer for the code.
    unsigned char encodeField(int code);

    /// A new codec for a field code from 1 to 24, which the caller deletes; null for any other: the
    /// distribution indicator is read but never written.
    FieldBase* selectWriter(int code);

private:
    bool isWritten(int code) const;

    MMS_UA_UAMsg* msg_ = nullptr;
    unsigned int present_ = 0;
    LinearBuffer buffer_{nullptr, 0};
};
