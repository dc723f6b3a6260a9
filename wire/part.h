#pragma once

#include "platform/export.h"
#include "wire/item.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// One part of a body as it was sent: content type, headers and data.
///
/// Like its item, a part points into the reader and the caller's octets, and is valid as long.
class LUM_EXPORT MMS_WIRE_Part {
public:
    /// Takes the item of a "Part", or of a body that is no multipart.
    explicit MMS_WIRE_Part(const MMS_WIRE_Item& item);

    /// The item of the whole part.
    MMS_WIRE_Item item() const { return item_; }
    /// The item of its data; null when the message ends before them.
    MMS_WIRE_Item data() const { return data_; }

    /// Media type: "image/jpeg"; "application/octet-stream" for an unknown number and without a content type.
    QString mediaType() const;
    /// A content type parameter by name ("Name"), in any letter case, whether sent by number or by name. A
    /// null text when absent.
    QString parameter(const char* name) const;
    /// The part's name: the first present of Content-Location, the content type's Name and Filename,
    /// Content-Disposition's Filename and Name. Empty when all are absent.
    QString name() const;
    /// Content-ID with its "<" and ">"; empty when absent.
    QString contentId() const;
    /// The charset in the content type: its IANA name, or the name as sent if unknown. Empty when absent and
    /// for an unknown number.
    QString charset() const;
    /// Content-Transfer-Encoding as sent; empty when absent.
    QString transferEncoding() const;
    /// Content-Disposition: "inline", "attachment", "form-data" or another word as sent; empty when absent.
    QString disposition() const;
    /// Whether the sender asks for the user's consent ("X-Mms-UserPrompt" with the octet 0x80).
    bool wantsPrompt() const;

    /// Whether the content type is a multipart.
    bool isMultipart() const;
    /// The nested parts whose data are there, in order; none for a multipart nested too deep to be read.
    QList<MMS_WIRE_Part> parts() const;

    /// Octets of data in the message, before any decoding.
    qint64 wireSize() const { return data_.length(); }
    /// The payload without base64 or quoted-printable; empty for a multipart. Where there is nothing to
    /// decode, it refers to the caller's octets.
    QByteArray payload() const;
    /// The payload as stored in a body part: texts in UTF-8, without a closing zero.
    QByteArray content() const;

private:
    MMS_WIRE_Item item_;
    MMS_WIRE_Item data_;
};
