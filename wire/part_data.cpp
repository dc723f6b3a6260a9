#include "wire/part_data.h"

#include "codec/field_code.h"
#include "wire/tree.h"

#include <algorithm>

namespace {

constexpr int contentTypeHeader = 0x11;

bool isHeader(const WireNode& node) {
    return (node.what >= WIRE_PART_HEADER && node.what < WIRE_PARAMETER) || node.what == WIRE_NAMED;
}

/// The charset in a parameter; charsetUnknown for an unknown one.
int charsetOf(const MMS_WIRE_Item& parameter, Charsets& charsets) {
    if (parameter.kind() == MMS_WIRE_Item::TEXT)
        return charsetByName(parameter.text().toLatin1());
    const auto charset = static_cast<int>(std::min<quint64>(parameter.number(), largestCharset));
    return isKnownCharset(charset, charsets) ? charset : charsetUnknown;
}

} // namespace

MMS_WIRE_Item contentTypeOf(const MMS_WIRE_Item& part) {
    if (part.isNull())
        return MMS_WIRE_Item();
    if (WireTree::nodeOf(part).what == WIRE_BODY)
        return insideOf(WireTree::treeOf(part).item(0), FIELD_CONTENT_TYPE);
    return insideOf(part, WIRE_PART_HEADER + contentTypeHeader);
}

MMS_WIRE_Item partHeader(const MMS_WIRE_Item& part, QLatin1StringView name) {
    if (!part.isNull() && WireTree::nodeOf(part).what == WIRE_PART)
        for (const MMS_WIRE_Item inside : part) {
            const WireNode& node = WireTree::nodeOf(inside);
            if (isHeader(node) && !node.isMisfit && isNamed(inside, name))
                return inside;
        }
    return MMS_WIRE_Item();
}

DataForm::DataForm(const MMS_WIRE_Item& part) : charsets(&WireTree::treeOf(part).charsets()) {
    const MMS_WIRE_Item contentType = contentTypeOf(part);
    media = mediaOf(contentType);
    const MMS_WIRE_Item stated = parameterOf(contentType, QLatin1StringView("Charset"));
    hasCharset = !stated.isNull();
    if (hasCharset)
        charset = charsetOf(stated, *charsets);
    const MMS_WIRE_Item header = partHeader(part, QLatin1StringView("Content-Transfer-Encoding"));
    if (!header.isNull() && !media.isMultipart())
        encoding = transferEncoding(header.text().toLatin1());
}

quint32 DataForm::marks(QByteArrayView data) const {
    quint32 marks = marksOfEncoded(data, encoding);
    if (!isInCharset())
        return marks;
    const bool isEncoded =
        encoding == TransferEncoding::Base64 || encoding == TransferEncoding::QuotedPrintable;
    const QByteArray decoded = isEncoded ? payload(data) : QByteArray();
    const QByteArrayView text = isEncoded ? QByteArrayView(decoded) : data;
    if (charset == charsetUsAscii)
        marks |= isAsciiText(text) ? MARK_NONE : MARK_NOT_ASCII;
    else if (charset != charsetUnknown && !isValidText(text, charset, *charsets))
        marks |= MARK_BAD_TEXT;
    return marks;
}

QByteArray DataForm::payload(QByteArrayView data) const {
    return decodedData(data, encoding);
}

QByteArray DataForm::content(QByteArrayView data) const {
    QByteArray text = payload(data);
    if (!media.isText())
        return text;
    const bool isUtf8 = unitSize(charset) == 1 && text.isValidUtf8() &&
                        (charset == charsetUnknown || charset == charsetUsAscii || charset == mibUtf8);
    if (isInCharset() && !isUtf8)
        text = decodedText(text, charset, *charsets).toUtf8();
    if (text.size() > 1 && text.endsWith('\0'))
        text.chop(1);
    return text;
}
