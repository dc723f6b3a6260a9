#pragma once

#include "wire/item.h"
#include "wire/media.h"
#include "wire/text.h"
#include "wire/transfer_encoding.h"

#include <QByteArray>

// What the data of a part are, and what becomes of them.

/// The Content-Type of a part, or of a message whose body is no multipart; null when there is none.
MMS_WIRE_Item contentTypeOf(const MMS_WIRE_Item& part);
/// The first header of a part that has that name, by number or by name, and a value that fits; null when
/// there is none.
MMS_WIRE_Item partHeader(const MMS_WIRE_Item& part, QLatin1StringView name);

/// How the data of a part are written.
struct DataForm {
    explicit DataForm(const MMS_WIRE_Item& part);

    /// What is wrong with data of this form: WIRE_MARK bits.
    quint32 marks(QByteArrayView data) const;
    /// The data without their transfer encoding.
    QByteArray payload(QByteArrayView data) const;
    /// The payload, text in UTF-8 and without a closing zero.
    QByteArray content(QByteArrayView data) const;

    MediaType media;
    TransferEncoding encoding = TransferEncoding::None;
    int charset = 0;         // charsetUnknown without a known one
    bool hasCharset = false; // whether one is stated
    Charsets* charsets;

private:
    bool isInCharset() const { return media.isText() && (hasCharset || media.isPlainText()); }
};
