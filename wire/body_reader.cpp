#include "wire/body_reader.h"

#include "codec/field_code.h"
#include "wire/part_data.h"
#include "wire/values.h"

#include <algorithm>

namespace {

constexpr int deepest = 16; // the deepest nesting of multiparts
constexpr int contentTypeHeader = 0x11;

void readEntries(ValueReader& in, int depth);

/// Reads an octet count, which the input may cut off; false then.
bool readCount(ValueReader& in, quint16 what, quint64* count) {
    const qsizetype at = in.at();
    const bool isWhole = in.takeUintvar(count);
    in.tree().add(what, MMS_WIRE_Item::NUMBER, at, *count, isWhole ? MARK_NONE : MARK_NUMBER_CUT);
    return isWhole;
}

/// The announced number of octets, or what is left of the input if that is less.
qsizetype available(ValueReader& in, quint64 announced, quint32 item) {
    if (announced <= static_cast<quint64>(in.left()))
        return static_cast<qsizetype>(announced);
    in.tree().mark(item, MARK_LENGTH_CUT);
    return in.left();
}

/// The part headers that are also recognised when sent by name.
const MMS_WIRE_Field* headerByName(QByteArrayView name) {
    for (const int code : {0x0E, 0x2E, 0x40, 0x48}) {
        const MMS_WIRE_Field* row = wirePartHeader(code);
        if (name.compare(row->name, Qt::CaseInsensitive) == 0)
            return row;
    }
    return nullptr;
}

void readHeaders(ValueReader& in) {
    while (in.hasMore()) {
        const unsigned char first = in.next();
        if (first >= ValueOctet::firstText && first < ValueOctet::quote) {
            in.readNamed(headerByName);
        } else if (first < ValueOctet::highBit) {
            in.readStray();
        } else {
            const qsizetype from = in.at();
            const int code = first & ~ValueOctet::highBit;
            const MMS_WIRE_Field* row = wirePartHeader(code);
            in.goTo(from + 1);
            in.read(row ? row->form : FORM_ANY, static_cast<quint16>(WIRE_PART_HEADER + code), from);
        }
    }
}

/// Reads the data of a part whose headers are in the tree.
void readData(ValueReader& in, quint32 part, qsizetype octets, int depth) {
    WireTree& tree = in.tree();
    tree.setEnd(in.at());
    const DataForm form(tree.item(part));
    if (form.media.isMultipart() && depth < deepest) {
        const quint32 index = tree.open(WIRE_DATA, in.at());
        {
            const ValueReader::Limit limit(in, octets, false);
            readEntries(in, depth + 1);
        }
        tree.close(index);
        return;
    }
    const QByteArrayView data = tree.octets().sliced(in.at(), octets);
    tree.add(WIRE_DATA, MMS_WIRE_Item::DATA, in.at(), 0,
             form.media.isMultipart() ? quint32(MARK_TOO_DEEP) : form.marks(data));
    in.goTo(in.at() + octets);
}

/// Reads an entry. False when the input ends before its data.
bool readPart(ValueReader& in, int depth) {
    WireTree& tree = in.tree();
    const quint32 part = tree.open(WIRE_PART, in.at());
    quint64 headersLen = 0, dataLen = 0;
    const bool isThere =
        readCount(in, WIRE_HEADERS_LEN, &headersLen) && readCount(in, WIRE_DATA_LEN, &dataLen);
    if (isThere) {
        const quint32 dataLenItem = tree.size() - 1;
        {
            const ValueReader::Limit limit(in, available(in, headersLen, dataLenItem - 1), false);
            if (in.hasMore())
                in.read(FORM_CONTENT_TYPE, WIRE_PART_HEADER + contentTypeHeader, in.at());
            else
                tree.mark(part, MARK_NO_TYPE);
            readHeaders(in);
        }
        readData(in, part, available(in, dataLen, dataLenItem), depth);
    }
    tree.close(part);
    return isThere;
}

/// Reads the number of entries, then the entries.
void readEntries(ValueReader& in, int depth) {
    WireTree& tree = in.tree();
    const quint32 entries = tree.size();
    quint64 announced = 0, done = 0;
    readCount(in, WIRE_ENTRIES, &announced);
    bool isWhole = true; // false: the problem is marked in the part
    for (; isWhole && done < announced && in.hasMore(); ++done)
        isWhole = readPart(in, depth);
    if (isWhole && done < announced)
        tree.mark(entries, MARK_FEWER_PARTS);
    in.readRest(WIRE_AFTER_PARTS, MMS_WIRE_Item::OCTETS, MARK_AFTER_PARTS);
}

} // namespace

void readBody(ValueReader& in) {
    WireTree& tree = in.tree();
    tree.setEnd(in.at());
    if (mediaOf(insideOf(tree.item(0), FIELD_CONTENT_TYPE)).isMultipart()) {
        const quint32 body = tree.open(WIRE_BODY, in.at());
        readEntries(in, 0);
        tree.close(body);
    } else if (in.hasMore()) {
        const quint32 body = tree.size();
        const QByteArrayView data = tree.octets().sliced(in.at());
        in.readRest(WIRE_BODY, MMS_WIRE_Item::DATA, MARK_NONE);
        tree.mark(body, DataForm(tree.item(body)).marks(data));
    }
}
