#include "codec/text_binary.h"

#include "codec/codec_result.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "platform/utility/ascii.h"

#include <QByteArray>

#include <algorithm>
#include <cstring>

namespace {

constexpr unsigned char quote = 127;
constexpr int utf8Mib = 106;

/// A text in UTF-8 without its closing zero. ASCII, the usual case, is not converted first.
class WireText {
public:
    explicit WireText(QStringView text)
        : text_(text), utf8_(isAscii(text) ? QByteArray() : text.toUtf8()),
          quoted_(!utf8_.isEmpty() && (utf8_.at(0) & 0x80)) {}

    int size() const {
        return static_cast<int>(utf8_.isNull() ? text_.size() : utf8_.size()) + (quoted_ ? 1 : 0);
    }

    void appendTo(LinearBuffer* buffer) const {
        if (quoted_)
            buffer->appendByte(quote);
        if (utf8_.isNull())
            appendAscii(buffer);
        else
            buffer->appendData(reinterpret_cast<const unsigned char*>(utf8_.constData()),
                               static_cast<int>(utf8_.size()));
        buffer->appendByte(0);
    }

private:
    void appendAscii(LinearBuffer* buffer) const {
        if (unsigned char* octets = buffer->claim(static_cast<int>(text_.size())))
            std::transform(text_.begin(), text_.end(), octets,
                           [](QChar c) { return static_cast<unsigned char>(c.unicode()); });
    }

    QStringView text_;
    QByteArray utf8_; // null when the text is ASCII
    bool quoted_;
};

} // namespace

unsigned char PlainTextBinary::readFrom(LinearBuffer* buffer, QString* out) {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    const unsigned char* begin = buffer->rest();
    const int left = buffer->restLength();
    const void* zero = std::memchr(begin, 0, static_cast<size_t>(left));
    const int length = zero ? static_cast<int>(static_cast<const unsigned char*>(zero) - begin) : left;
    buffer->skip(zero ? length + 1 : length);
    const int dropped = length > 0 && *begin == quote ? 1 : 0;
    *out = QString::fromLatin1(reinterpret_cast<const char*>(begin) + dropped, length - dropped);
    return zero ? CODEC_READ : CODEC_MALFORMED;
}

unsigned char PlainTextBinary::writeTo(LinearBuffer* buffer, const QString& text) {
    // text behind a zero would be read as further header fields: a received text could add recipients to a
    // reply
    WireText(upToZero(text)).appendTo(buffer);
    return CODEC_WRITTEN;
}

int PlainTextBinary::sizeOf(const QString& text) {
    return WireText(upToZero(text)).size() + 1;
}

unsigned char EncodedStringBinary::readFrom(LinearBuffer* buffer, QString* out) {
    if (!buffer->hasMore())
        return CODEC_MALFORMED;
    const unsigned char first = *buffer->rest();
    if (first == 0 || (first >= 32 && first <= 127))
        return PlainTextBinary::readFrom(buffer, out);

    int count = 0;
    unsigned char result = ValueLengthBinary::readFrom(buffer, &count);
    if (result != CODEC_READ)
        return result;
    const int charsetAt = buffer->getPosition();
    int charset = 0;
    result = IntegerBinary::readFrom(buffer, &charset);
    if (result != CODEC_READ)
        return result;
    if (count < 0)
        return CODEC_MALFORMED;
    count -= buffer->getPosition() - charsetAt;
    const unsigned char* block = buffer->skip(count); // null for a negative count too
    if (!block)
        return CODEC_MALFORMED;

    const unsigned char* text = block;
    if (count > 0 && *text == quote) {
        ++text;
        --count;
    }
    // Behind a Quote this looks one octet too early: the closing zero stays in the text.
    if (count > 0 && block[count - 1] == 0)
        --count;
    // Only the charset 0xEA in its long form (01 EA) selects UTF-8. The short form, which senders use, is
    // read as 106 and selects the locale's charset.
    const char* octets = reinterpret_cast<const char*>(text);
    *out = charset == 0xEA ? QString::fromUtf8(octets, count) : QString::fromLocal8Bit(octets, count);
    return CODEC_READ;
}

unsigned char EncodedStringBinary::writeTo(LinearBuffer* buffer, const QString& text) {
    const WireText wire(text);
    ValueLengthBinary::writeTo(buffer, wire.size() + 2); // plus the charset and the closing zero
    IntegerBinary::writeTo(buffer, utf8Mib);
    wire.appendTo(buffer);
    return CODEC_WRITTEN;
}

int EncodedStringBinary::sizeOf(const QString& text) {
    const int size = WireText(text).size() + 2;
    return ValueLengthBinary::sizeOf(size) + size;
}
