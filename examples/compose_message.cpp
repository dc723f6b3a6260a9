// Makes a message of one slide with a picture and a text: compose_message PICTURE.jpg FILE

#include <lumsmilparser.h>

#include <QFile>

#include <memory>

int main(int argc, char** argv) {
    QArray<char> picture;
    const QString name = QString::fromLocal8Bit(argc == 3 ? argv[1] : "");
    if (MMS_COMP_Util::getQByteArraySrcByFileName(picture, name, true) != MMS_COMP_Util::FILE_READ)
        return 2;

    // the slides, on a screen with room for both regions of the layout; their content is added to the body
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData presentation(&body);
    presentation.setRootLayout(120, 320);
    MMS_COMP_SMILParser::updateToVarnelioRegion(&presentation);
    MMS_COMP_SMILTimingContainer* slide = presentation.appendSlide();
    slide->setDur(8000);
    slide->updateData(MMS_COMP_SMILData::getImgRegionId(), presentation.createUniqueSrc(name),
                      MMS_COMP_SMIL_MEDIA_IMG, "jpeg", picture, true, &body);
    slide->updateData(MMS_COMP_SMILData::getTextRegionId(), presentation.createUniqueSrc("greeting.txt"),
                      MMS_COMP_SMIL_MEDIA_TEXT, "plain", QByteArray("Greetings from the sea"), true, &body);

    // the presentation: first in the body and named by its start; the body takes ownership
    auto* smil = new MMS_COMP_SMILMultipartBodypart;
    smil->setContentType("application");
    smil->setContentSubType("smil");
    smil->setContentID("<slides>");
    smil->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(&presentation).toUtf8());
    body.insertBodypart(smil, 0);
    body.setStart("<slides>");

    // the header: setters mark their field as present, for public members call markPresent()
    MMS_UA_UAMsg header;
    header.messageType = MESSAGE_SEND_REQ;
    header.markPresent(FIELD_MESSAGE_TYPE);
    header.setTransactionId("t1");
    header.version = 0x10; // 1.0
    header.markPresent(FIELD_MMS_VERSION);
    header.setFrom(MMS_UTIL_Entry("", MMS_UTIL_Entry::PLMN, "+15550101"));
    MMS_UTIL_Entry to("", MMS_UTIL_Entry::PLMN, "+15550100");
    header.addToRecipient(to);
    header.setSubject("Holidays");

    // the body first: assembling it sets the content type in the header
    const QArray<char> octets = MMS_COMP_SMILMultipartParser::assembleBody(&body, &header);
    unsigned char* head = nullptr;
    int headLength = 0;
    if (octets.isNull() || MMS_UA_Encoder().encodeHeader(&header, &head, &headLength) != CODEC_WRITTEN)
        return 1;
    const std::unique_ptr<unsigned char[]> headOwner(head); // allocated with new[], and owned by the caller

    QFile file(QString::fromLocal8Bit(argv[2]));
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.write(reinterpret_cast<char*>(head), headLength) == headLength &&
                         file.write(octets.data(), octets.size()) == octets.size();
    return written ? 0 : 2;
}
