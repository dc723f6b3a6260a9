#include "codec/ua_msg.h"
#include "wire/media.h"
#include "wire/reader.h"
#include "wire/tree.h"

#include <QDateTime>

#include <algorithm>
#include <limits>

namespace {

using Item = MMS_WIRE_Item;

constexpr int yes = 128;
constexpr int show = 129;
constexpr int highBit = 0x80;
constexpr quint64 latestDate = std::numeric_limits<quint32>::max();
constexpr quint64 largestSize = std::numeric_limits<qint32>::max();
constexpr QLatin1StringView phoneSuffix("/TYPE=PLMN");

/// An address as the record stores it: display name apart, a phone number without its type suffix.
MMS_UTIL_Entry entryOf(QString text) {
    if (text.endsWith(phoneSuffix)) {
        text.chop(phoneSuffix.size());
        return {QString(), MMS_UTIL_Entry::PLMN, text};
    }
    if (!text.contains(u'@'))
        return {QString(), MMS_UTIL_Entry::PLMN, text};
    const qsizetype open = text.indexOf(u'<');
    const qsizetype close = text.indexOf(u'>', std::max<qsizetype>(open, 0));
    if (open < 0)
        return {QString(), MMS_UTIL_Entry::EMAIL, text};
    return {text.left(open), MMS_UTIL_Entry::EMAIL, text.mid(open + 1, close < 0 ? -1 : close - open - 1)};
}

using Store = bool (*)(MMS_UA_UAMsg& header, const Item& item);

/// Stores an octet in a public member of the record.
template <auto member, FIELD_CODE code>
bool storeOctet(MMS_UA_UAMsg& header, const Item& item) {
    if (item.kind() != Item::NUMBER)
        return false;
    header.*member = static_cast<unsigned char>(item.number());
    header.markPresent(code);
    return true;
}

/// Passes a yes or no to a setter.
template <auto set, int on = yes>
bool storeFlag(MMS_UA_UAMsg& header, const Item& item) {
    if (!isKnownNumber(WireTree::nodeOf(item).what, item.number()))
        return false;
    (header.*set)(item.number() == on);
    return true;
}

/// Passes a text to a setter, which ignores an empty one.
template <auto set>
bool storeText(MMS_UA_UAMsg& header, const Item& item) {
    const Item inside = insideOf(item, WIRE_TEXT);
    (header.*set)((inside.isNull() ? item : inside).text());
    return insideOf(item, WIRE_COUNT).isNull(); // the record has no member for the count
}

/// Adds a recipient; ignores an empty address.
template <void (MMS_UA_UAMsg::*add)(MMS_UTIL_Entry&)>
bool storeRecipient(MMS_UA_UAMsg& header, const Item& item) {
    MMS_UTIL_Entry entry = entryOf(item.text());
    if (!entry.isEmpty())
        (header.*add)(entry);
    return true;
}

bool storeFrom(MMS_UA_UAMsg& header, const Item& item) {
    const Item address = insideOf(item, WIRE_ADDRESS);
    if (address.isNull())
        header.setFrom(MMS_UTIL_Entry(QStringLiteral("NoBody"), MMS_UTIL_Entry::PLACEHOLDER, QString()));
    else
        header.setFrom(entryOf(address.text()));
    return true;
}

bool storeDate(MMS_UA_UAMsg& header, const Item& item) {
    if (item.number() > latestDate)
        return false;
    header.setSendTime(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(item.number())));
    return true;
}

/// The record stores the delivery time as date and time; one sent in seconds counts from now.
bool storeDeliveryTime(MMS_UA_UAMsg& header, const Item& item) {
    if (item.number() > latestDate)
        return false;
    const auto seconds = static_cast<qint64>(item.number());
    header.setDeliveryTime(item.kind() == Item::TIME ? QDateTime::fromSecsSinceEpoch(seconds)
                                                     : QDateTime::currentDateTime().addSecs(seconds));
    return true;
}

/// The record stores the expiry in seconds from now; 0 for one in the past.
bool storeExpiry(MMS_UA_UAMsg& header, const Item& item) {
    if (item.number() > latestDate)
        return false;
    qint64 seconds = static_cast<qint64>(item.number());
    if (item.kind() == Item::TIME)
        seconds = std::max<qint64>(0, seconds - QDateTime::currentSecsSinceEpoch());
    header.setExpireTime(static_cast<unsigned int>(seconds));
    return true;
}

bool storeSize(MMS_UA_UAMsg& header, const Item& item) {
    if (item.number() > largestSize)
        return false;
    header.setMsgSize(static_cast<int>(item.number()));
    header.markPresent(FIELD_MESSAGE_SIZE);
    return true;
}

bool storeVersion(MMS_UA_UAMsg& header, const Item& item) {
    header.version = static_cast<unsigned char>(item.number() & ~quint64(highBit));
    header.markPresent(FIELD_MMS_VERSION);
    return true;
}

bool storePriority(MMS_UA_UAMsg& header, const Item& item) {
    header.setPriority(static_cast<unsigned char>(item.number()));
    return true;
}

bool storeContentType(MMS_UA_UAMsg& header, const Item& item) {
    const MediaType media = mediaOf(item);
    header.setContentType({media.type, media.subType, parameterText(item)});
    return true;
}

/// How each field that the record knows is stored. False for a value that it cannot hold.
constexpr struct {
    FIELD_CODE code;
    Store store;
} stores[] = {
    {FIELD_BCC, storeRecipient<&MMS_UA_UAMsg::addBccRecipient>},
    {FIELD_CC, storeRecipient<&MMS_UA_UAMsg::addCcRecipient>},
    {FIELD_CONTENT_LOCATION, storeText<&MMS_UA_UAMsg::setMsgURI>},
    {FIELD_CONTENT_TYPE, storeContentType},
    {FIELD_DATE, storeDate},
    {FIELD_DELIVERY_REPORT, storeFlag<&MMS_UA_UAMsg::setDeliveryReportNecessity>},
    {FIELD_DELIVERY_TIME, storeDeliveryTime},
    {FIELD_EXPIRY, storeExpiry},
    {FIELD_FROM, storeFrom},
    {FIELD_MESSAGE_CLASS, storeOctet<&MMS_UA_UAMsg::messageClass, FIELD_MESSAGE_CLASS>},
    {FIELD_MESSAGE_ID, storeText<&MMS_UA_UAMsg::setMsgID>},
    {FIELD_MESSAGE_TYPE, storeOctet<&MMS_UA_UAMsg::messageType, FIELD_MESSAGE_TYPE>},
    {FIELD_MMS_VERSION, storeVersion},
    {FIELD_MESSAGE_SIZE, storeSize},
    {FIELD_PRIORITY, storePriority},
    {FIELD_READ_REPLY, storeFlag<&MMS_UA_UAMsg::setReadReplyNecessity>},
    {FIELD_REPORT_ALLOWED, storeFlag<&MMS_UA_UAMsg::setReportAllowed>},
    {FIELD_RESPONSE_STATUS, storeOctet<&MMS_UA_UAMsg::responseStatus, FIELD_RESPONSE_STATUS>},
    {FIELD_RESPONSE_TEXT, storeText<&MMS_UA_UAMsg::setResponseText>},
    // a set flag is written as Show
    {FIELD_SENDER_VISIBILITY, storeFlag<&MMS_UA_UAMsg::setSenderVisibility, show>},
    {FIELD_STATUS, storeOctet<&MMS_UA_UAMsg::status, FIELD_STATUS>},
    {FIELD_SUBJECT, storeText<&MMS_UA_UAMsg::setSubject>},
    {FIELD_TO, storeRecipient<&MMS_UA_UAMsg::addToRecipient>},
    {FIELD_TRANSACTION_ID, storeText<&MMS_UA_UAMsg::setTransactionId>},
    {FIELD_DISTRIBUTION_INDICATOR, storeFlag<&MMS_UA_UAMsg::setDistributionInd>},
};

bool isRepeated(int code) {
    return code == FIELD_TO || code == FIELD_CC || code == FIELD_BCC;
}

} // namespace

QList<MMS_WIRE_Item> MMS_WIRE_Reader::fill(MMS_UA_UAMsg* header) const {
    QList<MMS_WIRE_Item> others;
    quint64 seen = 0;
    int position = 0, previous = -1;
    for (const MMS_WIRE_Item item : message()) {
        const WireNode& node = WireTree::nodeOf(item);
        if (node.what == WIRE_BODY || node.what == WIRE_STRAY)
            continue;
        const int code = item.code();
        const auto* found = std::find_if(std::begin(stores), std::end(stores),
                                         [code](const auto& row) { return row.code == code; });
        const bool isFirst = found != std::end(stores) && (isRepeated(code) || !(seen >> code & 1));
        if (node.isMisfit || !isFirst || !found->store(*header, item))
            others += item;
        if (found == std::end(stores) || node.isMisfit)
            continue;
        seen |= quint64(1) << code;
        if (code != previous)
            ++position;
        previous = code;
        header->setFieldPosition(static_cast<unsigned char>(code),
                                 static_cast<unsigned char>(std::min(position, 255)));
    }
    const MMS_WIRE_Item whole = body();
    const QByteArrayView octets = whole.isNull() ? message().octets().last(0) : whole.octets();
    // must not be written through, like that of MMS_UA_Decoder
    header->bodyStart = reinterpret_cast<unsigned char*>(const_cast<char*>(octets.data()));
    header->bodyLength = static_cast<unsigned int>(octets.size());
    return others;
}
