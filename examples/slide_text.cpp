// Prints the text of one slide: slide_text FILE NUMBER

#include <lumsmilparser.h>

#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
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
    MMS_COMP_SMILMultipartBodypart* smil = nullptr;
    if (MMS_COMP_SMILMultipartParser::parse(octets, &header, &body) == 0)
        smil = body.getSmilPart();
    MMS_COMP_SMILData presentation(&body);
    if (!smil || MMS_COMP_SMILParser().parse(smil->getBodyData(), &body, &presentation) != 0)
        return 1;

    // slides are counted from 0; the slide and its text may be missing
    MMS_COMP_SMILTimingContainer* slide = presentation.getSlide(std::atoi(argv[2]) - 1);
    const MMS_COMP_SMILMediaObject* text = slide ? slide->getTextElem() : nullptr;
    if (!text || !text->getData())
        return 1;
    std::puts(text->getData()->getBodyData().data()); // UTF-8, followed by a zero
    return 0;
}
