#pragma once

#include "platform/export.h"
#include "platform/utility/entry.h"
#include "qt2/qptrlist.h"

#include <QDateTime>
#include <QString>

/// A content type as three texts.
struct LUM_EXPORT MMS_CONTENT_TYPE_T {
    QString type;       ///< top-level media type, such as "application"
    QString subType;    ///< media sub-type, such as "vnd.wap.multipart.related"
    QString parameters; ///< items name=value joined by ";" without blanks
};

/// The fields of a message header that all messaging programs of the phone share.
///
/// This class only stores values; derived classes override the setters to know which fields are set.
/// Setters store copies of lists and their entries; the originals stay with the caller.
class LUM_EXPORT MMS_UTIL_MsgHeaderBase {
public:
    MMS_UTIL_MsgHeaderBase();
    MMS_UTIL_MsgHeaderBase(const MMS_UTIL_MsgHeaderBase&) = delete;
    MMS_UTIL_MsgHeaderBase& operator=(const MMS_UTIL_MsgHeaderBase&) = delete;
    virtual ~MMS_UTIL_MsgHeaderBase();

    /// Sets the sender.
    virtual void setFrom(MMS_UTIL_Entry from);
    /// Replaces the recipients (To) by copies of these.
    virtual void setTo(QPtrList<MMS_UTIL_Entry> to);
    /// Replaces the Cc recipients by copies of these.
    virtual void setCc(QPtrList<MMS_UTIL_Entry> cc);
    /// Replaces the Bcc recipients by copies of these.
    virtual void setBcc(QPtrList<MMS_UTIL_Entry> bcc);

    /// Replaces the whole word of FLAG bits.
    virtual void setFlags(unsigned int flags);
    /// Sets or clears FLAG_DISTRIBUTION.
    virtual void setDistributionInd(bool on);
    /// Sets or clears FLAG_PROMPT.
    virtual void setPromptInd(bool on);
    /// Sets or clears FLAG_ATTACHMENT.
    virtual void setAttachmentInc(bool on);
    /// Sets or clears FLAG_AUDIO.
    virtual void setAudioInc(bool on);
    /// Sets or clears FLAG_VIDEO.
    virtual void setVideoInc(bool on);

    /// Adds a recipient and takes it over: the header deletes it. Null is ignored.
    virtual void addToRecipient(MMS_UTIL_Entry* entry);
    /// The same for a Cc recipient.
    virtual void addCcRecipient(MMS_UTIL_Entry* entry);
    /// The same for a Bcc recipient.
    virtual void addBccRecipient(MMS_UTIL_Entry* entry);
    /// Adds a copy of a recipient.
    virtual void addToRecipient(MMS_UTIL_Entry& entry);
    /// Adds a copy of a Cc recipient.
    virtual void addCcRecipient(MMS_UTIL_Entry& entry);
    /// Adds a copy of a Bcc recipient.
    virtual void addBccRecipient(MMS_UTIL_Entry& entry);

    /// Sets the subject.
    virtual void setSubject(QString subject);
    /// Sets the Date: date and time of day, taken as local time; the time zone of `time` is ignored.
    virtual void setSendTime(QDateTime time);
    /// Sets the earliest time of delivery, taken as local time too.
    virtual void setDeliveryTime(QDateTime time);
    /// Seconds, counted from now, after which the message may be dropped.
    virtual void setExpireTime(unsigned int seconds);
    /// Sets the Message-ID, which the network assigns.
    virtual void setMsgID(QString id);
    /// Sets the content type of the body.
    virtual void setContentType(MMS_CONTENT_TYPE_T contentType);
    /// The Priority octet as on the wire (128 Low, 129 Normal, 130 High).
    virtual void setPriority(unsigned char priority);
    /// Sets the Sender-Visibility flag: a received Hide sets it, and a set flag is sent as Show.
    virtual void setSenderVisibility(bool on);
    /// Asks for a delivery report.
    virtual void setDeliveryReportNecessity(bool on);
    /// Asks for a reply when the message is read.
    virtual void setReadReplyNecessity(bool on);
    /// The Content-Location from which the message can be fetched.
    virtual void setMsgURI(QString uri);
    /// A hook for debugging; prints nothing.
    virtual void printMsg();

    /// The sender.
    MMS_UTIL_Entry getFrom() const { return from_; }
    /// The recipients. The header owns the list and its entries.
    const QPtrList<MMS_UTIL_Entry>& getTo() const { return to_; }
    /// The Cc recipients. The header owns the list and its entries.
    const QPtrList<MMS_UTIL_Entry>& getCc() const { return cc_; }
    /// The Bcc recipients. The header owns the list and its entries.
    const QPtrList<MMS_UTIL_Entry>& getBcc() const { return bcc_; }
    /// The subject; empty when there is none.
    QString getSubject() const { return subject_; }
    /// The content type of the body.
    MMS_CONTENT_TYPE_T getContentType() const { return contentType_; }
    /// The Priority octet as on the wire; 129 (Normal) until set.
    unsigned char getPriority() const { return priority_; }
    /// The Message-ID.
    QString getMsgID() const { return msgId_; }
    /// The Date, in local time; of a received message the moment of reading.
    QDateTime getSendTime() const { return sendTime_; }
    /// The earliest time of delivery, in local time; null when there is none.
    QDateTime getDeliveryTime() const { return deliveryTime_; }
    /// Seconds, counted from now, after which the message may be dropped.
    unsigned int getExpireTime() const { return expireTime_; }
    /// The Sender-Visibility flag, see setSenderVisibility().
    bool getSenderVisibility() const { return senderVisibility_; }
    /// Whether a delivery report is asked for.
    bool getDeliveryReportNecessity() const { return deliveryReport_; }
    /// Whether a reply is asked for when the message is read.
    bool getReadReplyNecessity() const { return readReply_; }
    /// The Message-Size in octets.
    int getMsgSize() const { return msgSize_; }
    /// Sets the Message-Size in octets. Not virtual: call MMS_UA_UAMsg::markPresent() as well.
    void setMsgSize(int octets) { msgSize_ = octets; }
    /// The FLAG bits.
    unsigned int getFlags() const { return flags_; }
    /// The Content-Location from which the message can be fetched.
    QString getMsgURI() const { return msgUri_; }

    /// Bits of the flags word.
    enum FLAG : unsigned int {
        FLAG_DISTRIBUTION = 1u << 0, ///< the message may be passed on
        FLAG_PROMPT = 1u << 1,       ///< the user is to be asked
        FLAG_ATTACHMENT = 1u << 2,   ///< there is an attachment
        FLAG_AUDIO = 1u << 3,        ///< there is a sound
        FLAG_VIDEO = 1u << 4,        ///< there is a video
    };

private:
    void setFlag(unsigned int flag, bool on);

    MMS_UTIL_Entry from_;
    QPtrList<MMS_UTIL_Entry> to_, cc_, bcc_;
    QString subject_;
    MMS_CONTENT_TYPE_T contentType_;
    unsigned char priority_ = 129; // Normal, as a message without the field has it
    QString msgId_;
    QDateTime sendTime_;
    QDateTime deliveryTime_;
    unsigned int expireTime_ = 0;
    bool senderVisibility_ = false;
    bool deliveryReport_ = false;
    bool readReply_ = false;
    int msgSize_ = 0;
    unsigned int flags_ = 0;
    QString msgUri_;
};
