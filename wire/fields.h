#pragma once

#include "platform/export.h"

#include <QtGlobal>

#include <span>

// Tables of MMS 1.0 to 1.3 (OMA-TS-MMS-ENC, sections 6 and 7.3).

/// The encodings of values (WSP and MMS encapsulation).
/// @ingroup wire
enum WIRE_FORM : unsigned char {
    FORM_ANY,           ///< not known: by its first octet a length and octets, a text, or one octet
    FORM_OCTET,         ///< one octet of 128 or more, with words
    FORM_YES_NO,        ///< 128 or 129
    FORM_INTEGER,       ///< Short-integer or Long-integer
    FORM_LONG,          ///< Long-integer
    FORM_DATE,          ///< seconds since 1970 as an integer
    FORM_TEXT,          ///< Text-string
    FORM_ENCODED,       ///< Encoded-string: Text-string, or length, charset and text
    FORM_ADDRESS,       ///< Encoded-string with an address
    FORM_TIME,          ///< length, absolute or relative token, integer of seconds
    FORM_FROM,          ///< length, address-present token and address, or insert-address token
    FORM_CLASS,         ///< octet or text
    FORM_CONTENT_TYPE,  ///< media type alone, or a length, media type and parameters
    FORM_COUNT_TEXT,    ///< length, count, text
    FORM_COUNT_ENCODED, ///< length, count, encoded text
    FORM_COUNT_ADDRESS, ///< length, count, address
    FORM_COUNT_DATE,    ///< length, count, date
    FORM_FLAGS,         ///< length, octet, encoded text
    FORM_TOTALS,        ///< length, octet, integer
    FORM_ELEMENT,       ///< length, text, parameters
    FORM_QUOTED,        ///< text that may be in quotes
    FORM_CONTENT_ID,    ///< text with an opening quote (0x22)
    FORM_DISPOSITION,   ///< length, octet or text, parameters
    FORM_UINTVAR,       ///< seven bits an octet, the top bit set on all but the last
    FORM_CHARSET,       ///< integer or text
    FORM_MEDIA,         ///< media type, a number or a text
    FORM_LENGTH_DATE,   ///< length, date
    FORM_SHORT,         ///< Short-integer: one octet of 128 or more, for a number below 128
    FORM_NO_VALUE,      ///< the octet 0
    FORM_PARAMETERS,    ///< any number of parameters
};

/// A number of a field and its meaning.
struct MMS_WIRE_Word {
    int number;       ///< as encoded: 128 or more for an octet
    const char* word; ///< such as "Error-transient-network-problem"
};

/// A header field, a part header or a parameter.
struct MMS_WIRE_Field {
    int code;                             ///< without the top bit
    const char* name;                     ///< such as "X-Mms-Retrieve-Status"
    WIRE_FORM form;                       ///< the form of its value
    std::span<const MMS_WIRE_Word> words; ///< the meanings of its numbers; empty when they are plain numbers
};

/// A type of PDU.
struct MMS_WIRE_MessageType {
    int type;                       ///< the octet of Message-Type, from 128 on
    const char* name;               ///< such as "m-read-orig-ind"
    std::span<const int> mandatory; ///< codes of the mandatory fields, recipients apart
    bool needsRecipient;            ///< at least one of To, Cc and Bcc is mandatory
};

/// The header field with that code, 1 to 63; null for an unknown one. The library owns the table.
LUM_EXPORT const MMS_WIRE_Field* wireField(int code);
/// The part header with that code (WSP assigned numbers); null for one without a known form.
LUM_EXPORT const MMS_WIRE_Field* wirePartHeader(int code);
/// The parameter with that code (WSP assigned numbers); null for an unknown one.
LUM_EXPORT const MMS_WIRE_Field* wireParameter(int code);
/// The PDU type with that Message-Type octet, 128 to 151; null for an unknown one.
LUM_EXPORT const MMS_WIRE_MessageType* wireMessageType(int type);
/// The meaning of a number as the value of a field; null when the field has no word for it.
LUM_EXPORT const char* wireWord(const MMS_WIRE_Field& field, quint64 number);
