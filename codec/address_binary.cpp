#include "codec/address_binary.h"

#include "codec/codec_result.h"
#include "codec/text_binary.h"
#include "platform/utility/ascii.h"

namespace {

constexpr QLatin1StringView phoneSuffix("/TYPE=PLMN");

bool canBeSent(const MMS_UTIL_Entry& entry) {
    return entry.getType() == MMS_UTIL_Entry::PLMN || entry.getType() == MMS_UTIL_Entry::EMAIL;
}

QString wireText(const MMS_UTIL_Entry& entry) {
    QString address = entry.getAddress();
    address.truncate(upToZero(address).size()); // copies only when there is a zero
    return entry.getType() == MMS_UTIL_Entry::PLMN ? address + phoneSuffix : address;
}

/// Whether a text may be sent as a Text-string. A first octet below 32 would be read as a length, and the
/// rest as further header fields.
bool isTextString(const QString& text) {
    return isAscii(text) && (text.isEmpty() || text.front() >= u' ');
}

/// The position of the suffix of phone numbers, or -1. Searches for "/" first, which is faster than for the
/// whole suffix.
qsizetype findPhoneSuffix(const QString& text) {
    const qsizetype slash = text.indexOf('/');
    return slash < 0 ? slash : text.indexOf(phoneSuffix, slash);
}

MMS_UTIL_Entry parseAddress(QString text) {
    const auto suffix = findPhoneSuffix(text);
    if (suffix >= 0) {
        text.truncate(suffix);
        return {QString(), MMS_UTIL_Entry::PLMN, text};
    }
    if (!text.contains('@'))
        return {QString(), MMS_UTIL_Entry::PLMN, text};
    const auto open = text.indexOf('<');
    if (open < 0)
        return {QString(), MMS_UTIL_Entry::EMAIL, text};
    const auto close = text.indexOf('>', open);
    const auto length = close < 0 ? -1 : close - open - 1;
    return {text.left(open), MMS_UTIL_Entry::EMAIL, text.mid(open + 1, length)};
}

} // namespace

unsigned char AddressBinary::readFrom(LinearBuffer* buffer, MMS_UTIL_Entry* out) {
    QString text;
    const unsigned char result = EncodedStringBinary::readFrom(buffer, &text);
    *out = parseAddress(std::move(text));
    return result;
}

unsigned char AddressBinary::writeTo(LinearBuffer* buffer, const MMS_UTIL_Entry& entry) {
    if (!canBeSent(entry))
        return CODEC_REFUSED;
    const QString text = wireText(entry);
    return isTextString(text) ? PlainTextBinary::writeTo(buffer, text)
                              : EncodedStringBinary::writeTo(buffer, text);
}

int AddressBinary::sizeOf(const MMS_UTIL_Entry& entry) {
    if (!canBeSent(entry))
        return 0;
    const QString text = wireText(entry);
    return isTextString(text) ? PlainTextBinary::sizeOf(text) : EncodedStringBinary::sizeOf(text);
}
