#include "codec/octet_fields.h"

#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"

unsigned char OctetField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    store(msg, buffer->readByte());
    return CODEC_READ;
}

unsigned char OctetField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    const unsigned char result = IntegerBinary::writeTo(buffer, code());
    buffer->appendByte(octetOf(msg));
    return result;
}

int OctetField::fieldSize(MMS_UA_UAMsg*) const {
    return 2;
}

FIELD_CODE PriorityField::code() const {
    return FIELD_PRIORITY;
}
void PriorityField::store(MMS_UA_UAMsg* msg, unsigned char octet) const {
    msg->setPriority(octet);
}
unsigned char PriorityField::octetOf(const MMS_UA_UAMsg* msg) const {
    return msg->getPriority();
}

FIELD_CODE VersionField::code() const {
    return FIELD_MMS_VERSION;
}
void VersionField::store(MMS_UA_UAMsg* msg, unsigned char octet) const {
    msg->version = octet & 0x7F;
    msg->markPresent(FIELD_MMS_VERSION);
}
unsigned char VersionField::octetOf(const MMS_UA_UAMsg* msg) const {
    return msg->version | 0x80;
}

unsigned char MsgSizeField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    int size = 0;
    const unsigned char result = IntegerBinary::readFrom(buffer, &size);
    if (size != 0) {
        msg->setMsgSize(size);
        msg->markPresent(FIELD_MESSAGE_SIZE);
    }
    return result;
}

unsigned char MsgSizeField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    IntegerBinary::writeTo(buffer, FIELD_MESSAGE_SIZE);
    return IntegerBinary::writeTo(buffer, msg->getMsgSize());
}

int MsgSizeField::fieldSize(MMS_UA_UAMsg* msg) const {
    return IntegerBinary::sizeOf(msg->getMsgSize()) + 1;
}

unsigned char DistributionIndField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    msg->setDistributionInd(buffer->readByte() == 128);
    return CODEC_READ;
}
