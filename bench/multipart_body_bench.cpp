#include "bench/messages.h"
#include "bench/pair.h"
#include "multipart/multipart_codec.h"
#include "multipart/multipart_parser.h"

namespace {

unsigned char* octetsOf(const QByteArray& array) {
    return reinterpret_cast<unsigned char*>(const_cast<char*>(array.constData()));
}

} // namespace

// Yardstick: allocating and copying the payloads, one by one for decoding, all into one for encoding.
void addFigures() {
    const struct {
        const char* name;
        int count;
        int size;
    } rows[] = {
        {"3 x 1 KB", 3, 1024},
        {"40 x 1 KB", 40, 1024},
        {"3 x 50 KB", 3, 50 * 1024},
        {"3 x 1 MB", 3, 1024 * 1024},
    };
    for (const auto& row : rows) {
        const std::shared_ptr<MMS_COMP_SMILMultipart> body = makeBody(row.count, row.size);
        const QByteArray octets = encodedBody(*body);
        const qsizetype size = octets.size();
        const std::string name = row.name;
        const auto gather = [body, size] { return gatherPayloads(*body, size); };
        addPair(
            "body decode/" + name, size,
            [octets, size] {
                MMS_COMP_SMILMultipart decoded;
                return MMS_UA_MultiPart_CODEC::decodeMultipart(true, octetsOf(octets),
                                                               static_cast<unsigned int>(size), &decoded);
            },
            [octets, payloads = payloadsIn(octets, *body)] { return copyPayloads(payloads); });
        addPair(
            "body encode/" + name, size,
            [body] {
                unsigned char* out = nullptr;
                unsigned int length = 0;
                MMS_UA_MultiPart_CODEC::encodeMultipart(true, body.get(), &out, &length);
                const std::unique_ptr<unsigned char[]> owned(out);
                return length;
            },
            gather);
        addPair(
            "body assemble/" + name, size,
            [body] {
                MMS_UA_UAMsg header;
                return MMS_COMP_SMILMultipartParser::assembleBody(body.get(), &header).size();
            },
            gather);
    }
}
