#include "bench/messages.h"
#include "bench/pair.h"
#include "codec/message_kinds.h"
#include "codec/ua_decoder.h"
#include "codec/ua_encoder.h"

// Yardstick: the header's texts as QStrings.
void addFigures() {
    const struct {
        const char* name;
        unsigned char type;
    } rows[] = {
        {"notification", MESSAGE_NOTIFICATION_IND},
        {"send request to five", MESSAGE_SEND_REQ},
        {"retrieved message", MESSAGE_RETRIEVE_CONF},
    };
    for (const auto& row : rows) {
        const std::shared_ptr<MMS_UA_UAMsg> header = makeHeader(row.type);
        const QByteArray octets = encodedHeader(*header);
        const std::vector<QByteArray> texts = textsOf(*header);
        const auto yardstick = [texts] { return makeStrings(texts); };
        const std::string name = row.name;
        addPair(
            "header decode/" + name, octets.size(),
            [octets] {
                auto* data = reinterpret_cast<unsigned char*>(const_cast<char*>(octets.constData()));
                auto length = static_cast<unsigned int>(octets.size());
                MMS_UA_UAMsg msg;
                return MMS_UA_Decoder().decodeHeader(data, length, &msg);
            },
            yardstick);
        addPair(
            "header encode/" + name, octets.size(),
            [header] {
                unsigned char* out = nullptr;
                int length = 0;
                MMS_UA_Encoder().encodeHeader(header.get(), &out, &length);
                const std::unique_ptr<unsigned char[]> owned(out);
                return owned[0];
            },
            yardstick);
    }
}
