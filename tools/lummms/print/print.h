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

// The pieces of what `lummms show` prints.

/// The header as aligned names and values.
QString headerForPerson(const Message& message);
/// The body's parts as a table, or what there is instead of parts.
QString partsForPerson(Message& message);
/// The presentation as a storyboard, one block a slide.
QString slidesForPerson(const Message& message);
/// The whole message as JSON. Reads the presentation itself, since it shows the parts as they were
/// before.
QJsonObject toJson(Message& message);
/// The same as the text of a document of its own, with a line for each value unless there are very many.
QByteArray messageForProgram(Message& message);

/// Every item of a message that was read as it was sent, one a line: offset, octets, name and value.
QString itemsForPerson(const Message& message);
/// The same as JSON.
QByteArray itemsForProgram(const Message& message);

/// What `lummms check` finds, one finding a line.
QString findingsForPerson(const QList<Finding>& findings);
/// The same as JSON.
QByteArray findingsForProgram(const QList<Finding>& findings);

/// The name of a header field for a person: "Retrieve-Status".
QString fieldName(int code);
/// The value of a field that the header's record has, in one or more lines.
QStringList fieldLines(const Message& message, int code);
/// The value of an item for a person: its words, its text or its number.
QString valueForPerson(const MMS_WIRE_Item& item);

/// "image/jpeg"; what a message has for it instead of that.
QString typeOf(const MMS_COMP_SMILMultipartBodypart& part);
/// The first words of a text part, in quotes and fit for a terminal.
QString firstWords(const MMS_COMP_SMILMultipartBodypart& part);
