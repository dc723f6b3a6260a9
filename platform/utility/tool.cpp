#include "platform/utility/tool.h"

#include <QByteArray>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(octetLog, "lum.mms.octets", QtFatalMsg) // off: octets of messages are private

} // namespace

void MMS_UTIL_Tool::logOut(const char* octets, int length) {
    if (octets && length > 0)
        qCDebug(octetLog).noquote() << QByteArray::fromRawData(octets, length).toHex(' ');
}
