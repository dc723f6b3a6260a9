#pragma once

#include "codec/address_binary.h"
#include "codec/codec_result.h"
#include "codec/field_base.h"
#include "codec/integer_binary.h"
#include "codec/ua_msg.h"

// The header fields whose value is an address.

/// A list of recipients: the field is repeated for each address. An address that cannot be sent is
/// written as the bare field code; CODEC_REFUSED if it is the last.
template <FIELD_CODE fieldCode, auto getter, void (MMS_UA_UAMsg::*add)(MMS_UTIL_Entry&)>
class RecipientsField : public FieldBase {
public:
    /// Reads one address and adds it to the recipients.
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override {
        MMS_UTIL_Entry entry;
        const unsigned char result = AddressBinary::readFrom(buffer, &entry);
        if (result == CODEC_READ || !entry.isEmpty())
            (msg->*add)(entry);
        return result;
    }
    /// Writes field code and address of every recipient.
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override {
        unsigned char result = CODEC_WRITTEN;
        for (const MMS_UTIL_Entry* entry : (msg->*getter)()) {
            IntegerBinary::writeTo(buffer, fieldCode);
            result = AddressBinary::writeTo(buffer, *entry);
        }
        return result;
    }
    /// Octets that writeField() writes for all recipients.
    int fieldSize(MMS_UA_UAMsg* msg) const override {
        int size = 0;
        for (const MMS_UTIL_Entry* entry : (msg->*getter)())
            size += 1 + AddressBinary::sizeOf(*entry);
        return size;
    }
};

/// To, 0x97.
class LUM_EXPORT ToField final
    : public RecipientsField<FIELD_TO, &MMS_UA_UAMsg::getTo, &MMS_UA_UAMsg::addToRecipient> {};
/// Cc, 0x82.
class LUM_EXPORT CcField final
    : public RecipientsField<FIELD_CC, &MMS_UA_UAMsg::getCc, &MMS_UA_UAMsg::addCcRecipient> {};
/// Bcc, 0x81.
class LUM_EXPORT BccField final
    : public RecipientsField<FIELD_BCC, &MMS_UA_UAMsg::getBcc, &MMS_UA_UAMsg::addBccRecipient> {};

/// From, 0x89: a Value-length, then the token 128 and an address, or the token 129, which asks the
/// network to insert the address and is written for a message without a sender. Reading first sets a
/// placeholder (name "NoBody", type MMS_UTIL_Entry::PLACEHOLDER, no address), and then the address if
/// there is one.
class LUM_EXPORT FromField final : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};
