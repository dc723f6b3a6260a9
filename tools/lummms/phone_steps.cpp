#include "tools/lummms/phone_steps.h"

#include "codec/codec_result.h"
#include "codec/header_fields.h"
#include "codec/integer_binary.h"
#include "codec/linear_buffer.h"
#include "codec/text_binary.h"
#include "codec/ua_msg.h"

namespace {

/// What stands where a field should begin and is not known, by its first octet. (The decoder takes the first
/// letter of a header by name for a length: the text that it then reads is another.)
QString unknownField(unsigned char octet) {
    const QString number = QString::number(octet, 16).toUpper().rightJustified(2, u'0');
    return QStringLiteral("%1 0x%2").arg(QLatin1String(octet & 0x80 ? "field" : "code"), number);
}

/// Reads a field like MMS_UA_Decoder.
PhoneStep nextStep(LinearBuffer& buffer, MMS_UA_UAMsg& scratch) {
    PhoneStep step{buffer.getPosition(), 0, -1, false, QString()};
    const unsigned char first = *buffer.rest();
    int code = 0;
    QString name;
    unsigned char result = IntegerBinary::readFrom(&buffer, &code);
    const HeaderField* field = headerField(code);
    if (result == CODEC_READ && !field) {
        buffer.rewind(1);
        result = PlainTextBinary::readFrom(&buffer, &name);
        if (name == u"X-Mms-Distribution-Allowed" || name == u"X-Mms-Distribution-Indicator")
            field = headerField(FIELD_DISTRIBUTION_INDICATOR);
        else if (QString value; result == CODEC_READ)
            result = PlainTextBinary::readFrom(&buffer, &value);
    }
    if (result == CODEC_READ && field)
        result = field->codec->readField(&buffer, &scratch);
    step.code = field ? field->code : -1;
    step.asWritten = field ? QString::fromLatin1(field->name) : unknownField(first);
    step.isRead = result == CODEC_READ;
    step.end = buffer.getPosition();
    return step;
}

} // namespace

QList<PhoneStep> phoneSteps(QArray<char> octets) {
    QList<PhoneStep> steps;
    MMS_UA_UAMsg scratch;
    LinearBuffer buffer(reinterpret_cast<unsigned char*>(octets.data()), static_cast<int>(octets.size()));
    while (buffer.hasMore() &&
           (steps.isEmpty() || (steps.last().isRead && steps.last().code != FIELD_CONTENT_TYPE)))
        steps += nextStep(buffer, scratch);
    return steps;
}
