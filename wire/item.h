#pragma once

#include "platform/export.h"

#include <QByteArrayView>
#include <QString>

class WireTree;

/// One item of a PDU: a field, a value, a part, or octets that are not understood, with its position and
/// the items inside it.
///
/// An item is a small value that points into its MMS_WIRE_Reader; copies are cheap. It is valid until that
/// reader reads again or is deleted, and as long as the caller keeps the octets: texts are decoded from
/// there on demand.
///
/// The leaves below an item, in order, cover its octets exactly: walk them with
/// `for (MMS_WIRE_Item inside : item)`.
class LUM_EXPORT MMS_WIRE_Item {
public:
    /// What kind of value an item is.
    enum KIND : unsigned char {
        GROUP,   ///< no value of its own, or several inside it
        NUMBER,  ///< a number, often with words: the text
        TEXT,    ///< a text
        TIME,    ///< a moment: seconds since 1970-01-01 UTC; the text is ISO 8601
        SECONDS, ///< a span of time in seconds
        OCTETS,  ///< octets that are not understood, or have no meaning here
        DATA,    ///< the data of a part or of a body that is no multipart
    };
    /// How bad the fault of an item is.
    enum SEVERITY : unsigned char {
        SOUND,   ///< nothing
        NOTE,    ///< off the rules, and read all the same
        PROBLEM, ///< something is not understood, a length lies, or a value does not fit
    };
    class iterator;

    /// The null item: no octets, nothing inside. Look-ups return it for what is absent.
    MMS_WIRE_Item() = default;
    /// Whether this is the null item.
    bool isNull() const { return !tree_; }

    /// Position of the item in the PDU, counted from 0.
    qsizetype offset() const;
    /// Number of its octets; 0 for something that is missing.
    qsizetype length() const;
    /// The octets themselves, in the caller's PDU.
    QByteArrayView octets() const;

    /// The item's name: "X-Mms-Retrieve-Status", "Content-ID", "HeadersLen"; for a header or a parameter by
    /// name the name that was sent; "0xD4" for a field that is not known.
    QString name() const;
    /// The number of a header field, a part's header or a parameter, without the high bit it has on the wire;
    /// -1 for any other item, also for a header by name.
    int code() const;

    /// The kind of value. An item with one value inside it (beside lengths, charsets and tokens) has the
    /// kind, number and text of that value.
    KIND kind() const;
    /// Whether there is a number().
    bool hasNumber() const;
    /// The number; of a time or duration its seconds, of several numbers the one without words. A number
    /// beyond 64 bits gives the largest one. 0 when there is none.
    quint64 number() const;
    /// The text; for a number its words in full ("Error-transient-network-problem"), for a media type its
    /// name, for a moment ISO 8601 in UTC. Several values inside the item are joined by "; ", parameters
    /// among them as "name=value". Empty when there is none, and for a number without words.
    QString text() const;

    /// The text, or the digits of a number without words.
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
