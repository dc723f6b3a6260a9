#pragma once

#include "codec/field_base.h"
#include "codec/field_code.h"

/// What is to be known of one header field.
struct HeaderField {
    FIELD_CODE code;  ///< the code of the table's row
    const char* name; ///< such as "Message-Type"
    /// The codec that reads and writes the field; the table's.
    const FieldBase* codec;
    /// A new codec of the same kind; the caller deletes it.
    FieldBase* (*create)();
};

/// The row of the field-code table for a code; null for a code that is not in it. The table is the
/// library's.
LUM_EXPORT const HeaderField* headerField(int code);
