#pragma once

#include "wire/item.h"

#include <QLatin1StringView>
#include <QString>

// Media types, as numbers or texts.

/// A media type: type and sub-type.
struct MediaType {
    QString type;
    QString subType;

    /// "image/jpeg".
    QString name() const { return subType.isEmpty() ? type : type + u'/' + subType; }
    /// Whether a body of this type is a multipart.
    bool isMultipart() const;
    /// Whether it is text, which a charset applies to.
    bool isText() const;
    /// Whether it is text in a format that does not state its own charset.
    bool isPlainText() const { return type.compare(u"text", Qt::CaseInsensitive) == 0; }
};

/// Whether a media type has that number.
bool isKnownMedia(quint64 number);
/// The media type with that number; "application/octet-stream" for an unknown one.
MediaType mediaByNumber(quint64 number);
/// The media type at the beginning of a text, up to the first ";".
MediaType mediaByText(const QString& text);
/// The media type of a Content-Type item; "application/octet-stream" when absent.
MediaType mediaOf(const MMS_WIRE_Item& contentType);

/// Two parameters of a related multipart.
constexpr QLatin1StringView typeParameter("type"), startParameter("start");

/// A parameter of a content type or disposition by name, in any letter case, whether sent by number or by
/// name. The null item when absent.
MMS_WIRE_Item parameterOf(const MMS_WIRE_Item& value, QLatin1StringView name);
/// The parameters of a content type as text for the header record: "type=application/smil;start=<s>", these
/// two first.
QString parameterText(const MMS_WIRE_Item& contentType);
