#pragma once

#include "codec/field_code.h"
#include "platform/export.h"
#include "platform/utility/msg_header_base.h"

/// The header of one MMS PDU: all fields that the encoder and the decoder know, which of them are
/// present, their positions in a decoded PDU, and the body behind the header.
///
/// Setters mark their field as present. They ignore empty values (an empty text, entry or list, a time
/// without date and hour, a content type without a type), but setFrom() accepts the placeholder of type
/// MMS_UTIL_Entry::PLACEHOLDER. The decoder calls the setters, so that a class that overrides one sees
/// the field. Public data members and setMsgSize() mark nothing: to build a message, set the value and
/// call markPresent().
class LUM_EXPORT MMS_UA_UAMsg : public MMS_UTIL_MsgHeaderBase {
public:
    MMS_UA_UAMsg();
    ~MMS_UA_UAMsg() override;

    void setFrom(MMS_UTIL_Entry from) override;
    void setTo(QPtrList<MMS_UTIL_Entry> to) override;
    void setCc(QPtrList<MMS_UTIL_Entry> cc) override;
    void setBcc(QPtrList<MMS_UTIL_Entry> bcc) override;
    void setDistributionInd(bool on) override;
    void setPromptInd(bool on) override;
    // The operations that take a pointer are the base's: they mark nothing.
    using MMS_UTIL_MsgHeaderBase::addBccRecipient;
    using MMS_UTIL_MsgHeaderBase::addCcRecipient;
    using MMS_UTIL_MsgHeaderBase::addToRecipient;
    void addToRecipient(MMS_UTIL_Entry& entry) override;
    void addCcRecipient(MMS_UTIL_Entry& entry) override;
    void addBccRecipient(MMS_UTIL_Entry& entry) override;
    void setSubject(QString subject) override;
    void setSendTime(QDateTime time) override;
    void setDeliveryTime(QDateTime time) override;
    void setExpireTime(unsigned int seconds) override;
    void setMsgID(QString id) override;
    void setContentType(MMS_CONTENT_TYPE_T contentType) override;
    void setPriority(unsigned char priority) override;
    void setSenderVisibility(bool on) override;
    void setDeliveryReportNecessity(bool on) override;
    void setReadReplyNecessity(bool on) override;
    void setMsgURI(QString uri) override;
    void printMsg() override;

    /// The transaction id; empty when it was never set.
    QString getTransactionId() const { return transactionId; }
    /// Stores the transaction id and marks it present; an empty one changes nothing.
    void setTransactionId(const QString& id);
    /// The explanation of the response status; empty when it was never set.
    QString getResponseText() const { return responseText; }
    /// Stores the response text and marks it present; an empty one changes nothing.
    void setResponseText(const QString& text);
    /// Whether the sender may get a delivery report.
    bool getReportAllowed() const { return reportAllowed; }
    /// Stores Report-Allowed and marks it present.
    void setReportAllowed(bool allowed);
    /// Whether the message may be passed on.
    bool getDistributionInd() const { return getFlags() & FLAG_DISTRIBUTION; }

    /// True when every bit of `mask` is set in `present`; true for 0.
    bool fieldsPresent(unsigned int mask) const { return (present & mask) == mask; }
    /// Marks one field as present.
    void markPresent(FIELD_CODE code) { present |= presenceBit(code); }

    /// The position of a field in a decoded PDU, counted from 1; 0 when it was absent, and for codes
    /// above 25. Consecutive repetitions of a field share a position.
    unsigned char getFieldPosition(unsigned char code) const;
    /// Stores a position from 1 to 25 for a code from 0 to 25; ignores any other.
    void setFieldPosition(unsigned char code, unsigned char position);

    /// True for major version 1.
    bool isMMSVersionCorrect() const { return (version & 0x70) == 0x10; }
    /// True for minor version 0.
    bool isMMSMinorVersionCorrect() const { return (version & 0x0F) == 0; }

    /// Whether all fields are present that a received message of this type must have; true for
    /// types that require none.
    bool mandatoryFldsPresentInPDU() const;
    /// Whether a decoded message begins with Message-Type, Transaction-Id and MMS-Version in this order
    /// (absent ones left out) and ends with Content-Type, if it has one. Positions are compared with the
    /// number of fields: a field that is repeated after others, or the distribution indicator, gives
    /// false.
    bool pduOrderCheck() const;

    unsigned int present = 0;           ///< bit (code - 1) of each field that is set; see presenceBit()
    unsigned char messageType = 128;    ///< Message-Type octet, 128 m-send-req to 134 m-delivery-ind
    QString transactionId;              ///< Transaction-Id
    unsigned char version = 0;          ///< MMS-Version: major in the high nibble, 0x10 is 1.0
    unsigned char messageClass = 128;   ///< Message-Class octet, 128 Personal
    unsigned char status = 128;         ///< Status octet, 128 Expired
    bool reportAllowed = false;         ///< Report-Allowed; see also setReportAllowed()
    unsigned char responseStatus = 128; ///< Response-Status octet, 128 Ok
    QString responseText;               ///< Response-Text
    /// The first octet behind a decoded header. It points into the decoder's input and is valid as long
    /// as that is; null before a whole header was read.
    unsigned char* bodyStart = nullptr;
    unsigned int bodyLength = 0; ///< octets from bodyStart to the end of the input

private:
    static constexpr unsigned char lastPosition = 25; // a place for every field there is
    unsigned char fieldPositions_[lastPosition + 1] = {};
};
