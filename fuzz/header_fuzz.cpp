// The header of a PDU: decoded, encoded again, and decoded once more.

#include "codec/codec_result.h"
#include "codec/ua_decoder.h"
#include "codec/ua_encoder.h"
#include "codec/ua_msg.h"
#include "fuzz/input.h"

#include <algorithm>
#include <iterator>

namespace {

using Entries = QPtrList<MMS_UTIL_Entry>;

bool isPlainAddress(const MMS_UTIL_Entry& entry) {
    const QString address = entry.getAddress();
    const bool isPhone = entry.getType() == MMS_UTIL_Entry::PLMN;
    return isPlain(address) && !address.contains("/TYPE=PLMN") && !address.contains('<') &&
           (isPhone || address.contains('@'));
}

bool arePlain(const Entries& entries) {
    return std::all_of(entries.begin(), entries.end(), [](const auto* e) { return isPlainAddress(*e); });
}

bool areSame(const MMS_UTIL_Entry& a, const MMS_UTIL_Entry& b) {
    return a.getType() == b.getType() && a.getAddress() == b.getAddress();
}

bool areSame(const Entries& a, const Entries& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto* one, const auto* other) { return areSame(*one, *other); });
}

/// Whether the type's octet is 0xC2, which the reader skips in front of a type.
bool isTakenForStray(const MMS_CONTENT_TYPE_T& type) {
    return type.subType == QLatin1String("vnd.syncml.dm+wbxml");
}

/// Whether encoding and decoding keeps all texts of the header.
bool isPlainHeader(const MMS_UA_UAMsg& msg) {
    for (const QString& text : {msg.getSubject(), msg.getMsgID(), msg.getMsgURI(), msg.getTransactionId(),
                                msg.getResponseText(), msg.getContentType().parameters})
        if (!isPlain(text))
            return false;
    return isPlainAddress(msg.getFrom()) && arePlain(msg.getTo()) && arePlain(msg.getCc()) &&
           arePlain(msg.getBcc()) && msg.getContentType().type != QLatin1String("*") &&
           !isTakenForStray(msg.getContentType());
}

size_t look(const MMS_UA_UAMsg& msg) {
    size_t sum = touched(msg.getSubject()) + touched(msg.getMsgID()) + touched(msg.getMsgURI()) +
                 touched(msg.getTransactionId()) + touched(msg.getResponseText()) +
                 touched(msg.getFrom().getName()) + touched(msg.getFrom().getAddress());
    const MMS_CONTENT_TYPE_T type = msg.getContentType();
    sum += touched(type.type) + touched(type.subType) + touched(type.parameters);
    for (const Entries* entries : {&msg.getTo(), &msg.getCc(), &msg.getBcc()})
        for (const MMS_UTIL_Entry* entry : *entries)
            sum += touched(entry->getName()) + touched(entry->getAddress());
    for (int code = 0; code < 256; ++code)
        require(msg.getFieldPosition(static_cast<unsigned char>(code)) <= 25, "positions count the fields");
    return sum + msg.mandatoryFldsPresentInPDU() + msg.pduOrderCheck() +
           touched(msg.getSendTime().toString()) + touched(msg.getDeliveryTime().toString());
}

/// What encoding and decoding must keep of a header.
void requireSame(const MMS_UA_UAMsg& first, const MMS_UA_UAMsg& second) {
    require(second.messageType == first.messageType, "type");
    const auto came = [&second](FIELD_CODE code) { return second.fieldsPresent(presenceBit(code)); };
    const struct {
        FIELD_CODE code;
        bool same;
    } rows[] = {
        {FIELD_MMS_VERSION, second.version == first.version},
        {FIELD_TRANSACTION_ID, second.getTransactionId() == first.getTransactionId()},
        {FIELD_SUBJECT, second.getSubject() == first.getSubject()},
        {FIELD_MESSAGE_ID, second.getMsgID() == first.getMsgID()},
        {FIELD_CONTENT_LOCATION, second.getMsgURI() == first.getMsgURI()},
        {FIELD_RESPONSE_TEXT, second.getResponseText() == first.getResponseText()},
        {FIELD_MESSAGE_CLASS, second.messageClass == first.messageClass},
        {FIELD_STATUS, second.status == first.status},
        {FIELD_RESPONSE_STATUS, second.responseStatus == first.responseStatus},
        {FIELD_REPORT_ALLOWED, second.getReportAllowed() == first.getReportAllowed()},
        {FIELD_PRIORITY, second.getPriority() == first.getPriority()},
        {FIELD_DELIVERY_REPORT, second.getDeliveryReportNecessity() == first.getDeliveryReportNecessity()},
        {FIELD_READ_REPLY, second.getReadReplyNecessity() == first.getReadReplyNecessity()},
        {FIELD_SENDER_VISIBILITY, second.getSenderVisibility() != first.getSenderVisibility()},
        {FIELD_EXPIRY, second.getExpireTime() == first.getExpireTime()},
        {FIELD_MESSAGE_SIZE, first.getMsgSize() < 0 || second.getMsgSize() == first.getMsgSize()},
        {FIELD_FROM, areSame(second.getFrom(), first.getFrom()) || first.getFrom().isEmpty()},
        {FIELD_TO, areSame(second.getTo(), first.getTo())},
        {FIELD_CC, areSame(second.getCc(), first.getCc())},
        {FIELD_BCC, areSame(second.getBcc(), first.getBcc())},
        {FIELD_CONTENT_TYPE, second.getContentType().type == first.getContentType().type &&
                                 second.getContentType().subType == first.getContentType().subType},
    };
    for (const auto& row : rows)
        if (came(row.code) && !row.same) {
            std::fprintf(stderr, "field %d: ", row.code);
            require(false, "a field comes back as it was");
        }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const ExactInput input(data, size);
    unsigned int length = input.size();
    MMS_UA_UAMsg msg;
    MMS_UA_Decoder decoder;
    const unsigned char result = decoder.decodeHeader(input.data(), length, &msg);
    require(result == CODEC_READ || result == CODEC_MALFORMED, "a decoder reads or gives up");
    if (result == CODEC_READ)
        require(msg.bodyStart >= input.data() && msg.bodyStart + msg.bodyLength == input.data() + size,
                "the body is the rest of the input");
    else
        require(!msg.bodyStart && !msg.bodyLength, "no body behind a header that is not whole");
    look(msg);

    unsigned char* octets = nullptr;
    int written = 0;
    MMS_UA_Encoder encoder;
    encoder.encodeHeader(&msg, &octets, &written);
    const std::unique_ptr<unsigned char[]> freed(octets);
    const ExactInput encoded(octets, static_cast<size_t>(written));
    MMS_UA_UAMsg again;
    unsigned int encodedLength = encoded.size();
    const unsigned char outcome = decoder.decodeHeader(encoded.data(), encodedLength, &again);
    look(again);
    const unsigned int always = presenceBit(FIELD_MMS_VERSION) | presenceBit(FIELD_FROM);
    require(!(again.present & ~msg.present & ~always), "no field is invented, whatever is in a text");
    if (written == 0 || !isPlainHeader(msg)) // messages of an unknown type are not written
        return 0;
    require(outcome == CODEC_READ, "what the encoder writes the decoder reads");
    require(again.bodyLength == 0, "the encoder writes no octet more");
    requireSame(msg, again);
    return 0;
}
