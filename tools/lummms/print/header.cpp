#include "codec/header_fields.h"
#include "codec/message_kinds.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <QStringList>

namespace {

QString kindOf(const MMS_UA_UAMsg& header) {
    const MessageKind* kind = messageKind(header.messageType);
    return kind ? QString::fromLatin1(kind->name) : QStringLiteral("unknown (%1)").arg(header.messageType);
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

/// Expiry as time from now; a moment in the past has become a very large unsigned number.
QString expiryOf(const MMS_UA_UAMsg& header) {
    const auto seconds = static_cast<qint32>(header.getExpireTime());
    return seconds >= 0 ? QStringLiteral("in %1").arg(spanOfTime(qint64(seconds) * 1000))
                        : QStringLiteral("%1 ago").arg(spanOfTime(-qint64(seconds) * 1000));
}

QString contentTypeOf(const MMS_UA_UAMsg& header) {
    const MMS_CONTENT_TYPE_T type = header.getContentType();
    const QString parameters = type.parameters.isEmpty() ? QString() : QStringLiteral("; ") + type.parameters;
    return printable(type.type + u'/' + type.subType + parameters);
}

QString yesNo(bool flag) {
    return flag ? QStringLiteral("Yes") : QStringLiteral("No");
}

/// A field and how its value is shown, in one or more lines.
struct FieldRow {
    FIELD_CODE code;
    QStringList (*lines)(const MMS_UA_UAMsg& header);
};

using Header = const MMS_UA_UAMsg&;

/// All fields in the order in which they are shown.
constexpr FieldRow FIELD_ROWS[] = {
    {FIELD_MESSAGE_TYPE, [](Header h) { return QStringList(kindOf(h)); }},
    {FIELD_TRANSACTION_ID, [](Header h) { return QStringList(printable(h.getTransactionId())); }},
    {FIELD_MMS_VERSION, [](Header h) { return QStringList(versionOf(h)); }},
    {FIELD_MESSAGE_ID, [](Header h) { return QStringList(printable(h.getMsgID())); }},
    {FIELD_DATE,
     [](Header h) {
         return QStringList(localTime(h.getSendTime()) + QStringLiteral(" (moment of reading)"));
     }},
    {FIELD_FROM, [](Header h) { return QStringList(senderOf(h)); }},
    {FIELD_TO, [](Header h) { return addressLines(h.getTo()); }},
    {FIELD_CC, [](Header h) { return addressLines(h.getCc()); }},
    {FIELD_BCC, [](Header h) { return addressLines(h.getBcc()); }},
    {FIELD_SUBJECT, [](Header h) { return QStringList(printable(h.getSubject())); }},
    {FIELD_MESSAGE_CLASS, [](Header h) { return QStringList(wordOf(messageClassWords, h.messageClass)); }},
    {FIELD_PRIORITY, [](Header h) { return QStringList(wordOf(priorityWords, h.getPriority())); }},
    {FIELD_STATUS, [](Header h) { return QStringList(wordOf(statusWords, h.status)); }},
    {FIELD_RESPONSE_STATUS,
     [](Header h) { return QStringList(wordOf(responseStatusWords, h.responseStatus)); }},
    {FIELD_RESPONSE_TEXT, [](Header h) { return QStringList(printable(h.getResponseText())); }},
    {FIELD_MESSAGE_SIZE, [](Header h) { return QStringList(counted(h.getMsgSize(), "octet")); }},
    {FIELD_CONTENT_LOCATION, [](Header h) { return QStringList(printable(h.getMsgURI())); }},
    {FIELD_DELIVERY_TIME, [](Header h) { return QStringList(localTime(h.getDeliveryTime())); }},
    {FIELD_EXPIRY, [](Header h) { return QStringList(expiryOf(h)); }},
    {FIELD_SENDER_VISIBILITY,
     [](Header h) {
         return QStringList(h.getSenderVisibility() ? QStringLiteral("Hide") : QStringLiteral("Show"));
     }},
    {FIELD_DELIVERY_REPORT, [](Header h) { return QStringList(yesNo(h.getDeliveryReportNecessity())); }},
    {FIELD_READ_REPLY, [](Header h) { return QStringList(yesNo(h.getReadReplyNecessity())); }},
    {FIELD_REPORT_ALLOWED, [](Header h) { return QStringList(yesNo(h.getReportAllowed())); }},
    {FIELD_DISTRIBUTION_INDICATOR, [](Header h) { return QStringList(yesNo(h.getDistributionInd())); }},
    {FIELD_CONTENT_TYPE, [](Header h) { return QStringList(contentTypeOf(h)); }},
};

constexpr int NAME_WIDTH = 24; // the longest field name and some room

} // namespace

QString headerForPerson(const MMS_UA_UAMsg& header) {
    QString text = QStringLiteral("Header\n");
    for (const FieldRow& row : FIELD_ROWS) {
        if (!header.fieldsPresent(presenceBit(row.code)))
            continue;
        QString name = QString::fromLatin1(headerField(row.code)->name);
        const QStringList lines = row.lines(header);
        for (const QString& line : lines) {
            text += QStringLiteral("  %1%2\n").arg(name.leftJustified(NAME_WIDTH), line);
            name.clear();
        }
    }
    if (!header.mandatoryFldsPresentInPDU())
        text += QStringLiteral("  (fields are missing that such a message must have)\n");
    if (!header.pduOrderCheck())
        text += QStringLiteral("  (the fields are not in the order that is asked for)\n");
    return text;
}
