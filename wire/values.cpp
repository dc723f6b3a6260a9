#include "wire/values.h"

#include "codec/field_code.h"
#include "wire/media.h"
#include "wire/text.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

constexpr int textQuote = 0x22; // in front of a quoted text
constexpr int yes = 128, no = 129;
constexpr quint64 largest = std::numeric_limits<quint64>::max();

} // namespace

ValueReader::Limit::Limit(ValueReader& reader, qsizetype octets, bool isValue)
    : reader_(reader), formerEnd_(reader.end_), wasValue_(reader.isInValue_) {
    reader_.end_ = reader_.at_ + octets;
    reader_.isInValue_ = isValue;
}

ValueReader::Limit::~Limit() {
    reader_.readRest(WIRE_REST, MMS_WIRE_Item::OCTETS, MARK_REST);
    reader_.end_ = formerEnd_;
    reader_.isInValue_ = wasValue_;
}

bool ValueReader::read(WIRE_FORM form, quint16 what, qsizetype from) {
    const quint32 index = tree_.size();
    if (!hasMore()) {
        tree_.add(what, MMS_WIRE_Item::OCTETS, from, 0, MARK_NO_VALUE);
        tree_.node(index).isMisfit = true;
        return false;
    }
    const bool fits = readForm(form, what, from);
    if (!fits)
        tree_.node(index).isMisfit = true;
    return fits;
}

bool ValueReader::readForm(WIRE_FORM form, quint16 what, qsizetype from) {
    switch (form) {
    case FORM_ANY:
        return readAny(what, from);
    case FORM_OCTET:
    case FORM_YES_NO:
    case FORM_SHORT:
    case FORM_NO_VALUE:
        return readOctet(form, what, from);
    case FORM_INTEGER:
    case FORM_LONG:
    case FORM_DATE:
        return readInteger(form, what, from);
    case FORM_UINTVAR: {
        quint64 value = 0;
        const bool isWhole = takeUintvar(&value);
        tree_.add(what, MMS_WIRE_Item::NUMBER, from, value, isWhole ? MARK_NONE : MARK_NUMBER_CUT);
        return isWhole;
    }
    case FORM_TEXT:
        return readTextString(what, from, isParameter(what));
    case FORM_QUOTED:
        return readTextString(what, from, true);
    case FORM_CONTENT_ID: {
        const quint32 index = tree_.size();
        const bool isQuoted = next() == textQuote;
        const bool fits = readTextString(what, from, true);
        if (fits && !isQuoted)
            tree_.mark(index, MARK_NO_QUOTE);
        return fits;
    }
    case FORM_ENCODED:
        return readEncoded(what, from, WIRE_TEXT);
    case FORM_ADDRESS:
        return readEncoded(what, from, WIRE_ADDRESS);
    case FORM_CLASS:
        return next() >= ValueOctet::highBit ? readOctet(FORM_OCTET, what, from)
                                             : readTextString(what, from, false);
    case FORM_TIME:
        return readTime(what, from);
    case FORM_FROM:
        return readFrom(what, from);
    case FORM_CONTENT_TYPE:
        if (next() >= ValueOctet::firstText)
            return readMedia(what, from);
        return readCompound(what, from, {{FORM_MEDIA, WIRE_MEDIA}, {FORM_PARAMETERS, 0}});
    case FORM_MEDIA:
        return readMedia(what, from);
    case FORM_CHARSET:
        return readCharsetParameter(what, from);
    case FORM_COUNT_TEXT:
        return readCompound(what, from, {{FORM_INTEGER, WIRE_COUNT}, {FORM_TEXT, WIRE_TEXT}});
    case FORM_COUNT_ENCODED:
        return readCompound(what, from, {{FORM_INTEGER, WIRE_COUNT}, {FORM_ENCODED, WIRE_TEXT}});
    case FORM_COUNT_ADDRESS:
        return readCompound(what, from, {{FORM_INTEGER, WIRE_COUNT}, {FORM_ADDRESS, WIRE_ADDRESS}});
    case FORM_COUNT_DATE:
        return readCompound(what, from, {{FORM_INTEGER, WIRE_COUNT}, {FORM_DATE, WIRE_TIME}});
    case FORM_FLAGS:
        return readCompound(what, from, {{FORM_OCTET, WIRE_ACTION}, {FORM_ENCODED, WIRE_TEXT}});
    case FORM_TOTALS:
        return readCompound(what, from, {{FORM_OCTET, WIRE_UNIT}, {FORM_INTEGER, WIRE_VALUE}});
    case FORM_ELEMENT:
        return readCompound(what, from, {{FORM_TEXT, WIRE_TEXT}, {FORM_PARAMETERS, 0}});
    case FORM_DISPOSITION:
        if (what == WIRE_VALUE && next() >= ValueOctet::firstText) // by name, usually sent as MIME text
            return readAny(what, from);
        return readCompound(what, from, {{FORM_CLASS, WIRE_DISPOSITION}, {FORM_PARAMETERS, 0}});
    case FORM_LENGTH_DATE:
        return readCompound(what, from, {{FORM_DATE, WIRE_TIME}});
    case FORM_PARAMETERS:
        return readParameters();
    }
    return readMisfit(what, from);
}

// ---- numbers ----

bool ValueReader::takeUintvar(quint64* value) {
    *value = 0;
    while (hasMore()) {
        const unsigned char octet = data_[at_++];
        *value = *value > largest >> 7 ? largest : *value << 7 | (octet & ValueOctet::lowBits);
        if (!(octet & ValueOctet::highBit))
            return true;
    }
    return false;
}

/// Takes a Short-integer or a Long-integer; the largest value for one beyond 64 bits. False, and nothing
/// taken, for anything else and for one that is cut off.
bool ValueReader::takeInteger(quint64* value) {
    if (!beginsInteger())
        return false;
    const unsigned char first = next();
    if (first & ValueOctet::highBit) {
        *value = first & ValueOctet::lowBits;
        ++at_;
        return true;
    }
    if (first >= left())
        return false;
    *value = 0;
    for (const unsigned char* octet = data_ + at_ + 1; octet != data_ + at_ + 1 + first; ++octet)
        *value = *value > largest >> 8 ? largest : *value << 8 | *octet;
    at_ += 1 + first;
    return true;
}

bool ValueReader::readInteger(WIRE_FORM form, quint16 what, qsizetype from) {
    const bool isShort = next() & ValueOctet::highBit;
    quint64 value = 0;
    if (!takeInteger(&value))
        return readMisfit(what, from);
    MMS_WIRE_Item::KIND kind = form == FORM_DATE ? MMS_WIRE_Item::TIME : MMS_WIRE_Item::NUMBER;
    tree_.add(what, kind, from, value, form == FORM_LONG && isShort ? MARK_SHORT : MARK_NONE);
    return true;
}

bool ValueReader::readOctet(WIRE_FORM form, quint16 what, qsizetype from) {
    const unsigned char octet = next();
    if (form == FORM_NO_VALUE ? octet != 0
        : form == FORM_YES_NO ? octet != yes && octet != no
                              : octet < ValueOctet::highBit)
        return readMisfit(what, from);
    ++at_;
    const quint64 value = form == FORM_SHORT ? octet & ValueOctet::lowBits : octet;
    tree_.add(what, MMS_WIRE_Item::NUMBER, from, value,
              form == FORM_OCTET && !isKnownNumber(what, value) ? MARK_NO_WORD : MARK_NONE);
    return true;
}

// ---- texts ----

quint32 ValueReader::addText(quint16 what, qsizetype from, const TextPlace& place, quint32 marks) {
    const QByteArrayView octets =
        tree_.octets().sliced(from, at_ - from).sliced(place.head).chopped(place.tail);
    if (place.charset == charsetUsAscii) {
        if (!isAsciiText(octets))
            marks |= MARK_NOT_ASCII;
    } else if (place.charset != charsetUnknown && !isValidText(octets, place.charset, tree_.charsets())) {
        marks |= MARK_BAD_TEXT;
    }
    return tree_.add(what, MMS_WIRE_Item::TEXT, from, place.packed(), marks);
}

/// Reads a text up to its zero, with an opening quote and, in a quoted text, the closing one.
bool ValueReader::readText(quint16 what, qsizetype from, int charset, bool isQuoted) {
    if (unitSize(charset) > 1)
        return readWideText(what, from, charset);
    const auto* begin = data_ + at_;
    const void* zero = hasMore() ? std::memchr(begin, 0, static_cast<size_t>(left())) : nullptr;
    const unsigned char* end = zero ? static_cast<const unsigned char*>(zero) : data_ + end_;
    TextPlace place = {charset, static_cast<int>(at_ - from), zero ? 1 : 0};
    at_ = end - data_ + place.tail;
    if (begin != end && *begin == ValueOctet::quote) {
        ++begin;
        ++place.head;
    }
    if (isQuoted && begin != end && *begin == textQuote) {
        ++begin;
        ++place.head;
        if (begin != end && end[-1] == textQuote)
            ++place.tail;
    }
    addText(what, from, place, zero ? MARK_NONE : isInValue_ ? MARK_NO_ZERO : MARK_TEXT_CUT);
    return true;
}

/// Reads a text of 16-bit or 32-bit units to the end of its length; its closing zero is a unit.
bool ValueReader::readWideText(quint16 what, qsizetype from, int charset) {
    const int unit = unitSize(charset);
    const QByteArrayView octets = tree_.octets().sliced(at_, left());
    TextPlace place = {charset, static_cast<int>(at_ - from), 0};
    // the octet 127 can also be the first of a character
    const bool isMarked = octets.sliced(std::min<qsizetype>(1, octets.size())).startsWith("\xFE\xFF") ||
                          octets.sliced(std::min<qsizetype>(1, octets.size())).startsWith("\xFF\xFE");
    qsizetype begin = 0;
    if (octets.startsWith(char(ValueOctet::quote)) && (isMarked || octets.size() % unit == 1)) {
        begin = 1;
        ++place.head;
    }
    qsizetype end = begin;
    const auto isZero = [&](qsizetype count) {
        return std::all_of(octets.begin() + end, octets.begin() + end + count, [](char c) { return c == 0; });
    };
    while (octets.size() - end >= unit && !isZero(unit))
        end += unit;
    const qsizetype rest = octets.size() - end;
    quint32 marks = MARK_NONE;
    if (rest >= unit) {
        place.tail = unit;
    } else {
        marks |= MARK_NO_ZERO;
        if (isZero(rest)) // some senders write a zero of one octet
            place.tail = static_cast<int>(rest);
        else
            end += rest;
    }
    at_ += end + place.tail;
    addText(what, from, place, marks);
    return true;
}

bool ValueReader::readTextString(quint16 what, qsizetype from, bool isQuoted) {
    if (!beginsText())
        return readMisfit(what, from);
    const quint32 index = tree_.size();
    const bool isHigh = next() & ValueOctet::highBit;
    const bool fits = readText(what, from, charsetUnknown, isQuoted);
    if (isHigh)
        tree_.mark(index, MARK_HIGH_TEXT);
    return fits;
}

bool ValueReader::readEncoded(quint16 what, qsizetype from, quint16 inside) {
    return beginsText() ? readTextString(what, from, false) : readEncodedWithLength(what, from, inside);
}

void ValueReader::readNamed(const MMS_WIRE_Field* (*known)(QByteArrayView name)) {
    const quint32 index = tree_.open(WIRE_NAMED, at_);
    const quint32 name = tree_.size();
    readText(WIRE_NAME, at_, charsetUnknown, false);
    tree_.node(name).isSyntax = true;
    tree_.setEnd(at_);
    const MMS_WIRE_Field* row = known ? known(textOctets(tree_.item(name))) : nullptr;
    const bool fits = read(row ? row->form : FORM_ANY, WIRE_VALUE, at_);
    tree_.node(index).isMisfit = !fits;
    tree_.close(index);
}

// ---- what is not understood ----

bool ValueReader::readAny(quint16 what, qsizetype from) {
    if (next() >= ValueOctet::highBit) {
        tree_.add(what, MMS_WIRE_Item::NUMBER, from, next());
        ++at_;
        return true;
    }
    if (next() >= ValueOctet::firstText)
        return readText(what, from, charsetUnknown, false);
    quint64 stated = 0;
    quint32 marks = MARK_NONE;
    const qsizetype length = takeLength(&stated, &marks);
    tree_.add(what, MMS_WIRE_Item::OCTETS, from, 0, marks);
    at_ += length;
    return true;
}

/// Skips a value that is not of the expected form, by its own form.
bool ValueReader::readMisfit(quint16 what, qsizetype from) {
    const quint32 index = tree_.size();
    readAny(what, from);
    tree_.node(index).kind = MMS_WIRE_Item::OCTETS;
    tree_.mark(index, MARK_FORM);
    return false;
}

void ValueReader::readStray() {
    const qsizetype from = at_;
    while (hasMore() && (next() < ValueOctet::firstText || next() == ValueOctet::quote))
        ++at_;
    tree_.add(WIRE_STRAY, MMS_WIRE_Item::OCTETS, from, 0, MARK_STRAY);
}

void ValueReader::readRest(quint16 what, MMS_WIRE_Item::KIND kind, quint32 marks) {
    if (!hasMore())
        return;
    tree_.add(what, kind, at_, 0, marks);
    at_ = end_;
}
