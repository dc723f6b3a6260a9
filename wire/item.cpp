#include "wire/item.h"

#include "codec/field_code.h"
#include "wire/media.h"
#include "wire/tree.h"

#include <QDateTime>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>
#include <iterator>

namespace {

/// Names of the items that are not fields, headers or parameters, from WIRE_MESSAGE on.
constexpr const char* structureNames[] = {
    "Message", // WIRE_MESSAGE
    "",        // WIRE_NAMED
    "Octets",  // WIRE_STRAY
    "Code",    "Name",       "Length",      "Charset", "Time-token", "From-token",
    "Action",  "Unit",       "Disposition", "Count",   "Text",       "Address",
    "Time",    "Value",      "Media-type",  "Octets",  "Body",       "nEntries",
    "Part",    "HeadersLen", "DataLen",     "Data",    "Octets",
};
static_assert(std::size(structureNames) == WIRE_AFTER_PARTS - WIRE_MESSAGE + 1);

constexpr int codeMask = 0xFF;
constexpr int highBit = 0x80;
constexpr int attributesField = 0x28, flagsField = 0x24, totalsField = 0x2A;
constexpr int contentTypeHeader = 0x11, dispositionHeader = 0x2E;

constexpr MMS_WIRE_Word timeTokens[] = {{128, "Absolute"}, {129, "Relative"}};
constexpr MMS_WIRE_Field timeToken = {0, "Time-token", FORM_OCTET, timeTokens};
constexpr MMS_WIRE_Word fromTokens[] = {{128, "Address-present"}, {129, "Insert-address"}};
constexpr MMS_WIRE_Field fromToken = {0, "From-token", FORM_OCTET, fromTokens};

/// The table row of a field, a header or a parameter; null for any other item and for an unknown one.
const MMS_WIRE_Field* rowOf(quint16 what) {
    if (what < WIRE_PART_HEADER)
        return wireField(what);
    if (what < WIRE_PARAMETER)
        return wirePartHeader(what & codeMask);
    return what < WIRE_MESSAGE ? wireParameter(what & codeMask) : nullptr;
}

/// Seconds since 1970 as ISO 8601; empty after the year 9999.
QString isoTime(quint64 seconds) {
    constexpr quint64 lastSecond = 253402300799;
    if (seconds > lastSecond)
        return QString();
    const QDateTime time = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(seconds), QTimeZone::utc());
    return time.toUTC().toString(Qt::ISODate); // ends with "Z" instead of "+00:00"
}

QString asText(const char* word) {
    return word ? QString::fromLatin1(word) : QString();
}

QString versionWord(quint64 octet) {
    return QStringLiteral("%1.%2").arg(octet >> 4 & 0x07).arg(octet & 0x0F);
}

/// Whether an item has no value of its own but holds others: the message, a body, a part.
bool isContainer(quint16 what) {
    return what == WIRE_MESSAGE || what >= WIRE_BODY;
}

/// The table row with the words for a number; null for a plain number.
const MMS_WIRE_Field* wordRow(quint16 what) {
    switch (what) {
    case WIRE_TIME_TOKEN:
        return &timeToken;
    case WIRE_FROM_TOKEN:
        return &fromToken;
    case WIRE_ACTION:
        return wireField(flagsField);
    case WIRE_UNIT:
        return wireField(totalsField);
    case WIRE_DISPOSITION:
        return wirePartHeader(dispositionHeader);
    }
    return rowOf(what);
}

} // namespace

QString WireTree::wordsOf(const WireNode& node) const {
    switch (node.what) {
    case FIELD_MESSAGE_TYPE: {
        const auto* type = wireMessageType(static_cast<int>(node.value & codeMask));
        return asText(type ? type->name : nullptr);
    }
    case FIELD_MMS_VERSION:
        return versionWord(node.value);
    case attributesField: {
        const auto* field = wireField(static_cast<int>(node.value & ~quint64(highBit)));
        return asText(field ? field->name : nullptr);
    }
    case WIRE_CHARSET:
    case WIRE_PARAMETER + 0x01:
        return charsetName(static_cast<int>(std::min<quint64>(node.value, largestCharset)), charsets_);
    case FIELD_CONTENT_TYPE:
    case WIRE_PART_HEADER + contentTypeHeader:
    case WIRE_MEDIA:
    case WIRE_PARAMETER + 0x09:
        return isKnownMedia(node.value) ? mediaByNumber(node.value).name() : QString();
    }
    const MMS_WIRE_Field* row = wordRow(node.what);
    return asText(row ? wireWord(*row, node.value) : nullptr);
}

bool isNamed(const MMS_WIRE_Item& item, QLatin1StringView name) {
    const quint16 what = WireTree::nodeOf(item).what;
    if (what == WIRE_NAMED)
        return textOctets(*item.begin())
                   .compare(QByteArrayView(name.data(), name.size()), Qt::CaseInsensitive) == 0;
    const MMS_WIRE_Field* row = rowOf(what);
    return row && name.compare(QLatin1StringView(row->name), Qt::CaseInsensitive) == 0;
}

bool isKnownNumber(quint16 what, quint64 number) {
    switch (what) {
    case FIELD_MESSAGE_TYPE:
        return wireMessageType(static_cast<int>(number & codeMask));
    case attributesField:
        return wireField(static_cast<int>(number & ~quint64(highBit)));
    }
    const MMS_WIRE_Field* row = wordRow(what);
    return !row || row->words.empty() || wireWord(*row, number);
}

quint32 MMS_WIRE_Item::behind() const {
    return tree_ ? tree_->behind(node_) : node_ + 1;
}

qsizetype MMS_WIRE_Item::offset() const {
    return tree_ ? tree_->node(node_).offset : 0;
}

qsizetype MMS_WIRE_Item::length() const {
    return tree_ ? tree_->endOf(node_) - offset() : 0;
}

QByteArrayView MMS_WIRE_Item::octets() const {
    return tree_ ? tree_->octets().sliced(offset(), length()) : QByteArrayView();
}

QString MMS_WIRE_Item::name() const {
    if (!tree_)
        return QString();
    const quint16 what = tree_->node(node_).what;
    if (what == WIRE_NAMED)
        return (*begin()).text();
    if (what >= WIRE_MESSAGE)
        return asText(structureNames[what - WIRE_MESSAGE]);
    if (const MMS_WIRE_Field* row = rowOf(what))
        return asText(row->name);
    return QStringLiteral("0x%1")
        .arg(code() | highBit, 2, 16, QLatin1Char('0'))
        .toUpper()
        .replace(u'X', u'x');
}

int MMS_WIRE_Item::code() const {
    if (!tree_)
        return -1;
    const quint16 what = tree_->node(node_).what;
    return what < WIRE_MESSAGE ? what & codeMask : -1;
}

/// The value inside this item if there is exactly one; else the null item.
MMS_WIRE_Item MMS_WIRE_Item::onlyValue() const {
    MMS_WIRE_Item only;
    for (const MMS_WIRE_Item inside : *this) {
        if (tree_->node(inside.node_).isSyntax)
            continue;
        if (!only.isNull())
            return MMS_WIRE_Item();
        only = inside;
    }
    return only;
}

MMS_WIRE_Item::KIND MMS_WIRE_Item::kind() const {
    if (!tree_)
        return GROUP;
    const WireNode& node = tree_->node(node_);
    if (node.isMisfit)
        return OCTETS;
    if (isLeaf() || isContainer(node.what))
        return node.kind;
    const MMS_WIRE_Item only = onlyValue();
    return only.isNull() ? GROUP : only.kind();
}

bool MMS_WIRE_Item::hasNumber() const {
    return !numbered().isNull();
}

quint64 MMS_WIRE_Item::number() const {
    const MMS_WIRE_Item item = numbered();
    return item.isNull() ? 0 : tree_->node(item.node_).value;
}

/// The item that provides number(): this one, or the first value directly inside that is a plain number, or
/// else the first that is a number with a word. The null item when there is none.
MMS_WIRE_Item MMS_WIRE_Item::numbered() const {
    if (!tree_)
        return MMS_WIRE_Item();
    const WireNode& node = tree_->node(node_);
    if (node.isMisfit)
        return MMS_WIRE_Item();
    if (isLeaf())
        return node.kind == NUMBER || node.kind == TIME || node.kind == SECONDS ? *this : MMS_WIRE_Item();
    MMS_WIRE_Item found;
    if (isContainer(node.what))
        return found;
    for (const MMS_WIRE_Item inside : *this) {
        const WireNode& value = tree_->node(inside.node_);
        if (value.isSyntax || value.what >> 8 == WIRE_PARAMETER >> 8)
            continue;
        const MMS_WIRE_Item number = inside.numbered();
        if (number.isNull())
            continue;
        if (tree_->wordsOf(tree_->node(number.node_)).isEmpty())
            return number;
        if (found.isNull())
            found = number;
    }
    return found;
}

QString MMS_WIRE_Item::text() const {
    if (!tree_)
        return QString();
    const WireNode& node = tree_->node(node_);
    if (node.isMisfit)
        return QString();
    if (!isLeaf())
        return isContainer(node.what) ? QString() : joinedText();
    switch (node.kind) {
    case TEXT: {
        int charset = charsetUnknown;
        const QByteArrayView octets = textOctets(*this, &charset);
        return decodedText(octets, charset, tree_->charsets());
    }
    case NUMBER:
        return tree_->wordsOf(node);
    case TIME:
        return isoTime(node.value);
    default:
        return QString();
    }
}

/// The texts of the values inside, joined. Among several values, a plain number gives its digits.
QString MMS_WIRE_Item::joinedText() const {
    const MMS_WIRE_Item only = onlyValue();
    if (!only.isNull())
        return only.text();
    QStringList texts;
    for (const MMS_WIRE_Item inside : *this) {
        const WireNode& value = tree_->node(inside.node_);
        if (value.isSyntax || inside.kind() == OCTETS)
            continue;
        const QString text = inside.valueText();
        const bool isParameter =
            value.what >= WIRE_PARAMETER && value.what <= WIRE_NAMED && value.what != WIRE_MESSAGE;
        texts += isParameter ? inside.name() + u'=' + text : text;
    }
    return texts.join(QStringLiteral("; "));
}

QString MMS_WIRE_Item::valueText() const {
    const QString words = text();
    return words.isEmpty() && hasNumber() ? QString::number(number()) : words;
}

MMS_WIRE_Item::SEVERITY MMS_WIRE_Item::severity() const {
    const quint32 marks = tree_ ? tree_->node(node_).marks : MARK_NONE;
    return marks & problemMarks ? PROBLEM : marks ? NOTE : SOUND;
}

QString MMS_WIRE_Item::problem() const {
    return tree_ ? markText(tree_->node(node_).marks) : QString();
}

const char* MMS_WIRE_Item::kindWord(KIND kind) {
    constexpr const char* words[] = {"group", "number", "text", "time", "seconds", "octets", "data"};
    return kind < std::size(words) ? words[kind] : "";
}
