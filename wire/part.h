#pragma once

#include "platform/export.h"
#include "wire/item.h"

#include <QByteArray>
#include <QList>
#include <QString>

/// One part of a body as it was sent: what its content type and headers say, and its data.
///
/// Like the item it is found by, a part points into the reader and the caller's octets.
class LUM_EXPORT MMS_WIRE_Part {
public:
    /// The part of that item: a "Part", or a body that is no multipart.
    explicit MMS_WIRE_Part(const MMS_WIRE_Item& item);

    /// The whole part in the tree.
    MMS_WIRE_Item item() const { return item_; }
    /// Its data in the tree; null when the message ends before them.
    MMS_WIRE_Item data() const { return data_; }

    /// "image/jpeg"; "application/octet-stream" for an unknown number and for a part without a content type.
    QString mediaType() const;
    /// A parameter of the content type by its name ("Name"), letter case aside, however it was sent: by
    /// either of its numbers or by name. A null text when it is not there.
    QString parameter(const char* name) const;
    /// The part's name: the first that is there of Content-Location, the content type's Name and Filename,
    /// Content-Disposition's Filename and Name. Empty without any.
    QString name() const;
    /// Content-ID, "<" and ">" included; empty without one.
    QString contentId() const;
    /// The IANA name of the charset that the content type states, or the name it has there when it is not
    /// known; empty when none is stated or its number is unknown.
    QString charset() const;
    /// Content-Transfer-Encoding as sent; empty without one.
    QString transferEncoding() const;
    /// Content-Disposition: "inline", "attachment", "form-data" or the sender's own word; empty without one.
    QString disposition() const;
    /// Whether the sender wants the user to be asked ("X-Mms-UserPrompt" with the octet 0x80).
    bool wantsPrompt() const;

    /// Whether the content type is a multipart's.
    bool isMultipart() const;
    /// The parts inside a multipart that was read, in order.
    QList<MMS_WIRE_Part> parts() const;

    /// Octets of data on the wire, before any decoding.
    qint64 wireSize() const { return data_.length(); }
    /// The payload with base64 or quoted-printable undone; empty for a multipart. It shows the caller's
    /// octets without a copy where nothing was to be undone.
    QByteArray payload() const;
    /// The payload as it goes into a body part: texts in UTF-8, without a closing zero.
    QByteArray content() const;

private:
    MMS_WIRE_Item item_;
    MMS_WIRE_Item data_;
};
