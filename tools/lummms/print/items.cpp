#include "tools/lummms/message.h"
#include "tools/lummms/print/json.h"
#include "tools/lummms/print/print.h"
#include "tools/lummms/terminal.h"
#include "tools/lummms/words.h"

#include <algorithm>

namespace {

constexpr qsizetype OCTETS_SHOWN = 16;
constexpr qsizetype HEX_WIDTH = 3 * OCTETS_SHOWN;

/// The first octets of an item ("8C 84"); with "+" when there are more.
QString firstOctets(const MMS_WIRE_Item& item) {
    const QByteArrayView octets = item.octets();
    const QByteArrayView first = octets.first(std::min(octets.size(), OCTETS_SHOWN));
    const QString hex = QString::fromLatin1(first.toByteArray().toHex(' ').toUpper());
    return octets.size() > first.size() ? hex + u'+' : hex;
}

const char* severityWord(const MMS_WIRE_Item& item) {
    return item.severity() == MMS_WIRE_Item::PROBLEM ? "problem" : "note";
}

/// The lines of the items inside an item.
void addItems(QString& text, const MMS_WIRE_Item& around, int offsetWidth, int depth) {
    for (const MMS_WIRE_Item item : around) {
        const QString value = item.isLeaf() ? valueForPerson(item) : printableStart(valueForPerson(item));
        text += QString::number(item.offset()).rightJustified(offsetWidth) + QStringLiteral("  ") +
                firstOctets(item).leftJustified(HEX_WIDTH) + QStringLiteral("  ") + QString(2 * depth, u' ') +
                printableStart(item.name());
        if (!value.isEmpty())
            text += QStringLiteral(": ") + value;
        if (item.severity() != MMS_WIRE_Item::SOUND)
            text += QStringLiteral("  [%1: %2]").arg(QLatin1String(severityWord(item)), item.problem());
        text += u'\n';
        addItems(text, item, offsetWidth, depth + 1);
    }
}

/// The values of an item, as keys that are not empty.
QJsonObject itemJson(const MMS_WIRE_Item& item) {
    QJsonObject json{{"offset", qint64(item.offset())},
                     {"length", qint64(item.length())},
                     {"kind", MMS_WIRE_Item::kindWord(item.kind())}};
    const std::pair<const char*, QString> texts[] = {
        {"name", item.name()}, {"text", item.text()}, {"problem", item.problem()}};
    for (const auto& [key, text] : texts)
        if (!text.isEmpty())
            json.insert(QLatin1String(key), text);
    if (item.hasNumber())
        json.insert("value", numberJson(item));
    return json;
}

/// The items inside an item as an array, one a line. They are written one by one: as a single document they
/// would take many times the memory.
void addItemsJson(QByteArray& json, const MMS_WIRE_Item& around, int depth) {
    json += "[";
    bool isFirst = true;
    for (const MMS_WIRE_Item item : around) {
        json += (isFirst ? "\n" : ",\n") + QByteArray(depth, ' ');
        json += jsonText(itemJson(item), QJsonDocument::Compact);
        if (!item.isLeaf()) {
            json.chop(1);
            json += ",\"items\":";
            addItemsJson(json, item, depth + 1);
            json += '}';
        }
        isFirst = false;
    }
    json += ']';
}

} // namespace

QString valueForPerson(const MMS_WIRE_Item& item) {
    constexpr quint64 longestSpan = 100ULL * 365 * 24 * 60 * 60;
    const QString text = item.text();
    if (!text.isEmpty())
        return printable(text);
    if (item.kind() == MMS_WIRE_Item::SECONDS && item.number() <= longestSpan)
        return spanOfTime(static_cast<qint64>(item.number()) * 1000);
    if (item.kind() == MMS_WIRE_Item::DATA)
        return counted(item.length(), "octet");
    return item.hasNumber() ? QString::number(item.number()) : QString();
}

QString itemsForPerson(const Message& message) {
    QString text;
    const auto width = QString::number(message.octets().size()).size();
    addItems(text, message.wire().message(), static_cast<int>(width), 0);
    return text;
}

QByteArray itemsForProgram(const Message& message) {
    QByteArray json = "{\"length\":" + QByteArray::number(message.octets().size()) + ",\"items\":";
    addItemsJson(json, message.wire().message(), 1);
    json += ",\n\"problems\":[";
    bool isFirst = true;
    for (const QJsonValue problem : problemsJson(message.problems())) {
        json += isFirst ? "\n " : ",\n ";
        json += jsonText(problem.toObject(), QJsonDocument::Compact);
        isFirst = false;
    }
    return json + "]}\n";
}
