#include "codec/message_kinds.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int sendReqOrder[] = {FIELD_MESSAGE_TYPE,
                                FIELD_TRANSACTION_ID,
                                FIELD_MMS_VERSION,
                                FIELD_DATE,
                                FIELD_FROM,
                                FIELD_TO,
                                FIELD_CC,
                                FIELD_BCC,
                                FIELD_SUBJECT,
                                FIELD_MESSAGE_CLASS,
                                FIELD_EXPIRY,
                                FIELD_DELIVERY_TIME,
                                FIELD_PRIORITY,
                                FIELD_SENDER_VISIBILITY,
                                FIELD_DELIVERY_REPORT,
                                FIELD_READ_REPLY,
                                FIELD_CONTENT_TYPE};
constexpr int sendConfOrder[] = {FIELD_MESSAGE_TYPE,    FIELD_TRANSACTION_ID, FIELD_MMS_VERSION,
                                 FIELD_RESPONSE_STATUS, FIELD_RESPONSE_TEXT,  FIELD_MESSAGE_ID};
constexpr int notificationOrder[] = {FIELD_MESSAGE_TYPE, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION,
                                     FIELD_FROM,         FIELD_SUBJECT,        FIELD_MESSAGE_CLASS,
                                     FIELD_MESSAGE_SIZE, FIELD_EXPIRY,         FIELD_CONTENT_LOCATION};
constexpr int notifyRespOrder[] = {FIELD_MESSAGE_TYPE, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION, FIELD_STATUS,
                                   FIELD_REPORT_ALLOWED};
constexpr int retrieveConfOrder[] = {FIELD_MESSAGE_TYPE,
                                     FIELD_TRANSACTION_ID,
                                     FIELD_MMS_VERSION,
                                     FIELD_MESSAGE_ID,
                                     FIELD_DATE,
                                     FIELD_FROM,
                                     FIELD_TO,
                                     FIELD_CC,
                                     FIELD_BCC,
                                     FIELD_SUBJECT,
                                     FIELD_MESSAGE_CLASS,
                                     FIELD_PRIORITY,
                                     FIELD_DELIVERY_REPORT,
                                     FIELD_READ_REPLY,
                                     FIELD_CONTENT_TYPE};
constexpr int acknowledgeOrder[] = {FIELD_MESSAGE_TYPE, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION,
                                    FIELD_REPORT_ALLOWED};
// In a delivery report, unlike other types, the version comes before the transaction id. It is written with a
// transaction id, although a received one must have a Message-ID instead.
constexpr int deliveryOrder[] = {FIELD_MESSAGE_TYPE, FIELD_MMS_VERSION, FIELD_TRANSACTION_ID,
                                 FIELD_TO,           FIELD_DATE,        FIELD_STATUS};

constexpr int sendConfMandatory[] = {FIELD_RESPONSE_STATUS, FIELD_TRANSACTION_ID, FIELD_MMS_VERSION,
                                     FIELD_MESSAGE_TYPE};
constexpr int notificationMandatory[] = {FIELD_CONTENT_LOCATION, FIELD_EXPIRY,      FIELD_MESSAGE_CLASS,
                                         FIELD_MESSAGE_TYPE,     FIELD_MMS_VERSION, FIELD_MESSAGE_SIZE,
                                         FIELD_TRANSACTION_ID};
constexpr int retrieveConfMandatory[] = {FIELD_CONTENT_TYPE, FIELD_DATE, FIELD_MESSAGE_TYPE,
                                         FIELD_MMS_VERSION};
constexpr int deliveryMandatory[] = {FIELD_DATE,        FIELD_MESSAGE_ID, FIELD_MESSAGE_TYPE,
                                     FIELD_MMS_VERSION, FIELD_STATUS,     FIELD_TO};

constexpr MessageKind kinds[] = {
    {MESSAGE_SEND_REQ, "m-send-req", sendReqOrder, {}},
    {MESSAGE_SEND_CONF, "m-send-conf", sendConfOrder, sendConfMandatory},
    {MESSAGE_NOTIFICATION_IND, "m-notification-ind", notificationOrder, notificationMandatory},
    {MESSAGE_NOTIFYRESP_IND, "m-notifyresp-ind", notifyRespOrder, {}},
    {MESSAGE_RETRIEVE_CONF, "m-retrieve-conf", retrieveConfOrder, retrieveConfMandatory},
    {MESSAGE_ACKNOWLEDGE_IND, "m-acknowledge-ind", acknowledgeOrder, {}},
    {MESSAGE_DELIVERY_IND, "m-delivery-ind", deliveryOrder, deliveryMandatory},
};

} // namespace

const MessageKind* messageKind(unsigned char type) {
    const auto found = std::find_if(std::begin(kinds), std::end(kinds),
                                    [type](const MessageKind& kind) { return kind.type == type; });
    return found == std::end(kinds) ? nullptr : found;
}
