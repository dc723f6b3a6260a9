#include "platform/ui/icon_reader.h"

QImage RES_ICON_Reader::getIcon(const QString& fileName, bool) {
    return QImage(QLatin1String(":/lummms/icons/") + fileName);
}
