#pragma once

#include "codec/field_base.h"

// The header fields whose value is a time.

/// Date, 0x85: seconds without a token. The value that is read is dropped deliberately: the send time of a
/// decoded message is the moment of decoding, because the clocks of senders are often wrong.
class LUM_EXPORT MsgDateField final : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};

/// Delivery-Time, 0x87: read in the absolute and the relative form, written in the absolute form.
class LUM_EXPORT DeliveryTimeField final : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};

/// Expiry, 0x88: read in both forms as seconds from now (a moment in the past wraps to a large number),
/// written in the relative form.
class LUM_EXPORT ExpiryField final : public FieldBase {
public:
    unsigned char readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    unsigned char writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const override;
    int fieldSize(MMS_UA_UAMsg* msg) const override;
};
