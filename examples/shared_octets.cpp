// What differs between the containers of Qt 2 and those of Qt 6.

#include <lumsmilparser.h>

#include <QDebug>

int main() {
    // a copy of a QArray shares the octets until one of the two is detached
    QArray<char> octets = QByteArray("slide");
    QArray<char> shared = octets;
    shared[0] = 'g';
    QArray<char> own = octets.copy();
    own[0] = 's';
    qInfo() << octets.data() << shared.data() << own.data();

    // a QPtrList deletes its items once it is told to; a copy of it never does
    QPtrList<MMS_UTIL_Entry> recipients;
    recipients.setAutoDelete(true);
    recipients.append(new MMS_UTIL_Entry("", MMS_UTIL_Entry::PLMN, "+15550100"));
    const QPtrList<MMS_UTIL_Entry> copy = recipients;
    for (const MMS_UTIL_Entry* recipient : copy)
        qInfo() << recipient->getAddress() << copy.autoDelete();
    return 0;
}
