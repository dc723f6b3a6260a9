#include "multipart/multipart_codec.h"

#include "codec/codec_result.h"
#include "codec/linear_buffer.h"
#include "multipart/body_text.h"
#include "multipart/entry_codec.h"
#include "multipart/multipart.h"
#include "platform/utility/setting.h"

#include <algorithm>
#include <limits>
#include <new>

namespace {

// Room for the headers of all parts, beside their payloads.
constexpr qint64 roomForHeaders = 4096;

constexpr qint64 mostOctets = std::numeric_limits<int>::max(); // that a LinearBuffer counts

/// Reads a body from the caller's octets.
unsigned char readBody(unsigned char* data, unsigned int len, const PartReceiver& receive) {
    if (!data || len > mostOctets)
        return CODEC_MALFORMED;
    LinearBuffer in(data, static_cast<int>(len));
    Charsets charsets;
    return readEntries(&in, 0, charsets, receive);
}

} // namespace

qint64 roomForBody(MMS_COMP_SMILMultipart* body) {
    qint64 payloads = 0;
    for (int i = 0; i < body->getPartCount(); ++i)
        payloads += body->getBodypartByIndex(i, false)->getBodyDataLen();
    return std::max(qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize(0)) * 1024, roomForHeaders + payloads);
}

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
    const qint64 room = roomForBody(body);
    auto* octets = room <= mostOctets ? new (std::nothrow) unsigned char[static_cast<size_t>(room)] : nullptr;
    if (!octets)
        return CODEC_REFUSED;
    *out = octets;
    LinearBuffer buffer(octets, static_cast<int>(room));
    const unsigned char result = BodyOutput(body).writeTo(&buffer);
    if (result != CODEC_WRITTEN)
        return result;
    *outLen = static_cast<unsigned int>(buffer.getPosition());
    return buffer.hasMore() ? CODEC_WRITTEN : CODEC_REFUSED; // a full array counts as too small
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
