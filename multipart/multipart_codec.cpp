#include "multipart/multipart_codec.h"

#include "codec/codec_result.h"
#include "codec/linear_buffer.h"
#include "multipart/body_text.h"
#include "multipart/entry_codec.h"
#include "multipart/multipart.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

constexpr qint64 mostOctets = std::numeric_limits<int>::max(); // limit of LinearBuffer

/// Reads a body from the caller's octets.
unsigned char readBody(unsigned char* data, unsigned int len, const PartReceiver& receive) {
    if (!data || len > mostOctets)
        return CODEC_MALFORMED;
    LinearBuffer in(data, static_cast<int>(len));
    Charsets charsets;
    return readEntries(&in, 0, charsets, receive);
}

} // namespace

unsigned char Multipart_Entry::writeTo(LinearBuffer* out, MMS_COMP_SMILMultipartBodypart& part) {
    return writeEntry(out, part);
}

unsigned char Multipart_Entry::readFrom(LinearBuffer* in, MMS_COMP_SMILMultipartBodypart* part) {
    Charsets charsets;
    return readEntry(in, 0, charsets, part);
}

unsigned char MMS_UA_MultiPart_CODEC::encodeMultipart(bool, MMS_COMP_SMILMultipart* body, unsigned char** out,
                                                      unsigned int* outLen) {
    if (!body || !out || !outLen)
        return CODEC_REFUSED;
    const BodyOutput output(body);
    const qint64 room = std::min(output.room(), output.size()); // allocates no more than is written
    auto* octets = room <= mostOctets ? new (std::nothrow) unsigned char[static_cast<size_t>(room)] : nullptr;
    if (!octets)
        return CODEC_REFUSED;
    *out = octets;
    LinearBuffer buffer(octets, static_cast<int>(room));
    const unsigned char result = output.writeTo(&buffer);
    if (result != CODEC_WRITTEN)
        return result;
    *outLen = static_cast<unsigned int>(buffer.getPosition());
    return output.size() < output.room() ? CODEC_WRITTEN : CODEC_REFUSED; // a full output is refused too
}

unsigned char MMS_UA_MultiPart_CODEC::decodeMultipart(bool, unsigned char* data, unsigned int len,
                                                      MMS_COMP_SMILMultipart* body) {
    if (!body)
        return CODEC_MALFORMED;
    return readBody(data, len, [body](auto part) { body->appendBodypart(part.release()); });
}

unsigned char MMS_UA_MultiPart_CODEC::decodeBodyMultipart(bool, unsigned char* data, unsigned int len,
                                                          MMS_COMP_SMILMultipartBodypart* part) {
    if (!part)
        return CODEC_MALFORMED;
    return readBody(data, len, [part](auto subBody) { part->setSubBody(subBody.release(), -1); });
}
