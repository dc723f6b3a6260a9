#include "codec/address_fields.h"

#include "codec/linear_buffer.h"

#include <utility>

namespace {

constexpr unsigned char addressPresent = 128;
constexpr unsigned char insertAddress = 129;

/// Octets of the value behind its Value-length: the token, and the address if there is one.
int valueSize(const MMS_UTIL_Entry& sender) {
    return 1 + (sender.isEmpty() ? 0 : AddressBinary::sizeOf(sender));
}

} // namespace

unsigned char FromField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    int length = 0;
    const unsigned char result = ValueLengthBinary::readFrom(buffer, &length);
    if (result != CODEC_READ)
        return result;
    if (length < 0 || !buffer->hasMore())
        return CODEC_MALFORMED;
    const unsigned char token = buffer->readByte();
    msg->setFrom(MMS_UTIL_Entry(QStringLiteral("NoBody"), MMS_UTIL_Entry::PLACEHOLDER, QString()));
    if (length < 2 || token != addressPresent)
        return CODEC_READ;
    MMS_UTIL_Entry sender;
    const unsigned char read = AddressBinary::readFrom(buffer, &sender);
    msg->setFrom(std::move(sender));
    return read;
}

unsigned char FromField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    const MMS_UTIL_Entry sender = msg->getFrom();
    IntegerBinary::writeTo(buffer, FIELD_FROM);
    const unsigned char result = ValueLengthBinary::writeTo(buffer, valueSize(sender));
    if (!buffer->appendByte(sender.isEmpty() ? insertAddress : addressPresent))
        return CODEC_MALFORMED;
    return sender.isEmpty() ? result : AddressBinary::writeTo(buffer, sender);
}

int FromField::fieldSize(MMS_UA_UAMsg* msg) const {
    const int size = valueSize(msg->getFrom());
    return 1 + ValueLengthBinary::sizeOf(size) + size;
}
