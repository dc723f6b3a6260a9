// Encodes one header field and decodes it again: encode_field SUBJECT

#include <lumsmilparser.h>

#include <QDebug>

int main(int argc, char** argv) {
    MMS_UA_UAMsg message;
    message.setSubject(QString::fromLocal8Bit(argc == 2 ? argv[1] : ""));

    // the octets of the field: code and value
    const FieldBase* codec = headerField(FIELD_SUBJECT)->codec;
    QByteArray octets(codec->fieldSize(&message), 0);
    LinearBuffer out(reinterpret_cast<unsigned char*>(octets.data()), int(octets.size()));
    if (codec->writeField(&out, &message) != CODEC_WRITTEN)
        return 1;
    qInfo() << octets.left(out.getPosition()).toHex(' ').constData();

    // a codec reads the value behind the code
    LinearBuffer in(reinterpret_cast<unsigned char*>(octets.data()), out.getPosition());
    MMS_UA_UAMsg decoded;
    int code = 0;
    if (IntegerBinary::readFrom(&in, &code) != CODEC_READ || codec->readField(&in, &decoded) != CODEC_READ)
        return 1;
    qInfo() << headerField(code)->name << decoded.getSubject();
    return 0;
}
