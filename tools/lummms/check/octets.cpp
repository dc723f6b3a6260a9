#include "tools/lummms/check/findings.h"

#include "codec/field_code.h"
#include "codec/message_kinds.h"
#include "platform/utility/setting.h"
#include "tools/lummms/message.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"
#include "wire/fields.h"

#include <QHash>

#include <algorithm>

MMS_WIRE_Item fieldBehindContentType(const Message& message, MMS_WIRE_Reader& reader) {
    const MMS_WIRE_Item body = message.wire().body();
    const QList<MMS_WIRE_Mark> marks = message.wire().marks();
    const bool isMalformed = std::any_of(marks.begin(), marks.end(), [&body](const MMS_WIRE_Mark& mark) {
        return mark.severity == MMS_WIRE_Item::PROBLEM && mark.item.offset() >= body.offset();
    });
    if (body.isNull() || !isMalformed)
        return MMS_WIRE_Item();
    reader.read(body.octets());
    if (reader.message().isLeaf())
        return MMS_WIRE_Item();
    const MMS_WIRE_Item first = *reader.message().begin();
    return wireField(first.code()) && reader.field(first.code()) == first ? first : MMS_WIRE_Item();
}

namespace {

/// The problems of single octets, fields and lengths.
void addProblems(QList<Finding>& findings, const Message& message) {
    MMS_WIRE_Reader reader;
    const MMS_WIRE_Item behind = fieldBehindContentType(message, reader);
    for (const Problem& problem : message.problems()) {
        if (!behind.isNull() && problem.offset >= message.bodyOffset())
            break;
        findings += {problem.severity == SEVERITY_PROBLEM ? FINDING_ERROR : FINDING_WARNING, problem.offset,
                     printable(problem.what)};
    }
    if (!behind.isNull())
        findings +=
            {FINDING_ERROR, message.bodyOffset(),
             QStringLiteral("Content-Type is not the last field: %1 follows").arg(fieldName(behind.code()))};
}

void addMissingFields(QList<Finding>& findings, const Message& message) {
    const MMS_WIRE_MessageType* type = wireMessageType(message.wire().messageType());
    for (const int code : message.wire().missingFields()) {
        const QString name = code == FIELD_TO && type && type->needsRecipient
                                 ? QStringLiteral("a recipient (To, Cc or Bcc)")
                                 : fieldName(code);
        const QString of =
            type ? QStringLiteral(", which an %1 must have").arg(QLatin1String(type->name)) : QString();
        findings += {FINDING_ERROR, -1, QStringLiteral("%1 is missing%2").arg(name, of)};
    }
}

/// Checks the order of the first fields. In a delivery report the version may come before the transaction id,
/// as the encoder writes it.
void addOrder(QList<Finding>& findings, const Message& message) {
    QList<int> wanted;
    for (const int code : {FIELD_MESSAGE_TYPE, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION})
        if (!message.wire().field(code).isNull())
            wanted += code;
    if (message.wire().messageType() == MESSAGE_DELIVERY_IND && wanted.size() == 3 &&
        (*++message.wire().message().begin()).code() == FIELD_MMS_VERSION)
        std::swap(wanted[1], wanted[2]);
    auto item = message.wire().message().begin();
    for (const int code : wanted) {
        if ((*item).code() != code) {
            findings +=
                {FINDING_WARNING, (*item).offset(),
                 QStringLiteral("%1 is in the place of %2: Message-Type, Transaction-Id and MMS-Version "
                                "come first")
                     .arg(printableStart((*item).name()), fieldName(code))};
            return;
        }
        ++item;
    }
}

/// Parts with the same name: a reference means the first of them.
void addNamesakes(QList<Finding>& findings, const QList<MMS_WIRE_Part>& parts) {
    QHash<QString, qsizetype> locations;
    QHash<QString, qsizetype> ids;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const QString location = parts.at(i).name();
        const QString id = MMS_COMP_SMILMultipart::parseCid(parts.at(i).contentId());
        for (const auto& [name, known] : {std::pair{location, &locations}, {id, &ids}}) {
            const QString key = name.toLower();
            if (name.isEmpty())
                continue;
            if (known->contains(key)) {
                findings += {FINDING_WARNING, parts.at(i).item().offset(),
                             QStringLiteral("parts %1 and %2 have the same name, \"%3\"")
                                 .arg(known->value(key) + 1)
                                 .arg(i + 1)
                                 .arg(printableStart(name))};
                break;
            }
            known->insert(key, i);
        }
    }
}

void addSize(QList<Finding>& findings, const Message& message) {
    const qint64 limit = qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024;
    if (message.octets().size() > limit)
        findings += {FINDING_ERROR, -1,
                     QStringLiteral("the message has %1, more than the limit of %2")
                         .arg(counted(message.octets().size(), "octet"))
                         .arg(limit)};
}

} // namespace

QList<Finding> findingsInOctets(const Message& message) {
    QList<Finding> findings;
    addProblems(findings, message);
    if (message.octets().isEmpty())
        return findings;
    addMissingFields(findings, message);
    addOrder(findings, message);
    addNamesakes(findings, message.wire().parts());
    addSize(findings, message);
    return findings;
}

QList<Finding> findingsIn(Message& message) {
    message.readPresentation();
    QList<Finding> findings =
        findingsInOctets(message) + findingsInPresentation(message) + findingsOfPhone(message);
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        const auto place = [](const Finding& finding) { // findings without a place come last
            return std::pair(finding.severity, static_cast<quint64>(finding.offset));
        };
        return place(a) < place(b);
    });
    return findings;
}
