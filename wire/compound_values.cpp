// Values of several parts: values with a length, media types and their parameters.

#include "wire/media.h"
#include "wire/text.h"
#include "wire/values.h"

#include <algorithm>

namespace {

constexpr int absoluteToken = 128, relativeToken = 129;
constexpr int addressToken = 128, insertAddressToken = 129;

} // namespace

/// Takes a length; returns how many octets there are of the stated number.
qsizetype ValueReader::takeLength(quint64* stated, quint32* marks) {
    *stated = data_[at_++];
    if (*stated == ValueOctet::lengthQuote && !takeUintvar(stated)) {
        *marks |= MARK_NUMBER_CUT;
        return 0;
    }
    if (*stated > static_cast<quint64>(left())) {
        *marks |= MARK_LENGTH_CUT;
        return left();
    }
    return static_cast<qsizetype>(*stated);
}

/// Reads a value with a length: an item with the code in front, if there is one, the length, and what
/// `readInside` reads. `readInside` gets the item's index and returns whether the value has its form.
template <typename Inside>
bool ValueReader::readWithLength(quint16 what, qsizetype from, Inside readInside) {
    if (next() == 0 || next() > ValueOctet::lengthQuote)
        return readMisfit(what, from);
    const quint32 index = tree_.open(what, from);
    if (from < at_)
        tree_.addSyntax(WIRE_CODE, from, data_[from] & ValueOctet::lowBits);
    const qsizetype at = at_;
    quint64 stated = 0;
    quint32 marks = MARK_NONE;
    const qsizetype length = takeLength(&stated, &marks);
    tree_.addSyntax(WIRE_LENGTH, at, stated, marks);
    bool fits = false;
    {
        const Limit limit(*this, length, true);
        fits = readInside(index);
    }
    tree_.close(index);
    return fits;
}

bool ValueReader::readCompound(quint16 what, qsizetype from, std::initializer_list<Component> components) {
    return readWithLength(what, from, [&](quint32) {
        for (const Component& component : components) {
            const bool fits = component.form == FORM_PARAMETERS ? readParameters()
                                                                : read(component.form, component.what, at_);
            if (!fits) {
                readRest(WIRE_REST, MMS_WIRE_Item::OCTETS, MARK_NONE); // the problem is marked already
                return false;
            }
        }
        return true;
    });
}

/// Takes the rest of a value that does not have its form.
bool ValueReader::giveUp(quint32 index) {
    tree_.mark(index, MARK_FORM);
    readRest(WIRE_REST, MMS_WIRE_Item::OCTETS, MARK_NONE);
    return false;
}

bool ValueReader::readEncodedWithLength(quint16 what, qsizetype from, quint16 inside) {
    return readWithLength(what, from, [&](quint32 index) {
        const qsizetype at = at_;
        quint64 number = 0;
        if (!takeInteger(&number))
            return giveUp(index);
        const int charset = static_cast<int>(std::min<quint64>(number, largestCharset));
        const bool isKnown = isKnownCharset(charset, tree_.charsets());
        tree_.addSyntax(WIRE_CHARSET, at, number, isKnown ? MARK_NONE : MARK_CHARSET);
        readText(inside, at_, isKnown ? charset : charsetUnknown, false);
        return true;
    });
}

bool ValueReader::readTime(quint16 what, qsizetype from) {
    return readWithLength(what, from, [&](quint32 index) {
        if (!hasMore() || (next() != absoluteToken && next() != relativeToken))
            return giveUp(index);
        const bool isAbsolute = next() == absoluteToken;
        tree_.addSyntax(WIRE_TIME_TOKEN, at_, next());
        ++at_;
        const quint32 time = tree_.size();
        const bool fits = read(FORM_DATE, WIRE_TIME, at_);
        if (fits && !isAbsolute)
            tree_.node(time).kind = MMS_WIRE_Item::SECONDS;
        return fits;
    });
}

bool ValueReader::readFrom(quint16 what, qsizetype from) {
    return readWithLength(what, from, [&](quint32 index) {
        if (hasMore() && next() == addressToken) {
            tree_.addSyntax(WIRE_FROM_TOKEN, at_, next());
            ++at_;
            return read(FORM_ADDRESS, WIRE_ADDRESS, at_);
        }
        if (hasMore() && next() == insertAddressToken) {
            tree_.add(WIRE_FROM_TOKEN, MMS_WIRE_Item::NUMBER, at_, next());
            ++at_;
            return true;
        }
        return giveUp(index);
    });
}

// ---- media types, charsets, parameters ----

bool ValueReader::readMedia(quint16 what, qsizetype from) {
    if (beginsInteger()) {
        quint64 number = 0;
        if (!takeInteger(&number))
            return readMisfit(what, from);
        tree_.add(what, MMS_WIRE_Item::NUMBER, from, number, isKnownMedia(number) ? MARK_NONE : MARK_MEDIA);
        return true;
    }
    return next() == 0 ? readMisfit(what, from) : readTextString(what, from, isParameter(what));
}

bool ValueReader::readCharsetParameter(quint16 what, qsizetype from) {
    const quint32 index = tree_.size();
    if (!beginsInteger()) {
        if (!readTextString(what, from, true))
            return false;
        tree_.setEnd(at_);
        if (charsetByName(textOctets(tree_.item(index))) == charsetUnknown)
            tree_.mark(index, MARK_CHARSET);
        return true;
    }
    quint64 number = 0;
    if (!takeInteger(&number))
        return readMisfit(what, from);
    const int charset = static_cast<int>(std::min<quint64>(number, largestCharset));
    tree_.add(what, MMS_WIRE_Item::NUMBER, from, number,
              isKnownCharset(charset, tree_.charsets()) ? MARK_NONE : MARK_CHARSET);
    return true;
}

bool ValueReader::readParameters() {
    while (hasMore()) {
        const qsizetype from = at_;
        const unsigned char first = next();
        if (first & ValueOctet::highBit) {
            const int code = first & ValueOctet::lowBits;
            const MMS_WIRE_Field* row = wireParameter(code);
            ++at_;
            const quint32 index = tree_.size();
            read(row ? row->form : FORM_ANY, static_cast<quint16>(WIRE_PARAMETER + code), from);
            if (!row)
                tree_.mark(index, MARK_UNKNOWN);
        } else if (first >= ValueOctet::firstText && first != ValueOctet::quote) {
            readNamedParameter();
        } else {
            readStray();
        }
    }
    return true;
}

void ValueReader::readNamedParameter() {
    const quint32 index = tree_.open(WIRE_NAMED, at_);
    const quint32 name = tree_.size();
    readText(WIRE_NAME, at_, charsetUnknown, false);
    tree_.node(name).isSyntax = true;
    const bool fits = read(beginsInteger() ? FORM_INTEGER : FORM_QUOTED, WIRE_VALUE, at_);
    tree_.node(index).isMisfit = !fits;
    tree_.close(index);
}
