#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class MMS_COMP_SMILMultipartBodypart;
class MMS_WIRE_Item;
struct Finding;
class Message;
class QJsonObject;

// The outputs of the commands.

/// The header as aligned names and values.
QString headerForPerson(const Message& message);
/// The parts of the body as a table; other text for a body that is no multipart.
QString partsForPerson(Message& message);
/// The presentation slide by slide.
QString slidesForPerson(const Message& message);
/// The whole message as JSON. Reads the presentation itself, after the parts were listed.
QJsonObject toJson(Message& message);
/// The same as a text, one value a line unless there are very many.
QByteArray messageForProgram(Message& message);

/// Every item of a message read as sent, one a line: offset, octets, name and value.
QString itemsForPerson(const Message& message);
/// The same as JSON.
QByteArray itemsForProgram(const Message& message);

/// The findings of `lummms check`, one a line.
QString findingsForPerson(const QList<Finding>& findings);
/// The same as JSON.
QByteArray findingsForProgram(const QList<Finding>& findings);

/// The name of a header field for the user: "Retrieve-Status".
QString fieldName(int code);
/// The value of a field in the header record, on one or more lines.
QStringList fieldLines(const Message& message, int code);
/// The value of an item for the user: word, text or number.
QString valueForPerson(const MMS_WIRE_Item& item);

/// The media type of a part: "image/jpeg".
QString typeOf(const MMS_COMP_SMILMultipartBodypart& part);
/// The first words of a text part in quotes, without control characters.
QString firstWords(const MMS_COMP_SMILMultipartBodypart& part);
