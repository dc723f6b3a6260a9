#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "multipart/body_part.h"
#include "multipart/body_text.h"
#include "multipart/entry_codec.h"
#include "multipart/wsp_codes.h"
#include "platform/utility/ascii.h"
#include "platform/utility/common.h"
#include "platform/utility/tool.h"
#include "util/lowered.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

// The deepest nesting of multiparts: far more than phones send, and safe for a small stack.
constexpr int deepestMultipart = 16;

// The longest Content-Location that is read, in octets without the closing NUL. File names are shorter, and
// linking compares locations many times.
constexpr int longestLocation = 1024;

// The header's name on the wire, which includes its closing NUL.
constexpr char userPromptHeader[] = "X-Mms-UserPrompt";

/// Reads one entry. What the headers say about the data is kept until the data are read.
class EntryReader {
public:
    EntryReader(LinearBuffer* in, int depth, Charsets& charsets, MMS_COMP_SMILMultipartBodypart* part)
        : in_(in), depth_(depth), charsets_(charsets), part_(part) {}

    unsigned char read() {
        int headersLength = 0;
        int dataLength = 0;
        for (int* length : {&headersLength, &dataLength}) {
            const unsigned char result = UIntBinary::readFrom(in_, length);
            if (result != CODEC_READ)
                return result;
            if (*length < 0 || *length > in_->getLength())
                return CODEC_MALFORMED;
        }
        const int begin = in_->getPosition();
        unsigned char result = readContentType();
        while (result == CODEC_READ && in_->getPosition() - begin < headersLength)
            result = readHeader();
        return result == CODEC_READ ? readData(dataLength) : result;
    }

private:
    unsigned char readContentType();
    unsigned char readMediaType();
    unsigned char readParameters(int end);
    unsigned char readHeader();
    unsigned char readLocation();
    unsigned char readUserPrompt();
    unsigned char readData(int length);
    unsigned char storeData(const unsigned char* data, int length);

    LinearBuffer* in_;
    const int depth_;
    Charsets& charsets_;
    MMS_COMP_SMILMultipartBodypart* part_;
    int media_ = MEDIA_NONE;
    int charset_ = mibUtf8;
    bool hasBoundary_ = false;
};

unsigned char EntryReader::readContentType() {
    if (!in_->hasMore())
        return CODEC_MALFORMED;
    if (*in_->rest() >= firstTextOctet)
        return readMediaType();
    int length = 0;
    unsigned char result = ValueLengthBinary::readFrom(in_, &length);
    if (result != CODEC_READ)
        return result;
    if (length < 0 || length > in_->restLength())
        return CODEC_MALFORMED;
    const int end = in_->getPosition() + length;
    result = readMediaType(); // read even if the length is 0
    return result == CODEC_READ ? readParameters(end) : result;
}

/// Reads the media type, a number or a text, at the beginning of a content-type value.
unsigned char EntryReader::readMediaType() {
    if (!in_->hasMore())
        return CODEC_MALFORMED;
    if (*in_->rest() & shortIntegerBit) {
        media_ = in_->readByte() & ~shortIntegerBit;
        QString type, subType;
        MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(media_), type, subType);
        part_->setContentType(type);
        part_->setContentSubType(subType);
        return CODEC_READ;
    }
    QString format;
    const unsigned char result = PlainTextBinary::readFrom(in_, &format);
    if (result != CODEC_READ)
        return result;
    if (const qsizetype parameters = format.indexOf(';'); parameters >= 0)
        format.truncate(parameters);
    if (equalLowered(format, u"text/x-imelody"))
        format = QStringLiteral("audio/imelody");
    part_->setContentType(MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(format));
    part_->setContentSubType(MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(format));
    return CODEC_READ;
}

/// Reads the parameters behind the media type. None is begun at `end` or later, but one begun before it is
/// read whole: senders get the value's length wrong.
unsigned char EntryReader::readParameters(int end) {
    QString texts[2]; // read in turn: a name, its value
    bool isValue = false;
    unsigned char result = CODEC_READ;
    while (result == CODEC_READ && in_->getPosition() < end) {
        if (!in_->hasMore())
            return CODEC_MALFORMED;
        const unsigned char code = *in_->rest();
        if (code == PARAMETER_CHARSET) {
            in_->skip(1);
            result = IntegerBinary::readFrom(in_, &charset_);
        } else if (code == PARAMETER_NAME) {
            in_->skip(1);
            QString location = QStringLiteral("");
            result = PlainTextBinary::readFrom(in_, &location);
            // some senders begin a name with this text instead of a quote; one character is dropped at each
            // end
            if (location.startsWith(QLatin1String(")&&locStr.endsWith(")))
                location = location.sliced(1).chopped(1);
            part_->setContentLocation(location);
        } else {
            result = PlainTextBinary::readFrom(in_, &texts[isValue]);
            if (code == octetQuote) // belongs to these texts
                texts[isValue].prepend(QChar(octetQuote));
            if (isValue && texts[0].endsWith(QLatin1String("boundary")) && !texts[1].isEmpty()) {
                part_->setBoundary(texts[1]);
                hasBoundary_ = true;
            }
            isValue = !isValue;
        }
    }
    return result;
}

unsigned char EntryReader::readHeader() {
    if (!in_->hasMore())
        return CODEC_MALFORMED;
    const unsigned char code = *in_->rest();
    if (code == HEADER_CONTENT_LOCATION)
        return readLocation();
    if (code != HEADER_CONTENT_ID)
        return readUserPrompt();
    in_->skip(1);
    if (in_->hasMore() && *in_->rest() == textQuote)
        in_->skip(1);
    QString id = QStringLiteral("");
    const unsigned char result = PlainTextBinary::readFrom(in_, &id);
    part_->setContentID(id);
    return result;
}

unsigned char EntryReader::readLocation() {
    in_->skip(1);
    if (in_->hasMore() && *in_->rest() == octetQuote)
        in_->skip(1);
    const char* text = reinterpret_cast<const char*>(in_->rest());
    const int room = std::min(in_->restLength(), longestLocation + 1);
    const auto* end =
        room > 0 ? static_cast<const char*>(std::memchr(text, 0, static_cast<size_t>(room))) : nullptr;
    const int length = end ? static_cast<int>(end - text) : room;
    if (length > longestLocation)
        return CODEC_MALFORMED;
    // usually the same name as in the content type
    const QString name = part_->getContentLocation();
    if (name != QLatin1String(text, length) || !isAscii(name))
        part_->setContentLocation(QString::fromUtf8(text, length));
    in_->skip(end ? length + 1 : length);
    return end ? CODEC_READ : CODEC_MALFORMED;
}

/// Reads X-Mms-UserPrompt, or skips one octet of an unknown header. Unknown headers are skipped octet by
/// octet, so that the reader finds the next known one; octets inside them that look like a known header are
/// read as one.
unsigned char EntryReader::readUserPrompt() {
    constexpr int nameLength = sizeof userPromptHeader;
    const unsigned char* header = in_->rest();
    const int quote = *header == octetQuote ? 1 : 0;
    if (in_->restLength() < quote + nameLength ||
        std::memcmp(header + quote, userPromptHeader, static_cast<size_t>(nameLength)) != 0) {
        in_->skip(1);
        return CODEC_READ;
    }
    in_->skip(quote + nameLength);
    if (!in_->hasMore())
        return CODEC_MALFORMED;
    constexpr unsigned int flag = MMS_COMP_SMILMultipartBodypart::FLAG_USER_PROMPT;
    const unsigned int others = part_->getPartFlags() & ~flag;
    part_->setPartFlags(in_->readByte() == userPromptYes ? others | flag : others);
    return CODEC_READ;
}

unsigned char EntryReader::readData(int length) {
    const unsigned char* data = in_->skip(length);
    if (!data)
        return CODEC_MALFORMED;
    if (media_ != MEDIA_NESTED_MULTIPART || hasBoundary_)
        return storeData(data, length);
    if (depth_ == deepestMultipart)
        return CODEC_MALFORMED;
    LinearBuffer nested(const_cast<unsigned char*>(data), length); // is only read
    return readEntries(&nested, depth_ + 1, charsets_,
                       [this](auto part) { part_->setSubBody(part.release(), -1); });
}

unsigned char EntryReader::storeData(const unsigned char* data, int length) {
    const bool isText = equalLowered(part_->getContentType(), u"text");
    const char* octets = reinterpret_cast<const char*>(data);
    if (isText)
        MMS_UTIL_Tool::logOut(octets, length);
    int status = 0;
    if (auto text = bodyTextAsUtf8(data, length, charset_, charsets_)) {
        part_->getBodyData() = std::move(*text);
        part_->setSupport(MMS_COMP_SMILMultipartBodypart::SUPPORT_UNKNOWN);
    } else {
        const bool closed = media_ == MEDIA_TEXT_PLAIN && length > 1 && data[length - 1] == 0;
        status = part_->setBodyData(octets, closed ? length - 1 : length);
    }
    if (isText)
        MMS_UTIL_Tool::logOut(part_->getBodyData().data(), static_cast<int>(part_->getBodyData().size()));
    return status == 0 ? CODEC_READ : CODEC_MALFORMED;
}

} // namespace

unsigned char readEntry(LinearBuffer* in, int depth, Charsets& charsets,
                        MMS_COMP_SMILMultipartBodypart* part) {
    return EntryReader(in, depth, charsets, part).read();
}

unsigned char readEntries(LinearBuffer* in, int depth, Charsets& charsets, const PartReceiver& receive) {
    if (!in->hasMore())
        return CODEC_MALFORMED;
    for (int count = in->readByte(); count > 0; --count) {
        std::unique_ptr<MMS_COMP_SMILMultipartBodypart> part(new (std::nothrow)
                                                                 MMS_COMP_SMILMultipartBodypart);
        if (!part)
            return CODEC_REFUSED;
        const unsigned char result = readEntry(in, depth, charsets, part.get());
        if (result != CODEC_READ)
            return result;
        receive(std::move(part));
    }
    return CODEC_READ;
}
