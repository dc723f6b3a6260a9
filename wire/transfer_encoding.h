#pragma once

#include <QByteArray>
#include <QByteArrayView>

// Content-Transfer-Encoding (RFC 2045, section 6).

enum class TransferEncoding { None, Base64, QuotedPrintable, Unknown };

/// The encoding of that name, letter case aside; None for "7bit", "8bit" and "binary", too.
TransferEncoding transferEncoding(QByteArrayView name);
/// What is wrong with data in that encoding: WIRE_MARK bits.
quint32 marksOfEncoded(QByteArrayView data, TransferEncoding encoding);
/// The data decoded; as they are where the encoding is none or unknown, or they do not have it.
QByteArray decodedData(QByteArrayView data, TransferEncoding encoding);
