#include "codec/ua_encoder.h"

#include "codec/codec_result.h"
#include "codec/header_fields.h"
#include "codec/message_kinds.h"
#include "codec/ua_msg.h"

#include <new>

namespace {

/// The row of a field that can be written; the distribution indicator cannot.
const HeaderField* writableField(int code) {
    return code == FIELD_DISTRIBUTION_INDICATOR ? nullptr : headerField(code);
}

} // namespace

unsigned char MMS_UA_Encoder::encodeHeader(MMS_UA_UAMsg* msg, unsigned char** out, int* outLength) {
    if (!msg)
        return CODEC_NO_MESSAGE;
    if (!out || !outLength)
        return CODEC_REFUSED;
    const int size = sizeOfEncodedHeader(msg);
    auto* octets = new (std::nothrow) unsigned char[static_cast<size_t>(size)];
    if (!octets)
        return CODEC_REFUSED;
    *out = octets;
    *outLength = size;
    buffer_ = LinearBuffer(octets, size);
    buffer_.zerolize();
    const unsigned char result = encodeByType(msg->messageType);
    buffer_ = LinearBuffer(nullptr, 0); // the array belongs to the caller now
    return result;
}

int MMS_UA_Encoder::sizeOfEncodedHeader(MMS_UA_UAMsg* msg) {
    msg_ = msg;
    present_ = msg ? msg->present : 0;
    const MessageKind* kind = msg ? messageKind(msg->messageType) : nullptr;
    int size = 0;
    if (kind)
        for (int code : kind->order)
            size += sizeOfField(code);
    return size;
}

unsigned char MMS_UA_Encoder::encodeByType(unsigned char type) {
    unsigned char result = CODEC_WRITTEN;
    if (const MessageKind* kind = messageKind(type))
        for (int code : kind->order)
            result = encodeField(code); // only the last field's result is returned
    return result;
}

unsigned char MMS_UA_Encoder::encodeField(int code) {
    if (!isWritten(code))
        return CODEC_WRITTEN;
    const HeaderField* field = writableField(code);
    return msg_ && field ? field->codec->writeField(&buffer_, msg_)
                         : static_cast<unsigned char>(CODEC_REFUSED);
}

int MMS_UA_Encoder::sizeOfField(int code) const {
    const HeaderField* field = writableField(code);
    return msg_ && field && isWritten(code) ? field->codec->fieldSize(msg_) : 0;
}

bool MMS_UA_Encoder::isWritten(int code) const {
    if (code == FIELD_MMS_VERSION || code == FIELD_FROM) // always written
        return true;
    const int slot = presenceSlot(code);
    return slot >= 1 && slot <= 32 && (present_ & presenceBit(code)) != 0;
}

FieldBase* MMS_UA_Encoder::selectWriter(int code) {
    const HeaderField* field = writableField(code);
    return field ? field->create() : nullptr;
}
