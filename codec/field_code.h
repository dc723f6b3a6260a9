#pragma once

/// Header field codes (MMS encapsulation, section 7.3, table 8). On the wire a code is a Short-integer:
/// 0x80 | code.
/// @ingroup header
enum FIELD_CODE : int {
    FIELD_BCC = 1,
    FIELD_CC = 2,
    FIELD_CONTENT_LOCATION = 3,
    FIELD_CONTENT_TYPE = 4,
    FIELD_DATE = 5,
    FIELD_DELIVERY_REPORT = 6,
    FIELD_DELIVERY_TIME = 7,
    FIELD_EXPIRY = 8,
    FIELD_FROM = 9,
    FIELD_MESSAGE_CLASS = 10,
    FIELD_MESSAGE_ID = 11,
    FIELD_MESSAGE_TYPE = 12,
    FIELD_MMS_VERSION = 13,
    FIELD_MESSAGE_SIZE = 14,
    FIELD_PRIORITY = 15,
    FIELD_READ_REPLY = 16,
    FIELD_REPORT_ALLOWED = 17,
    FIELD_RESPONSE_STATUS = 18,
    FIELD_RESPONSE_TEXT = 19,
    FIELD_SENDER_VISIBILITY = 20,
    FIELD_STATUS = 21,
    FIELD_SUBJECT = 22,
    FIELD_TO = 23,
    FIELD_TRANSACTION_ID = 24,
    FIELD_DISTRIBUTION_INDICATOR = 49,
};

/// The number of a field's bit in the presence word, counted from 1: its code, or 25 for the distribution
/// indicator, because the word has no bit 49.
constexpr int presenceSlot(int code) {
    return code == FIELD_DISTRIBUTION_INDICATOR ? 25 : code;
}

/// The presence bit of a field (see MMS_UA_UAMsg::present).
constexpr unsigned int presenceBit(int code) {
    static_assert(sizeof(unsigned int) == 4, "the presence word has a bit for each code");
    return 1u << (presenceSlot(code) - 1);
}
