#include "codec/ua_decoder.h"

#include "codec/codec_result.h"
#include "codec/header_fields.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "codec/ua_msg.h"

#include <algorithm>
#include <climits>

namespace {

/// Reads the name of a header without a known code. The code was read as an integer of one or more octets,
/// but only one octet is stepped back: the name begins there.
unsigned char readNamedHeader(LinearBuffer* buffer, const HeaderField** field) {
    buffer->rewind(1);
    QString name;
    const unsigned char result = PlainTextBinary::readFrom(buffer, &name);
    if (result != CODEC_READ)
        return result;
    const bool isDistribution = name == QLatin1StringView("X-Mms-Distribution-Allowed") ||
                                name == QLatin1StringView("X-Mms-Distribution-Indicator");
    *field = isDistribution ? headerField(FIELD_DISTRIBUTION_INDICATOR) : nullptr;
    return *field ? result : PlainTextBinary::readFrom(buffer, &name);
}

} // namespace

unsigned char MMS_UA_Decoder::decodeHeader(unsigned char* data, unsigned int& length, MMS_UA_UAMsg* msg) {
    if (!msg)
        return CODEC_NO_MESSAGE;
    msg->bodyStart = nullptr; // may point into octets of an earlier message
    msg->bodyLength = 0;
    LinearBuffer buffer(data, data ? static_cast<int>(std::min<unsigned int>(length, INT_MAX)) : 0);
    bool contentTypeSeen = false;
    int position = 0;
    int previous = 0;
    while (buffer.hasMore() && !contentTypeSeen) {
        int code = 0;
        unsigned char result = IntegerBinary::readFrom(&buffer, &code);
        if (result != CODEC_READ)
            return result;
        const HeaderField* field = headerField(code);
        if (!field) {
            result = readNamedHeader(&buffer, &field);
            if (result != CODEC_READ)
                return result;
            if (!field)
                continue;
            code = field->code;
        }
        contentTypeSeen = code == FIELD_CONTENT_TYPE;
        result = field->codec->readField(&buffer, msg);
        if (result != CODEC_READ)
            return result;
        if (code != previous) // repetitions of a field share a position
            ++position;
        msg->setFieldPosition(static_cast<unsigned char>(code),
                              static_cast<unsigned char>(std::min(position, UCHAR_MAX)));
        previous = code;
    }
    msg->bodyStart = data ? data + buffer.getPosition() : nullptr;
    msg->bodyLength = data ? length - static_cast<unsigned int>(buffer.getPosition()) : 0;
    return CODEC_READ;
}

FieldBase* MMS_UA_Decoder::selectReader(int code) {
    const HeaderField* field = headerField(code);
    return field ? field->create() : nullptr;
}
