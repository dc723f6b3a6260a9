#include "codec/header_fields.h"

#include "codec/address_fields.h"
#include "codec/content_type_field.h"
#include "codec/date_fields.h"
#include "codec/octet_fields.h"
#include "codec/text_fields.h"

#include <iterator>

namespace {

template <typename Field>
const Field codec;

template <typename Field>
HeaderField row(FIELD_CODE code, const char* name) {
    return {code, name, &codec<Field>, []() -> FieldBase* { return new Field; }};
}

/// All fields, in the order of their bits in the presence word.
const HeaderField fields[] = {
    row<BccField>(FIELD_BCC, "Bcc"),
    row<CcField>(FIELD_CC, "Cc"),
    row<ContentLocationField>(FIELD_CONTENT_LOCATION, "Content-Location"),
    row<ContentTypeField>(FIELD_CONTENT_TYPE, "Content-Type"),
    row<MsgDateField>(FIELD_DATE, "Date"),
    row<DeliveryReportField>(FIELD_DELIVERY_REPORT, "Delivery-Report"),
    row<DeliveryTimeField>(FIELD_DELIVERY_TIME, "Delivery-Time"),
    row<ExpiryField>(FIELD_EXPIRY, "Expiry"),
    row<FromField>(FIELD_FROM, "From"),
    row<MsgClassField>(FIELD_MESSAGE_CLASS, "Message-Class"),
    row<MsgIDField>(FIELD_MESSAGE_ID, "Message-ID"),
    row<MsgTypeField>(FIELD_MESSAGE_TYPE, "Message-Type"),
    row<VersionField>(FIELD_MMS_VERSION, "MMS-Version"),
    row<MsgSizeField>(FIELD_MESSAGE_SIZE, "Message-Size"),
    row<PriorityField>(FIELD_PRIORITY, "Priority"),
    row<ReadReplyField>(FIELD_READ_REPLY, "Read-Reply"),
    row<ReportAllowedField>(FIELD_REPORT_ALLOWED, "Report-Allowed"),
    row<ResponseStatusField>(FIELD_RESPONSE_STATUS, "Response-Status"),
    row<ResponseTextField>(FIELD_RESPONSE_TEXT, "Response-Text"),
    row<SenderVisibilityField>(FIELD_SENDER_VISIBILITY, "Sender-Visibility"),
    row<MsgStatusField>(FIELD_STATUS, "Status"),
    row<SubjectField>(FIELD_SUBJECT, "Subject"),
    row<ToField>(FIELD_TO, "To"),
    row<TIDField>(FIELD_TRANSACTION_ID, "Transaction-Id"),
    row<DistributionIndField>(FIELD_DISTRIBUTION_INDICATOR, "Distribution-Indicator"),
};

} // namespace

const HeaderField* headerField(int code) {
    const int slot = presenceSlot(code);
    if (slot < 1 || slot > static_cast<int>(std::size(fields)) || fields[slot - 1].code != code)
        return nullptr;
    return &fields[slot - 1];
}
