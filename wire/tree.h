#pragma once

#include "wire/fields.h"
#include "wire/item.h"
#include "wire/text.h"

#include <QByteArrayView>
#include <QLatin1StringView>
#include <QList>

#include <vector>

// Internals of the reader: the tree of items in one array, each item in front of the items inside it.

/// Kinds of items other than header fields; a header field has its code, 0 to 127.
enum WIRE_WHAT : quint16 {
    WIRE_PART_HEADER = 0x100, // plus the header's code
    WIRE_PARAMETER = 0x200,   // plus the parameter's code
    WIRE_MESSAGE = 0x300,
    WIRE_NAMED, // a header or parameter sent by name; the name is the first item inside
    WIRE_STRAY,
    WIRE_CODE,
    WIRE_NAME,
    WIRE_LENGTH,
    WIRE_CHARSET,
    WIRE_TIME_TOKEN,
    WIRE_FROM_TOKEN,
    WIRE_ACTION,
    WIRE_UNIT,
    WIRE_DISPOSITION,
    WIRE_COUNT,
    WIRE_TEXT,
    WIRE_ADDRESS,
    WIRE_TIME,
    WIRE_VALUE,
    WIRE_MEDIA,
    WIRE_REST, // octets of a stated length that the value does not use
    WIRE_BODY,
    WIRE_ENTRIES,
    WIRE_PART,
    WIRE_HEADERS_LEN,
    WIRE_DATA_LEN,
    WIRE_DATA,
    WIRE_AFTER_PARTS,
};

/// Problems and notes of an item, as bits.
enum WIRE_MARK : quint32 {
    MARK_NONE = 0,
    // problems
    MARK_STRAY = 1u << 0,
    MARK_UNKNOWN = 1u << 1,
    MARK_NO_WORD = 1u << 2,
    MARK_FORM = 1u << 3,
    MARK_NO_VALUE = 1u << 4,
    MARK_LENGTH_CUT = 1u << 5,
    MARK_TEXT_CUT = 1u << 6,
    MARK_NUMBER_CUT = 1u << 7,
    MARK_REST = 1u << 8,
    MARK_BAD_TEXT = 1u << 9,
    MARK_FEWER_PARTS = 1u << 10,
    MARK_AFTER_PARTS = 1u << 11,
    MARK_TOO_DEEP = 1u << 12,
    MARK_NO_TYPE = 1u << 13,
    MARK_BASE64 = 1u << 14,
    MARK_BASE64_LONE = 1u << 15,
    MARK_ENCODING = 1u << 16,
    // notes
    MARK_HIGH_TEXT = 1u << 20,
    MARK_NO_ZERO = 1u << 21,
    MARK_SHORT = 1u << 22,
    MARK_CHARSET = 1u << 23,
    MARK_NOT_ASCII = 1u << 24,
    MARK_MEDIA = 1u << 25,
    MARK_NO_QUOTE = 1u << 26,
    MARK_PADDING = 1u << 27,
    MARK_EQUALS = 1u << 28,
};
constexpr quint32 problemMarks = (1u << 20) - 1;

/// An item. It ends where the next one behind it begins: the octets of a message have neither gap nor
/// overlap.
struct WireNode {
    qsizetype offset;
    quint64 value; // the number, or the TextPlace of a text
    quint32 next;  // the index behind the items inside; 0 while the item is open
    quint32 marks;
    quint16 what; // a field code or a WIRE_WHAT
    MMS_WIRE_Item::KIND kind;
    bool isSyntax; // a length, a charset, a token: not part of the value of the item around it
    bool isMisfit; // the value is not in its field's form and is ignored
};

/// Where an item's text is within its octets, and its charset; packed into WireNode::value.
struct TextPlace {
    int charset; // a MIBenum number, 0 if unknown
    int head;    // octets before the text: code, quotes
    int tail;    // octets after it: quote, closing zero

    quint64 packed() const { return quint64(charset) << 16 | quint64(head) << 8 | quint64(tail); }
    static TextPlace of(quint64 value) {
        return {int(value >> 16), int(value >> 8 & 0xFF), int(value & 0xFF)};
    }
};

/// The items of a message.
class WireTree {
public:
    /// Starts anew with these octets.
    void reset(QByteArrayView pdu);

    QByteArrayView octets() const { return octets_; }
    /// Sets how far the octets were read: the end of the items so far, which can be used during reading.
    void setEnd(qsizetype end) { end_ = end; }
    const WireNode& node(quint32 index) const { return nodes_[index]; }
    WireNode& node(quint32 index) { return nodes_[index]; }
    quint32 size() const { return static_cast<quint32>(nodes_.size()); }
    MMS_WIRE_Item item(quint32 index) const { return MMS_WIRE_Item(this, index); }
    static const WireNode& nodeOf(const MMS_WIRE_Item& item) { return item.tree_->nodes_[item.node_]; }
    static const WireTree& treeOf(const MMS_WIRE_Item& item) { return *item.tree_; }

    /// The index behind this item and all inside it, or that the next item will get.
    quint32 behind(quint32 index) const { return nodes_[index].next ? nodes_[index].next : size(); }
    /// The position behind an item's octets.
    qsizetype endOf(quint32 index) const {
        const quint32 next = behind(index);
        return next < size() ? nodes_[next].offset : end_;
    }

    /// Adds an item with nothing inside.
    quint32 add(quint16 what, MMS_WIRE_Item::KIND kind, qsizetype offset, quint64 value = 0,
                quint32 marks = MARK_NONE) {
        nodes_.push_back({offset, value, size() + 1, marks, what, kind, false, false});
        marks_ |= marks;
        return size() - 1;
    }
    /// Adds an item that is not part of the value around it.
    quint32 addSyntax(quint16 what, qsizetype offset, quint64 value, quint32 marks = MARK_NONE) {
        const quint32 index = add(what, MMS_WIRE_Item::NUMBER, offset, value, marks);
        nodes_.back().isSyntax = true;
        return index;
    }
    /// Adds an item that contains the items added until it is closed.
    quint32 open(quint16 what, qsizetype offset) {
        const quint32 index = add(what, MMS_WIRE_Item::GROUP, offset);
        nodes_.back().next = 0;
        return index;
    }
    void close(quint32 index) { nodes_[index].next = size(); }
    void mark(quint32 index, quint32 marks) {
        nodes_[index].marks |= marks;
        marks_ |= marks;
    }
    /// The marks of all items, combined.
    quint32 marks() const { return marks_; }

    /// The word for an item's number; empty for a plain number.
    QString wordsOf(const WireNode& node) const;

    /// Filled when texts are decoded.
    Charsets& charsets() const { return charsets_; }

private:
    QByteArrayView octets_;
    qsizetype end_ = 0;
    std::vector<WireNode> nodes_;
    quint32 marks_ = MARK_NONE;
    mutable Charsets charsets_;
};

/// The first item inside with this WIRE_WHAT; the null item when there is none.
MMS_WIRE_Item insideOf(const MMS_WIRE_Item& item, quint16 what);
/// Whether a field, header or parameter has that name, from the tables or as sent, in any letter case.
bool isNamed(const MMS_WIRE_Item& item, QLatin1StringView name);
/// Whether a number has a meaning there or needs none.
bool isKnownNumber(quint16 what, quint64 number);
/// The text for a mark.
QString markText(quint32 marks);
/// The octets of an item's text, without code, quotes and closing zero, and its charset.
QByteArrayView textOctets(const MMS_WIRE_Item& item, int* charset = nullptr);
