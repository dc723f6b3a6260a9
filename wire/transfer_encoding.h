#pragma once

#include <QByteArray>
#include <QByteArrayView>

// Content-Transfer-Encoding (RFC 2045, section 6).

enum class TransferEncoding { None, Base64, QuotedPrintable, Unknown };

/// The encoding with that name, in any letter case; None for an empty name and "7bit", "8bit", "binary".
TransferEncoding transferEncoding(QByteArrayView name);
/// The problems of data in that encoding: WIRE_MARK bits.
quint32 marksOfEncoded(QByteArrayView data, TransferEncoding encoding);
/// The decoded data; unchanged where there is no encoding or it is unknown, or the data are not valid in it.
QByteArray decodedData(QByteArrayView data, TransferEncoding encoding);
