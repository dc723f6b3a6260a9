#include "bench/messages.h"
#include "bench/pair.h"
#include "codec/message_kinds.h"
#include "codec/ua_decoder.h"
#include "multipart/multipart_parser.h"
#include "smil/parser/smil_parser.h"

#include <QDomDocument>

namespace {

/// From the octets of a message to its slides.
int receive(const QByteArray& octets) {
    auto* data = reinterpret_cast<unsigned char*>(const_cast<char*>(octets.constData()));
    auto length = static_cast<unsigned int>(octets.size());
    MMS_UA_UAMsg header;
    MMS_UA_Decoder().decodeHeader(data, length, &header);
    QArray<char> encoded;
    encoded.setRawData(reinterpret_cast<const char*>(header.bodyStart), header.bodyLength);
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILMultipartParser::parse(encoded, &header, &body);
    MMS_COMP_SMILData slides(&body);
    MMS_COMP_SMILParser().parse(body.getSmilPart()->getBodyData(), &body, &slides);
    return slides.getTotalSlidesNum();
}

} // namespace

// Yardstick: the header's texts as QStrings, the payloads allocated and copied, and the presentation's text
// in a QDomDocument. All three exist at the same time, as in a program that shows the message.
void addFigures() {
    const struct {
        const char* name;
        int slides;
        int pictureSize;
    } rows[] = {
        {"one slide, 10 KB", 1, 10 * 1024},
        {"five slides, 100 KB", 5, 20 * 1024},
        {"five slides, 300 KB", 5, 60 * 1024},
    };
    for (const auto& row : rows) {
        const auto made = std::make_shared<Presentation>(makePresentation(row.slides, row.pictureSize));
        const std::shared_ptr<MMS_UA_UAMsg> header = makeHeader(MESSAGE_RETRIEVE_CONF);
        const QArray<char> body = MMS_COMP_SMILMultipartParser::assembleBody(made->body.get(), header.get());
        const QByteArray octets = encodedHeader(*header) + QByteArray(body);
        const std::vector<QByteArray> texts = textsOf(*header);
        addPair(
            std::string("receive/") + row.name, octets.size(), [octets] { return receive(octets); },
            [octets, made, texts, payloads = payloadsIn(octets, *made->body)] {
                const auto strings = makeStrings(texts);
                const auto copies = copyPayloads(payloads);
                const QString text = QString::fromUtf8(made->smil.data(), made->smil.size());
                QDomDocument document;
                return document.setContent(text);
            });
    }
}
