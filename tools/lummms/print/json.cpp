#include "tools/lummms/print/json.h"
#include "codec/header_fields.h"
#include "codec/message_kinds.h"
#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "wire/fields.h"

#include <QCryptographicHash>
#include <QHash>

#include <algorithm>
#include <limits>

namespace {

using Header = const MMS_UA_UAMsg&;
using PartIndex = QHash<const MMS_COMP_SMILMultipartBodypart*, int>;

QJsonValue jsonOf(const MMS_UTIL_Entry& entry) {
    return QJsonObject{{"name", entry.getName()}, {"type", entry.getType()}, {"address", entry.getAddress()}};
}

QJsonValue jsonOf(const QPtrList<MMS_UTIL_Entry>& entries) {
    QJsonArray array;
    for (const MMS_UTIL_Entry* entry : entries)
        array += jsonOf(*entry);
    return array;
}

QJsonValue jsonOf(const MMS_CONTENT_TYPE_T& type) {
    return QJsonObject{{"type", type.type}, {"subType", type.subType}, {"parameters", type.parameters}};
}

/// The key and value of a header field.
struct FieldKey {
    FIELD_CODE code;
    const char* key;
    QJsonValue (*value)(Header header);
};

/// Date has no key: the decoder replaces it by the time of reading.
constexpr FieldKey FIELD_KEYS[] = {
    {FIELD_MESSAGE_TYPE, "messageType", [](Header h) { return QJsonValue(h.messageType); }},
    {FIELD_TRANSACTION_ID, "transactionId", [](Header h) { return QJsonValue(h.getTransactionId()); }},
    {FIELD_MMS_VERSION, "version",
     [](Header h) { return QJsonValue(QStringLiteral("%1.%2").arg(h.version >> 4).arg(h.version & 0x0F)); }},
    {FIELD_FROM, "from", [](Header h) { return jsonOf(h.getFrom()); }},
    {FIELD_TO, "to", [](Header h) { return jsonOf(h.getTo()); }},
    {FIELD_CC, "cc", [](Header h) { return jsonOf(h.getCc()); }},
    {FIELD_BCC, "bcc", [](Header h) { return jsonOf(h.getBcc()); }},
    {FIELD_SUBJECT, "subject", [](Header h) { return QJsonValue(h.getSubject()); }},
    {FIELD_MESSAGE_ID, "messageId", [](Header h) { return QJsonValue(h.getMsgID()); }},
    {FIELD_MESSAGE_CLASS, "messageClass", [](Header h) { return QJsonValue(h.messageClass); }},
    {FIELD_PRIORITY, "priority", [](Header h) { return QJsonValue(h.getPriority()); }},
    {FIELD_STATUS, "status", [](Header h) { return QJsonValue(h.status); }},
    {FIELD_RESPONSE_STATUS, "responseStatus", [](Header h) { return QJsonValue(h.responseStatus); }},
    {FIELD_RESPONSE_TEXT, "responseText", [](Header h) { return QJsonValue(h.getResponseText()); }},
    {FIELD_MESSAGE_SIZE, "messageSize", [](Header h) { return QJsonValue(h.getMsgSize()); }},
    {FIELD_CONTENT_LOCATION, "contentLocation", [](Header h) { return QJsonValue(h.getMsgURI()); }},
    {FIELD_DELIVERY_TIME, "deliveryTime",
     [](Header h) {
         return QJsonValue(h.getDeliveryTime().toLocalTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")));
     }},
    {FIELD_EXPIRY, "expiry", [](Header h) { return QJsonValue(qint64(h.getExpireTime())); }},
    {FIELD_SENDER_VISIBILITY, "senderVisibility",
     [](Header h) { return QJsonValue(h.getSenderVisibility()); }},
    {FIELD_DELIVERY_REPORT, "deliveryReport",
     [](Header h) { return QJsonValue(h.getDeliveryReportNecessity()); }},
    {FIELD_READ_REPLY, "readReply", [](Header h) { return QJsonValue(h.getReadReplyNecessity()); }},
    {FIELD_REPORT_ALLOWED, "reportAllowed", [](Header h) { return QJsonValue(h.getReportAllowed()); }},
    {FIELD_DISTRIBUTION_INDICATOR, "distributionIndicator",
     [](Header h) { return QJsonValue(h.getDistributionInd()); }},
    {FIELD_CONTENT_TYPE, "contentType", [](Header h) { return jsonOf(h.getContentType()); }},
};

/// A field sent as duration or as date, with the key for each.
struct TimeKeys {
    FIELD_CODE code;
    const char* span;
    const char* moment;
};

constexpr TimeKeys TIME_KEYS[] = {
    {FIELD_DELIVERY_TIME, "deliveryDelay", "deliveryTime"},
    {FIELD_EXPIRY, "expiry", "expiryTime"},
};

QJsonObject headerFields(Header header) {
    QJsonObject json;
    for (const FieldKey& field : FIELD_KEYS)
        if (header.fieldsPresent(presenceBit(field.code)))
            json.insert(QLatin1String(field.key), field.value(header));
    return json;
}

/// The header as sent.
QJsonObject sentHeaderJson(const Message& message) {
    QJsonObject json = headerFields(message.header);
    for (const TimeKeys& keys : TIME_KEYS) {
        json.remove(QLatin1String(keys.span));
        json.remove(QLatin1String(keys.moment));
        if (!message.header.fieldsPresent(presenceBit(keys.code)))
            continue;
        const MMS_WIRE_Item time = message.wire().field(keys.code);
        if (time.kind() == MMS_WIRE_Item::TIME)
            json.insert(QLatin1String(keys.moment), time.text());
        else
            json.insert(QLatin1String(keys.span), static_cast<qint64>(time.number()));
    }
    const MMS_WIRE_MessageType* type = wireMessageType(message.wire().messageType());
    if (type)
        json.insert("messageTypeName", QString::fromLatin1(type->name));
    json.insert("mandatoryFieldsPresent", message.wire().missingFields().isEmpty());
    json.insert("fieldOrderCorrect", message.wire().isFieldOrderCorrect());
    return json;
}

/// The header in the phone's reading.
QJsonObject phoneHeaderJson(Header header) {
    QJsonObject json = headerFields(header);
    const MessageKind* kind = messageKind(header.messageType);
    if (kind && header.fieldsPresent(presenceBit(FIELD_MESSAGE_TYPE)))
        json.insert("messageTypeName", QString::fromLatin1(kind->name));
    QJsonObject positions;
    for (unsigned char code = 0; code <= 25; ++code)
        if (const HeaderField* field = headerField(code); field && header.getFieldPosition(code))
            positions.insert(QLatin1String(field->name), header.getFieldPosition(code));
    json.insert("positions", positions);
    json.insert("present", qint64(header.present));
    json.insert("mandatoryFieldsPresent", header.mandatoryFldsPresentInPDU());
    json.insert("fieldOrderCorrect", header.pduOrderCheck());
    return json;
}

QByteArray sha256(QByteArrayView octets) {
    return QCryptographicHash::hash(octets, QCryptographicHash::Sha256).toHex();
}

/// A part, with its properties as sent where `sent` is not null.
QJsonObject partJson(const MMS_COMP_SMILMultipartBodypart& part, const MMS_WIRE_Part* sent) {
    const QByteArray decoded = sent ? sent->payload() : QByteArray();
    const QArray<char>& kept = part.getBodyData();
    const QByteArrayView payload = sent ? QByteArrayView(decoded) : QByteArrayView(kept.data(), kept.size());
    const QList<MMS_WIRE_Part> inside = sent ? sent->parts() : QList<MMS_WIRE_Part>();
    QJsonArray subBodies;
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        subBodies += partJson(*part.getSubBody(static_cast<unsigned int>(i)),
                              i < inside.size() ? &inside.at(i) : nullptr);
    QJsonObject json{
        {"contentType", part.getContentType()},
        {"subType", part.getSubType()},
        {"contentId", part.getContentID()},
        {"contentLocation", part.getContentLocation()},
        {"displayFileName", part.getDispFileName()},
        {"displayFileType", part.getDispFileType()},
        {"boundary", part.getBoundary()},
        {"userPrompt", (part.getPartFlags() & MMS_COMP_SMILMultipartBodypart::FLAG_USER_PROMPT) != 0},
        {"refCount", part.getRefCount()},
        {"size", qint64(payload.size())},
        {"sha256", QString::fromLatin1(sha256(payload))},
        {"subBodies", subBodies},
    };
    if (sent) {
        json.insert("charset", sent->charset());
        json.insert("transferEncoding", sent->transferEncoding());
        json.insert("disposition", sent->disposition());
        json.insert("wireSize", sent->wireSize());
    }
    return json;
}

QJsonObject bodyJson(Message& message) {
    const QList<MMS_WIRE_Part> sent = message.wire().parts();
    QJsonArray parts;
    for (int i = 0; i < message.body.getPartCount(); ++i)
        parts +=
            partJson(*message.body.getBodypartByIndex(i, false), i < sent.size() ? &sent.at(i) : nullptr);
    return {
        {"status", message.bodyStatus},
        {"start", message.body.getStart()},
        {"extType", message.body.getExtType()},
        {"otherParameters", message.body.getOtherContentTypeParam()},
        {"parts", parts},
    };
}

QJsonObject timeJson(const MMS_COMP_SMIL_TIME& time) {
    return {{"type", time.type}, {"id", time.id}, {"value", time.value}};
}

QJsonObject objectJson(const MMS_COMP_SMILMediaObject& object, const PartIndex& indexOf) {
    const MediaKind* kind = mediaKindOfType(object.getMediaElementType());
    const auto part = indexOf.constFind(object.getData());
    QJsonArray params;
    for (int i = 0; i < object.getParamCount(); ++i) {
        const MMS_COMP_SMILMediaObjectParam& param = *object.getParam(i);
        params += QJsonObject{{"name", param.getName()},
                              {"value", param.getValue()},
                              {"valueType", param.getValueType()},
                              {"refValueType", param.getRefValueType()}};
    }
    return {
        {"kind", kind ? QString(kind->tag) : QStringLiteral("other")},
        {"src", object.getSrc()},
        {"alt", object.getAlt()},
        {"region", object.getRegionId()},
        {"part", part == indexOf.constEnd() ? QJsonValue(QJsonValue::Null) : QJsonValue(*part)},
        {"begin", timeJson(*object.getBegin())},
        {"end", timeJson(*object.getEnd())},
        {"params", params},
    };
}

QJsonArray slidesJson(Message& message) {
    PartIndex indexOf;
    for (int i = 0; i < message.body.getPartCount(); ++i)
        indexOf.insert(message.body.getBodypartByIndex(i, false), i);
    QJsonArray slides;
    for (int i = 0; i < message.presentation->getTotalSlidesNum(); ++i) {
        const MMS_COMP_SMILTimingContainer& slide = *message.presentation->getSlide(i);
        QJsonArray objects;
        for (const MMS_COMP_SMILMediaObject* object : slide)
            objects += objectJson(*object, indexOf);
        slides += QJsonObject{{"duration", slide.getDur()}, {"objects", objects}};
    }
    return slides;
}

QJsonValue rootLayoutJson(const MMS_COMP_SMILRootLayout* layout) {
    if (!layout)
        return QJsonValue::Null;
    const MMS_COMP_COLOR& color = *layout->getBackgroundColor();
    const bool given = color.kind == MMS_COMP_COLOR_NAMED || color.kind == MMS_COMP_COLOR_NUMERIC;
    return QJsonObject{{"width", layout->getWidth()},
                       {"height", layout->getHeight()},
                       {"background", given ? QJsonValue(color.color.name()) : QJsonValue(QJsonValue::Null)}};
}

QJsonObject regionJson(const MMS_COMP_SMILRegion& region) {
    const QString fit = fitWord(region.getFit());
    return {
        {"id", region.getId()},
        {"left", double(region.getLeft())},
        {"top", double(region.getTop())},
        {"width", double(region.getWidth())},
        {"height", double(region.getHeight())},
        {"fit", fit.isEmpty() ? QStringLiteral("other") : fit},
    };
}

QJsonObject presentationJson(Message& message) {
    const MMS_COMP_SMILData& presentation = *message.presentation;
    QJsonArray metas;
    for (int i = 0; i < presentation.getMetaCount(); ++i)
        metas += QJsonObject{{"name", presentation.getMeta(i)->getName()},
                             {"content", presentation.getMeta(i)->getContent()}};
    QJsonArray regions;
    for (int i = 0; i < presentation.getRegionCount(); ++i)
        regions += regionJson(*presentation.getRegion(static_cast<unsigned int>(i)));
    const bool percent = presentation.getLayoutMeasureUnit() == MMS_COMP_SMIL_UNIT_PERCENT;
    return {
        {"status", message.smilStatus},
        {"warning", message.smilWarning},
        {"unit", percent ? QStringLiteral("%") : QStringLiteral("px")},
        {"metas", metas},
        {"rootLayout", rootLayoutJson(presentation.getRootLayout())},
        {"regions", regions},
        {"slides", slidesJson(message)},
    };
}

/// A field that the record cannot hold.
QJsonObject otherFieldJson(const MMS_WIRE_Item& field) {
    QJsonObject json{{"name", field.name()}};
    if (field.code() >= 0)
        json.insert("code", field.code());
    if (field.hasNumber())
        json.insert("value", numberJson(field));
    if (const QString text = field.text(); !text.isEmpty())
        json.insert("text", text);
    return json;
}

QJsonArray otherFieldsJson(const Message& message) {
    QJsonArray fields;
    for (const MMS_WIRE_Item& field : message.otherFields)
        fields += otherFieldJson(field);
    return fields;
}

/// Replaces half surrogate pairs by U+FFFD: QJsonDocument writes them as escapes that strict readers reject.
void replaceHalfPairs(QByteArray& json) {
    for (qsizetype at = json.indexOf('\\'); at >= 0; at = json.indexOf('\\', at + 2))
        if (at + 6 <= json.size() && json[at + 1] == 'u' && json[at + 2] == 'd' && json[at + 3] >= '8')
            json.replace(at + 2, 4, "fffd");
}

constexpr int MOST_INDENTED = 1000; // parts; nested ones would be indented by far more than they contain

int countParts(const QJsonArray& parts) {
    int count = 0;
    for (const QJsonValue& part : parts)
        count += 1 + countParts(part["subBodies"].toArray());
    return count;
}

} // namespace

QJsonValue numberJson(const MMS_WIRE_Item& item) {
    constexpr quint64 largest = std::numeric_limits<qint64>::max();
    return static_cast<qint64>(std::min(item.number(), largest));
}

QJsonObject remarkJson(qint64 offset, const char* severity, const QString& what) {
    QJsonObject json{{"severity", severity}, {"what", what}};
    if (offset >= 0)
        json.insert("offset", offset);
    return json;
}

QJsonArray problemsJson(const QList<Problem>& problems) {
    QJsonArray array;
    for (const Problem& problem : problems)
        array += remarkJson(problem.offset, problem.severity == SEVERITY_PROBLEM ? "problem" : "note",
                            problem.what);
    return array;
}

QByteArray jsonText(const QJsonObject& json, QJsonDocument::JsonFormat format) {
    QByteArray text = QJsonDocument(json).toJson(format);
    replaceHalfPairs(text);
    return text;
}

QJsonObject toJson(Message& message) {
    const bool sent = message.reading() == READING_SENT;
    QJsonObject json{{"reading", sent ? QStringLiteral("sent") : QStringLiteral("phone")},
                     {"header", sent ? sentHeaderJson(message) : phoneHeaderJson(message.header)}};
    if (message.result == 0) {
        json.insert("bodyOffset", message.bodyOffset());
        json.insert("bodyLength", message.bodyLength());
    }
    if (message.hasBody)
        json.insert("body", bodyJson(message));
    message.readPresentation();
    if (message.smilPart)
        json.insert("presentation", presentationJson(message));
    if (!sent) {
        json.insert("result", message.result);
        return json;
    }
    if (message.header.fieldsPresent(presenceBit(FIELD_DATE)))
        json.insert("date", message.header.getSendTime().toUTC().toString(Qt::ISODate));
    json.insert("otherFields", otherFieldsJson(message));
    json.insert("problems", problemsJson(message.problems()));
    return json;
}

QByteArray messageForProgram(Message& message) {
    const QJsonObject json = toJson(message);
    const bool isLarge = countParts(json["body"]["parts"].toArray()) > MOST_INDENTED;
    return jsonText(json, isLarge ? QJsonDocument::Compact : QJsonDocument::Indented) + (isLarge ? "\n" : "");
}
