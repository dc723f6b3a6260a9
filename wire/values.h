#pragma once

#include "wire/fields.h"
#include "wire/tree.h"

// Values of header fields, part headers and parameters (WSP, section 8.4; MMS encapsulation, section 7.2).

/// The octets that distinguish the forms of values.
namespace ValueOctet {
constexpr int lengthQuote = 31; // a uintvar with the length follows
constexpr int firstText = 32;
constexpr int quote = 127; // in front of a text whose first octet is 128 or more
constexpr int highBit = 0x80;
constexpr int lowBits = 0x7F;
} // namespace ValueOctet

/// Whether a WIRE_WHAT is a parameter.
constexpr bool isParameter(quint16 what) {
    return what >= WIRE_PARAMETER && what < WIRE_MESSAGE;
}

/// Reads values from the octets of a tree into items, up to a limit.
///
/// Each reading operation adds items for exactly the octets that it consumes. They begin at `from`, the
/// position of a code in front of the value or of the value itself. Operations that read a form return
/// whether the value has it.
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

    /// While it exists, reading ends `octets` octets from here. At its end it moves there and adds unread
    /// octets as an item.
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
    /// Reads a header sent by name: a text, then a value. Its form is the one that `known` has for the name,
    /// or depends on the first octet when `known` is null or has none.
    void readNamed(const MMS_WIRE_Field* (*known)(QByteArrayView name));
    /// Takes octets with which no header or parameter begins, as one item.
    void readStray();
    /// Takes a uintvar without adding an item; the largest value for one beyond 64 bits. False when the input
    /// ends before or inside it.
    bool takeUintvar(quint64* value);
    /// Takes the remaining octets, if any, as one item.
    void readRest(quint16 what, MMS_WIRE_Item::KIND kind, quint32 marks);

    /// The message type, on which the form of some fields depends; 0 until it is known.
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
    bool isInValue_ = false; // the limit is the stated length of a value
    int messageType_ = 0;
};
