#include "codec/ua_msg.h"

#include "codec/message_kinds.h"

#include <algorithm>
#include <iterator>

namespace {

/// Whether a time is empty: no date, and no time of day or midnight (a time made of zeros).
bool isNull(const QDateTime& time) {
    return time.date().isNull() && time.time().msecsSinceStartOfDay() == 0;
}

} // namespace

using Base = MMS_UTIL_MsgHeaderBase;

MMS_UA_UAMsg::MMS_UA_UAMsg() = default;
MMS_UA_UAMsg::~MMS_UA_UAMsg() = default;

void MMS_UA_UAMsg::setFrom(MMS_UTIL_Entry from) {
    if (from.isEmpty() && from.getType() != MMS_UTIL_Entry::PLACEHOLDER)
        return;
    markPresent(FIELD_FROM);
    Base::setFrom(std::move(from));
}

void MMS_UA_UAMsg::setTo(QPtrList<MMS_UTIL_Entry> to) {
    if (to.isEmpty())
        return;
    markPresent(FIELD_TO);
    Base::setTo(std::move(to));
}

void MMS_UA_UAMsg::setCc(QPtrList<MMS_UTIL_Entry> cc) {
    if (cc.isEmpty())
        return;
    markPresent(FIELD_CC);
    Base::setCc(std::move(cc));
}

void MMS_UA_UAMsg::setBcc(QPtrList<MMS_UTIL_Entry> bcc) {
    if (bcc.isEmpty())
        return;
    markPresent(FIELD_BCC);
    Base::setBcc(std::move(bcc));
}

void MMS_UA_UAMsg::setDistributionInd(bool on) {
    markPresent(FIELD_DISTRIBUTION_INDICATOR);
    Base::setDistributionInd(on);
}

void MMS_UA_UAMsg::setPromptInd(bool on) {
    constexpr unsigned int promptBit = 0x2000000; // no header field has this bit
    present |= promptBit;
    Base::setPromptInd(on);
}

void MMS_UA_UAMsg::addToRecipient(MMS_UTIL_Entry& entry) {
    markPresent(FIELD_TO);
    Base::addToRecipient(entry);
}

void MMS_UA_UAMsg::addCcRecipient(MMS_UTIL_Entry& entry) {
    markPresent(FIELD_CC);
    Base::addCcRecipient(entry);
}

void MMS_UA_UAMsg::addBccRecipient(MMS_UTIL_Entry& entry) {
    markPresent(FIELD_BCC);
    Base::addBccRecipient(entry);
}

void MMS_UA_UAMsg::setSubject(QString subject) {
    if (subject.isEmpty())
        return;
    markPresent(FIELD_SUBJECT);
    Base::setSubject(std::move(subject));
}

void MMS_UA_UAMsg::setSendTime(QDateTime time) {
    if (isNull(time))
        return;
    markPresent(FIELD_DATE);
    Base::setSendTime(std::move(time));
}

void MMS_UA_UAMsg::setDeliveryTime(QDateTime time) {
    if (isNull(time))
        return;
    markPresent(FIELD_DELIVERY_TIME);
    Base::setDeliveryTime(std::move(time));
}

void MMS_UA_UAMsg::setExpireTime(unsigned int seconds) {
    markPresent(FIELD_EXPIRY);
    Base::setExpireTime(seconds);
}

void MMS_UA_UAMsg::setMsgID(QString id) {
    if (id.isEmpty())
        return;
    markPresent(FIELD_MESSAGE_ID);
    Base::setMsgID(std::move(id));
}

void MMS_UA_UAMsg::setContentType(MMS_CONTENT_TYPE_T contentType) {
    if (contentType.type.isEmpty())
        return;
    markPresent(FIELD_CONTENT_TYPE);
    Base::setContentType(std::move(contentType));
}

void MMS_UA_UAMsg::setPriority(unsigned char priority) {
    markPresent(FIELD_PRIORITY);
    Base::setPriority(priority);
}

void MMS_UA_UAMsg::setSenderVisibility(bool on) {
    markPresent(FIELD_SENDER_VISIBILITY);
    Base::setSenderVisibility(on);
}

void MMS_UA_UAMsg::setDeliveryReportNecessity(bool on) {
    markPresent(FIELD_DELIVERY_REPORT);
    Base::setDeliveryReportNecessity(on);
}

void MMS_UA_UAMsg::setReadReplyNecessity(bool on) {
    markPresent(FIELD_READ_REPLY);
    Base::setReadReplyNecessity(on);
}

void MMS_UA_UAMsg::setMsgURI(QString uri) {
    if (uri.isEmpty())
        return;
    markPresent(FIELD_CONTENT_LOCATION);
    Base::setMsgURI(std::move(uri));
}

void MMS_UA_UAMsg::printMsg() {
}

void MMS_UA_UAMsg::setTransactionId(const QString& id) {
    if (id.isEmpty())
        return;
    markPresent(FIELD_TRANSACTION_ID);
    transactionId = id;
}

void MMS_UA_UAMsg::setResponseText(const QString& text) {
    if (text.isEmpty())
        return;
    markPresent(FIELD_RESPONSE_TEXT);
    responseText = text;
}

void MMS_UA_UAMsg::setReportAllowed(bool allowed) {
    markPresent(FIELD_REPORT_ALLOWED);
    reportAllowed = allowed;
}

unsigned char MMS_UA_UAMsg::getFieldPosition(unsigned char code) const {
    return code < std::size(fieldPositions_) ? fieldPositions_[code] : 0;
}

void MMS_UA_UAMsg::setFieldPosition(unsigned char code, unsigned char position) {
    if (code < std::size(fieldPositions_) && position >= 1 && position <= lastPosition)
        fieldPositions_[code] = position;
}

bool MMS_UA_UAMsg::mandatoryFldsPresentInPDU() const {
    const MessageKind* kind = messageKind(messageType);
    return !kind || std::all_of(kind->mandatory.begin(), kind->mandatory.end(),
                                [this](int code) { return fieldsPresent(presenceBit(code)); });
}

bool MMS_UA_UAMsg::pduOrderCheck() const {
    int expected = 1;
    for (int code : {FIELD_MESSAGE_TYPE, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION})
        if (fieldsPresent(presenceBit(code)) && fieldPositions_[code] != expected++)
            return false;
    const auto seen = std::count_if(std::begin(fieldPositions_) + 1, std::end(fieldPositions_),
                                    [](unsigned char position) { return position != 0; });
    return !fieldsPresent(presenceBit(FIELD_CONTENT_TYPE)) || fieldPositions_[FIELD_CONTENT_TYPE] == seen;
}
