// Reads a message, prints its contents, and saves its pictures: read_message FILE DIRECTORY

#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

int main(int argc, char** argv) {
    // the received message
    QFile file(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    QByteArray pdu = file.readAll();

    // its header, which has the position of the body
    MMS_UA_UAMsg header;
    unsigned int length = static_cast<unsigned int>(pdu.size());
    if (MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(pdu.data()), length, &header) !=
        CODEC_READ)
        return 1;
    // (all texts are the sender's: qInfo escapes control characters)
    qInfo() << "from" << header.getFrom().getAddress() << "subject" << header.getSubject();

    // the parts of the body
    QArray<char> octets;
    octets.duplicate(reinterpret_cast<char*>(header.bodyStart), qsizetype(header.bodyLength));
    MMS_COMP_SMILMultipart body;
    if (MMS_COMP_SMILMultipartParser::parse(octets, &header, &body) != 0)
        return 1;

    // the slides, whose media objects point to the parts
    MMS_COMP_SMILData presentation(&body);
    MMS_COMP_SMILMultipartBodypart* smil = body.getSmilPart();
    if (smil && MMS_COMP_SMILParser().parse(smil->getBodyData(), &body, &presentation) != 0)
        return 1;
    for (int i = 0; i < presentation.getTotalSlidesNum(); ++i) {
        const MMS_COMP_SMILMediaObject* text = presentation.getSlide(i)->getTextElem();
        if (text && text->getData())
            qInfo() << "slide" << i + 1 << QString::fromUtf8(QByteArray(text->getData()->getBodyData()));
    }

    // the pictures, under names that do not come from the message
    for (int i = 0; i < body.getPartCount(); ++i) {
        const MMS_COMP_SMILMultipartBodypart* part = body.getBodypartByIndex(i, false);
        if (part->getContentType() != "image")
            continue;
        const QString extension =
            MMS_COMP_Util::getFirstSupportExtNameByMIMEType("image", part->getSubType());
        QFile picture(QStringLiteral("%1/picture%2.%3").arg(argv[2]).arg(i).arg(extension));
        if (!picture.open(QIODevice::NewOnly) || picture.write(part->getBodyData()) < 0)
            return 2;
        qInfo() << "saved" << picture.fileName();
    }
    return 0;
}
