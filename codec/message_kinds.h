#pragma once

#include "codec/field_code.h"
#include "platform/export.h"

#include <span>

/// PDU types: the octet of the Message-Type field (MMS encapsulation, WAP-209, section 7.2.16).
/// @ingroup header
enum MESSAGE_TYPE : unsigned char {
    MESSAGE_SEND_REQ = 128,
    MESSAGE_SEND_CONF = 129,
    MESSAGE_NOTIFICATION_IND = 130,
    MESSAGE_NOTIFYRESP_IND = 131,
    MESSAGE_RETRIEVE_CONF = 132,
    MESSAGE_ACKNOWLEDGE_IND = 133,
    MESSAGE_DELIVERY_IND = 134,
};

/// One row of the table of PDU types.
struct MessageKind {
    MESSAGE_TYPE type;              ///< the octet of Message-Type
    const char* name;               ///< such as "m-send-req"
    std::span<const int> order;     ///< the field codes it is written with, in order
    std::span<const int> mandatory; ///< the fields that a received one must have
};

/// The row of a Message-Type octet; null for an unknown type. The library owns the table.
LUM_EXPORT const MessageKind* messageKind(unsigned char type);
