#pragma once

#include <QList>
#include <QString>

class Message;
class MMS_WIRE_Item;
class MMS_WIRE_Reader;

/// Severity of a finding.
enum FINDING : int {
    FINDING_ERROR,   ///< the message is malformed, or something in it is lost
    FINDING_WARNING, ///< a deviation from the standard that some receivers read differently
    FINDING_PHONE,   ///< the phone reads something else than was sent
};

/// A finding about a message.
struct Finding {
    FINDING severity;
    qint64 offset; ///< position in the PDU; -1 without a single place
    QString what;  ///< a sentence without a full stop and without control characters
};

/// All findings about a message read as it was sent. Reads its presentation.
QList<Finding> findingsIn(Message& message);

// The parts of findingsIn().

/// The header field behind Content-Type, where a malformed body should begin, read by `reader`; the null item
/// when there is none.
MMS_WIRE_Item fieldBehindContentType(const Message& message, MMS_WIRE_Reader& reader);

/// Octets, fields and their order, part names, size.
QList<Finding> findingsInOctets(const Message& message);
/// References, regions and markup; after the presentation was read.
QList<Finding> findingsInPresentation(const Message& message);
/// Every difference between the message as sent and in the phone's reading, except the Date, which the phone
/// always replaces, the names of charsets, and the layout; after the presentation was read.
QList<Finding> findingsOfPhone(const Message& message);
