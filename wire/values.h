#pragma once

#include "wire/fields.h"
#include "wire/tree.h"

// Values of header fields, parts' headers and parameters (WSP, section 8.4; MMS encapsulation, section 7.2).

/// The octets that tell the forms of values apart.
namespace ValueOctet {
constexpr int lengthQuote = 31; // a uintvar with the length follows
constexpr int firstText = 32;
constexpr int quote = 127; // in front of a text that would begin with 128 or more
constexpr int highBit = 0x80;
constexpr int lowBits = 0x7F;
} // namespace ValueOctet

/// Whether a WIRE_WHAT is a parameter's.
constexpr bool isParameter(quint16 what) {
    return what >= WIRE_PARAMETER && what < WIRE_MESSAGE;
}

/// Reads values from the octets of a tree into items, up to a limit.
///
/// Each reading operation adds exactly the items for the octets it passes, from `from` on (a code in front of
/// the value, or where the value begins), and goes on behind them. Those that read a form give whether the
/// value has it.
class ValueReader {
public:
    explicit ValueReader(WireTree& tree)
        : tree_(tree), data_(reinterpret_cast<const unsigned char*>(tree.octets().data())),
          end_(tree.octets().size()) {}

    bool hasMore() const { return at_ < end_; }
    /// The next octet; there must be one.
    unsigned char next() const { return data_[at_]; }
    qsizetype at() const { return at_; }
    qsizetype left() const { return end_ - at_; }
    void goTo(qsizetype at) { at_ = at; }

    /// Reads no further than some octets from here for as long as it lives, and goes to their end then: what
    /// was not needed becomes an item.
    class Limit {
    public:
        Limit(ValueReader& reader, qsizetype octets, bool isValue);
        Limit(const Limit&) = delete;
        Limit& operator=(const Limit&) = delete;
        ~Limit();

    private:
        ValueReader& reader_;
        const qsizetype formerEnd_;
        const bool wasValue_;
    };

    /// Reads a value of that form.
    bool read(WIRE_FORM form, quint16 what, qsizetype from);
    /// Reads a header by name: a text and then a value, of the form that `known` gives for the name, if it is
    /// not null, or by its first octet.
    void readNamed(const MMS_WIRE_Field* (*known)(QByteArrayView name));
    /// Takes the octets that no header or parameter can begin with, as one item.
    void readStray();
    /// Takes a uintvar, which saturates; no item is added. False when the octets end inside it, or before.
    bool takeUintvar(quint64* value);
    /// Takes all octets that are left, if there are any, as one item.
    void readRest(quint16 what, MMS_WIRE_Item::KIND kind, quint32 marks);

    /// The type of message, which some fields depend on; 0 as long as it is not known.
    int messageType() const { return messageType_; }
    void setMessageType(int type) { messageType_ = type; }
    WireTree& tree() const { return tree_; }

private:
    struct Component {
        WIRE_FORM form;
        quint16 what;
    };

    bool readForm(WIRE_FORM form, quint16 what, qsizetype from);
    bool readOctet(WIRE_FORM form, quint16 what, qsizetype from);
    bool readInteger(WIRE_FORM form, quint16 what, qsizetype from);
    bool readTextString(quint16 what, qsizetype from, bool isQuoted);
    bool readText(quint16 what, qsizetype from, int charset, bool isQuoted);
    bool readWideText(quint16 what, qsizetype from, int charset);
    bool readEncoded(quint16 what, qsizetype from, quint16 inside);
    bool readEncodedWithLength(quint16 what, qsizetype from, quint16 inside);
    template <typename Inside>
    bool readWithLength(quint16 what, qsizetype from, Inside readInside);
    bool giveUp(quint32 index);
    bool readTime(quint16 what, qsizetype from);
    bool readFrom(quint16 what, qsizetype from);
    bool readCompound(quint16 what, qsizetype from, std::initializer_list<Component> components);
    bool readMedia(quint16 what, qsizetype from);
    bool readCharsetParameter(quint16 what, qsizetype from);
    bool readParameters();
    void readNamedParameter();
    bool readAny(quint16 what, qsizetype from);
    bool readMisfit(quint16 what, qsizetype from);

    bool beginsInteger() const { return hasMore() && (next() >= 128 || (next() >= 1 && next() <= 30)); }
    bool beginsText() const { return hasMore() && (next() == 0 || next() >= 32); }
    bool takeInteger(quint64* value);
    qsizetype takeLength(quint64* stated, quint32* marks);
    quint32 addText(quint16 what, qsizetype from, const TextPlace& place, quint32 marks);

    WireTree& tree_;
    const unsigned char* data_;
    qsizetype at_ = 0;
    qsizetype end_;
    bool isInValue_ = false; // the limit is the length that a value states of itself
    int messageType_ = 0;
};
