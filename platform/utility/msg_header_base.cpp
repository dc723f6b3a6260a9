#include "platform/utility/msg_header_base.h"

namespace {

using Entries = QPtrList<MMS_UTIL_Entry>;

void appendCopies(Entries& list, const Entries& entries) {
    for (const MMS_UTIL_Entry* entry : entries)
        list.append(new MMS_UTIL_Entry(*entry));
}

void replaceByCopies(Entries& list, const Entries& entries) {
    Entries copies; // made first: the entries given may be the list's own
    appendCopies(copies, entries);
    list.clear();
    for (MMS_UTIL_Entry* entry : copies)
        list.append(entry);
}

} // namespace

MMS_UTIL_MsgHeaderBase::MMS_UTIL_MsgHeaderBase() {
    for (Entries* list : {&to_, &cc_, &bcc_})
        list->setAutoDelete(true);
}

MMS_UTIL_MsgHeaderBase::~MMS_UTIL_MsgHeaderBase() = default;

void MMS_UTIL_MsgHeaderBase::setFrom(MMS_UTIL_Entry from) {
    from_ = std::move(from);
}
void MMS_UTIL_MsgHeaderBase::setTo(Entries to) {
    replaceByCopies(to_, to);
}
void MMS_UTIL_MsgHeaderBase::setCc(Entries cc) {
    replaceByCopies(cc_, cc);
}
void MMS_UTIL_MsgHeaderBase::setBcc(Entries bcc) {
    replaceByCopies(bcc_, bcc);
}

void MMS_UTIL_MsgHeaderBase::setFlags(unsigned int flags) {
    flags_ = flags;
}
void MMS_UTIL_MsgHeaderBase::setDistributionInd(bool on) {
    setFlag(FLAG_DISTRIBUTION, on);
}
void MMS_UTIL_MsgHeaderBase::setPromptInd(bool on) {
    setFlag(FLAG_PROMPT, on);
}
void MMS_UTIL_MsgHeaderBase::setAttachmentInc(bool on) {
    setFlag(FLAG_ATTACHMENT, on);
}
void MMS_UTIL_MsgHeaderBase::setAudioInc(bool on) {
    setFlag(FLAG_AUDIO, on);
}
void MMS_UTIL_MsgHeaderBase::setVideoInc(bool on) {
    setFlag(FLAG_VIDEO, on);
}

void MMS_UTIL_MsgHeaderBase::addToRecipient(MMS_UTIL_Entry* entry) {
    to_.append(entry);
}
void MMS_UTIL_MsgHeaderBase::addCcRecipient(MMS_UTIL_Entry* entry) {
    cc_.append(entry);
}
void MMS_UTIL_MsgHeaderBase::addBccRecipient(MMS_UTIL_Entry* entry) {
    bcc_.append(entry);
}
void MMS_UTIL_MsgHeaderBase::addToRecipient(MMS_UTIL_Entry& entry) {
    to_.append(new MMS_UTIL_Entry(entry));
}
void MMS_UTIL_MsgHeaderBase::addCcRecipient(MMS_UTIL_Entry& entry) {
    cc_.append(new MMS_UTIL_Entry(entry));
}
void MMS_UTIL_MsgHeaderBase::addBccRecipient(MMS_UTIL_Entry& entry) {
    bcc_.append(new MMS_UTIL_Entry(entry));
}

void MMS_UTIL_MsgHeaderBase::setSubject(QString subject) {
    subject_ = std::move(subject);
}
void MMS_UTIL_MsgHeaderBase::setSendTime(QDateTime time) {
    sendTime_ = std::move(time);
}
void MMS_UTIL_MsgHeaderBase::setDeliveryTime(QDateTime time) {
    deliveryTime_ = std::move(time);
}
void MMS_UTIL_MsgHeaderBase::setExpireTime(unsigned int seconds) {
    expireTime_ = seconds;
}
void MMS_UTIL_MsgHeaderBase::setMsgID(QString id) {
    msgId_ = std::move(id);
}
void MMS_UTIL_MsgHeaderBase::setContentType(MMS_CONTENT_TYPE_T type) {
    contentType_ = std::move(type);
}
void MMS_UTIL_MsgHeaderBase::setPriority(unsigned char priority) {
    priority_ = priority;
}
void MMS_UTIL_MsgHeaderBase::setSenderVisibility(bool on) {
    senderVisibility_ = on;
}
void MMS_UTIL_MsgHeaderBase::setDeliveryReportNecessity(bool on) {
    deliveryReport_ = on;
}
void MMS_UTIL_MsgHeaderBase::setReadReplyNecessity(bool on) {
    readReply_ = on;
}
void MMS_UTIL_MsgHeaderBase::setMsgURI(QString uri) {
    msgUri_ = std::move(uri);
}
void MMS_UTIL_MsgHeaderBase::printMsg() {
}

void MMS_UTIL_MsgHeaderBase::setFlag(unsigned int flag, bool on) {
    flags_ = on ? flags_ | flag : flags_ & ~flag;
}
