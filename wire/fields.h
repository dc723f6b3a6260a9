#pragma once

#include "platform/export.h"

#include <QtGlobal>

#include <span>

// What there is in MMS 1.0 to 1.3 (OMA-TS-MMS-ENC, sections 6 and 7.3), in tables.

/// The forms of values (WSP and MMS encapsulation).
/// @ingroup wire
enum WIRE_FORM : unsigned char {
    FORM_ANY,           ///< by its first octet: a length and octets, a text, or one octet
    FORM_OCTET,         ///< one octet from 128 on, with words
    FORM_YES_NO,        ///< 128 or 129
    FORM_INTEGER,       ///< Short-integer or Long-integer
    FORM_LONG,          ///< Long-integer
    FORM_DATE,          ///< seconds since 1970 as an integer
    FORM_TEXT,          ///< Text-string
    FORM_ENCODED,       ///< Text-string, or length, charset and text
    FORM_ADDRESS,       ///< the same, an address
    FORM_TIME,          ///< length, absolute or relative token, integer of seconds
    FORM_FROM,          ///< length, address-present token and address, or insert-address token
    FORM_CLASS,         ///< octet or text
    FORM_CONTENT_TYPE,  ///< media type, short or with a length and parameters
    FORM_COUNT_TEXT,    ///< length, count, text
    FORM_COUNT_ENCODED, ///< length, count, encoded text
    FORM_COUNT_ADDRESS, ///< length, count, address
    FORM_COUNT_DATE,    ///< length, count, date
    FORM_FLAGS,         ///< length, octet, encoded text
    FORM_TOTALS,        ///< length, octet, integer
    FORM_ELEMENT,       ///< length, text, parameters
    FORM_QUOTED,        ///< text that may be in quotes
    FORM_CONTENT_ID,    ///< text begun by a 0x22
    FORM_DISPOSITION,   ///< length, octet or text, parameters
    FORM_UINTVAR,       ///< octets of seven bits, the last below 128
    FORM_CHARSET,       ///< integer or text
    FORM_MEDIA,         ///< media type, a number or a text
    FORM_LENGTH_DATE,   ///< length, date
    FORM_SHORT,         ///< one octet from 128 on, a number below 128
    FORM_NO_VALUE,      ///< the octet 0
    FORM_PARAMETERS,    ///< any number of parameters
};

/// A number and what it means.
struct MMS_WIRE_Word {
    int number;       ///< as on the wire, 128 and more for an octet
    const char* word; ///< such as "Error-transient-network-problem"
};

/// A header field, a part's header or a parameter.
struct MMS_WIRE_Field {
    int code;                             ///< without the high bit it has on the wire
    const char* name;                     ///< such as "X-Mms-Retrieve-Status"
    WIRE_FORM form;                       ///< of its value
    std::span<const MMS_WIRE_Word> words; ///< what its numbers mean; empty when they are plain numbers
};

/// A type of PDU.
struct MMS_WIRE_MessageType {
    int type;                       ///< the octet of Message-Type, from 128 on
    const char* name;               ///< such as "m-read-orig-ind"
    std::span<const int> mandatory; ///< codes of the fields it must have, beside one of To, Cc, Bcc
    bool needsRecipient;            ///< whether it must have one of To, Cc, Bcc
};

/// The header field of that code, 1 to 63; null for an unknown one. The table is the library's.
LUM_EXPORT const MMS_WIRE_Field* wireField(int code);
/// The header of a part of that code (WSP assigned numbers); null for one that is read by its form alone.
LUM_EXPORT const MMS_WIRE_Field* wirePartHeader(int code);
/// The parameter of that code (WSP assigned numbers); null for an unknown one.
LUM_EXPORT const MMS_WIRE_Field* wireParameter(int code);
/// The type of PDU by its Message-Type octet, 128 to 151; null for an unknown one.
LUM_EXPORT const MMS_WIRE_MessageType* wireMessageType(int type);
/// What a number means as the value of a field; null when the field's words do not have it.
LUM_EXPORT const char* wireWord(const MMS_WIRE_Field& field, quint64 number);
