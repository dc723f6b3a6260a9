#pragma once

#include <QByteArray>
#include <QString>

class MMS_COMP_SMILData;
class MMS_COMP_SMILMultipartBodypart;
class MMS_UA_UAMsg;
class Message;
class QJsonObject;

// The pieces of what `lummms show` prints.

/// The header as aligned names and values.
QString headerForPerson(const MMS_UA_UAMsg& header);
/// The body's parts as a table, or what there is instead of parts.
QString partsForPerson(Message& message);
/// The presentation as a storyboard, one block a slide.
QString slidesForPerson(const Message& message);
/// The whole message as JSON. Reads the presentation itself, since it shows the parts as they were
/// before.
QJsonObject toJson(Message& message);
/// The same as the text of a document of its own, with a line for each value unless there are very many.
QByteArray messageForProgram(Message& message);

/// "image/jpeg"; what a message has for it instead of that.
QString typeOf(const MMS_COMP_SMILMultipartBodypart& part);
/// The first words of a text part, in quotes and fit for a terminal.
QString firstWords(const MMS_COMP_SMILMultipartBodypart& part);
