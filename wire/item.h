#pragma once

#include "platform/export.h"

#include <QByteArrayView>
#include <QString>

class WireTree;

/// One item of a PDU: a field, a value, a part, or octets that are not understood. It has a position and the
/// items inside it.
///
/// Items are small values; copies are cheap. An item points into its MMS_WIRE_Reader and is valid until that
/// reader reads again or is deleted. Texts are decoded on demand, so the caller keeps the octets as long.
///
/// The leaves below an item, in order, cover all its octets without gap or overlap. To visit the items
/// inside, write `for (MMS_WIRE_Item inside : item)`.
class LUM_EXPORT MMS_WIRE_Item {
public:
    /// What kind of value an item is.
    enum KIND : unsigned char {
        GROUP,   ///< no value of its own, or several inside it
        NUMBER,  ///< a number, often with words: the text
        TEXT,    ///< a text
        TIME,    ///< a point in time: seconds since 1970-01-01 UTC; the text is ISO 8601
        SECONDS, ///< a duration in seconds
        OCTETS,  ///< octets that are not understood, or have no meaning here
        DATA,    ///< the data of a part or of a body that is no multipart
    };
    /// How bad the fault of an item is.
    enum SEVERITY : unsigned char {
        SOUND,   ///< no fault
        NOTE,    ///< a deviation from the standard that does not prevent reading
        PROBLEM, ///< not understood, a wrong length, or a value in the wrong form
    };
    class iterator;

    /// The null item: no octets, nothing inside. Look-ups return it for what is absent.
    MMS_WIRE_Item() = default;
    /// Whether this is the null item.
    bool isNull() const { return !tree_; }

    /// Position of the item in the PDU, counted from 0.
    qsizetype offset() const;
    /// Number of its octets; 0 for a missing one.
    qsizetype length() const;
    /// The octets themselves, in the caller's PDU.
    QByteArrayView octets() const;

    /// The item's name: "X-Mms-Retrieve-Status", "Content-ID", "HeadersLen". A header or parameter sent by
    /// name has the name as sent; an unknown field its octet ("0xD4").
    QString name() const;
    /// The code of a header field, a part header or a parameter, without the top bit; -1 for any other item,
    /// also for a header sent by name.
    int code() const;

    /// The kind of value. An item with one value inside it (beside lengths, charsets and tokens) has the
    /// kind, number and text of that value.
    KIND kind() const;
    /// The number: of a time or duration the seconds, of several numbers the plain one. The largest value for
    /// a number beyond 64 bits, 0 when there is none.
    bool hasNumber() const;
    /// The number; of a time or duration its seconds, of several numbers the one without words. A number
    /// beyond 64 bits gives the largest one. 0 when there is none.
    quint64 number() const;
    /// The text: of a number its word ("Error-transient-network-problem"), of a media type its name, of a
    /// time ISO 8601 in UTC. Several values are joined by "; ", parameters as "name=value". Empty when there
    /// is none, and for a plain number.
    QString text() const;

    /// The text, or the digits of a plain number.
    QString valueText() const;

    /// How bad the fault of this item is; faults of the items inside it do not count.
    SEVERITY severity() const;
    /// The fault of this item itself; empty when it is sound.
    QString problem() const;

    /// Whether there are no items inside.
    bool isLeaf() const { return firstInside() == behind(); }
    /// The items directly inside, in the order of their octets.
    iterator begin() const;
    /// Behind the last of them.
    iterator end() const;

    /// The word for a kind, as JSON has it: "group", "number", "text", "time", "seconds", "octets", "data".
    static const char* kindWord(KIND kind);

    /// Whether both are the same item of the same reader.
    bool operator==(const MMS_WIRE_Item& other) const = default;

private:
    friend class WireTree;
    MMS_WIRE_Item(const WireTree* tree, quint32 node) : tree_(tree), node_(node) {}
    MMS_WIRE_Item onlyValue() const;
    MMS_WIRE_Item numbered() const;
    QString joinedText() const;
    quint32 firstInside() const { return node_ + 1; }
    quint32 behind() const;

    const WireTree* tree_ = nullptr;
    quint32 node_ = 0;
};

/// Iterates over the items inside an item.
class MMS_WIRE_Item::iterator {
public:
    /// The current item.
    MMS_WIRE_Item operator*() const { return item_; }
    /// Moves to the next item.
    iterator& operator++() {
        item_.node_ = item_.behind();
        return *this;
    }
    /// Whether both are at the same item.
    bool operator==(const iterator& other) const = default;

private:
    friend class MMS_WIRE_Item;
    explicit iterator(const MMS_WIRE_Item& item) : item_(item) {}

    MMS_WIRE_Item item_;
};

inline MMS_WIRE_Item::iterator MMS_WIRE_Item::begin() const {
    return iterator(isNull() ? *this : MMS_WIRE_Item(tree_, firstInside()));
}
inline MMS_WIRE_Item::iterator MMS_WIRE_Item::end() const {
    return iterator(isNull() ? *this : MMS_WIRE_Item(tree_, behind()));
}
