#include "codec/date_fields.h"

#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/time_binary.h"
#include "codec/ua_msg.h"

#include <ctime>

unsigned char MsgDateField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    unsigned int dropped = 0;
    const unsigned char result = SecondsBinary::readFrom(buffer, &dropped);
    if (result != CODEC_READ)
        return result;
    tzset();
    msg->setSendTime(QDateTime::currentDateTime());
    return result;
}

unsigned char MsgDateField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    IntegerBinary::writeTo(buffer, FIELD_DATE);
    return SecondsBinary::writeTo(buffer, SecondsBinary::of(msg->getSendTime()));
}

int MsgDateField::fieldSize(MMS_UA_UAMsg* msg) const {
    return 1 + SecondsBinary::sizeOf(msg->getSendTime());
}

unsigned char DeliveryTimeField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    QDateTime time;
    const unsigned char result = TimeBinary::readFrom(buffer, &time);
    msg->setDeliveryTime(time);
    return result;
}

unsigned char DeliveryTimeField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    IntegerBinary::writeTo(buffer, FIELD_DELIVERY_TIME);
    return TimeBinary::writeTo(buffer, msg->getDeliveryTime());
}

int DeliveryTimeField::fieldSize(MMS_UA_UAMsg* msg) const {
    return 1 + TimeBinary::sizeOf(msg->getDeliveryTime());
}

unsigned char ExpiryField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    unsigned char token = 0;
    unsigned int seconds = 0;
    const unsigned char result = TimeBinary::readFrom(buffer, &token, &seconds);
    if (result != CODEC_READ)
        return result;
    const auto now = static_cast<unsigned int>(std::time(nullptr));
    msg->setExpireTime(token == TimeBinary::RELATIVE ? seconds : seconds - now);
    return result;
}

unsigned char ExpiryField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    IntegerBinary::writeTo(buffer, FIELD_EXPIRY);
    return TimeBinary::writeTo(buffer, TimeBinary::RELATIVE, msg->getExpireTime());
}

int ExpiryField::fieldSize(MMS_UA_UAMsg* msg) const {
    return 1 + TimeBinary::sizeOf(msg->getExpireTime());
}
