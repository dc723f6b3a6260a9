#pragma once

#include "wire/item.h"
#include "wire/media.h"
#include "wire/text.h"
#include "wire/transfer_encoding.h"

#include <QByteArray>

// The form of a part's data: media type, charset, transfer encoding; and decoding it.

/// The Content-Type of a part, or of a message whose body is no multipart; null when absent.
MMS_WIRE_Item contentTypeOf(const MMS_WIRE_Item& part);
/// The first header of a part with that name, sent by code or by name, whose value fits its form; null when
/// absent.
MMS_WIRE_Item partHeader(const MMS_WIRE_Item& part, QLatin1StringView name);

/// How the data of a part are encoded.
struct DataForm {
    explicit DataForm(const MMS_WIRE_Item& part);

    /// The problems of data in this form: WIRE_MARK bits.
    quint32 marks(QByteArrayView data) const;
    /// The data without transfer encoding.
    QByteArray payload(QByteArrayView data) const;
    /// The payload, text in UTF-8 and without a closing zero.
    QByteArray content(QByteArrayView data) const;

    MediaType media;
    TransferEncoding encoding = TransferEncoding::None;
    int charset = 0;         // charsetUnknown if absent or unknown
    bool hasCharset = false; // whether the content type has a charset
    Charsets* charsets;

private:
    bool isInCharset() const { return media.isText() && (hasCharset || media.isPlainText()); }
};
