#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    const QByteArray pdu = file.readAll();
    MMS_WIRE_Reader message;
    message.read(pdu);
    MMS_UA_UAMsg header;
    message.fill(&header);
    qInfo() << header.getFrom().getAddress() << header.getSubject();
    for (const MMS_WIRE_Part& part : message.parts())
        qInfo() << part.name() << part.mediaType() << part.payload().size();
    return message.isSound() ? 0 : 1;
}
