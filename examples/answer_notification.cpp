// Answers a notification: answer_notification FILE ANSWER
// Says what waits to be fetched, and writes the m-notifyresp-ind that puts the fetching off.

#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

#include <memory>

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc == 3 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    QByteArray pdu = file.readAll();

    MMS_UA_UAMsg notification;
    unsigned int length = static_cast<unsigned int>(pdu.size());
    if (MMS_UA_Decoder().decodeHeader(reinterpret_cast<unsigned char*>(pdu.data()), length, &notification) !=
            CODEC_READ ||
        notification.messageType != MESSAGE_NOTIFICATION_IND || !notification.mandatoryFldsPresentInPDU())
        return 1;
    qInfo() << notification.getMsgSize() << "octets wait at" << notification.getMsgURI();

    // setters mark their field as present; for public members call markPresent()
    MMS_UA_UAMsg answer;
    answer.messageType = MESSAGE_NOTIFYRESP_IND;
    answer.markPresent(FIELD_MESSAGE_TYPE);
    answer.setTransactionId(notification.getTransactionId());
    answer.version = 0x10; // 1.0
    answer.markPresent(FIELD_MMS_VERSION);
    answer.status = 131; // Deferred
    answer.markPresent(FIELD_STATUS);
    unsigned char* octets = nullptr;
    int count = 0;
    if (MMS_UA_Encoder().encodeHeader(&answer, &octets, &count) != CODEC_WRITTEN)
        return 1;
    const std::unique_ptr<unsigned char[]> owner(octets); // allocated with new[]

    QFile answerFile(QString::fromLocal8Bit(argv[2]));
    return answerFile.open(QIODevice::WriteOnly) &&
                   answerFile.write(reinterpret_cast<char*>(octets), count) == count
               ? 0
               : 2;
}
