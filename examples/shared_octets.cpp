// How the containers of Qt 2 differ from those of Qt 6.

#include <lumsmilparser.h>

#include <QDebug>

int main() {
    // copies of a QArray share the octets until one is detached
    QArray<char> octets = QByteArray("slide");
    QArray<char> shared = octets;
    shared[0] = 'g';
    QArray<char> own = octets.copy();
    own[0] = 's';
    qInfo() << octets.data() << shared.data() << own.data();

    // with setAutoDelete() a QPtrList deletes its items; its copies never do
    QPtrList<MMS_UTIL_Entry> recipients;
    recipients.setAutoDelete(true);
    recipients.append(new MMS_UTIL_Entry("", MMS_UTIL_Entry::PLMN, "+15550100"));
    const QPtrList<MMS_UTIL_Entry> copy = recipients;
    for (const MMS_UTIL_Entry* recipient : copy)
        qInfo() << recipient->getAddress() << copy.autoDelete();
    return 0;
}
