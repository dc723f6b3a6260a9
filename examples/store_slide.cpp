// Writes a slide to a file and reads it again: store_slide FILE TEXT

#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadWrite | QIODevice::Truncate))
        return 2;

    // a record has the slide with all its media objects and their body parts
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILTimingContainer slide(&body);
    slide.setDur(3000);
    slide.updateData(MMS_COMP_SMILData::getTextRegionId(), "note.txt", MMS_COMP_SMIL_MEDIA_TEXT, "plain",
                     QByteArray(argv[2]), true, &body);
    QDataStream out(&file);
    slide.writeToStream(out);
    if (out.status() != QDataStream::Ok || !file.flush() || !file.seek(0))
        return 2;

    // the stream's status shows whether the record was complete
    MMS_COMP_SMILMultipart storedBody;
    MMS_COMP_SMILTimingContainer stored(nullptr);
    QDataStream in(&file);
    if (!stored.readFromStream(in) || in.status() != QDataStream::Ok)
        return 1;
    // the reader owns the body parts of a record until a container takes them
    for (const MMS_COMP_SMILMediaObject* object : stored)
        storedBody.appendBodypart(object->getData());
    qInfo() << stored.getDur() << "ms" << stored.getTextElem()->getData()->getBodyData().data();
    stored.clear(); // deletes the parts of the record, which the reader owns
    return 0;
}
