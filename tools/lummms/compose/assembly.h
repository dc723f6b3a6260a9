#pragma once

#include <QByteArray>
#include <QString>

class MMS_UA_UAMsg;
struct Draft;

/// Builds presentation and parts from the content and encodes the message, whose header gets its content
/// type. Without `content` the message has no body. On failure returns false and sets `cause`.
bool encodeMessage(MMS_UA_UAMsg& header, const Draft* content, QByteArray& pdu, QString& cause);
