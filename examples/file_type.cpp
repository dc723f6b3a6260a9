// Prints the media type with which a file is sent: file_type FILE

#include <lumsmilparser.h>

#include <QDebug>

int main(int argc, char** argv) {
    const QString name = QString::fromLocal8Bit(argc == 2 ? argv[1] : "");
    QArray<char> octets;
    if (MMS_COMP_Util::getQByteArraySrcByFileName(octets, name, true) != MMS_COMP_Util::FILE_READ)
        return 2; // also when it is larger than MMS_UTIL_Setting::getMaxiumMOMMSSize() kilobytes

    const QString mime = AM_MimeType::instance()->getMimeIdByFile(name, QByteArray(octets));
    const QString type = mime.section('/', 0, 0);
    const QString subType = mime.section('/', 1);
    qInfo() << MMS_COMP_Util::stripePath(name) << mime << "WSP number"
            << MMS_UTIL_Common::mimeTypeGetValue(type, subType) << "extension"
            << MMS_COMP_Util::getFirstSupportExtNameByMIMEType(type, subType);
    return 0;
}
