#pragma once

#include <QByteArray>
#include <QString>

class MMS_UA_UAMsg;
struct Draft;

/// Builds presentation and parts of the content and encodes the message, whose header gets its content type;
/// a null `content` is that of a message without a body. False, with the reason in `cause`, when the message
/// cannot be encoded.
bool encodeMessage(MMS_UA_UAMsg& header, const Draft* content, QByteArray& pdu, QString& cause);
