#include "wire/fields.h"

#include "codec/field_code.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr MMS_WIRE_Word yesNo[] = {
    {128, "Yes"},
    {129, "No"},
};
constexpr MMS_WIRE_Word classes[] = {
    {128, "Personal"},
    {129, "Advertisement"},
    {130, "Informational"},
    {131, "Auto"},
};
constexpr MMS_WIRE_Word priorities[] = {
    {128, "Low"},
    {129, "Normal"},
    {130, "High"},
};
constexpr MMS_WIRE_Word visibilities[] = {
    {128, "Hide"},
    {129, "Show"},
};
constexpr MMS_WIRE_Word statuses[] = {
    {128, "Expired"},      {129, "Retrieved"},     {130, "Rejected"},  {131, "Deferred"},
    {132, "Unrecognised"}, {133, "Indeterminate"}, {134, "Forwarded"}, {135, "Unreachable"},
};
constexpr MMS_WIRE_Word readStatuses[] = {
    {128, "Read"},
    {129, "Deleted without being read"},
};
constexpr MMS_WIRE_Word replyChargings[] = {
    {128, "Requested"},
    {129, "Requested text only"},
    {130, "Accepted"},
    {131, "Accepted text only"},
};
constexpr MMS_WIRE_Word mmStates[] = {
    {128, "Draft"}, {129, "Sent"}, {130, "New"}, {131, "Retrieved"}, {132, "Forwarded"},
};
constexpr MMS_WIRE_Word flagActions[] = {
    {128, "Add"},
    {129, "Remove"},
    {130, "Filter"},
};
constexpr MMS_WIRE_Word totalUnits[] = {
    {128, "messages"},
    {129, "octets"},
};
constexpr MMS_WIRE_Word retrievalModes[] = {
    {128, "Manual"},
};
constexpr MMS_WIRE_Word contentClasses[] = {
    {128, "text"},       {129, "image-basic"}, {130, "image-rich"},    {131, "video-basic"},
    {132, "video-rich"}, {133, "megapixel"},   {134, "content-basic"}, {135, "content-rich"},
};
constexpr MMS_WIRE_Word cancelStatuses[] = {
    {128, "Cancel request successfully received"},
    {129, "Cancel request corrupted"},
};
constexpr MMS_WIRE_Word retrieveStatuses[] = {
    {128, "Ok"},
    {192, "Error-transient-failure"},
    {193, "Error-transient-message-not-found"},
    {194, "Error-transient-network-problem"},
    {224, "Error-permanent-failure"},
    {225, "Error-permanent-service-denied"},
    {226, "Error-permanent-message-not-found"},
    {227, "Error-permanent-content-unsupported"},
};
constexpr MMS_WIRE_Word storeStatuses[] = {
    {128, "Success"},
    {192, "Error-transient-failure"},
    {193, "Error-transient-network-problem"},
    {224, "Error-permanent-failure"},
    {225, "Error-permanent-service-denied"},
    {226, "Error-permanent-message-format-corrupt"},
    {227, "Error-permanent-message-not-found"},
    {228, "Error-permanent-mmbox-full"},
};
constexpr MMS_WIRE_Word responseStatuses[] = {
    {128, "Ok"},
    {129, "Error-unspecified"},
    {130, "Error-service-denied"},
    {131, "Error-message-format-corrupt"},
    {132, "Error-sending-address-unresolved"},
    {133, "Error-message-not-found"},
    {134, "Error-network-problem"},
    {135, "Error-content-not-accepted"},
    {136, "Error-unsupported-message"},
    {192, "Error-transient-failure"},
    {193, "Error-transient-sending-address-unresolved"},
    {194, "Error-transient-message-not-found"},
    {195, "Error-transient-network-problem"},
    {196, "Error-transient-partial-success"},
    {224, "Error-permanent-failure"},
    {225, "Error-permanent-service-denied"},
    {226, "Error-permanent-message-format-corrupt"},
    {227, "Error-permanent-sending-address-unresolved"},
    {228, "Error-permanent-message-not-found"},
    {229, "Error-permanent-content-not-accepted"},
    {230, "Error-permanent-reply-charging-limitations-not-met"},
    {231, "Error-permanent-reply-charging-request-not-accepted"},
    {232, "Error-permanent-reply-charging-forwarding-denied"},
    {233, "Error-permanent-reply-charging-not-supported"},
    {234, "Error-permanent-address-hiding-not-supported"},
    {235, "Error-permanent-lack-of-prepaid"},
};

/// All header fields, from code 1 on.
constexpr MMS_WIRE_Field fields[] = {
    {0x01, "Bcc", FORM_ADDRESS, {}},
    {0x02, "Cc", FORM_ADDRESS, {}},
    {0x03, "X-Mms-Content-Location", FORM_TEXT, {}},
    {0x04, "Content-Type", FORM_CONTENT_TYPE, {}},
    {0x05, "Date", FORM_DATE, {}},
    {0x06, "X-Mms-Delivery-Report", FORM_YES_NO, yesNo},
    {0x07, "X-Mms-Delivery-Time", FORM_TIME, {}},
    {0x08, "X-Mms-Expiry", FORM_TIME, {}},
    {0x09, "From", FORM_FROM, {}},
    {0x0A, "X-Mms-Message-Class", FORM_CLASS, classes},
    {0x0B, "Message-ID", FORM_TEXT, {}},
    {0x0C, "X-Mms-Message-Type", FORM_OCTET, {}},
    {0x0D, "X-Mms-MMS-Version", FORM_OCTET, {}},
    {0x0E, "X-Mms-Message-Size", FORM_LONG, {}},
    {0x0F, "X-Mms-Priority", FORM_OCTET, priorities},
    {0x10, "X-Mms-Read-Report", FORM_YES_NO, yesNo},
    {0x11, "X-Mms-Report-Allowed", FORM_YES_NO, yesNo},
    {0x12, "X-Mms-Response-Status", FORM_OCTET, responseStatuses},
    {0x13, "X-Mms-Response-Text", FORM_ENCODED, {}},
    {0x14, "X-Mms-Sender-Visibility", FORM_OCTET, visibilities},
    {0x15, "X-Mms-Status", FORM_OCTET, statuses},
    {0x16, "Subject", FORM_ENCODED, {}},
    {0x17, "To", FORM_ADDRESS, {}},
    {0x18, "X-Mms-Transaction-Id", FORM_TEXT, {}},
    {0x19, "X-Mms-Retrieve-Status", FORM_OCTET, retrieveStatuses},
    {0x1A, "X-Mms-Retrieve-Text", FORM_ENCODED, {}},
    {0x1B, "X-Mms-Read-Status", FORM_OCTET, readStatuses},
    {0x1C, "X-Mms-Reply-Charging", FORM_OCTET, replyChargings},
    {0x1D, "X-Mms-Reply-Charging-Deadline", FORM_TIME, {}},
    {0x1E, "X-Mms-Reply-Charging-ID", FORM_TEXT, {}},
    {0x1F, "X-Mms-Reply-Charging-Size", FORM_LONG, {}},
    {0x20, "X-Mms-Previously-Sent-By", FORM_COUNT_ADDRESS, {}},
    {0x21, "X-Mms-Previously-Sent-Date", FORM_COUNT_DATE, {}},
    {0x22, "X-Mms-Store", FORM_YES_NO, yesNo},
    {0x23, "X-Mms-MM-State", FORM_OCTET, mmStates},
    {0x24, "X-Mms-MM-Flags", FORM_FLAGS, flagActions},
    {0x25, "X-Mms-Store-Status", FORM_OCTET, storeStatuses},
    {0x26, "X-Mms-Store-Status-Text", FORM_ENCODED, {}},
    {0x27, "X-Mms-Stored", FORM_YES_NO, yesNo},
    {0x28, "X-Mms-Attributes", FORM_OCTET, {}},
    {0x29, "X-Mms-Totals", FORM_YES_NO, yesNo},
    {0x2A, "X-Mms-Mbox-Totals", FORM_TOTALS, totalUnits},
    {0x2B, "X-Mms-Quotas", FORM_YES_NO, yesNo},
    {0x2C, "X-Mms-Mbox-Quotas", FORM_TOTALS, totalUnits},
    {0x2D, "X-Mms-Message-Count", FORM_INTEGER, {}},
    {0x2E, "Content", FORM_ANY, {}},
    {0x2F, "X-Mms-Start", FORM_INTEGER, {}},
    {0x30, "Additional-headers", FORM_ANY, {}},
    {0x31, "X-Mms-Distribution-Indicator", FORM_YES_NO, yesNo},
    {0x32, "X-Mms-Element-Descriptor", FORM_ELEMENT, {}},
    {0x33, "X-Mms-Limit", FORM_INTEGER, {}},
    {0x34, "X-Mms-Recommended-Retrieval-Mode", FORM_OCTET, retrievalModes},
    {0x35, "X-Mms-Recommended-Retrieval-Mode-Text", FORM_ENCODED, {}},
    {0x36, "X-Mms-Status-Text", FORM_ENCODED, {}},
    {0x37, "X-Mms-Applic-ID", FORM_TEXT, {}},
    {0x38, "X-Mms-Reply-Applic-ID", FORM_TEXT, {}},
    {0x39, "X-Mms-Aux-Applic-Info", FORM_TEXT, {}},
    {0x3A, "X-Mms-Content-Class", FORM_OCTET, contentClasses},
    {0x3B, "X-Mms-DRM-Content", FORM_YES_NO, yesNo},
    {0x3C, "X-Mms-Adaptation-Allowed", FORM_YES_NO, yesNo},
    {0x3D, "X-Mms-Replace-ID", FORM_TEXT, {}},
    {0x3E, "X-Mms-Cancel-ID", FORM_TEXT, {}},
    {0x3F, "X-Mms-Cancel-Status", FORM_OCTET, cancelStatuses},
};

constexpr MMS_WIRE_Word dispositions[] = {
    {128, "form-data"},
    {129, "attachment"},
    {130, "inline"},
};

/// Part headers with a known form; any other is read by its first octet.
constexpr MMS_WIRE_Field partHeaders[] = {
    {0x0E, "Content-Location", FORM_TEXT, {}},
    {0x11, "Content-Type", FORM_CONTENT_TYPE, {}},
    {0x2E, "Content-Disposition", FORM_DISPOSITION, dispositions},
    {0x40, "Content-ID", FORM_CONTENT_ID, {}},
    {0x45, "Content-Disposition", FORM_DISPOSITION, dispositions},
    {0x48, "Content-Transfer-Encoding", FORM_TEXT, {}}, // not assigned by WSP, but some senders use it
};

constexpr MMS_WIRE_Field parameters[] = {
    {0x00, "Q", FORM_UINTVAR, {}},
    {0x01, "Charset", FORM_CHARSET, {}},
    {0x02, "Level", FORM_SHORT, {}},
    {0x03, "Type", FORM_INTEGER, {}},
    {0x05, "Name", FORM_TEXT, {}},
    {0x06, "Filename", FORM_TEXT, {}},
    {0x07, "Differences", FORM_TEXT, {}},
    {0x08, "Padding", FORM_SHORT, {}},
    {0x09, "Type", FORM_MEDIA, {}},
    {0x0A, "Start", FORM_TEXT, {}},
    {0x0B, "Start-info", FORM_TEXT, {}},
    {0x0C, "Comment", FORM_TEXT, {}},
    {0x0D, "Domain", FORM_TEXT, {}},
    {0x0E, "Max-Age", FORM_INTEGER, {}},
    {0x0F, "Path", FORM_TEXT, {}},
    {0x10, "Secure", FORM_NO_VALUE, {}},
    {0x11, "SEC", FORM_SHORT, {}},
    {0x12, "MAC", FORM_TEXT, {}},
    {0x13, "Creation-date", FORM_LENGTH_DATE, {}},
    {0x14, "Modification-date", FORM_LENGTH_DATE, {}},
    {0x15, "Read-date", FORM_LENGTH_DATE, {}},
    {0x16, "Size", FORM_INTEGER, {}},
    {0x17, "Name", FORM_TEXT, {}},
    {0x18, "Filename", FORM_TEXT, {}},
    {0x19, "Start", FORM_TEXT, {}},
    {0x1A, "Start-info", FORM_TEXT, {}},
    {0x1B, "Comment", FORM_TEXT, {}},
    {0x1C, "Domain", FORM_TEXT, {}},
    {0x1D, "Path", FORM_TEXT, {}},
};

constexpr int fieldReadStatus = 0x1B;
constexpr int commonFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION};
constexpr int sendReqFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID, FIELD_FROM,
                                 FIELD_CONTENT_TYPE};
constexpr int sendConfFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID,
                                  FIELD_RESPONSE_STATUS};
constexpr int notificationIndFields[] = {FIELD_MESSAGE_TYPE,    FIELD_MMS_VERSION,  FIELD_TRANSACTION_ID,
                                         FIELD_MESSAGE_CLASS,   FIELD_MESSAGE_SIZE, FIELD_EXPIRY,
                                         FIELD_CONTENT_LOCATION};
constexpr int notifyrespIndFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID,
                                       FIELD_STATUS};
constexpr int retrieveConfFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_DATE, FIELD_CONTENT_TYPE};
constexpr int acknowledgeIndFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID};
constexpr int deliveryIndFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_MESSAGE_ID,
                                     FIELD_TO,           FIELD_DATE,        FIELD_STATUS};
constexpr int readRecIndFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_MESSAGE_ID,
                                    FIELD_TO,           FIELD_FROM,        fieldReadStatus};
constexpr int readOrigIndFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_MESSAGE_ID, FIELD_TO,
                                     FIELD_FROM,         FIELD_DATE,        fieldReadStatus};
constexpr int forwardReqFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID, FIELD_FROM,
                                    FIELD_CONTENT_LOCATION};
constexpr int forwardConfFields[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID,
                                     FIELD_RESPONSE_STATUS};

constexpr MMS_WIRE_MessageType messageTypes[] = {
    {128, "m-send-req", sendReqFields, true},
    {129, "m-send-conf", sendConfFields, false},
    {130, "m-notification-ind", notificationIndFields, false},
    {131, "m-notifyresp-ind", notifyrespIndFields, false},
    {132, "m-retrieve-conf", retrieveConfFields, false},
    {133, "m-acknowledge-ind", acknowledgeIndFields, false},
    {134, "m-delivery-ind", deliveryIndFields, false},
    {135, "m-read-rec-ind", readRecIndFields, false},
    {136, "m-read-orig-ind", readOrigIndFields, false},
    {137, "m-forward-req", forwardReqFields, true},
    {138, "m-forward-conf", forwardConfFields, false},
    {139, "m-mbox-store-req", commonFields, false},
    {140, "m-mbox-store-conf", commonFields, false},
    {141, "m-mbox-view-req", commonFields, false},
    {142, "m-mbox-view-conf", commonFields, false},
    {143, "m-mbox-upload-req", commonFields, false},
    {144, "m-mbox-upload-conf", commonFields, false},
    {145, "m-mbox-delete-req", commonFields, false},
    {146, "m-mbox-delete-conf", commonFields, false},
    {147, "m-mbox-descr", commonFields, false},
    {148, "m-delete-req", commonFields, false},
    {149, "m-delete-conf", commonFields, false},
    {150, "m-cancel-req", commonFields, false},
    {151, "m-cancel-conf", commonFields, false},
};

constexpr int firstMessageType = 128;

const MMS_WIRE_Field* find(std::span<const MMS_WIRE_Field> table, int code) {
    const auto found =
        std::lower_bound(table.begin(), table.end(), code,
                         [](const MMS_WIRE_Field& row, int wanted) { return row.code < wanted; });
    return found != table.end() && found->code == code ? &*found : nullptr;
}

} // namespace

const MMS_WIRE_Field* wireField(int code) {
    return code >= 1 && code <= static_cast<int>(std::size(fields)) ? &fields[code - 1] : nullptr;
}

const MMS_WIRE_Field* wirePartHeader(int code) {
    return find(partHeaders, code);
}

const MMS_WIRE_Field* wireParameter(int code) {
    return find(parameters, code);
}

const MMS_WIRE_MessageType* wireMessageType(int type) {
    const int row = type - firstMessageType;
    return row >= 0 && row < static_cast<int>(std::size(messageTypes)) ? &messageTypes[row] : nullptr;
}

const char* wireWord(const MMS_WIRE_Field& field, quint64 number) {
    const auto found = std::find_if(field.words.begin(), field.words.end(), [number](const auto& row) {
        return static_cast<quint64>(row.number) == number;
    });
    return found != field.words.end() ? found->word : nullptr;
}
