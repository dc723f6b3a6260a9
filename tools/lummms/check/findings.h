#pragma once

#include <QList>
#include <QString>

class Message;
class MMS_WIRE_Item;
class MMS_WIRE_Reader;

/// How much a finding weighs.
enum FINDING : int {
    FINDING_ERROR,   ///< the message is malformed, or something in it is lost
    FINDING_WARNING, ///< off the rules: some receivers will read it otherwise
    FINDING_PHONE,   ///< the phone makes something else of it than was sent
};

/// One thing that will go wrong with a message.
struct Finding {
    FINDING severity;
    qint64 offset; ///< the octet in the PDU; -1 when it has no one place
    QString what;  ///< a sentence without its full stop, fit for a terminal
};

/// All that will go wrong with a message that was read as it was sent. Reads its presentation.
QList<Finding> findingsIn(Message& message);

// The pieces of it.

/// The header field behind Content-Type, where a malformed body should begin, read by `reader`; the null item
/// when there is none.
MMS_WIRE_Item fieldBehindContentType(const Message& message, MMS_WIRE_Reader& reader);

/// Octets, fields and their order, names of parts, size.
QList<Finding> findingsInOctets(const Message& message);
/// References, regions and markup, once the presentation was read.
QList<Finding> findingsInPresentation(const Message& message);
/// Every difference between what was sent and what the phone reads, but for the Date, which it replaces
/// always, the names of charsets and the layout. Once the presentation was read.
QList<Finding> findingsOfPhone(const Message& message);
