#pragma once

#include "codec/codec_result.h"
#include "codec/field_base.h"
#include "codec/integer_binary.h"
#include "codec/text_binary.h"
#include "codec/ua_msg.h"

#include <utility>

// The header fields whose value is a text.

/// A text in the encoding of `Codec`. A text that the input cuts off is stored as far as it goes; an empty
/// one leaves the field absent.
template <FIELD_CODE fieldCode, typename Codec, auto getter, auto setter>
class TextField : public FieldBase {
public:
    /// Reads the text and passes it to the setter, which ignores an empty one.
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override {
        QString text;
        const unsigned char result = Codec::readFrom(buffer, &text);
        (msg->*setter)(std::move(text));
        return result;
    }
    /// Writes field code and text.
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override {
        IntegerBinary::writeTo(buffer, fieldCode);
        return Codec::writeTo(buffer, (msg->*getter)());
    }
    /// Octets that writeField() writes.
    int fieldSize(MMS_UA_UAMsg* msg) const override { return 1 + Codec::sizeOf((msg->*getter)()); }
};

/// Subject, 0x96.
class LUM_EXPORT SubjectField final : public TextField<FIELD_SUBJECT, EncodedStringBinary,
                                                       &MMS_UA_UAMsg::getSubject, &MMS_UA_UAMsg::setSubject> {
};
/// Response-Text, 0x93.
class LUM_EXPORT ResponseTextField final
    : public TextField<FIELD_RESPONSE_TEXT, EncodedStringBinary, &MMS_UA_UAMsg::getResponseText,
                       &MMS_UA_UAMsg::setResponseText> {};
/// Message-ID, 0x8B.
class LUM_EXPORT MsgIDField final
    : public TextField<FIELD_MESSAGE_ID, PlainTextBinary, &MMS_UA_UAMsg::getMsgID, &MMS_UA_UAMsg::setMsgID> {
};
/// Content-Location, 0x83: where the message can be fetched.
class LUM_EXPORT ContentLocationField final
    : public TextField<FIELD_CONTENT_LOCATION, PlainTextBinary, &MMS_UA_UAMsg::getMsgURI,
                       &MMS_UA_UAMsg::setMsgURI> {};
/// Transaction-Id, 0x98.
class LUM_EXPORT TIDField final
    : public TextField<FIELD_TRANSACTION_ID, PlainTextBinary, &MMS_UA_UAMsg::getTransactionId,
                       &MMS_UA_UAMsg::setTransactionId> {};
