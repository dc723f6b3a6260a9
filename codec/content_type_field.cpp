#include "codec/content_type_field.h"

#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "codec/ua_msg.h"
#include "platform/utility/ascii.h"
#include "platform/utility/common.h"

#include <QStringBuilder>

#include <cstring>
#include <iterator>
#include <utility>

namespace {

constexpr unsigned char relatedMultipart = 0x33; // application/vnd.wap.multipart.related
constexpr unsigned char typeToken = 0x09;        // WSP well-known parameters
constexpr unsigned char startToken = 0x0A;
constexpr unsigned char doubleQuote = 0x22;
constexpr unsigned char strayOctet = 0xC2; // some senders write the media octet B3 as UTF-8: C2 B3

constexpr QLatin1StringView applicationId("Application-ID");
constexpr QLatin1StringView replyApplicationId("Reply-To-Application-ID");
constexpr QLatin1StringView distributionIndicator("DistributionIndicator");
/// The parameters recognised by name, in their order in the parameter text.
constexpr QLatin1StringView namedParameters[] = {applicationId, replyApplicationId, distributionIndicator};

QString valueOf(const QString& params, const QString& key) {
    const auto at = params.indexOf(key);
    if (at < 0)
        return QString();
    const auto begin = at + key.size();
    const auto end = params.indexOf(';', at);
    return params.mid(begin, end < 0 ? -1 : end - begin);
}

int utf8Size(const QString& text) {
    const QStringView sent = upToZero(text);
    return static_cast<int>(isAscii(sent) ? sent.size() : sent.toUtf8().size());
}

/// A content type split into what is encoded.
struct WireType {
    explicit WireType(const MMS_CONTENT_TYPE_T& type)
        : code(MMS_UTIL_Common::mimeTypeGetValue(type.type, type.subType)),
          isShort(!isRelated() && type.parameters.isEmpty()) {
        if (type.parameters.contains(u'-')) { // both parameter names have a "-"
            appId = ContentTypeField::appIDOf(type.parameters);
            replyId = ContentTypeField::replyAppIDOf(type.parameters);
        }
        if (!isRelated())
            return;
        mprt = ContentTypeField::mprtOf(type.parameters);
        start = ContentTypeField::startOf(type.parameters);
    }

    bool isRelated() const { return code == relatedMultipart; }

    /// The Value-length. Quote octets in front of the texts are not counted.
    int announcedLength() const {
        int length = 1;
        if (isRelated())
            length += utf8Size(mprt) + utf8Size(start) + 4; // plus two tokens and two closing zeros
        if (!appId.isEmpty())
            length += utf8Size(appId) + static_cast<int>(applicationId.size()) + 2;
        if (!replyId.isEmpty())
            length += utf8Size(replyId) + static_cast<int>(replyApplicationId.size()) + 2;
        return length;
    }

    unsigned char code;
    bool isShort;
    QString mprt, start, appId, replyId;
};

/// Reads the parameters of a content-type value.
class ParameterReader {
public:
    ParameterReader(LinearBuffer* buffer, int octets) : buffer_(buffer), left_(octets) {}

    unsigned char read(unsigned char result) {
        while (left_ > 0) {
            if (!buffer_->hasMore())
                return CODEC_MALFORMED;
            const unsigned char token = *buffer_->rest() & 0x7F;
            --left_;
            if (token == typeToken) {
                buffer_->skip(1);
                result = readText(&type_);
            } else if (token == startToken) {
                buffer_->skip(1);
                if (!buffer_->hasMore())
                    return CODEC_MALFORMED;
                if (*buffer_->rest() == doubleQuote) {
                    buffer_->skip(1);
                    --left_;
                }
                result = readText(&start_);
            } else {
                result = readNamed();
            }
        }
        complete_ = true;
        return result;
    }

    /// Stores the parameters as text; nothing without parameters or when the input ended inside them.
    void store(QString* params) const {
        if (!complete_)
            return;
        if (!type_.isEmpty() || !start_.isEmpty())
            *params = QLatin1StringView("type=") % type_ % QLatin1StringView(";start=") % start_;
        for (size_t i = 0; i < std::size(named_); ++i) {
            if (named_[i].isEmpty())
                continue;
            if (!params->isEmpty())
                *params += ';';
            *params += namedParameters[i] + '=' + named_[i];
        }
    }

private:
    unsigned char readText(QString* text) {
        *text = QString();
        const unsigned char result = PlainTextBinary::readFrom(buffer_, text);
        left_ -= text->size() + 1;
        return result;
    }

    /// Reads a parameter given by name. Of an unknown one a single octet is skipped, and counted twice: as a
    /// token and as the first octet of a name.
    unsigned char readNamed() {
        const int begin = buffer_->getPosition();
        if (nameEnd_ < begin) // the name's end is searched once, not from each octet
            findNameEnd();
        const bool quoted = *buffer_->rest() == 0x7F;
        const QLatin1StringView name(reinterpret_cast<const char*>(buffer_->rest()) + (quoted ? 1 : 0),
                                     nameEnd_ - begin - (quoted ? 1 : 0));
        const bool closed = nameEnd_ < buffer_->getLength();
        for (size_t i = 0; closed && i < std::size(named_); ++i)
            if (name == namedParameters[i]) {
                left_ -= name.size() + 1;
                buffer_->skip(nameEnd_ + 1 - begin);
                return readText(&named_[i]);
            }
        if (!name.isEmpty())
            --left_;
        buffer_->skip(1);
        return closed ? CODEC_READ : CODEC_MALFORMED;
    }

    void findNameEnd() {
        const void* zero = std::memchr(buffer_->rest(), 0, static_cast<size_t>(buffer_->restLength()));
        nameEnd_ = zero ? static_cast<int>(static_cast<const unsigned char*>(zero) - buffer_->getData())
                        : buffer_->getLength();
    }

    LinearBuffer* buffer_;
    long long left_;
    int nameEnd_ = -1;
    bool complete_ = false;
    QString type_, start_, named_[std::size(namedParameters)];
};

} // namespace

QString ContentTypeField::mprtOf(const QString& params) {
    return valueOf(params, QStringLiteral("type="));
}
QString ContentTypeField::startOf(const QString& params) {
    return valueOf(params, QStringLiteral("start="));
}
QString ContentTypeField::appIDOf(const QString& params) {
    return valueOf(params, QStringLiteral("Application-ID="));
}
QString ContentTypeField::replyAppIDOf(const QString& params) {
    return valueOf(params, QStringLiteral("Reply-To-Application-ID="));
}

unsigned char ContentTypeField::readFrom(LinearBuffer* buffer, MMS_CONTENT_TYPE_T* out) {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    const unsigned char first = *buffer->rest();
    if (first > 0x80) { // 0x80 itself is read as a Value-length of 128
        buffer->skip(1);
        MMS_UTIL_Common::mimeTypeGetName(first & 0x7F, out->type, out->subType);
        return CODEC_READ;
    }
    int length = 0;
    const unsigned char result = ValueLengthBinary::readFrom(buffer, &length);
    if (result != CODEC_READ || length < 0 || !buffer->hasMore())
        return CODEC_MALFORMED;
    unsigned char media = buffer->readByte();
    if (media == strayOctet) {
        if (!buffer->hasMore())
            return CODEC_MALFORMED;
        media = buffer->readByte();
    }
    MMS_UTIL_Common::mimeTypeGetName(media & 0x7F, out->type, out->subType);
    if (!buffer->hasMore())
        return result;
    if (*buffer->rest() == strayOctet)
        buffer->skip(1);
    ParameterReader parameters(buffer, length - 1);
    const unsigned char read = parameters.read(result);
    parameters.store(&out->parameters);
    return read;
}

unsigned char ContentTypeField::writeTo(LinearBuffer* buffer, const MMS_CONTENT_TYPE_T& contentType) {
    const unsigned char result = IntegerBinary::writeTo(buffer, FIELD_CONTENT_TYPE);
    const WireType wire(contentType);
    const auto media = static_cast<unsigned char>(wire.code + 0x80);
    if (wire.isShort) {
        buffer->appendByte(media);
        return result;
    }
    ValueLengthBinary::writeTo(buffer, wire.announcedLength());
    buffer->appendByte(media);
    if (wire.isRelated()) {
        buffer->appendByte(startToken | 0x80); // "start" comes before "type", as receiving phones expect
        PlainTextBinary::writeTo(buffer, wire.start);
        buffer->appendByte(typeToken | 0x80);
        PlainTextBinary::writeTo(buffer, wire.mprt);
    }
    for (const auto& [name, value] :
         {std::pair{applicationId, wire.appId}, {replyApplicationId, wire.replyId}})
        if (!value.isEmpty()) {
            PlainTextBinary::writeTo(buffer, name);
            PlainTextBinary::writeTo(buffer, value);
        }
    return result;
}

int ContentTypeField::sizeOf(const MMS_CONTENT_TYPE_T& contentType) {
    const WireType wire(contentType);
    if (wire.isShort)
        return 1;
    int size = ValueLengthBinary::sizeOf(wire.announcedLength()) + 1;
    if (wire.isRelated())
        size += 2 + PlainTextBinary::sizeOf(wire.start) + PlainTextBinary::sizeOf(wire.mprt);
    for (const auto& [name, value] :
         {std::pair{applicationId, wire.appId}, {replyApplicationId, wire.replyId}})
        if (!value.isEmpty())
            size += PlainTextBinary::sizeOf(name) + PlainTextBinary::sizeOf(value);
    return size;
}

unsigned char ContentTypeField::readField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    MMS_CONTENT_TYPE_T contentType;
    const unsigned char result = readFrom(buffer, &contentType);
    msg->setContentType(std::move(contentType));
    return result;
}

unsigned char ContentTypeField::writeField(LinearBuffer* buffer, MMS_UA_UAMsg* msg) const {
    return writeTo(buffer, msg->getContentType());
}

int ContentTypeField::fieldSize(MMS_UA_UAMsg* msg) const {
    return 1 + sizeOf(msg->getContentType());
}
