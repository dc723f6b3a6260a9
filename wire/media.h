#pragma once

#include "wire/item.h"

#include <QLatin1StringView>
#include <QString>

// Media types, given by number or spelt out.

/// A media type in its two halves.
struct MediaType {
    QString type;
    QString subType;

    /// "image/jpeg".
    QString name() const { return subType.isEmpty() ? type : type + u'/' + subType; }
    /// Whether a body of this type is made of parts.
    bool isMultipart() const;
    /// Whether it is text, so that a charset counts.
    bool isText() const;
    /// Whether it is text that says nothing else about its charset.
    bool isPlainText() const { return type.compare(u"text", Qt::CaseInsensitive) == 0; }
};

/// Whether there is a media type of that number.
bool isKnownMedia(quint64 number);
/// The media type of a number; "application/octet-stream" for an unknown one.
MediaType mediaByNumber(quint64 number);
/// The media type that a text says, which ends at its first ";".
MediaType mediaByText(const QString& text);
/// The media type in a Content-Type item, "application/octet-stream" where it has none.
MediaType mediaOf(const MMS_WIRE_Item& contentType);

/// The two parameters of a related multipart.
constexpr QLatin1StringView typeParameter("type"), startParameter("start");

/// A parameter of a content type or a disposition, by its number or by name, letter case aside. The null item
/// when it is not there.
MMS_WIRE_Item parameterOf(const MMS_WIRE_Item& value, QLatin1StringView name);
/// The parameters of a content type as the record of a header has them: "type=application/smil;start=<s>",
/// these two first.
QString parameterText(const MMS_WIRE_Item& contentType);
