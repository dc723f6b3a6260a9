#include "bench/messages.h"
#include "bench/pair.h"
#include "codec/message_kinds.h"
#include "codec/ua_decoder.h"
#include "multipart/multipart_parser.h"
#include "wire/reader.h"

namespace {

/// The phone's reading: record and container.
int readAsPhone(const QByteArray& octets) {
    auto* data = reinterpret_cast<unsigned char*>(const_cast<char*>(octets.constData()));
    auto length = static_cast<unsigned int>(octets.size());
    MMS_UA_UAMsg header;
    MMS_UA_Decoder().decodeHeader(data, length, &header);
    QArray<char> encoded;
    encoded.setRawData(reinterpret_cast<const char*>(header.bodyStart), header.bodyLength);
    MMS_COMP_SMILMultipart body;
    if (header.fieldsPresent(presenceBit(FIELD_CONTENT_TYPE)))
        MMS_COMP_SMILMultipartParser::parse(encoded, &header, &body);
    return body.getPartCount();
}

int readAndFill(MMS_WIRE_Reader& reader, const QByteArray& octets) {
    reader.read(octets);
    MMS_UA_UAMsg header;
    reader.fill(&header);
    MMS_COMP_SMILMultipart body;
    reader.fill(&body);
    return body.getPartCount();
}

} // namespace

// Yardstick: the phone's reading of the same message into record and container.
void addFigures() {
    const std::shared_ptr<MMS_UA_UAMsg> notification = makeHeader(MESSAGE_NOTIFICATION_IND);
    const std::shared_ptr<MMS_UA_UAMsg> retrieved = makeHeader(MESSAGE_RETRIEVE_CONF);
    const QByteArray body = encodedBody(*makeBody(5, 20 * 1024));
    const std::pair<std::string, QByteArray> rows[] = {
        {"notification", encodedHeader(*notification)},
        {"five parts, 100 KB", encodedHeader(*retrieved) + body},
    };
    for (const auto& [name, octets] : rows) {
        const auto reader = std::make_shared<MMS_WIRE_Reader>();
        const QByteArray& message = octets;
        const auto yardstick = [message] { return readAsPhone(message); };
        addPair(
            "wire tree/" + name, message.size(),
            [message] {
                MMS_WIRE_Reader fresh;
                return fresh.read(message);
            },
            yardstick);
        addPair(
            "wire tree and fill/" + name, message.size(),
            [message, reader] { return readAndFill(*reader, message); }, yardstick);
    }
}
