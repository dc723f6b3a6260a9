#include "wire/reader.h"

#include "codec/field_code.h"
#include "wire/body_reader.h"
#include "wire/tree.h"
#include "wire/values.h"

#include <algorithm>
#include <span>

namespace {

constexpr int highBit = 0x80;
constexpr int firstTextOctet = 32;
constexpr int octetQuote = 127;
constexpr int mboxDeleteConf = 146, deleteConf = 149;

/// The form of a field's value. In answers to delete requests, the fields about each message begin with a
/// count.
WIRE_FORM formOf(const MMS_WIRE_Field& field, const ValueReader& in) {
    const bool isCounted = (in.messageType() == mboxDeleteConf || in.messageType() == deleteConf) &&
                           in.hasMore() && in.next() < firstTextOctet;
    if (isCounted && field.code == FIELD_CONTENT_LOCATION)
        return FORM_COUNT_TEXT;
    if (isCounted && field.code == FIELD_RESPONSE_TEXT)
        return FORM_COUNT_ENCODED;
    return field.form;
}

/// Reads the header up to and including Content-Type. False when it has none.
bool readHeader(ValueReader& in) {
    WireTree& tree = in.tree();
    while (in.hasMore()) {
        const unsigned char first = in.next();
        if (first >= firstTextOctet && first < octetQuote) {
            in.readNamed(nullptr);
            continue;
        }
        if (first < highBit) {
            in.readStray();
            continue;
        }
        const qsizetype from = in.at();
        const int code = first & ~highBit;
        const quint32 index = tree.size();
        const MMS_WIRE_Field* field = wireField(code);
        in.goTo(from + 1);
        const bool fits = in.read(field ? formOf(*field, in) : FORM_ANY, static_cast<quint16>(code), from);
        if (!field)
            tree.mark(index, MARK_UNKNOWN);
        if (code == FIELD_MESSAGE_TYPE && fits && in.messageType() == 0)
            in.setMessageType(static_cast<int>(tree.node(index).value));
        if (code == FIELD_CONTENT_TYPE)
            return true;
    }
    return false;
}

} // namespace

MMS_WIRE_Reader::MMS_WIRE_Reader() : tree_(std::make_unique<WireTree>()) {
    read(QByteArrayView());
}

MMS_WIRE_Reader::~MMS_WIRE_Reader() = default;

bool MMS_WIRE_Reader::read(QByteArrayView pdu) {
    tree_->reset(pdu);
    ValueReader in(*tree_);
    const quint32 message = tree_->open(WIRE_MESSAGE, 0);
    if (readHeader(in))
        readBody(in);
    tree_->close(message);
    tree_->setEnd(pdu.size());
    return isSound();
}

MMS_WIRE_Item MMS_WIRE_Reader::message() const {
    return tree_->item(0);
}

MMS_WIRE_Item MMS_WIRE_Reader::field(int code) const {
    for (const MMS_WIRE_Item item : message()) {
        const WireNode& node = WireTree::nodeOf(item);
        if (node.what == code && !node.isMisfit)
            return item;
    }
    return MMS_WIRE_Item();
}

int MMS_WIRE_Reader::messageType() const {
    const MMS_WIRE_Item type = field(FIELD_MESSAGE_TYPE);
    return type.isNull() ? -1 : static_cast<int>(type.number());
}

MMS_WIRE_Item MMS_WIRE_Reader::body() const {
    return insideOf(message(), WIRE_BODY);
}

QList<MMS_WIRE_Part> MMS_WIRE_Reader::parts() const {
    const MMS_WIRE_Item whole = body();
    if (whole.isNull() || !whole.isLeaf())
        return MMS_WIRE_Part(whole).parts();
    return {MMS_WIRE_Part(whole)};
}

bool MMS_WIRE_Reader::isSound() const {
    return !(tree_->marks() & problemMarks);
}

QList<MMS_WIRE_Mark> MMS_WIRE_Reader::marks() const {
    QList<MMS_WIRE_Mark> marks;
    for (quint32 i = 0; i < tree_->size(); ++i) {
        const MMS_WIRE_Item item = tree_->item(i);
        if (item.severity() != MMS_WIRE_Item::SOUND)
            marks.append({item, item.severity(), item.problem()});
    }
    return marks;
}

QList<int> MMS_WIRE_Reader::missingFields() const {
    QList<int> missing;
    const MMS_WIRE_MessageType* type = wireMessageType(messageType());
    constexpr int always[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION}; // mandatory in all types
    const auto isThere = [this](int code) { return !field(code).isNull(); };
    for (const int code : type ? type->mandatory : std::span<const int>(always))
        if (!isThere(code))
            missing += code;
    if (type && type->needsRecipient && !isThere(FIELD_TO) && !isThere(FIELD_CC) && !isThere(FIELD_BCC))
        missing += FIELD_TO;
    return missing;
}

bool MMS_WIRE_Reader::isFieldOrderCorrect() const {
    std::vector<int> codes;
    for (const MMS_WIRE_Item item : message())
        if (WireTree::nodeOf(item).what != WIRE_BODY)
            codes.push_back(item.code());
    auto expected = codes.cbegin();
    for (const int code : {FIELD_MESSAGE_TYPE, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION}) {
        const auto found = std::find(codes.cbegin(), codes.cend(), code);
        if (found == codes.cend())
            continue;
        if (found != expected)
            return false;
        ++expected;
    }
    return true; // Content-Type is always last: reading ends there
}
