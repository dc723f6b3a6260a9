#pragma once

#include "codec/ua_msg.h"
#include "multipart/multipart.h"
#include "qt2/qarray.h"
#include "smil/model/presentation.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

// The messages that are measured, made by the library itself.

/// A header of that message type, with common fields: a notification, or a message to five people.
std::unique_ptr<MMS_UA_UAMsg> makeHeader(unsigned char type);
/// The octets that the library writes for a header.
QByteArray encodedHeader(MMS_UA_UAMsg& header);
/// The texts of a header as they stand on the wire.
std::vector<QByteArray> textsOf(const MMS_UA_UAMsg& header);

/// A body of `count` JPEG parts of `size` octets each, named and with Content-IDs.
std::unique_ptr<MMS_COMP_SMILMultipart> makeBody(int count, int size);
/// The octets that the library writes for a body.
QArray<char> encodedBody(MMS_COMP_SMILMultipart& body);

/// A presentation of so many slides, each with a text and a picture that is `pictureSize` octets
/// long, and the body that holds them. The body's first part is the presentation's text.
struct Presentation {
    std::unique_ptr<MMS_COMP_SMILMultipart> body;
    std::unique_ptr<MMS_COMP_SMILData> slides;
    QArray<char> smil;
};
Presentation makePresentation(int slideCount, int pictureSize);

/// Octets that look like a compressed picture.
QArray<char> makePayload(int size);

/// Octets in a plain allocation.
using Octets = std::unique_ptr<char[]>;

/// Yardstick: the texts as QStrings.
std::vector<QString> makeStrings(const std::vector<QByteArray>& texts);
/// Where the payloads of the body stand in the octets that were written for it.
std::vector<QByteArrayView> payloadsIn(const QByteArray& octets, MMS_COMP_SMILMultipart& body);
/// Yardstick: each payload copied into an allocation of its own.
std::vector<Octets> copyPayloads(const std::vector<QByteArrayView>& payloads);
/// Yardstick: all payloads copied into one allocation of that size.
Octets gatherPayloads(MMS_COMP_SMILMultipart& body, qsizetype size);
