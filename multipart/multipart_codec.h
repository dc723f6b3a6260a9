#pragma once

#include "platform/export.h"

class LinearBuffer;
class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

/// One entry of a WSP binary multipart: headers, content type and data of one body part.
class LUM_EXPORT Multipart_Entry {
public:
    /// Writes the part without its sub-bodies. CODEC_WRITTEN, or CODEC_REFUSED when there is no room.
    static unsigned char writeTo(LinearBuffer* out, MMS_COMP_SMILMultipartBodypart& part);
    /// Reads one entry into `part`: CODEC_READ, or CODEC_MALFORMED, with what was read before.
    static unsigned char readFrom(LinearBuffer* in, MMS_COMP_SMILMultipartBodypart* part);
};

/// The WSP binary multipart: the body of an MMS PDU.
///
/// Sent are type, name, Content-ID and payload of each part. The length in front of a part counts its
/// sub-bodies, but they are not sent: a body with sub-bodies cannot be read again. The number of parts is
/// sent as one octet, of more than 255 the lowest eight bits.
///
/// A received payload with a known charset other than UTF-8 is stored as UTF-8, up to its first zero; the
/// name of the charset is dropped. A body within the body is decoded if its type is the media number 0x48
/// without a boundary; any other multipart keeps its payload.
///
/// Nothing is rolled back on failure. The bool arguments are not used. Missing arguments give CODEC_REFUSED
/// when encoding and CODEC_MALFORMED when decoding.
class LUM_EXPORT MMS_UA_MultiPart_CODEC {
public:
    /// Encodes the container into a new array. It is stored in `*out` as soon as it is there, also
    /// when encoding then fails, and the caller frees it with delete[]; `*outLen` is set at the end.
    /// CODEC_WRITTEN, or CODEC_REFUSED when there is no memory or no room.
    static unsigned char encodeMultipart(bool, MMS_COMP_SMILMultipart* body, unsigned char** out,
                                         unsigned int* outLen);

    /// Adds the parts of an encoded body to the container: CODEC_READ, or CODEC_MALFORMED with the
    /// parts before the malformed one.
    static unsigned char decodeMultipart(bool, unsigned char* data, unsigned int len,
                                         MMS_COMP_SMILMultipart* body);

    /// The same for a nested body, whose parts become sub-bodies of `part`.
    static unsigned char decodeBodyMultipart(bool, unsigned char* data, unsigned int len,
                                             MMS_COMP_SMILMultipartBodypart* part);
};
