#pragma once

#include "platform/export.h"
#include "wire/item.h"
#include "wire/part.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <memory>

class MMS_COMP_SMILMultipart;
class MMS_UA_UAMsg;
class WireTree;

/// A problem or note about a message, with its place.
struct LUM_EXPORT MMS_WIRE_Mark {
    MMS_WIRE_Item item;               ///< the item, which has the offset
    MMS_WIRE_Item::SEVERITY severity; ///< NOTE or PROBLEM
    QString what;                     ///< one sentence without a full stop
};

/// Reads a message as it was sent: every octet becomes part of an item, with its position.
///
/// MMS_UA_Decoder and MMS_COMP_SMILMultipartParser read a message by the rules of the phone and drop what
/// the phone does not use. This class serves gateways, archives and test benches: it knows MMS 1.0 to 1.3
/// (MMS encapsulation protocol, OMA-TS-MMS-ENC) and keeps unknown octets as items.
///
/// \code
///     MMS_WIRE_Reader reader;
///     reader.read(pdu);                                    // pdu must outlive the items
///     for (MMS_WIRE_Item item : reader.message())          // fields, then the body
///         qInfo() << item.offset() << item.name() << item.text();
///     MMS_UA_UAMsg header;
///     MMS_COMP_SMILMultipart body;
///     reader.fill(&header);                                // as records of the rest of the library
///     reader.fill(&body);
/// \endcode
class LUM_EXPORT MMS_WIRE_Reader {
public:
    /// A reader of an empty message.
    MMS_WIRE_Reader();
    MMS_WIRE_Reader(const MMS_WIRE_Reader&) = delete;
    MMS_WIRE_Reader& operator=(const MMS_WIRE_Reader&) = delete;
    /// Invalidates the items of this reader.
    ~MMS_WIRE_Reader();

    /// Reads any octets into a tree, in linear time and memory, without copying payloads. True when there is
    /// no problem; notes do not count. The caller keeps the octets unchanged as long as items, parts or
    /// fill() are used. Items of an earlier message become invalid.
    bool read(QByteArrayView pdu);

    /// The whole PDU. Inside are the header fields in order and, behind Content-Type, the body.
    MMS_WIRE_Item message() const;
    /// The first header field with that code (see wireField()) whose value fits its form; the null item when
    /// there is none.
    MMS_WIRE_Item field(int code) const;
    /// The octet of field(FIELD_MESSAGE_TYPE); -1 when absent.
    int messageType() const;
    /// The body; the null item when nothing follows the header. A multipart without its count of parts is an
    /// empty item with a problem.
    MMS_WIRE_Item body() const;
    /// The parts of the body in order; one for a body that is no multipart, none without a body.
    QList<MMS_WIRE_Part> parts() const;

    /// Whether the message has no problem: the result of read().
    bool isSound() const;
    /// All problems and notes, in the order of the octets.
    QList<MMS_WIRE_Mark> marks() const;

    /// The codes of the mandatory fields of this message type that are missing (see wireMessageType());
    /// FIELD_TO for a missing recipient. In a message of an unknown type Message-Type and MMS-Version are
    /// mandatory.
    QList<int> missingFields() const;
    /// Whether Message-Type, Transaction-Id and MMS-Version come first, in this order (absent ones left out),
    /// and Content-Type, if it is there, last.
    bool isFieldOrderCorrect() const;

    /// Fills a new record through its setters where it has them: single fields from their first occurrence,
    /// all addresses, the Date as sent, the expiry in seconds from now, the delivery time as date and time.
    /// Returns, in order, the fields that the record cannot hold: unknown to it, repeated, too large, or not
    /// in the form of their field.
    QList<MMS_WIRE_Item> fill(MMS_UA_UAMsg* header) const;
    /// Fills a new container like MMS_COMP_SMILMultipartParser::parse(): payloads without transfer encoding,
    /// texts in UTF-8, nested multiparts as sub-bodies, a name for each part without one, and the parameters
    /// of the content type.
    void fill(MMS_COMP_SMILMultipart* body) const;

private:
    std::unique_ptr<WireTree> tree_;
};
