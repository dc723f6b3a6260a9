#pragma once

#include "codec/field_base.h"
#include "codec/ua_msg.h"

// The header fields of one octet, and the two numbers MMS-Version and Message-Size.

/// A field whose value is one octet.
class LUM_EXPORT OctetField : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const final;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const final;
    int fieldSize(MMS_UA_UAMsg* msg) const final;

private:
    virtual FIELD_CODE code() const = 0;
    /// Stores the octet in the message and marks the field present.
    virtual void store(MMS_UA_UAMsg* msg, unsigned char octet) const = 0;
    /// The octet for the value in the message.
    virtual unsigned char octetOf(const MMS_UA_UAMsg* msg) const = 0;
};

/// A field whose octet is stored unchanged.
template <FIELD_CODE fieldCode, unsigned char MMS_UA_UAMsg::*member>
class StoredOctetField : public OctetField {
    FIELD_CODE code() const override { return fieldCode; }
    void store(MMS_UA_UAMsg* msg, unsigned char octet) const override {
        msg->*member = octet;
        msg->markPresent(fieldCode);
    }
    unsigned char octetOf(const MMS_UA_UAMsg* msg) const override { return msg->*member; }
};

/// A field of two values: the octet 128 sets the message's flag, any other clears it. A set flag is written
/// as `whenSet`, a clear flag as the other of 128 and 129.
template <FIELD_CODE fieldCode, auto getter, auto setter, unsigned char whenSet = 128>
class FlagField : public OctetField {
    FIELD_CODE code() const override { return fieldCode; }
    void store(MMS_UA_UAMsg* msg, unsigned char octet) const override { (msg->*setter)(octet == 128); }
    unsigned char octetOf(const MMS_UA_UAMsg* msg) const override {
        constexpr unsigned char whenClear = whenSet ^ 128 ^ 129;
        return (msg->*getter)() ? whenSet : whenClear;
    }
};

/// Message-Type, 0x8C: see MESSAGE_TYPE.
class LUM_EXPORT MsgTypeField final
    : public StoredOctetField<FIELD_MESSAGE_TYPE, &MMS_UA_UAMsg::messageType> {};
/// Message-Class, 0x8A: 128 Personal, 129 Advertisement, 130 Informational, 131 Auto.
class LUM_EXPORT MsgClassField final
    : public StoredOctetField<FIELD_MESSAGE_CLASS, &MMS_UA_UAMsg::messageClass> {};
/// Response-Status, 0x92: 128 Ok, others are errors.
class LUM_EXPORT ResponseStatusField final
    : public StoredOctetField<FIELD_RESPONSE_STATUS, &MMS_UA_UAMsg::responseStatus> {};
/// Status, 0x95: 128 Expired, 129 Retrieved, 130 Rejected, 131 Deferred, 132 Unrecognised.
class LUM_EXPORT MsgStatusField final : public StoredOctetField<FIELD_STATUS, &MMS_UA_UAMsg::status> {};

/// Delivery-Report, 0x86: 128 Yes, 129 No.
class LUM_EXPORT DeliveryReportField final
    : public FlagField<FIELD_DELIVERY_REPORT, &MMS_UA_UAMsg::getDeliveryReportNecessity,
                       &MMS_UA_UAMsg::setDeliveryReportNecessity> {};
/// Read-Reply, 0x90: 128 Yes, 129 No.
class LUM_EXPORT ReadReplyField final
    : public FlagField<FIELD_READ_REPLY, &MMS_UA_UAMsg::getReadReplyNecessity,
                       &MMS_UA_UAMsg::setReadReplyNecessity> {};
/// Report-Allowed, 0x91: 128 Yes, 129 No.
class LUM_EXPORT ReportAllowedField final
    : public FlagField<FIELD_REPORT_ALLOWED, &MMS_UA_UAMsg::getReportAllowed,
                       &MMS_UA_UAMsg::setReportAllowed> {};
/// Sender-Visibility, 0x94: 128 Hide, 129 Show. Deliberately asymmetric: reading Hide sets the flag, and a
/// set flag is written as Show.
class LUM_EXPORT SenderVisibilityField final
    : public FlagField<FIELD_SENDER_VISIBILITY, &MMS_UA_UAMsg::getSenderVisibility,
                       &MMS_UA_UAMsg::setSenderVisibility, 129> {};

/// Priority, 0x8F: 128 Low, 129 Normal, 130 High.
class LUM_EXPORT PriorityField final : public OctetField {
    FIELD_CODE code() const override;
    void store(MMS_UA_UAMsg* msg, unsigned char octet) const override;
    unsigned char octetOf(const MMS_UA_UAMsg* msg) const override;
};

/// MMS-Version, 0x8D: stored without its top bit, written as a Short-integer.
class LUM_EXPORT VersionField final : public OctetField {
    FIELD_CODE code() const override;
    void store(MMS_UA_UAMsg* msg, unsigned char octet) const override;
    unsigned char octetOf(const MMS_UA_UAMsg* msg) const override;
};

/// Message-Size, 0x8E: octets as an integer. A received size of 0 leaves the field absent.
class LUM_EXPORT MsgSizeField final : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};

/// Distribution-Indicator, 0xB1: 128 Yes, 129 No. Only read: it is never written and has size 0.
class LUM_EXPORT DistributionIndField final : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
};
