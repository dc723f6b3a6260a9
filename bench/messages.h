#pragma once

#include "codec/ua_msg.h"
#include "multipart/multipart.h"
#include "qt2/qarray.h"
#include "smil/model/presentation.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

// Messages for benchmarks, made by the library itself.

/// The header of a message type with common fields: a notification, or a message to five people.
std::unique_ptr<MMS_UA_UAMsg> makeHeader(unsigned char type);
/// The encoded header.
QByteArray encodedHeader(MMS_UA_UAMsg& header);
/// The texts of a header as encoded.
std::vector<QByteArray> textsOf(const MMS_UA_UAMsg& header);

/// A body of `count` JPEG parts of `size` octets each, with names and Content-IDs.
std::unique_ptr<MMS_COMP_SMILMultipart> makeBody(int count, int size);
/// The encoded body.
QArray<char> encodedBody(MMS_COMP_SMILMultipart& body);

/// A presentation of that many slides, each with a text and a picture of `pictureSize` octets, and the body
/// with its content. The first part is the presentation.
struct Presentation {
    std::unique_ptr<MMS_COMP_SMILMultipart> body;
    std::unique_ptr<MMS_COMP_SMILData> slides;
    QArray<char> smil;
};
Presentation makePresentation(int slideCount, int pictureSize);

/// Octets as random as those of a compressed picture.
QArray<char> makePayload(int size);

/// Octets in one allocation.
using Octets = std::unique_ptr<char[]>;

/// Yardstick: the texts as QStrings.
std::vector<QString> makeStrings(const std::vector<QByteArray>& texts);
/// The payloads of the body in its encoded octets.
std::vector<QByteArrayView> payloadsIn(const QByteArray& octets, MMS_COMP_SMILMultipart& body);
/// Yardstick: each payload copied into an allocation of its own.
std::vector<Octets> copyPayloads(const std::vector<QByteArrayView>& payloads);
/// Yardstick: all payloads copied into one allocation of that size.
Octets gatherPayloads(MMS_COMP_SMILMultipart& body, qsizetype size);
