#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "multipart/body_part.h"
#include "multipart/entry_codec.h"
#include "multipart/wsp_codes.h"
#include "platform/utility/common.h"
#include "util/lowered.h"

namespace {

// The room for content type and headers of one part. What does not fit is left out.
constexpr int headerRoom = 1024;

/// Content type and headers of a part as octets, without the lengths in front of them.
class EntryHead {
public:
    explicit EntryHead(const MMS_COMP_SMILMultipartBodypart& part) : dataLength_(part.getBodyDataLen()) {
        writeContentType(part);
        typeLength_ = buffer_.getPosition();
        writeHeaders(part);
    }

    int headersLength() const { return buffer_.getPosition() + ValueLengthBinary::sizeOf(typeLength_); }
    int size() const {
        return UIntBinary::sizeOf(headersLength()) + UIntBinary::sizeOf(dataLength_) + headersLength();
    }

    /// Writes all size() octets or none.
    unsigned char writeTo(LinearBuffer* out) const {
        if (size() > out->restLength())
            return CODEC_REFUSED;
        UIntBinary::writeTo(out, headersLength());
        UIntBinary::writeTo(out, dataLength_);
        const unsigned char result = ValueLengthBinary::writeTo(out, typeLength_);
        out->appendData(octets_, buffer_.getPosition());
        return result;
    }

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
            // a part that names its charset goes out as US-ASCII, whatever the name; one that does
            // not as UTF-8: deliberately this way round
            buffer_.appendByte(part.getCharset().isEmpty() ? charsetUtf8 : charsetUsAscii);
        }
    }

    /// The location goes out twice, since phones look for it in either place.
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

    unsigned char octets_[headerRoom];
    LinearBuffer buffer_{octets_, headerRoom};
    int typeLength_ = 0;
    const int dataLength_;
};

} // namespace

unsigned char writeEntry(LinearBuffer* out, const MMS_COMP_SMILMultipartBodypart& part) {
    const unsigned char result = EntryHead(part).writeTo(out);
    if (result != CODEC_WRITTEN)
        return result;
    // The length that was announced counts sub-bodies; what follows is the part's own payload alone.
    const QArray<char>& data = part.getBodyData();
    if (data.size() > out->restLength())
        return CODEC_REFUSED;
    out->appendData(reinterpret_cast<const unsigned char*>(data.data()), static_cast<int>(data.size()));
    return result;
}

qint64 sizeOfEntry(const MMS_COMP_SMILMultipartBodypart& part) {
    return EntryHead(part).size() + part.getBodyData().size();
}
