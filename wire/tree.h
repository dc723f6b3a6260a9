#pragma once

#include "wire/fields.h"
#include "wire/item.h"
#include "wire/text.h"

#include <QByteArrayView>
#include <QLatin1StringView>
#include <QList>

#include <vector>

// The inside of the reader: the tree of items in one array, parents in front of what is inside them.

/// What an item is, beside the header fields, which are known by their code, 0 to 127.
enum WIRE_WHAT : quint16 {
    WIRE_PART_HEADER = 0x100, // and its code
    WIRE_PARAMETER = 0x200,   // and its code
    WIRE_MESSAGE = 0x300,
    WIRE_NAMED, // a header or parameter by name; the name is the first item inside
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
    WIRE_REST, // octets inside a length that the value does not need
    WIRE_BODY,
    WIRE_ENTRIES,
    WIRE_PART,
    WIRE_HEADERS_LEN,
    WIRE_DATA_LEN,
    WIRE_DATA,
    WIRE_AFTER_PARTS,
};

/// What can be wrong with an item; bits, since several things can be.
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

/// An item. It ends where the next one behind it begins: no octet can be left out or taken twice.
struct WireNode {
    qsizetype offset;
    quint64 value; // a number, or the TextPlace of a text
    quint32 next;  // behind the items inside; 0 while the item is being read
    quint32 marks;
    quint16 what; // a field code or WIRE_WHAT
    MMS_WIRE_Item::KIND kind;
    bool isSyntax; // a length, a charset, a token: no part of the value of the item around it
    bool isMisfit; // the value does not have its form: it counts for nothing
};

/// Where the text of an item lies between its octets, and its charset; kept in WireNode::value.
struct TextPlace {
    int charset; // a MIBenum number, 0 when none is known
    int head;    // octets in front of the text: code, quotes
    int tail;    // octets behind it: quote, closing zero

    quint64 packed() const { return quint64(charset) << 16 | quint64(head) << 8 | quint64(tail); }
    static TextPlace of(quint64 value) {
        return {int(value >> 16), int(value >> 8 & 0xFF), int(value & 0xFF)};
    }
};

/// The items of a message.
class WireTree {
public:
    /// Forgets everything and begins anew with these octets.
    void reset(QByteArrayView pdu);

    QByteArrayView octets() const { return octets_; }
    /// Says how far the octets have been read, so that the items there are already can be looked at.
    void setEnd(qsizetype end) { end_ = end; }
    const WireNode& node(quint32 index) const { return nodes_[index]; }
    WireNode& node(quint32 index) { return nodes_[index]; }
    quint32 size() const { return static_cast<quint32>(nodes_.size()); }
    MMS_WIRE_Item item(quint32 index) const { return MMS_WIRE_Item(this, index); }
    static const WireNode& nodeOf(const MMS_WIRE_Item& item) { return item.tree_->nodes_[item.node_]; }
    static const WireTree& treeOf(const MMS_WIRE_Item& item) { return *item.tree_; }

    /// Where the item behind this one and all inside it is, or will be.
    quint32 behind(quint32 index) const { return nodes_[index].next ? nodes_[index].next : size(); }
    /// Where the octets of an item end.
    qsizetype endOf(quint32 index) const {
        const quint32 next = behind(index);
        return next < size() ? nodes_[next].offset : end_;
    }

    /// Adds an item without items inside.
    quint32 add(quint16 what, MMS_WIRE_Item::KIND kind, qsizetype offset, quint64 value = 0,
                quint32 marks = MARK_NONE) {
        nodes_.push_back({offset, value, size() + 1, marks, what, kind, false, false});
        marks_ |= marks;
        return size() - 1;
    }
    /// Adds an item that is no part of the value around it.
    quint32 addSyntax(quint16 what, qsizetype offset, quint64 value, quint32 marks = MARK_NONE) {
        const quint32 index = add(what, MMS_WIRE_Item::NUMBER, offset, value, marks);
        nodes_.back().isSyntax = true;
        return index;
    }
    /// Adds an item that all items belong to until it is closed.
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
    /// All marks there are, together.
    quint32 marks() const { return marks_; }

    /// What the number of an item means, in words; empty for a plain number.
    QString wordsOf(const WireNode& node) const;

    /// Charsets are looked up when a text is asked for.
    Charsets& charsets() const { return charsets_; }

private:
    QByteArrayView octets_;
    qsizetype end_ = 0;
    std::vector<WireNode> nodes_;
    quint32 marks_ = MARK_NONE;
    mutable Charsets charsets_;
};

/// The item inside that has this WIRE_WHAT; the null item when there is none.
MMS_WIRE_Item insideOf(const MMS_WIRE_Item& item, quint16 what);
/// Whether a field, header or parameter has that name, in the tables or as sent; letter case aside.
bool isNamed(const MMS_WIRE_Item& item, QLatin1StringView name);
/// Whether a number has a meaning there, or needs none.
bool isKnownNumber(quint16 what, quint64 number);
/// What a mark says.
QString markText(quint32 marks);
/// The octets of a text item that are its text, and its charset.
QByteArrayView textOctets(const MMS_WIRE_Item& item, int* charset = nullptr);
