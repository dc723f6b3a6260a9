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

/// Something wrong with a message, and where.
struct LUM_EXPORT MMS_WIRE_Mark {
    MMS_WIRE_Item item;               ///< where it is, with its offset
    MMS_WIRE_Item::SEVERITY severity; ///< NOTE or PROBLEM
    QString what;                     ///< a text without a full stop
};

/// Reads a message as it was sent: everything in the octets, as the sender meant it; nothing is
/// lost.
///
/// MMS_UA_Decoder and MMS_COMP_SMILMultipartParser, in contrast, read a message by the rules of the phone.
/// The reader knows MMS 1.0 to 1.3 (MMS encapsulation protocol, OMA-TS-MMS-ENC), skips what it does not
/// know, and keeps every octet with its position: for gateways, archives and test benches.
///
/// \code
///     MMS_WIRE_Reader reader;
///     reader.read(pdu);                                    // pdu must outlive the items
///     for (MMS_WIRE_Item item : reader.message())          // fields, then the body
///         qInfo() << item.offset() << item.name() << item.text();
///     MMS_UA_UAMsg header;
///     MMS_COMP_SMILMultipart body;
///     reader.fill(&header);                                // for all that works on the phone's reading
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

    /// Reads any octets into a tree, in time and memory linear in their number, without copying payloads.
    /// The caller keeps the octets unchanged as long as items, parts or fill() are used. Items of an
    /// earlier message become invalid. Returns whether there is no problem; notes do not count.
    bool read(QByteArrayView pdu);

    /// The whole PDU: inside it are the header fields in order and, behind Content-Type, the body.
    MMS_WIRE_Item message() const;
    /// The first header field of that code (see wireField()) whose value fits its form, or the null item.
    MMS_WIRE_Item field(int code) const;
    /// The Message-Type octet of the first such field; -1 without one.
    int messageType() const;
    /// The body, or the null item when nothing follows the header; a multipart without its count of parts is
    /// an empty item with a problem.
    MMS_WIRE_Item body() const;
    /// The parts of the body in order; one for a body that is no multipart, none without a body.
    QList<MMS_WIRE_Part> parts() const;

    /// Whether the tree has no problem: the result of read().
    bool isSound() const;
    /// Everything that is wrong, in the order of the octets.
    QList<MMS_WIRE_Mark> marks() const;

    /// The codes of the fields that a message of this type must have and has not (see wireMessageType());
    /// FIELD_TO stands for a missing recipient. A message of an unknown type needs Message-Type and
    /// MMS-Version.
    QList<int> missingFields() const;
    /// Whether Message-Type, Transaction-Id and MMS-Version come first, in this order (absent ones left out),
    /// and Content-Type, if it is there, last.
    bool isFieldOrderCorrect() const;

    /// Fills a new record with what the sender meant, by its setters where there are any: single fields
    /// from their first occurrence, all addresses, the Date as it was sent, an expiry as seconds from now,
    /// a delivery time as date and time. Returns, in order, the fields that the record cannot hold: unknown
    /// to it, repeated, too large, or not in the form of their field.
    QList<MMS_WIRE_Item> fill(MMS_UA_UAMsg* header) const;
    /// Fills a new container with the parts, as MMS_COMP_SMILMultipartParser::parse() would: payloads with
    /// transfer encodings undone and texts in UTF-8, nested multiparts as sub-bodies, a name for each part
    /// that has none, and the parameters of the content type.
    void fill(MMS_COMP_SMILMultipart* body) const;

private:
    std::unique_ptr<WireTree> tree_;
};
