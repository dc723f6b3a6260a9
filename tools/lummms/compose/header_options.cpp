#include "tools/lummms/compose/header_options.h"

#include "codec/header_fields.h"
#include "tools/lummms/compose/option_value.h"
#include "tools/lummms/terminal.h"
#include "wire/fields.h"

#include <QStringList>
#include <QUuid>

#include <algorithm>

namespace {

constexpr unsigned char USUAL_VERSION = 0x10; // MMS 1.0

using Header = MMS_UA_UAMsg&;
using Value = OptionValue&;

/// An option and the field that it sets.
struct FieldOption {
    const char* name;
    FIELD_CODE field;
    const char* valueName; ///< null for an option without a value
    const char* description;
    void (*set)(Header header, Value value);
};

template <typename Add>
void addAddress(Value value, Add add) {
    MMS_UTIL_Entry entry = value.address();
    add(entry);
}

/// In the order of the help.
constexpr FieldOption FIELD_OPTIONS[] = {
    {"from", FIELD_FROM, "ADDRESS", "The sender; without it the network inserts the address.",
     [](Header h, Value v) { h.setFrom(v.address()); }},
    {"to", FIELD_TO, "ADDRESS", "A recipient; may be given again, like --cc and --bcc.",
     [](Header h, Value v) { addAddress(v, [&h](MMS_UTIL_Entry& to) { h.addToRecipient(to); }); }},
    {"cc", FIELD_CC, "ADDRESS", "A recipient of a copy.",
     [](Header h, Value v) { addAddress(v, [&h](MMS_UTIL_Entry& cc) { h.addCcRecipient(cc); }); }},
    {"bcc", FIELD_BCC, "ADDRESS", "A recipient of a copy whom the others do not see.",
     [](Header h, Value v) { addAddress(v, [&h](MMS_UTIL_Entry& bcc) { h.addBccRecipient(bcc); }); }},
    {"subject", FIELD_SUBJECT, "TEXT", "The subject.", [](Header h, Value v) { h.setSubject(v.text()); }},
    {"date", FIELD_DATE, "DATE",
     "When the message was sent, such as 2026-11-21T10:00:00Z; the default is now.",
     [](Header h, Value v) { h.setSendTime(v.moment()); }},
    {"class", FIELD_MESSAGE_CLASS, "CLASS", "personal, advertisement, informational or auto.",
     [](Header h, Value v) { h.messageClass = v.octet(FIELD_MESSAGE_CLASS); }},
    {"priority", FIELD_PRIORITY, "PRIORITY", "low, normal or high.",
     [](Header h, Value v) { h.setPriority(v.octet(FIELD_PRIORITY)); }},
    {"expiry", FIELD_EXPIRY, "TIME", "How long the message may wait to be fetched.",
     [](Header h, Value v) { h.setExpireTime(v.secondsToCome()); }},
    {"delivery-time", FIELD_DELIVERY_TIME, "TIME", "When the message is to be delivered.",
     [](Header h, Value v) { h.setDeliveryTime(v.momentToCome()); }},
    {"delivery-report", FIELD_DELIVERY_REPORT, nullptr, "Asks for a report when the message is delivered.",
     [](Header h, Value) { h.setDeliveryReportNecessity(true); }},
    {"read-reply", FIELD_READ_REPLY, nullptr, "Asks for a reply when the message is read.",
     [](Header h, Value) { h.setReadReplyNecessity(true); }},
    // the encoder writes a set flag as Show, although the decoder sets it for Hide
    {"sender-visibility", FIELD_SENDER_VISIBILITY, "hide|show",
     "Whether the recipients may see who sent the message.",
     [](Header h, Value v) { h.setSenderVisibility(v.either("show", "hide")); }},
    {"message-id", FIELD_MESSAGE_ID, "ID", "The id that the network assigned to the message.",
     [](Header h, Value v) { h.setMsgID(v.ascii()); }},
    {"transaction-id", FIELD_TRANSACTION_ID, "ID",
     "The id of a request and its answer; random for send-req and notification if not given.",
     [](Header h, Value v) { h.setTransactionId(v.ascii()); }},
    {"version", FIELD_MMS_VERSION, "NUMBER", "The version of MMS; the default is 1.0.",
     [](Header h, Value v) { h.version = v.version(); }},
    {"content-location", FIELD_CONTENT_LOCATION, "URI", "Where the message can be fetched.",
     [](Header h, Value v) { h.setMsgURI(v.ascii()); }},
    {"size", FIELD_MESSAGE_SIZE, "OCTETS", "The size of the message that can be fetched.",
     [](Header h, Value v) { h.setMsgSize(v.size()); }},
    {"status", FIELD_STATUS, "STATUS",
     "expired, retrieved, rejected, deferred, unrecognised, indeterminate, forwarded or unreachable.",
     [](Header h, Value v) { h.status = v.octet(FIELD_STATUS); }},
    {"report-allowed", FIELD_REPORT_ALLOWED, "yes|no", "Whether the sender may get a delivery report.",
     [](Header h, Value v) { h.setReportAllowed(v.either("yes", "no")); }},
    {"response-status", FIELD_RESPONSE_STATUS, "STATUS",
     "The network's answer: ok, error-service-denied and so on.",
     [](Header h, Value v) { h.responseStatus = v.octet(FIELD_RESPONSE_STATUS); }},
    {"response-text", FIELD_RESPONSE_TEXT, "TEXT", "The explanation of the answer.",
     [](Header h, Value v) { h.setResponseText(v.text()); }},
};

bool contains(std::span<const int> fields, int field) {
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

QString typed(const FieldOption& option) {
    return QStringLiteral("--") + QLatin1String(option.name);
}

/// "send-req" for "m-send-req", "notification" for "m-notification-ind".
QString shortName(const MessageKind& kind) {
    return QString::fromLatin1(kind.name)
        .mid(int(std::char_traits<char>::length("m-")))
        .remove(QStringLiteral("-ind"));
}

QList<const MessageKind*> allKinds() {
    QList<const MessageKind*> kinds;
    for (int type = MESSAGE_SEND_REQ; const MessageKind* kind = messageKind(static_cast<unsigned char>(type));
         ++type)
        kinds += kind;
    return kinds;
}

/// Sets the fields that every message of the kind has, before the options.
void setDefaults(const MessageKind& kind, MMS_UA_UAMsg& header) {
    header.messageType = kind.type;
    header.markPresent(FIELD_MESSAGE_TYPE);
    header.version = USUAL_VERSION;
    header.markPresent(FIELD_MMS_VERSION);
    if (carries(kind, FIELD_DATE))
        header.setSendTime(QDateTime::currentDateTime());
    // an answer has the transaction id of the message it answers
    if (kind.type == MESSAGE_SEND_REQ || kind.type == MESSAGE_NOTIFICATION_IND)
        header.setTransactionId(QUuid::createUuid().toString(QUuid::WithoutBraces));
}

/// Sets a field from each use of its option. Reports an invalid value.
bool apply(const FieldOption& option, const MessageKind& kind, const QStringList& values,
           MMS_UA_UAMsg& header) {
    if (!carries(kind, option.field)) {
        complain(typed(option),
                 QStringLiteral("an %1 has no %2")
                     .arg(QLatin1String(kind.name), QLatin1String(headerField(option.field)->name)));
        return false;
    }
    for (const QString& typedValue : values) {
        OptionValue value(typedValue);
        option.set(header, value);
        if (!value.cause().isEmpty()) {
            complain(typed(option), value.cause());
            return false;
        }
    }
    header.markPresent(option.field);
    return true;
}

/// The options for missing mandatory fields. From is always written, and the body sets Content-Type.
QStringList missing(const MessageKind& kind, const MMS_UA_UAMsg& header) {
    const MMS_WIRE_MessageType& type = *wireMessageType(kind.type);
    QStringList options;
    for (const FieldOption& option : FIELD_OPTIONS)
        if (contains(type.mandatory, option.field) && carries(kind, option.field) &&
            option.field != FIELD_FROM && !header.fieldsPresent(presenceBit(option.field)))
            options += typed(option);
    constexpr unsigned int recipients =
        presenceBit(FIELD_TO) | presenceBit(FIELD_CC) | presenceBit(FIELD_BCC);
    if (type.needsRecipient && !(header.present & recipients))
        options += QStringLiteral("--to, --cc or --bcc");
    return options;
}

} // namespace

QList<QCommandLineOption> headerOptions() {
    QList<QCommandLineOption> options;
    for (const FieldOption& option : FIELD_OPTIONS)
        options += {QString::fromLatin1(option.name), QString::fromLatin1(option.description),
                    QString::fromLatin1(option.valueName)};
    return options;
}

QString kindWords() {
    QStringList words;
    for (const MessageKind* kind : allKinds())
        words += shortName(*kind);
    return words.join(QStringLiteral(", "));
}

const MessageKind* findKind(const QString& word) {
    for (const MessageKind* kind : allKinds())
        if (word == shortName(*kind) || word == QLatin1String(kind->name))
            return kind;
    return nullptr;
}

bool carries(const MessageKind& kind, int field) {
    return contains(kind.order, field);
}

bool setHeader(const MessageKind& kind, const QCommandLineParser& options, MMS_UA_UAMsg& header) {
    setDefaults(kind, header);
    for (const FieldOption& option : FIELD_OPTIONS) {
        const QString name = QString::fromLatin1(option.name);
        const QStringList values = option.valueName ? options.values(name) : QStringList(QString());
        if (options.isSet(name) && !apply(option, kind, values, header))
            return false;
    }
    const QStringList needed = missing(kind, header);
    if (needed.isEmpty())
        return true;
    complain(QStringLiteral("--kind %1").arg(shortName(kind)),
             QStringLiteral("needs ") + needed.join(QStringLiteral(", ")));
    return false;
}
