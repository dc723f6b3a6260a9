#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    QByteArray pdu = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    auto length = static_cast<unsigned int>(pdu.size());
    MMS_UA_UAMsg header;
    if (MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(pdu.data()), length, &header) !=
        CODEC_READ)
        return 1;
    qInfo() << header.getFrom().getAddress() << header.getSubject();
}
