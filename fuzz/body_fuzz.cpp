// The body of a PDU: decoded, all members called, and assembled again.

#include "codec/codec_result.h"
#include "codec/ua_msg.h"
#include "fuzz/input.h"
#include "multipart/multipart.h"
#include "multipart/multipart_codec.h"
#include "multipart/multipart_parser.h"

#include <QSet>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

/// Longer texts may not fit into a part's headers.
constexpr qsizetype longestSent = 200;

void look(const Part& part, int depth) {
    require(depth <= 16, "nested at most sixteen times");
    for (const QString& text :
         {part.getContentType(), part.getSubType(), part.getContentID(), part.getContentLocation(),
          part.getDispFileName(), part.getBoundary(), part.getMimeFormat(), part.getCharset()})
        touched(text);
    touched(part.getBodyData());
    require(part.getBodyDataLen() >= part.getBodyData().size(), "the length counts the payload");
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        look(*part.getSubBody(static_cast<unsigned int>(i)), depth + 1);
}

void look(MMS_COMP_SMILMultipart& body, int status) {
    QSet<QString> names;
    for (int i = 0; i < body.getPartCount(); ++i) {
        const Part& part = *body.getBodypartByIndex(i, false);
        look(part, 0);
        const QString location = part.getContentLocation();
        if (status == 0)
            require(!location.isEmpty() && !part.getDispFileName().isEmpty(), "each part has a name");
        require(!body.getBodyPartBySrc(location, part.getDispFileType()) == location.isEmpty(),
                "a part is found by its name");
        const QString fresh = body.createUniqueLocation(location);
        require(!fresh.isEmpty() && !body.isPartExist(fresh), "a new name is free");
    }
    require(!body.isPartExist(body.createUniqueAttchmentLocation(body.getStart())), "a new name is free");
    for (int i = -1; i <= body.getAttachmentCount(); ++i)
        require(!body.getAttachment(i) == (i < 0 || i == body.getAttachmentCount()),
                "attachments are counted");
    bool attachment = false, image = false, audio = false, video = false;
    body.isContainAttachImgAudio(&attachment, &image, &audio, &video);
    require(body.isContainUPI() == (body.getFirstUPIPart(false) != nullptr), "the prompt is found");
}

bool isPlainPart(const Part& part) {
    const QString location = part.getContentLocation();
    for (const QString& text : {part.getMimeFormat(), location, part.getContentID()})
        if (!isPlain(text) || text.size() > longestSent)
            return false;
    // ")..." is read as a quote; ";" begins the parameters of a type
    return part.getSubBodyCount() == 0 && !location.startsWith(')') && !part.getMimeFormat().contains(';');
}

/// The payload; of a text without the NUL that the reader removes.
QByteArray payloadOf(const Part& part) {
    QByteArray payload = part.getBodyData();
    if (part.getContentType().toLower() == QLatin1String("text"))
        while (payload.endsWith('\0'))
            payload.chop(1);
    return payload;
}

void requireSame(MMS_COMP_SMILMultipart& first, MMS_COMP_SMILMultipart& second) {
    require(first.getPartCount() == second.getPartCount(), "all parts come back");
    for (int i = 0; i < first.getPartCount(); ++i) {
        const Part& one = *first.getBodypartByIndex(i, false);
        const Part& other = *second.getBodypartByIndex(i, false);
        require(one.getMimeFormat().toLower() == other.getMimeFormat().toLower(), "the type comes back");
        require(one.getContentID() == other.getContentID(), "the id comes back");
        // the parts of a malformed body have no names yet; assembled parts do
        require(one.getContentLocation() == other.getContentLocation() || one.getContentLocation().isEmpty(),
                "the location comes back");
        require(payloadOf(one) == payloadOf(other), "the payload comes back");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ExactInput input(data, size);
    MMS_UA_UAMsg header;
    header.setContentType({"application", "vnd.wap.multipart.related", "type=application/smil;start=<s>"});
    MMS_COMP_SMILMultipart body;
    const int status = MMS_COMP_SMILMultipartParser::parse(input.array(), &header, &body);
    require(status == 0 || status == MMS_COMP_SMILMultipartParser::ERR_MALFORMED, "a body is read or not");
    body.getSmilPart();
    look(body, status);

    Part nesting;
    const unsigned char nested =
        MMS_UA_MultiPart_CODEC::decodeBodyMultipart(false, input.data(), input.size(), &nesting);
    require((nested == CODEC_READ) == (status == 0), "a nested body is read like any other");
    require(nesting.getSubBodyCount() == body.getPartCount(), "with the same parts");

    bool isPlainBody = body.getPartCount() < 256;
    for (int i = 0; i < body.getPartCount(); ++i)
        isPlainBody = isPlainBody && isPlainPart(*body.getBodypartByIndex(i, false));

    int assembled = 0;
    const QArray<char> octets = MMS_COMP_SMILMultipartParser::assembleBody(&body, &header, &assembled);
    require((assembled == 0) == !octets.isNull(), "a body is assembled or not");
    unsigned char* encoded = nullptr;
    unsigned int length = 0;
    const unsigned char result = MMS_UA_MultiPart_CODEC::encodeMultipart(false, &body, &encoded, &length);
    const std::unique_ptr<unsigned char[]> freed(encoded);
    if (assembled == 0)
        require(result == CODEC_WRITTEN &&
                    QByteArray(reinterpret_cast<char*>(encoded), int(length)) == QByteArray(octets),
                "both encoders write the same");

    const ExactInput written(reinterpret_cast<const uint8_t*>(octets.data()), size_t(octets.size()));
    MMS_COMP_SMILMultipart again;
    const int reread = MMS_COMP_SMILMultipartParser::parse(written.array(), &header, &again);
    look(again, reread);
    if (assembled == 0 && isPlainBody) {
        require(reread == 0, "what is assembled can be read");
        requireSame(body, again);
    }
    return 0;
}
