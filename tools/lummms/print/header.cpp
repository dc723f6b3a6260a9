#include "codec/header_fields.h"
#include "codec/message_kinds.h"
#include "tools/lummms/message.h"
#include "tools/lummms/phone_steps.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "wire/fields.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

QString kindOf(const Message& message) {
    const int type = message.header.messageType;
    const MessageKind* known = messageKind(message.header.messageType);
    const MMS_WIRE_MessageType* sent =
        message.reading() == READING_SENT ? wireMessageType(message.wire().messageType()) : nullptr;
    const char* name = sent ? sent->name : known ? known->name : nullptr;
    return name ? QString::fromLatin1(name) : QStringLiteral("unknown (%1)").arg(type);
}

QString versionOf(const MMS_UA_UAMsg& header) {
    return QStringLiteral("%1.%2").arg(header.version >> 4).arg(header.version & 0x0F);
}

QString addressLine(const MMS_UTIL_Entry& entry) {
    if (entry.isEmpty())
        return QStringLiteral("(no address)");
    const QString kind = entry.getType() == MMS_UTIL_Entry::PLMN ? QStringLiteral("phone number")
                         : entry.getType() == MMS_UTIL_Entry::EMAIL
                             ? QStringLiteral("e-mail address")
                             : QStringLiteral("neither phone nor e-mail");
    const QString name = printable(entry.getName()).trimmed();
    const QString address = printable(entry.getAddress());
    return QStringLiteral("%1 (%2)").arg(
        name.isEmpty() ? address : QStringLiteral("%1 <%2>").arg(name, address), kind);
}

QStringList addressLines(const QPtrList<MMS_UTIL_Entry>& entries) {
    QStringList lines;
    for (const MMS_UTIL_Entry* entry : entries)
        lines += addressLine(*entry);
    return lines;
}

QString senderOf(const MMS_UA_UAMsg& header) {
    if (header.getFrom().isEmpty())
        return QStringLiteral("to be filled in by the network");
    return addressLine(header.getFrom());
}

QString localTime(const QDateTime& time) {
    return time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

/// The phone does not store when a message was sent.
QString dateOf(const Message& message) {
    return localTime(message.header.getSendTime()) +
           (message.reading() == READING_PHONE ? QStringLiteral(" (time of reading)") : QString());
}

/// Expiry is stored in seconds from now; for a time in the past as a very large unsigned number. A date sent
/// as such is shown as a date.
QString expiryOf(const Message& message) {
    const MMS_UA_UAMsg& header = message.header;
    const MMS_WIRE_Item sent = message.wire().field(FIELD_EXPIRY);
    if (sent.kind() == MMS_WIRE_Item::TIME)
        return localTime(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(sent.number())));
    const auto seconds = static_cast<qint32>(header.getExpireTime());
    return seconds >= 0 ? QStringLiteral("in %1").arg(spanOfTime(qint64(seconds) * 1000))
                        : QStringLiteral("%1 ago").arg(spanOfTime(-qint64(seconds) * 1000));
}

QString contentTypeOf(const MMS_UA_UAMsg& header) {
    const MMS_CONTENT_TYPE_T type = header.getContentType();
    const QString parameters = type.parameters.isEmpty() ? QString() : QStringLiteral("; ") + type.parameters;
    return printable(type.type + u'/' + type.subType + parameters);
}

/// In the phone's reading Hide sets the flag, as sent Show does.
QString visibilityOf(const Message& message) {
    const bool hidden = message.header.getSenderVisibility() == (message.reading() == READING_PHONE);
    return hidden ? QStringLiteral("Hide") : QStringLiteral("Show");
}

QString yesNo(bool flag) {
    return flag ? QStringLiteral("Yes") : QStringLiteral("No");
}

/// A field, and how its value is shown on one or more lines.
struct FieldRow {
    FIELD_CODE code;
    QStringList (*lines)(const Message& message);
};

using Read = const Message&;

/// All fields, in the order shown.
constexpr FieldRow FIELD_ROWS[] = {
    {FIELD_MESSAGE_TYPE, [](Read m) { return QStringList(kindOf(m)); }},
    {FIELD_TRANSACTION_ID, [](Read m) { return QStringList(printable(m.header.getTransactionId())); }},
    {FIELD_MMS_VERSION, [](Read m) { return QStringList(versionOf(m.header)); }},
    {FIELD_MESSAGE_ID, [](Read m) { return QStringList(printable(m.header.getMsgID())); }},
    {FIELD_DATE, [](Read m) { return QStringList(dateOf(m)); }},
    {FIELD_FROM, [](Read m) { return QStringList(senderOf(m.header)); }},
    {FIELD_TO, [](Read m) { return addressLines(m.header.getTo()); }},
    {FIELD_CC, [](Read m) { return addressLines(m.header.getCc()); }},
    {FIELD_BCC, [](Read m) { return addressLines(m.header.getBcc()); }},
    {FIELD_SUBJECT, [](Read m) { return QStringList(printable(m.header.getSubject())); }},
    {FIELD_MESSAGE_CLASS,
     [](Read m) { return QStringList(fieldWord(FIELD_MESSAGE_CLASS, m.header.messageClass)); }},
    {FIELD_PRIORITY, [](Read m) { return QStringList(fieldWord(FIELD_PRIORITY, m.header.getPriority())); }},
    {FIELD_STATUS, [](Read m) { return QStringList(fieldWord(FIELD_STATUS, m.header.status)); }},
    {FIELD_RESPONSE_STATUS,
     [](Read m) { return QStringList(fieldWord(FIELD_RESPONSE_STATUS, m.header.responseStatus)); }},
    {FIELD_RESPONSE_TEXT, [](Read m) { return QStringList(printable(m.header.getResponseText())); }},
    {FIELD_MESSAGE_SIZE, [](Read m) { return QStringList(counted(m.header.getMsgSize(), "octet")); }},
    {FIELD_CONTENT_LOCATION, [](Read m) { return QStringList(printable(m.header.getMsgURI())); }},
    {FIELD_DELIVERY_TIME, [](Read m) { return QStringList(localTime(m.header.getDeliveryTime())); }},
    {FIELD_EXPIRY, [](Read m) { return QStringList(expiryOf(m)); }},
    {FIELD_SENDER_VISIBILITY, [](Read m) { return QStringList(visibilityOf(m)); }},
    {FIELD_DELIVERY_REPORT, [](Read m) { return QStringList(yesNo(m.header.getDeliveryReportNecessity())); }},
    {FIELD_READ_REPLY, [](Read m) { return QStringList(yesNo(m.header.getReadReplyNecessity())); }},
    {FIELD_REPORT_ALLOWED, [](Read m) { return QStringList(yesNo(m.header.getReportAllowed())); }},
    {FIELD_DISTRIBUTION_INDICATOR, [](Read m) { return QStringList(yesNo(m.header.getDistributionInd())); }},
    {FIELD_CONTENT_TYPE, [](Read m) { return QStringList(contentTypeOf(m.header)); }},
};

constexpr int NAME_WIDTH = 23; // the longest name of the phone's fields
constexpr int MOST_UNKNOWN_TOLD = 5;

/// The name of a field for the user.
QString withoutPrefix(const QString& name) {
    const QLatin1String prefix("X-Mms-");
    return name.startsWith(prefix) ? name.sliced(prefix.size()) : name;
}

void addLines(QString& text, QString name, const QStringList& lines) {
    for (const QString& line : lines) {
        text += QStringLiteral("  %1 %2\n").arg(name.leftJustified(NAME_WIDTH), line);
        name.clear();
    }
}

/// The codes of the mandatory fields that are missing.
QList<int> missingFields(const Message& message) {
    if (message.reading() == READING_SENT)
        return message.wire().missingFields();
    QList<int> missing;
    if (const MessageKind* kind = messageKind(message.header.messageType))
        for (const int code : kind->mandatory)
            if (!message.header.fieldsPresent(presenceBit(code)))
                missing += code;
    return missing;
}

/// Remarks about all fields together.
QStringList remarksOnHeader(const Message& message) {
    const bool sent = message.reading() == READING_SENT;
    QStringList remarks;
    QStringList missing;
    for (const int code : missingFields(message))
        missing += fieldName(code);
    if (!missing.isEmpty())
        remarks += QStringLiteral("mandatory fields are missing: ") + missing.join(QStringLiteral(", "));
    if (!(sent ? message.wire().isFieldOrderCorrect() : message.header.pduOrderCheck()))
        remarks += QStringLiteral("the fields are not in the required order: Message-Type, "
                                  "Transaction-Id and MMS-Version first, Content-Type last");
    if (sent)
        return remarks;
    int unknown = 0;
    for (const PhoneStep& step : phoneSteps(message.octets()))
        if (!step.isKnown() && ++unknown <= MOST_UNKNOWN_TOLD)
            remarks += QStringLiteral("%1 at octet %2 is not known to the phone")
                           .arg(step.asWritten)
                           .arg(step.begin);
    if (unknown > MOST_UNKNOWN_TOLD)
        remarks += QStringLiteral("%1 fields in all are not known to the phone").arg(unknown);
    return remarks;
}

} // namespace

QString fieldName(int code) {
    const HeaderField* field = headerField(code);
    const MMS_WIRE_Field* sent = wireField(code);
    return field  ? QString::fromLatin1(field->name)
           : sent ? withoutPrefix(QString::fromLatin1(sent->name))
                  : QString();
}

QStringList fieldLines(const Message& message, int code) {
    const auto row = std::find_if(std::begin(FIELD_ROWS), std::end(FIELD_ROWS),
                                  [code](const FieldRow& r) { return r.code == code; });
    return row == std::end(FIELD_ROWS) ? QStringList() : row->lines(message);
}

QString headerForPerson(const Message& message) {
    QString text = QStringLiteral("Header\n");
    for (const FieldRow& row : FIELD_ROWS)
        if (message.header.fieldsPresent(presenceBit(row.code)))
            addLines(text, fieldName(row.code), row.lines(message));
    for (const MMS_WIRE_Item& field : message.otherFields)
        addLines(text, printableStart(withoutPrefix(field.name())), {valueForPerson(field)});
    for (const QString& remark : remarksOnHeader(message))
        text += QStringLiteral("  (%1)\n").arg(remark);
    return text;
}
