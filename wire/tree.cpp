#include "wire/tree.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr struct {
    WIRE_MARK mark;
    const char* what;
} markTexts[] = {
    {MARK_STRAY, "no field begins with these octets"},
    {MARK_UNKNOWN, "not known"},
    {MARK_NO_WORD, "a number without a meaning here"},
    {MARK_FORM, "the value does not have the form that it must have here"},
    {MARK_NO_VALUE, "the octets end where a value should begin"},
    {MARK_LENGTH_CUT, "the length is larger than what is left"},
    {MARK_TEXT_CUT, "the octets end before the text's closing zero"},
    {MARK_NUMBER_CUT, "the octets end inside the number"},
    {MARK_REST, "the length is larger than the value, which does not need these octets"},
    {MARK_BAD_TEXT, "octets that the charset does not have"},
    {MARK_FEWER_PARTS, "fewer parts than announced"},
    {MARK_AFTER_PARTS, "octets behind the last part"},
    {MARK_TOO_DEEP, "multiparts within multiparts too deep to be read"},
    {MARK_NO_TYPE, "a part without a content type"},
    {MARK_BASE64, "octets that are not base64: the data stay as they are"},
    {MARK_BASE64_LONE, "base64 ends with a lone character, which is dropped"},
    {MARK_ENCODING, "a transfer encoding that is not known: the data stay as they are"},
    {MARK_HIGH_TEXT, "a text that begins with 128 or more and has no quote octet"},
    {MARK_NO_ZERO, "a text without its closing zero"},
    {MARK_SHORT, "a short integer for a long one"},
    {MARK_CHARSET, "a charset that is not known: guessed"},
    {MARK_NOT_ASCII, "octets beyond US-ASCII: charset guessed"},
    {MARK_MEDIA, "a media number that is not known: taken as application/octet-stream"},
    {MARK_NO_QUOTE, "a Content-ID without its quote"},
    {MARK_PADDING, "base64 without its padding"},
    {MARK_EQUALS, "a = of quoted-printable that encodes nothing"},
};

} // namespace

void WireTree::reset(QByteArrayView pdu) {
    octets_ = pdu;
    end_ = 0;
    nodes_.clear();
    // enough for most headers
    constexpr qsizetype usual = 64;
    nodes_.reserve(static_cast<size_t>(std::min(usual, pdu.size()) + 1));
    marks_ = MARK_NONE;
}

MMS_WIRE_Item insideOf(const MMS_WIRE_Item& item, quint16 what) {
    for (const MMS_WIRE_Item inside : item)
        if (WireTree::nodeOf(inside).what == what)
            return inside;
    return MMS_WIRE_Item();
}

QString markText(quint32 marks) {
    QStringList texts;
    for (const auto& [mark, what] : markTexts)
        if (marks & mark)
            texts += QString::fromLatin1(what);
    return texts.join(QStringLiteral("; "));
}

QByteArrayView textOctets(const MMS_WIRE_Item& item, int* charset) {
    const TextPlace place = TextPlace::of(WireTree::nodeOf(item).value);
    if (charset)
        *charset = place.charset;
    return item.octets().sliced(place.head).chopped(place.tail);
}
