#include "wire/transfer_encoding.h"

#include "wire/tree.h"

#include <array>

namespace {

constexpr int notBase64 = -1, whiteSpace = -2, padding = -3;

/// The value of each octet in base64.
constexpr auto base64Values = [] {
    std::array<signed char, 256> values{};
    values.fill(notBase64);
    int value = 0;
    for (int c = 'A'; c <= 'Z'; ++c)
        values[size_t(c)] = static_cast<signed char>(value++);
    for (int c = 'a'; c <= 'z'; ++c)
        values[size_t(c)] = static_cast<signed char>(value++);
    for (int c = '0'; c <= '9'; ++c)
        values[size_t(c)] = static_cast<signed char>(value++);
    values['+'] = 62;
    values['/'] = 63;
    values['='] = padding;
    for (const char c : {' ', '\t', '\r', '\n', '\f', '\v'})
        values[static_cast<unsigned char>(c)] = whiteSpace;
    return values;
}();

/// Walks base64 text and passes on each group of four characters, the last one possibly shorter.
class Base64 {
public:
    explicit Base64(QByteArrayView data, QByteArray* out = nullptr) {
        quint32 bits = 0;
        for (const char c : data) {
            const int value = base64Values[static_cast<unsigned char>(c)];
            if (value == whiteSpace)
                continue;
            if (value == padding) {
                ++paddings_;
                continue;
            }
            if (value == notBase64 || paddings_ > 0) {
                isBroken_ = true;
                return;
            }
            bits = bits << 6 | static_cast<quint32>(value);
            if (++characters_ % 4 == 0 && out)
                append(*out, bits << 8, 3);
        }
        if (out && characters_ % 4 > 1)
            append(*out, bits << (characters_ % 4 == 2 ? 20 : 14), characters_ % 4 - 1);
    }

    quint32 marks() const {
        if (isBroken_)
            return MARK_BASE64;
        if (characters_ % 4 == 1)
            return MARK_BASE64_LONE;
        return (characters_ + paddings_) % 4 ? MARK_PADDING : MARK_NONE;
    }

private:
    static void append(QByteArray& out, quint32 bits, qsizetype octets) {
        for (; octets > 0; --octets, bits <<= 8)
            out.append(static_cast<char>(bits >> 24));
    }

    qsizetype characters_ = 0;
    qsizetype paddings_ = 0;
    bool isBroken_ = false;
};

/// The value of a hexadecimal digit; -1 for any other character.
int hexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

/// Decodes quoted-printable, into `out` unless it is null. Returns whether every "=" is part of a valid
/// sequence.
bool readQuotedPrintable(QByteArrayView data, QByteArray* out) {
    bool isWhole = true;
    for (qsizetype i = 0; i < data.size(); ++i) {
        const qsizetype left = data.size() - i - 1;
        char octet = data[i];
        if (octet == '=') {
            const int high = left >= 2 ? hexValue(data[i + 1]) : -1;
            const int low = left >= 2 ? hexValue(data[i + 2]) : -1;
            const bool isReturn = left >= 1 && data[i + 1] == '\r';
            if (isReturn || (left >= 1 && data[i + 1] == '\n')) { // a soft line break
                i += isReturn && left >= 2 && data[i + 2] == '\n' ? 2 : 1;
                continue;
            }
            if (high >= 0 && low >= 0) {
                octet = static_cast<char>(high << 4 | low);
                i += 2;
            } else {
                isWhole = false;
            }
        }
        if (out)
            out->append(octet);
    }
    return isWhole;
}

} // namespace

TransferEncoding transferEncoding(QByteArrayView name) {
    constexpr struct {
        const char* name;
        TransferEncoding encoding;
    } encodings[] = {
        {"", TransferEncoding::None},         {"7bit", TransferEncoding::None},
        {"8bit", TransferEncoding::None},     {"binary", TransferEncoding::None},
        {"base64", TransferEncoding::Base64}, {"quoted-printable", TransferEncoding::QuotedPrintable},
    };
    name = name.trimmed();
    for (const auto& row : encodings)
        if (name.compare(row.name, Qt::CaseInsensitive) == 0)
            return row.encoding;
    return TransferEncoding::Unknown;
}

quint32 marksOfEncoded(QByteArrayView data, TransferEncoding encoding) {
    switch (encoding) {
    case TransferEncoding::None:
        return MARK_NONE;
    case TransferEncoding::Base64:
        return Base64(data).marks();
    case TransferEncoding::QuotedPrintable:
        return readQuotedPrintable(data, nullptr) ? MARK_NONE : MARK_EQUALS;
    case TransferEncoding::Unknown:
        break;
    }
    return MARK_ENCODING;
}

QByteArray decodedData(QByteArrayView data, TransferEncoding encoding) {
    QByteArray decoded;
    if (encoding == TransferEncoding::Base64) {
        decoded.reserve(data.size() / 4 * 3 + 3);
        if (Base64(data, &decoded).marks() != MARK_BASE64)
            return decoded;
    } else if (encoding == TransferEncoding::QuotedPrintable) {
        decoded.reserve(data.size());
        readQuotedPrintable(data, &decoded);
        return decoded;
    }
    return QByteArray::fromRawData(data.data(), data.size());
}
