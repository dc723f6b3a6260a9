#include "codec/header_fields.h"
#include "codec/message_kinds.h"
#include "multipart/body_part.h"
#include "smil/model/words.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"

#include <QCryptographicHash>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

/// A header field's key and value.
struct FieldKey {
    FIELD_CODE code;
    const char* key;
    QJsonValue (*value)(Header header);
};

/// The Date has no key: the decoder puts the moment of reading in its place.
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

QJsonObject headerJson(Header header) {
    QJsonObject json;
    for (const FieldKey& field : FIELD_KEYS)
        if (header.fieldsPresent(presenceBit(field.code)))
            json.insert(QLatin1String(field.key), field.value(header));
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

QJsonObject partJson(const MMS_COMP_SMILMultipartBodypart& part) {
    const QArray<char>& octets = part.getBodyData();
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArrayView(octets.data(), octets.size()));
    QJsonArray subBodies;
    for (int i = 0; i < part.getSubBodyCount(); ++i)
        subBodies += partJson(*part.getSubBody(static_cast<unsigned int>(i)));
    return {
        {"contentType", part.getContentType()},
        {"subType", part.getSubType()},
        {"contentId", part.getContentID()},
        {"contentLocation", part.getContentLocation()},
        {"displayFileName", part.getDispFileName()},
        {"displayFileType", part.getDispFileType()},
        {"boundary", part.getBoundary()},
        {"userPrompt", (part.getPartFlags() & MMS_COMP_SMILMultipartBodypart::FLAG_USER_PROMPT) != 0},
        {"refCount", part.getRefCount()},
        {"size", qint64(octets.size())},
        {"sha256", QString::fromLatin1(hash.result().toHex())},
        {"subBodies", subBodies},
    };
}

QJsonObject bodyJson(Message& message) {
    QJsonArray parts;
    for (int i = 0; i < message.body.getPartCount(); ++i)
        parts += partJson(*message.body.getBodypartByIndex(i, false));
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

} // namespace

QJsonObject toJson(Message& message) {
    const bool sent = message.reading() == READING_SENT;
    QJsonObject json{{"reading", sent ? QStringLiteral("sent") : QStringLiteral("phone")},
                     {"result", message.result},
                     {"header", headerJson(message.header)}};
    if (message.result == 0) {
        json.insert("bodyOffset", message.bodyOffset());
        json.insert("bodyLength", qint64(message.header.bodyLength));
    }
    if (message.hasBody)
        json.insert("body", bodyJson(message));
    message.readPresentation();
    if (message.smilPart)
        json.insert("presentation", presentationJson(message));
    return json;
}

QByteArray messageForProgram(Message& message) {
    return QJsonDocument(toJson(message)).toJson();
}
