// Shows everything that is in a message, with its place, and what is wrong with it: dump_message FILE
//
// This reads the message as its sender meant it: for gateways, archives and test benches. The phone's reading
// (see read_message) can lose some of it: use that to find out what a phone shows.

#include <lumsmilparser.h>

#include <QDebug>
#include <QFile>

namespace {

/// Prints a line for each item inside an item: offset, octets, name, value. (All texts are the sender's, even
/// names of headers: qInfo escapes control characters.)
void dump(const MMS_WIRE_Item& item, int depth) {
    for (const MMS_WIRE_Item inside : item) {
        qInfo() << QByteArray(2 * depth, ' ').constData() << inside.offset() << inside.length()
                << inside.name() << inside.valueText();
        dump(inside, depth + 1);
    }
}

} // namespace

int main(int argc, char** argv) {
    QFile file(QString::fromLocal8Bit(argc == 2 ? argv[1] : ""));
    if (!file.open(QIODevice::ReadOnly))
        return 2;
    const QByteArray pdu = file.readAll(); // the items point into it

    MMS_WIRE_Reader reader;
    const bool isSound = reader.read(pdu);
    dump(reader.message(), 0);
    for (const MMS_WIRE_Mark& mark : reader.marks())
        qInfo() << (mark.severity == MMS_WIRE_Item::PROBLEM ? "problem" : "note") << "at"
                << mark.item.offset() << qPrintable(mark.what);

    // into the record and container that the phone's reading fills too
    MMS_UA_UAMsg header;
    const QList<MMS_WIRE_Item> others = reader.fill(&header);
    MMS_COMP_SMILMultipart body;
    reader.fill(&body);
    qInfo() << "subject" << header.getSubject() << "parts" << body.getPartCount() << "other fields"
            << others.size();
    return isSound ? 0 : 1;
}
