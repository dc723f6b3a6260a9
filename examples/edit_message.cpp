// Gives the first slide of a message another text and sends it on: edit_message FILE TEXT NEWFILE

#include <lumsmilparser.h>

#include <QFile>

#include <memory>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc == 4 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    QByteArray pdu = file.readAll();

    // header, body and presentation of the received message
    MMS_UA_UAMsg received;
    unsigned int length = static_cast<unsigned int>(pdu.size());
    if (MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(pdu.data()), length, &received) !=
        CODEC_READ)
        return 1;
    QArray<char> octets;
    octets.duplicate(reinterpret_cast<char*>(received.bodyStart), qsizetype(received.bodyLength));
    MMS_COMP_SMILMultipart body;
    if (MMS_COMP_SMILMultipartParser::parse(octets, &received, &body) != 0)
        return 1;
    MMS_COMP_SMILData presentation(&body);
    MMS_COMP_SMILMultipartBodypart* smil = body.getSmilPart();
    if (!smil || MMS_COMP_SMILParser().parse(smil->getBodyData(), &body, &presentation) != 0 ||
        presentation.getTotalSlidesNum() == 0)
        return 1;

    // replace the slide's text, or add one below the picture; then write the SMIL text anew
    MMS_COMP_SMILTimingContainer* slide = presentation.getSlide(0);
    slide->updateData(MMS_COMP_SMILData::getTextRegionId(), presentation.createUniqueSrc("answer.txt"),
                      MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray(argv[2]), true, &body);
    // (a text with a background colour cannot be read again, so the root layout gets none)
    if (MMS_COMP_SMILRootLayout* screen = presentation.getRootLayout())
        *screen->getBackgroundColor() = MMS_COMP_COLOR();
    smil->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(&presentation).toUtf8());

    // send it back to the sender, if known, with a new header
    if (received.getFrom().isEmpty())
        return 1;
    MMS_UA_UAMsg header;
    header.messageType = MESSAGE_SEND_REQ;
    header.markPresent(FIELD_MESSAGE_TYPE);
    header.setTransactionId("t2");
    header.version = 0x10; // 1.0
    header.markPresent(FIELD_MMS_VERSION);
    MMS_UTIL_Entry to = received.getFrom();
    header.addToRecipient(to);
    header.setSubject("Re: " + received.getSubject());
    octets = MMS_COMP_SMILMultipartParser::assembleBody(&body, &header);
    unsigned char* head = nullptr;
    int headLength = 0;
    if (octets.isNull() || MMS_UA_Encoder().encodeHeader(&header, &head, &headLength) != CODEC_WRITTEN)
        return 1;
    const std::unique_ptr<unsigned char[]> headOwner(head);

    QFile newFile(QString::fromLocal8Bit(argv[3]));
    const bool written = newFile.open(QIODevice::WriteOnly) &&
                         newFile.write(reinterpret_cast<char*>(head), headLength) == headLength &&
                         newFile.write(octets.data(), octets.size()) == octets.size();
    return written ? 0 : 2;
}
