#include "tools/lummms/draw/page_header.h"

#include "codec/header_fields.h"
#include "tools/lummms/message.h"
#include "tools/lummms/terminal.h"

#include <QLocale>
#include <QStringList>

namespace {

constexpr int MOST_ADDRESSES = 100; // of one field

QString addressOf(const MMS_UTIL_Entry& entry) {
    const QString name = printable(entry.getName()).trimmed();
    const QString address = printable(entry.getAddress());
    return name.isEmpty() ? address : QStringLiteral("%1 <%2>").arg(name, address);
}

QString addressesOf(const QPtrList<MMS_UTIL_Entry>& entries) {
    QStringList addresses;
    for (const MMS_UTIL_Entry* entry : entries) {
        if (addresses.size() == MOST_ADDRESSES) {
            addresses += QStringLiteral("%1 more").arg(entries.count() - MOST_ADDRESSES);
            break;
        }
        addresses += addressOf(*entry);
    }
    return addresses.join(QStringLiteral(", "));
}

QString senderOf(const MMS_UA_UAMsg& header) {
    return header.getFrom().isEmpty() ? QStringLiteral("filled in by the network")
                                      : addressOf(header.getFrom());
}

QString dateOf(const MMS_UA_UAMsg& header) {
    const QDateTime time = header.getSendTime().toLocalTime();
    return QLocale::c().toString(time, QStringLiteral("dddd, d MMMM yyyy, HH:mm ")) +
           time.timeZoneAbbreviation();
}

struct FieldRow {
    FIELD_CODE code;
    const char* name;
    QString (*value)(const MMS_UA_UAMsg& header);
};

constexpr FieldRow FIELD_ROWS[] = {
    {FIELD_FROM, "From", senderOf},
    {FIELD_TO, "To", [](const MMS_UA_UAMsg& h) { return addressesOf(h.getTo()); }},
    {FIELD_CC, "Cc", [](const MMS_UA_UAMsg& h) { return addressesOf(h.getCc()); }},
    {FIELD_BCC, "Bcc", [](const MMS_UA_UAMsg& h) { return addressesOf(h.getBcc()); }},
    {FIELD_DATE, "Date", dateOf},
};

} // namespace

QString pageTitle(const Message& message) {
    const QString subject = printable(message.header.getSubject()).trimmed();
    return (subject.isEmpty() ? QStringLiteral("Message without a subject") : subject).toHtmlEscaped();
}

QString pageFields(const Message& message) {
    QString rows;
    for (const FieldRow& row : FIELD_ROWS) {
        if (!message.header.fieldsPresent(presenceBit(row.code)))
            continue;
        if (row.code == FIELD_DATE && message.reading() == READING_PHONE)
            continue; // in the phone's reading, the Date is the time of reading
        rows += QStringLiteral("<dt>%1</dt><dd dir=\"auto\">%2</dd>\n")
                    .arg(QLatin1String(row.name), row.value(message.header).toHtmlEscaped());
    }
    return rows;
}
