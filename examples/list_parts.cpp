// Lists the parts of a message: list_parts FILE

#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc == 2 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    QByteArray pdu = file.readAll();
    MMS_UA_UAMsg header;
    unsigned int length = static_cast<unsigned int>(pdu.size());
    if (MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(pdu.data()), length, &header) !=
        CODEC_READ)
        return 1;

    QArray<char> octets;
    octets.duplicate(reinterpret_cast<char*>(header.bodyStart), qsizetype(header.bodyLength));
    MMS_COMP_SMILMultipart body;
    const int status = MMS_COMP_SMILMultipartParser::parse(octets, &header, &body);

    // of a malformed body, the parts before the error are there
    for (int i = 0; i < body.getPartCount(); ++i) {
        const MMS_COMP_SMILMultipartBodypart* part = body.getBodypartByIndex(i, false);
        qInfo() << part->getContentLocation() << part->getMimeFormat() << part->getBodyData().size();
    }
    if (const MMS_COMP_SMILMultipartBodypart* smil = body.getSmilPart())
        qInfo() << "presentation" << smil->getContentLocation();
    return status == 0 ? 0 : 1;
}
