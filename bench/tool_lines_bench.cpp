#include "bench/messages.h"
#include "bench/pair.h"
#include "codec/message_kinds.h"
#include "multipart/multipart_parser.h"
#include "tools/lummms/print/lines.h"

#include <QCryptographicHash>

namespace {

QByteArray retrievedMessage(int pictureSize) {
    const Presentation made = makePresentation(1, pictureSize);
    const std::unique_ptr<MMS_UA_UAMsg> header = makeHeader(MESSAGE_RETRIEVE_CONF);
    const QArray<char> body = MMS_COMP_SMILMultipartParser::assembleBody(made.body.get(), header.get());
    return encodedHeader(*header) + QByteArray(body);
}

} // namespace

// The work of `lummms show --json --lines` on one line. Yardstick: decoding the base64, the SHA-256 of the
// message, and a copy.
void addFigures() {
    const QByteArray octets = retrievedMessage(10 * 1024);
    const QByteArray line = "key\t" + octets.toBase64();
    for (const READING reading : {READING_SENT, READING_PHONE})
        addPair(
            std::string("lines/") + (reading == READING_SENT ? "as sent" : "phone") + ", one slide, 10 KB",
            octets.size(),
            [line, reading] {
                int status = 0;
                return answerToLine(line, 1, reading, status).size();
            },
            [base64 = octets.toBase64()] {
                const QByteArray decoded = QByteArray::fromBase64(base64);
                const QByteArray copy(decoded.constData(), decoded.size());
                return QCryptographicHash::hash(copy, QCryptographicHash::Sha256);
            });
}
