#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "multipart/body_part.h"
#include "multipart/entry_codec.h"
#include "multipart/multipart.h"
#include "multipart/wsp_codes.h"
#include "platform/utility/common.h"
#include "platform/utility/setting.h"
#include "util/lowered.h"

#include <algorithm>

namespace {

// The room for content type and headers of one part. It does not grow with its names: what does not fit is
// left out.
constexpr int headerRoom = 1024;
// The room for the headers of all parts.
constexpr qint64 roomForHeaders = 4096;
constexpr int roomForLengths = 16; // for the three lengths in front, at most five octets each

/// The encoded head of an entry: the lengths of headers and data, the length of the content type, the content
/// type, the headers.
class EntryHead {
public:
    explicit EntryHead(const MMS_COMP_SMILMultipartBodypart& part) {
        writeContentType(part);
        const int typeLength = buffer_.getPosition();
        writeHeaders(part);
        const int headersLength = buffer_.getPosition() + ValueLengthBinary::sizeOf(typeLength);
        const int dataLength = part.getBodyDataLen();
        lengthsSize_ = UIntBinary::sizeOf(headersLength) + UIntBinary::sizeOf(dataLength) +
                       ValueLengthBinary::sizeOf(typeLength);
        LinearBuffer lengths(octets_ + roomForLengths - lengthsSize_, lengthsSize_);
        UIntBinary::writeTo(&lengths, headersLength);
        UIntBinary::writeTo(&lengths, dataLength);
        ValueLengthBinary::writeTo(&lengths, typeLength);
    }

    const unsigned char* octets() const { return octets_ + roomForLengths - lengthsSize_; }
    int size() const { return lengthsSize_ + buffer_.getPosition(); }

private:
    void writeContentType(const MMS_COMP_SMILMultipartBodypart& part) {
        const int code = MMS_UTIL_Common::mimeTypeGetValue(part.getContentType(), part.getSubType());
        if (code < firstUnsentMedia) {
            IntegerBinary::writeTo(&buffer_, code);
        } else {
            const QString type = part.getMimeFormat();
            PlainTextBinary::writeTo(
                &buffer_, equalLowered(type, u"audio/imelody") ? QStringLiteral("text/x-iMelody") : type);
        }
        writeText(PARAMETER_NAME, part.getContentLocation());
        if (code == MEDIA_TEXT_PLAIN || code == MEDIA_OTHER_TEXT) {
            buffer_.appendByte(PARAMETER_CHARSET);
            // A part with a charset is labelled US-ASCII, whatever the charset; a part without one is
            // labelled UTF-8. Deliberate.
            buffer_.appendByte(part.getCharset().isEmpty() ? charsetUtf8 : charsetUsAscii);
        }
    }

    /// Writes the headers. The location is written twice, because some phones read one header and some the
    /// other.
    void writeHeaders(const MMS_COMP_SMILMultipartBodypart& part) {
        const QString id = part.getContentID();
        if (id.startsWith('<')) {
            buffer_.appendByte(HEADER_CONTENT_ID);
            buffer_.appendByte(textQuote);
            PlainTextBinary::writeTo(&buffer_, id);
        } else {
            writeText(HEADER_CONTENT_ID, id);
        }
        writeText(HEADER_CONTENT_LOCATION, part.getContentLocation());
    }

    void writeText(unsigned char code, const QString& text) {
        if (text.isEmpty())
            return;
        buffer_.appendByte(code);
        PlainTextBinary::writeTo(&buffer_, text);
    }

    unsigned char octets_[roomForLengths + headerRoom];
    LinearBuffer buffer_{octets_ + roomForLengths, headerRoom};
    int lengthsSize_ = 0; // of the lengths, which end right before the content type
};

/// Writes the finished head, then the part's payload.
unsigned char writeOctets(LinearBuffer* out, const unsigned char* head, int headLength,
                          const MMS_COMP_SMILMultipartBodypart& part) {
    // The length in the head counts sub-bodies too, but only the part's own payload is written.
    const QArray<char>& data = part.getBodyData();
    const bool written =
        out->appendData(head, headLength) && data.size() <= out->restLength() &&
        out->appendData(reinterpret_cast<const unsigned char*>(data.data()), static_cast<int>(data.size()));
    return written ? CODEC_WRITTEN : CODEC_REFUSED;
}

} // namespace

unsigned char writeEntry(LinearBuffer* out, const MMS_COMP_SMILMultipartBodypart& part) {
    const EntryHead head(part);
    return writeOctets(out, head.octets(), head.size(), part);
}

BodyOutput::BodyOutput(MMS_COMP_SMILMultipart* body) {
    const int count = body->getPartCount();
    parts_.reserve(count);
    qint64 payloads = 0;
    for (int i = 0; i < count; ++i) {
        const MMS_COMP_SMILMultipartBodypart* part = body->getBodypartByIndex(i, false);
        const EntryHead head(*part);
        heads_.append(head.octets(), head.size());
        parts_.append({part, head.size()});
        size_ += head.size() + part->getBodyData().size();
        payloads += part->getBodyDataLen();
    }
    room_ = std::max(qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize(0)) * 1024, roomForHeaders + payloads);
}

unsigned char BodyOutput::writeTo(LinearBuffer* out) const {
    // The count is one octet, taken modulo 256, even for more parts: phones read a single octet.
    out->appendByte(static_cast<unsigned char>(parts_.size() & 0xFF));
    const unsigned char* head = heads_.data();
    for (const Entry& entry : parts_) {
        const unsigned char result = writeOctets(out, head, entry.headLength, *entry.part);
        if (result != CODEC_WRITTEN)
            return result;
        head += entry.headLength;
    }
    return CODEC_WRITTEN;
}
