#pragma once

#include "codec/field_base.h"
#include "codec/field_code.h"

/// One row of the table of header fields.
struct HeaderField {
    FIELD_CODE code;  ///< the field code
    const char* name; ///< such as "Message-Type"
    /// The codec of the field; owned by the table.
    const FieldBase* codec;
    /// A new codec of the same kind; the caller deletes it.
    FieldBase* (*create)();
};

/// The row of a field code; null for an unknown code. The library owns the table.
LUM_EXPORT const HeaderField* headerField(int code);
