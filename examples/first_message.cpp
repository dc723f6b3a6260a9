#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    const QByteArray pdu = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    MMS_WIRE_Reader message;
    message.read(pdu);
    MMS_UA_UAMsg header;
    message.fill(&header);
    qInfo() << header.getFrom().getAddress() << header.getSubject();
    for (const MMS_WIRE_Part& part : message.parts())
        qInfo() << part.name() << part.mediaType() << part.payload().size();
    return message.isSound() ? 0 : 1;
}
